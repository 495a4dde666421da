#pragma once

#include "export.h"

#include <afx.h>

// The product's settings: the master settings file, whose path the product's start hands over, and
// "ZuConfig.ini" in the system folder that the master file names. Values are cut to 511 characters. A value
// of "error", in any case, counts as missing. No function shows a message.
//
// Both are profile files of the platform: "[SECTION]", "KEY=VALUE", comments after ";". Names are compared
// ignoring the case of ASCII letters, white space around names and values does not count, a value in quotes
// is read without them, and the first of two equal names counts. They are in code page 932 unless a
// byte-order mark says UTF-8 or UTF-16 (little endian); a file that is written keeps its encoding and all
// its other lines.

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

/// Writes a value to "ZuConfig.ini", adding section and key where they are missing; a null value deletes the
/// key, a null key the section. The file argument is ignored. Nonzero on success; otherwise, as when a text
/// holds a line end or the file's encoding can't hold the value, the file is as it was.
ZUCOMN_API int ZuComn_writeConfig(const wchar_t* section, const wchar_t* key, const wchar_t* value,
                                  const wchar_t* file);

/// An option by its key in "ZuConfig.ini", else by its older key in the master file. 0, or -1 with the text
/// empty when an option that has an older key is missing in both. A key that is no known option gives 0, with
/// its value or empty. The separator of attribute values ("属性値区切り記号") has the form SEPARATOR,FLAG;
/// quotes around the separator are taken off. What the values mean is up to the modules that ask.
ZUCOMN_API int ZuComn_readEnvConfig(CString& value, const wchar_t* key);

/// Value of a key of any settings file. 0, or -1 with the text untouched when it is missing.
ZUCOMN_API int ZuComn_GetEnv(CString& value, const wchar_t* file, const wchar_t* section, const wchar_t* key);
/// The same by value, empty when missing.
ZUCOMN_API CString ZuComn_GetEnv(const wchar_t* file, const wchar_t* section, const wchar_t* key);
