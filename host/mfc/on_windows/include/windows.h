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

#include <zuhost/min_max.h>
#include <zuhost/platform/system_rules.h>

#include <cstddef>
#include <cstdint>

decltype(CompareFileTime) zuhost_CompareFileTime;
decltype(CopyFileW) zuhost_CopyFileW;
decltype(CreateDirectoryW) zuhost_CreateDirectoryW;
decltype(DeleteFileW) zuhost_DeleteFileW;
decltype(EnumResourceLanguagesW) zuhost_EnumResourceLanguagesW;
decltype(FindClose) zuhost_FindClose;
decltype(FindFirstFileW) zuhost_FindFirstFileW;
decltype(FindNextFileW) zuhost_FindNextFileW;
decltype(FreeLibrary) zuhost_FreeLibrary;
decltype(GetCurrentDirectoryW) zuhost_GetCurrentDirectoryW;
decltype(GetEnvironmentVariableW) zuhost_GetEnvironmentVariableW;
decltype(GetFileAttributesW) zuhost_GetFileAttributesW;
decltype(GetFullPathNameW) zuhost_GetFullPathNameW;
decltype(GetLocalTime) zuhost_GetLocalTime;
decltype(GetModuleFileNameW) zuhost_GetModuleFileNameW;
decltype(GetModuleHandleW) zuhost_GetModuleHandleW;
decltype(GetPrivateProfileIntW) zuhost_GetPrivateProfileIntW;
decltype(GetPrivateProfileSectionNamesW) zuhost_GetPrivateProfileSectionNamesW;
decltype(GetPrivateProfileStringW) zuhost_GetPrivateProfileStringW;
decltype(GetProcAddress) zuhost_GetProcAddress;
decltype(GetSystemTime) zuhost_GetSystemTime;
decltype(GetTempFileNameW) zuhost_GetTempFileNameW;
decltype(GetTempPathW) zuhost_GetTempPathW;
decltype(GetTickCount64) zuhost_GetTickCount64;
decltype(GetUserDefaultLangID) zuhost_GetUserDefaultLangID;
decltype(GetUserDefaultUILanguage) zuhost_GetUserDefaultUILanguage;
decltype(GetVersionExW) zuhost_GetVersionExW;
decltype(LoadLibraryW) zuhost_LoadLibraryW;
decltype(LoadStringW) zuhost_LoadStringW;
decltype(MessageBoxW) zuhost_MessageBoxW;
decltype(MoveFileExW) zuhost_MoveFileExW;
decltype(MoveFileW) zuhost_MoveFileW;
decltype(MultiByteToWideChar) zuhost_MultiByteToWideChar;
decltype(RegQueryValueW) zuhost_RegQueryValueW;
decltype(RemoveDirectoryW) zuhost_RemoveDirectoryW;
decltype(SetCurrentDirectoryW) zuhost_SetCurrentDirectoryW;
decltype(SetFileAttributesW) zuhost_SetFileAttributesW;
decltype(Sleep) zuhost_Sleep;
decltype(WideCharToMultiByte) zuhost_WideCharToMultiByte;
decltype(WritePrivateProfileStringW) zuhost_WritePrivateProfileStringW;
decltype(lstrcatW) zuhost_lstrcatW;
decltype(lstrcmpW) zuhost_lstrcmpW;
decltype(lstrcmpiW) zuhost_lstrcmpiW;
decltype(lstrcpyW) zuhost_lstrcpyW;
decltype(lstrcpynW) zuhost_lstrcpynW;

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

// ---- of the C library

int _wtoi(const wchar_t* text);
double _wtof(const wchar_t* text);
int _wcsicmp(const wchar_t* left, const wchar_t* right);
int _wcsnicmp(const wchar_t* left, const wchar_t* right, std::size_t count);
void _wsplitpath(const wchar_t* path, wchar_t* drive, wchar_t* folder, wchar_t* name, wchar_t* extension);
