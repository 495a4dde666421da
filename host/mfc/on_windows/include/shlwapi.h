#pragma once

#include <windows.h>

#include_next <shlwapi.h>

// The host's own, as in windows.h.

decltype(PathAddBackslashW) zuhost_PathAddBackslashW;
decltype(PathAddExtensionW) zuhost_PathAddExtensionW;
decltype(PathAppendW) zuhost_PathAppendW;
decltype(PathCombineW) zuhost_PathCombineW;
decltype(PathFileExistsW) zuhost_PathFileExistsW;
decltype(PathFindExtensionW) zuhost_PathFindExtensionW;
decltype(PathFindFileNameW) zuhost_PathFindFileNameW;
decltype(PathIsDirectoryW) zuhost_PathIsDirectoryW;
decltype(PathIsRelativeW) zuhost_PathIsRelativeW;
decltype(PathRemoveBackslashW) zuhost_PathRemoveBackslashW;
decltype(PathRemoveExtensionW) zuhost_PathRemoveExtensionW;
decltype(PathRemoveFileSpecW) zuhost_PathRemoveFileSpecW;
decltype(PathRenameExtensionW) zuhost_PathRenameExtensionW;
decltype(PathStripPathW) zuhost_PathStripPathW;

#define PathAddBackslashW zuhost_PathAddBackslashW
#define PathAddExtensionW zuhost_PathAddExtensionW
#define PathAppendW zuhost_PathAppendW
#define PathCombineW zuhost_PathCombineW
#define PathFileExistsW zuhost_PathFileExistsW
#define PathFindExtensionW zuhost_PathFindExtensionW
#define PathFindFileNameW zuhost_PathFindFileNameW
#define PathIsDirectoryW zuhost_PathIsDirectoryW
#define PathIsRelativeW zuhost_PathIsRelativeW
#define PathRemoveBackslashW zuhost_PathRemoveBackslashW
#define PathRemoveExtensionW zuhost_PathRemoveExtensionW
#define PathRemoveFileSpecW zuhost_PathRemoveFileSpecW
#define PathRenameExtensionW zuhost_PathRenameExtensionW
#define PathStripPathW zuhost_PathStripPathW
