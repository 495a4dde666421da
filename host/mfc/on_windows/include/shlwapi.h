#pragma once

#include <windows.h>

#include_next <shlwapi.h>

#include <zuhost/platform/export.h>

// The host's own, as in windows.h.

ZUHOST_API decltype(PathAddBackslashW) zuhost_PathAddBackslashW;
ZUHOST_API decltype(PathAddExtensionW) zuhost_PathAddExtensionW;
ZUHOST_API decltype(PathAppendW) zuhost_PathAppendW;
ZUHOST_API decltype(PathCombineW) zuhost_PathCombineW;
ZUHOST_API decltype(PathFileExistsW) zuhost_PathFileExistsW;
ZUHOST_API decltype(PathFindExtensionW) zuhost_PathFindExtensionW;
ZUHOST_API decltype(PathFindFileNameW) zuhost_PathFindFileNameW;
ZUHOST_API decltype(PathIsDirectoryW) zuhost_PathIsDirectoryW;
ZUHOST_API decltype(PathIsRelativeW) zuhost_PathIsRelativeW;
ZUHOST_API decltype(PathRemoveBackslashW) zuhost_PathRemoveBackslashW;
ZUHOST_API decltype(PathRemoveExtensionW) zuhost_PathRemoveExtensionW;
ZUHOST_API decltype(PathRemoveFileSpecW) zuhost_PathRemoveFileSpecW;
ZUHOST_API decltype(PathRenameExtensionW) zuhost_PathRenameExtensionW;
ZUHOST_API decltype(PathStripPathW) zuhost_PathStripPathW;

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
