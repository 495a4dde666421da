#pragma once

#include <windows.h>

#include <string>

class CFileException;

namespace zuhost {

/// Returns the platform's error code for an error number of the system.
[[nodiscard]] DWORD lastErrorOf(int systemError);

/// Returns the cause of a CFileException for an error number of the system.
[[nodiscard]] int fileExceptionCauseOf(int systemError);
/// Returns the same for the platform's error code of GetLastError; genericException for an unknown code.
[[nodiscard]] int fileExceptionCauseOfLastError(DWORD lastError);

/// Sets the platform's last error and, unless null, the file's exception for an error number of the system.
void reportFileError(CFileException* error, int systemError, const wchar_t* path);

/// Returns the system's error number for a file that does not exist: ENOTDIR when its folder is missing too,
/// otherwise ENOENT.
[[nodiscard]] int missingFileError(const std::string& path);

/// Returns the reason in words, to follow a file's name in a message: "No space left on device".
[[nodiscard]] std::string errorText(int systemError);
/// The same for the platform's error code of GetLastError.
[[nodiscard]] std::string lastErrorText(DWORD lastError);

} // namespace zuhost
