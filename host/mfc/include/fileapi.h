#pragma once

#include "windef.h"

#include <zuhost/platform/export.h>

// Files and folders by path, under the platform's names. Paths may contain "\\" or "/"; their case is
// ignored. On failure each function sets the last error. Included by windows.h.

inline constexpr DWORD INVALID_FILE_ATTRIBUTES = 0xFFFFFFFF;
inline constexpr DWORD FILE_ATTRIBUTE_READONLY = 0x01;
inline constexpr DWORD FILE_ATTRIBUTE_HIDDEN = 0x02;
inline constexpr DWORD FILE_ATTRIBUTE_SYSTEM = 0x04;
inline constexpr DWORD FILE_ATTRIBUTE_DIRECTORY = 0x10;
inline constexpr DWORD FILE_ATTRIBUTE_ARCHIVE = 0x20;
inline constexpr DWORD FILE_ATTRIBUTE_NORMAL = 0x80;

inline constexpr DWORD MOVEFILE_REPLACE_EXISTING = 0x1;
inline constexpr DWORD MOVEFILE_COPY_ALLOWED = 0x2;

/// A moment in units of 100 ns since 1601, UTC.
struct FILETIME {
    DWORD dwLowDateTime = 0;
    DWORD dwHighDateTime = 0;
};

struct SECURITY_ATTRIBUTES;
using LPSECURITY_ATTRIBUTES = SECURITY_ATTRIBUTES*;

struct WIN32_FIND_DATAW {
    DWORD dwFileAttributes = 0;
    FILETIME ftCreationTime; ///< The time of the last change: systems do not always keep the other.
    FILETIME ftLastAccessTime;
    FILETIME ftLastWriteTime;
    DWORD nFileSizeHigh = 0;
    DWORD nFileSizeLow = 0;
    wchar_t cFileName[MAX_PATH] = {};
    wchar_t cAlternateFileName[14] = {};
};
using WIN32_FIND_DATA = WIN32_FIND_DATAW;

ZUHOST_API BOOL CopyFileW(const wchar_t* from, const wchar_t* to, BOOL failIfExists);
ZUHOST_API BOOL MoveFileW(const wchar_t* from, const wchar_t* to);
/// MOVEFILE_REPLACE_EXISTING replaces a file; other flags are ignored.
ZUHOST_API BOOL MoveFileExW(const wchar_t* from, const wchar_t* to, DWORD flags);
ZUHOST_API BOOL DeleteFileW(const wchar_t* path);
/// The attributes are those of the folder above. ERROR_ALREADY_EXISTS when the name is taken.
ZUHOST_API BOOL CreateDirectoryW(const wchar_t* path, LPSECURITY_ATTRIBUTES attributes);
ZUHOST_API BOOL RemoveDirectoryW(const wchar_t* path);
/// Returns FILE_ATTRIBUTE values: directory, read-only (without the right to write), hidden (names that
/// begin with a dot); INVALID_FILE_ATTRIBUTES when there is no such file.
ZUHOST_API DWORD GetFileAttributesW(const wchar_t* path);
/// Sets or clears the read-only attribute; the others are not stored.
ZUHOST_API BOOL SetFileAttributesW(const wchar_t* path, DWORD attributes);

// Each copies a path and returns its length, or the size needed with the final zero when the buffer is too
// small. 0 on failure.

/// Returns the folder for temporary files, with a final "\\".
ZUHOST_API DWORD GetTempPathW(DWORD size, wchar_t* buffer);
ZUHOST_API DWORD GetCurrentDirectoryW(DWORD size, wchar_t* buffer);
ZUHOST_API DWORD GetFullPathNameW(const wchar_t* path, DWORD size, wchar_t* buffer, wchar_t** name);
/// Makes the name of a new file from at most three characters of `prefix` and a number, and creates the file
/// when `unique` is 0. The buffer has room for MAX_PATH characters. Returns the number.
ZUHOST_API UINT GetTempFileNameW(const wchar_t* folder, const wchar_t* prefix, UINT unique, wchar_t* buffer);
ZUHOST_API BOOL SetCurrentDirectoryW(const wchar_t* path);

/// Finds the files of a folder by a mask with "*" and "?", ordered by name. INVALID_HANDLE_VALUE when there
/// is none. The handle is closed with FindClose.
ZUHOST_API HANDLE FindFirstFileW(const wchar_t* mask, WIN32_FIND_DATAW* found);
/// FALSE with ERROR_NO_MORE_FILES after the last one.
ZUHOST_API BOOL FindNextFileW(HANDLE search, WIN32_FIND_DATAW* found);
ZUHOST_API BOOL FindClose(HANDLE search);

/// Returns less than, equal to or greater than 0.
ZUHOST_API LONG CompareFileTime(const FILETIME* left, const FILETIME* right);

inline BOOL CopyFile(const wchar_t* from, const wchar_t* to, BOOL failIfExists) {
    return CopyFileW(from, to, failIfExists);
}
inline BOOL MoveFile(const wchar_t* from, const wchar_t* to) {
    return MoveFileW(from, to);
}
inline BOOL MoveFileEx(const wchar_t* from, const wchar_t* to, DWORD flags) {
    return MoveFileExW(from, to, flags);
}
inline BOOL DeleteFile(const wchar_t* path) {
    return DeleteFileW(path);
}
inline BOOL CreateDirectory(const wchar_t* path, LPSECURITY_ATTRIBUTES attributes) {
    return CreateDirectoryW(path, attributes);
}
inline BOOL RemoveDirectory(const wchar_t* path) {
    return RemoveDirectoryW(path);
}
inline DWORD GetFileAttributes(const wchar_t* path) {
    return GetFileAttributesW(path);
}
inline BOOL SetFileAttributes(const wchar_t* path, DWORD attributes) {
    return SetFileAttributesW(path, attributes);
}
inline DWORD GetTempPath(DWORD size, wchar_t* buffer) {
    return GetTempPathW(size, buffer);
}
inline DWORD GetCurrentDirectory(DWORD size, wchar_t* buffer) {
    return GetCurrentDirectoryW(size, buffer);
}
inline DWORD GetFullPathName(const wchar_t* path, DWORD size, wchar_t* buffer, wchar_t** name) {
    return GetFullPathNameW(path, size, buffer, name);
}
inline UINT GetTempFileName(const wchar_t* folder, const wchar_t* prefix, UINT unique, wchar_t* buffer) {
    return GetTempFileNameW(folder, prefix, unique, buffer);
}
inline BOOL SetCurrentDirectory(const wchar_t* path) {
    return SetCurrentDirectoryW(path);
}
inline HANDLE FindFirstFile(const wchar_t* mask, WIN32_FIND_DATAW* found) {
    return FindFirstFileW(mask, found);
}
inline BOOL FindNextFile(HANDLE search, WIN32_FIND_DATAW* found) {
    return FindNextFileW(search, found);
}
