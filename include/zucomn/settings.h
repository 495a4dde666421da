#pragma once

#include "export.h"

#include <afx.h>

// The product's settings: the master settings file, whose path the product's start hands over, and
// "ZuConfig.ini" in the system folder that the master file names. Values are cut to 511 characters. A value
// of "error", in any case, counts as missing. No function shows a message.

/// Names the master settings file and reads the line weights from it (0 where missing).
ZUCOMN_API void ZuComn_SetIniFile(const CString& path);

/// The system folder. False, with the text empty, when the master file names none.
ZUCOMN_API bool ZuComn_GetSystemPath(CString& path);

/// Value of a key of "ZuConfig.ini"; the file argument is ignored. 0, or -1 with the text untouched when it
/// is missing.
ZUCOMN_API int ZuComn_readConfig(CString& value, const wchar_t* file, const wchar_t* section,
                                 const wchar_t* key);
/// The same by value, empty when missing.
ZUCOMN_API CString ZuComn_readConfig(const wchar_t* file, const wchar_t* section, const wchar_t* key);
/// The same into a buffer of 512 characters, empty when missing. 0 or -1.
ZUCOMN_API int ZuComn_readConfig(wchar_t* buffer, const wchar_t* file, const wchar_t* section,
                                 const wchar_t* key);

/// Writes a value to "ZuConfig.ini"; the file argument is ignored. Nonzero on success; otherwise the file is
/// as it was.
ZUCOMN_API int ZuComn_writeConfig(const wchar_t* section, const wchar_t* key, const wchar_t* value,
                                  const wchar_t* file);

/// An option by its key in "ZuConfig.ini", else by its older key in the master file. 0, or -1 with the text
/// empty when an option that has an older key is missing in both. A key that is no known option gives 0, with
/// its value or empty.
ZUCOMN_API int ZuComn_readEnvConfig(CString& value, const wchar_t* key);

/// Value of a key of any settings file. 0, or -1 with the text untouched when it is missing.
ZUCOMN_API int ZuComn_GetEnv(CString& value, const wchar_t* file, const wchar_t* section, const wchar_t* key);
/// The same by value, empty when missing.
ZUCOMN_API CString ZuComn_GetEnv(const wchar_t* file, const wchar_t* section, const wchar_t* key);
