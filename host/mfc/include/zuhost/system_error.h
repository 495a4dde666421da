#pragma once

#include <windows.h>
#include <zuhost/platform/export.h>

#include <string>

class CFileException;

namespace zuhost {

/// Returns the platform's error code for an error number of the system.
[[nodiscard]] ZUHOST_API DWORD lastErrorOf(int systemError);

/// Returns the cause of a CFileException for an error number of the system.
[[nodiscard]] ZUHOST_API int fileExceptionCauseOf(int systemError);
/// Returns the same for the platform's error code of GetLastError; genericException for an unknown code.
[[nodiscard]] ZUHOST_API int fileExceptionCauseOfLastError(DWORD lastError);

/// Sets the platform's last error and, unless null, the file's exception for an error number of the system.
ZUHOST_API void reportFileError(CFileException* error, int systemError, const wchar_t* path);

/// Returns the system's error number for a file that does not exist: ENOTDIR when its folder is missing too,
/// otherwise ENOENT.
[[nodiscard]] ZUHOST_API int missingFileError(const std::string& path);

/// Returns the reason in words, to follow a file's name in a message: "No space left on device".
[[nodiscard]] ZUHOST_API std::string errorText(int systemError);
/// The same for the platform's error code of GetLastError.
[[nodiscard]] ZUHOST_API std::string lastErrorText(DWORD lastError);

} // namespace zuhost
