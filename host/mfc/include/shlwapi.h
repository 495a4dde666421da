#pragma once

#include "windows.h"

#include <zuhost/platform/export.h>

// Paths as texts, under the platform's names. Buffers have room for MAX_PATH characters; a null path gives
// FALSE or null.

ZUHOST_API BOOL PathFileExistsW(const wchar_t* path);
ZUHOST_API BOOL PathIsDirectoryW(const wchar_t* path);
/// Returns whether the path lacks a drive and does not begin with a separator.
ZUHOST_API BOOL PathIsRelativeW(const wchar_t* path);
/// Each returns a part of the path itself; its end when there is no such part. The extension begins with ".".
ZUHOST_API wchar_t* PathFindFileNameW(const wchar_t* path);
ZUHOST_API wchar_t* PathFindExtensionW(const wchar_t* path);

// Each changes the path in place.

/// Removes the last name and the separator before it; FALSE when nothing was removed.
ZUHOST_API BOOL PathRemoveFileSpecW(wchar_t* path);
ZUHOST_API void PathRemoveExtensionW(wchar_t* path);
/// Removes all but the last name.
ZUHOST_API void PathStripPathW(wchar_t* path);
/// Appends a separator unless there is one; returns the new end, null when the buffer is full.
ZUHOST_API wchar_t* PathAddBackslashW(wchar_t* path);
/// Removes a final separator; returns the place where it was, or the last character.
ZUHOST_API wchar_t* PathRemoveBackslashW(wchar_t* path);
/// Each returns FALSE, with the path unchanged, when the result is too long.
ZUHOST_API BOOL PathAppendW(wchar_t* path, const wchar_t* more);
ZUHOST_API BOOL PathAddExtensionW(wchar_t* path, const wchar_t* extension);
ZUHOST_API BOOL PathRenameExtensionW(wchar_t* path, const wchar_t* extension);
/// Joins a folder and a path into the buffer; an absolute path stands alone. Null, with an empty text, when
/// the result is too long.
ZUHOST_API wchar_t* PathCombineW(wchar_t* buffer, const wchar_t* folder, const wchar_t* path);

inline BOOL PathFileExists(const wchar_t* path) {
    return PathFileExistsW(path);
}
inline BOOL PathIsDirectory(const wchar_t* path) {
    return PathIsDirectoryW(path);
}
inline BOOL PathIsRelative(const wchar_t* path) {
    return PathIsRelativeW(path);
}
inline wchar_t* PathFindFileName(const wchar_t* path) {
    return PathFindFileNameW(path);
}
inline wchar_t* PathFindExtension(const wchar_t* path) {
    return PathFindExtensionW(path);
}
inline BOOL PathRemoveFileSpec(wchar_t* path) {
    return PathRemoveFileSpecW(path);
}
inline void PathRemoveExtension(wchar_t* path) {
    PathRemoveExtensionW(path);
}
inline void PathStripPath(wchar_t* path) {
    PathStripPathW(path);
}
inline wchar_t* PathAddBackslash(wchar_t* path) {
    return PathAddBackslashW(path);
}
inline wchar_t* PathRemoveBackslash(wchar_t* path) {
    return PathRemoveBackslashW(path);
}
inline BOOL PathAppend(wchar_t* path, const wchar_t* more) {
    return PathAppendW(path, more);
}
inline BOOL PathAddExtension(wchar_t* path, const wchar_t* extension) {
    return PathAddExtensionW(path, extension);
}
inline BOOL PathRenameExtension(wchar_t* path, const wchar_t* extension) {
    return PathRenameExtensionW(path, extension);
}
inline wchar_t* PathCombine(wchar_t* buffer, const wchar_t* folder, const wchar_t* path) {
    return PathCombineW(buffer, folder, path);
}
