#pragma once

#include "export.h"

#include <afx.h>

// The product's settings: the master settings file, named by ZuComn_SetIniFile, and "ZuConfig.ini" in the
// system folder that the master file names. Values are truncated to 511 characters. A value of "error", in
// any case, counts as missing. No function shows a message.
//
// Both are profile files: "[SECTION]" headings, "KEY=VALUE" lines, comments after ";". Names are compared
// without regard to the case of ASCII letters, white space around names and values is ignored, quotes around
// a value are removed, and the first of duplicate names counts. Files are in code page 932 unless a
// byte-order mark specifies UTF-8 or UTF-16 (little endian). Writing preserves the encoding and all other
// lines.

/// Sets the path of the master settings file and reads the line weights from it; a missing one becomes 0.
ZUCOMN_API void ZuComn_SetIniFile(const CString& path);

/// Reads the path of the system folder. Returns false, with `path` empty, when the master file names none.
ZUCOMN_API bool ZuComn_GetSystemPath(CString& path);

/// Reads a value from "ZuConfig.ini". `file` is ignored. Returns 0 on success, -1 with `value` untouched when
/// it is missing.
ZUCOMN_API int ZuComn_readConfig(CString& value, const wchar_t* file, const wchar_t* section,
                                 const wchar_t* key);
/// Returns a value from "ZuConfig.ini", empty when it is missing. `file` is ignored.
ZUCOMN_API CString ZuComn_readConfig(const wchar_t* file, const wchar_t* section, const wchar_t* key);
/// Reads a value from "ZuConfig.ini" into a buffer of 512 characters. `file` is ignored. Returns 0 on
/// success, -1 with an empty buffer when it is missing.
ZUCOMN_API int ZuComn_readConfig(wchar_t* buffer, const wchar_t* file, const wchar_t* section,
                                 const wchar_t* key);

/// Writes a value to "ZuConfig.ini" and adds its section and key if necessary; a null value deletes the key,
/// a null key the section. `file` is ignored. Returns a nonzero value on success, 0 with the file unchanged
/// on failure: when an argument contains a line end, the settings name no system folder, the file's encoding
/// cannot represent the text, or the
/// file cannot be written.
ZUCOMN_API int ZuComn_writeConfig(const wchar_t* section, const wchar_t* key, const wchar_t* value,
                                  const wchar_t* file);

/// Reads an option by its key in "ZuConfig.ini", else by its older key in the master file. Returns 0 on
/// success, -1 with `value` empty when a known option is missing in both. For unknown keys it returns 0 even
/// when the value is missing; `value` is then empty. The separator of attribute values ("属性値区切り記号")
/// has the form SEPARATOR,FLAG; quotes around the separator are removed. The calling modules interpret the
/// values.
ZUCOMN_API int ZuComn_readEnvConfig(CString& value, const wchar_t* key);

/// Reads a value from any settings file. Returns 0 on success, -1 with `value` untouched when it is missing.
ZUCOMN_API int ZuComn_GetEnv(CString& value, const wchar_t* file, const wchar_t* section, const wchar_t* key);
/// Returns a value from any settings file, empty when it is missing.
ZUCOMN_API CString ZuComn_GetEnv(const wchar_t* file, const wchar_t* section, const wchar_t* key);
