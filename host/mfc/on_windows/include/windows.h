#pragma once

// The platform's own header, in its wide form, with the types, constants and functions that modules know. The
// host offers the functions below in the platform's place, so that files, profiles, modules and their texts,
// message boxes and code pages are alike on every system: its headers for other systems describe them.

#undef UNICODE
#undef _UNICODE
#undef NOMINMAX
#undef WIN32_LEAN_AND_MEAN
#define UNICODE
#define _UNICODE
#define NOMINMAX
#define WIN32_LEAN_AND_MEAN
#include_next <windows.h>
#undef UNREFERENCED_PARAMETER // afx.h has one that takes constants too

#include <zuhost/min_max.h>
#include <zuhost/platform/export.h>
#include <zuhost/platform/system_rules.h>

#include <cstdint>

ZUHOST_API decltype(CompareFileTime) zuhost_CompareFileTime;
ZUHOST_API decltype(CopyFileW) zuhost_CopyFileW;
ZUHOST_API decltype(CreateDirectoryW) zuhost_CreateDirectoryW;
ZUHOST_API decltype(DeleteFileW) zuhost_DeleteFileW;
ZUHOST_API decltype(EnumResourceLanguagesW) zuhost_EnumResourceLanguagesW;
ZUHOST_API decltype(FindClose) zuhost_FindClose;
ZUHOST_API decltype(FindFirstFileW) zuhost_FindFirstFileW;
ZUHOST_API decltype(FindNextFileW) zuhost_FindNextFileW;
ZUHOST_API decltype(FreeLibrary) zuhost_FreeLibrary;
ZUHOST_API decltype(GetCurrentDirectoryW) zuhost_GetCurrentDirectoryW;
ZUHOST_API decltype(GetEnvironmentVariableW) zuhost_GetEnvironmentVariableW;
ZUHOST_API decltype(GetFileAttributesW) zuhost_GetFileAttributesW;
ZUHOST_API decltype(GetFullPathNameW) zuhost_GetFullPathNameW;
ZUHOST_API decltype(GetLocalTime) zuhost_GetLocalTime;
ZUHOST_API decltype(GetModuleFileNameW) zuhost_GetModuleFileNameW;
ZUHOST_API decltype(GetModuleHandleW) zuhost_GetModuleHandleW;
ZUHOST_API decltype(GetPrivateProfileIntW) zuhost_GetPrivateProfileIntW;
ZUHOST_API decltype(GetPrivateProfileSectionNamesW) zuhost_GetPrivateProfileSectionNamesW;
ZUHOST_API decltype(GetPrivateProfileStringW) zuhost_GetPrivateProfileStringW;
ZUHOST_API decltype(GetProcAddress) zuhost_GetProcAddress;
ZUHOST_API decltype(GetSystemTime) zuhost_GetSystemTime;
ZUHOST_API decltype(GetTempFileNameW) zuhost_GetTempFileNameW;
ZUHOST_API decltype(GetTempPathW) zuhost_GetTempPathW;
ZUHOST_API decltype(GetTickCount64) zuhost_GetTickCount64;
ZUHOST_API decltype(GetUserDefaultLangID) zuhost_GetUserDefaultLangID;
ZUHOST_API decltype(GetUserDefaultUILanguage) zuhost_GetUserDefaultUILanguage;
ZUHOST_API decltype(GetVersionExW) zuhost_GetVersionExW;
ZUHOST_API decltype(LoadLibraryW) zuhost_LoadLibraryW;
ZUHOST_API decltype(LoadStringW) zuhost_LoadStringW;
ZUHOST_API decltype(MessageBoxW) zuhost_MessageBoxW;
ZUHOST_API decltype(MoveFileExW) zuhost_MoveFileExW;
ZUHOST_API decltype(MoveFileW) zuhost_MoveFileW;
ZUHOST_API decltype(MultiByteToWideChar) zuhost_MultiByteToWideChar;
ZUHOST_API decltype(RegQueryValueW) zuhost_RegQueryValueW;
ZUHOST_API decltype(RemoveDirectoryW) zuhost_RemoveDirectoryW;
ZUHOST_API decltype(SetCurrentDirectoryW) zuhost_SetCurrentDirectoryW;
ZUHOST_API decltype(SetFileAttributesW) zuhost_SetFileAttributesW;
ZUHOST_API decltype(Sleep) zuhost_Sleep;
ZUHOST_API decltype(WideCharToMultiByte) zuhost_WideCharToMultiByte;
ZUHOST_API decltype(WritePrivateProfileStringW) zuhost_WritePrivateProfileStringW;
ZUHOST_API decltype(lstrcatW) zuhost_lstrcatW;
ZUHOST_API decltype(lstrcmpW) zuhost_lstrcmpW;
ZUHOST_API decltype(lstrcmpiW) zuhost_lstrcmpiW;
ZUHOST_API decltype(lstrcpyW) zuhost_lstrcpyW;
ZUHOST_API decltype(lstrcpynW) zuhost_lstrcpynW;

#define CompareFileTime zuhost_CompareFileTime
#define CopyFileW zuhost_CopyFileW
#define CreateDirectoryW zuhost_CreateDirectoryW
#define DeleteFileW zuhost_DeleteFileW
#define EnumResourceLanguagesW zuhost_EnumResourceLanguagesW
#define FindClose zuhost_FindClose
#define FindFirstFileW zuhost_FindFirstFileW
#define FindNextFileW zuhost_FindNextFileW
#define FreeLibrary zuhost_FreeLibrary
#define GetCurrentDirectoryW zuhost_GetCurrentDirectoryW
#define GetEnvironmentVariableW zuhost_GetEnvironmentVariableW
#define GetFileAttributesW zuhost_GetFileAttributesW
#define GetFullPathNameW zuhost_GetFullPathNameW
#define GetLocalTime zuhost_GetLocalTime
#define GetModuleFileNameW zuhost_GetModuleFileNameW
#define GetModuleHandleW zuhost_GetModuleHandleW
#define GetPrivateProfileIntW zuhost_GetPrivateProfileIntW
#define GetPrivateProfileSectionNamesW zuhost_GetPrivateProfileSectionNamesW
#define GetPrivateProfileStringW zuhost_GetPrivateProfileStringW
#define GetProcAddress zuhost_GetProcAddress
#define GetSystemTime zuhost_GetSystemTime
#define GetTempFileNameW zuhost_GetTempFileNameW
#define GetTempPathW zuhost_GetTempPathW
#define GetTickCount64 zuhost_GetTickCount64
#define GetUserDefaultLangID zuhost_GetUserDefaultLangID
#define GetUserDefaultUILanguage zuhost_GetUserDefaultUILanguage
#define GetVersionExW zuhost_GetVersionExW
#define LoadLibraryW zuhost_LoadLibraryW
#define LoadStringW zuhost_LoadStringW
#define MessageBoxW zuhost_MessageBoxW
#define MoveFileExW zuhost_MoveFileExW
#define MoveFileW zuhost_MoveFileW
#define MultiByteToWideChar zuhost_MultiByteToWideChar
#define RegQueryValueW zuhost_RegQueryValueW
#define RemoveDirectoryW zuhost_RemoveDirectoryW
#define SetCurrentDirectoryW zuhost_SetCurrentDirectoryW
#define SetFileAttributesW zuhost_SetFileAttributesW
#define Sleep zuhost_Sleep
#define WideCharToMultiByte zuhost_WideCharToMultiByte
#define WritePrivateProfileStringW zuhost_WritePrivateProfileStringW
#define lstrcatW zuhost_lstrcatW
#define lstrcmpW zuhost_lstrcmpW
#define lstrcmpiW zuhost_lstrcmpiW
#define lstrcpyW zuhost_lstrcpyW
#define lstrcpynW zuhost_lstrcpynW

#include <zuhost/text_functions.h> // under the names of system_rules.h
