#pragma once

#include "windef.h"
#include "zuhost/text_functions.h"

#include <zuhost/platform/export.h>

#include <cstddef>
#include <cstring>
#include <cwchar>

// The part of the platform's base interface that modules use, under the platform's names. What is a macro
// with two forms there is a function here: the name without "W" calls the wide one.

#define TEXT(text) L##text

/// A loaded module: the program, a shared library, or a resource-only language module.
struct HINSTANCE__;
using HINSTANCE = HINSTANCE__*;
using HMODULE = HINSTANCE;

struct HKEY__;
using HKEY = HKEY__*;

inline constexpr DWORD ERROR_SUCCESS = 0;
inline constexpr DWORD ERROR_FILE_NOT_FOUND = 2;
inline constexpr DWORD ERROR_PATH_NOT_FOUND = 3;
inline constexpr DWORD ERROR_TOO_MANY_OPEN_FILES = 4;
inline constexpr DWORD ERROR_ACCESS_DENIED = 5;
inline constexpr DWORD ERROR_INVALID_HANDLE = 6;
inline constexpr DWORD ERROR_NOT_ENOUGH_MEMORY = 8;
inline constexpr DWORD ERROR_NO_MORE_FILES = 18;
inline constexpr DWORD ERROR_ENVVAR_NOT_FOUND = 203;
inline constexpr DWORD ERROR_SHARING_VIOLATION = 32;
inline constexpr DWORD ERROR_FILE_EXISTS = 80;
inline constexpr DWORD ERROR_INVALID_PARAMETER = 87;
inline constexpr DWORD ERROR_DISK_FULL = 112;
inline constexpr DWORD ERROR_INVALID_NAME = 123;
inline constexpr DWORD ERROR_MOD_NOT_FOUND = 126;
inline constexpr DWORD ERROR_ALREADY_EXISTS = 183;
inline constexpr DWORD ERROR_MORE_DATA = 234;
inline constexpr DWORD ERROR_WRITE_FAULT = 29;
inline constexpr DWORD ERROR_NO_UNICODE_TRANSLATION = 1113;

/// The calling thread's last error, set by the functions below when they fail.
ZUHOST_API DWORD GetLastError();
ZUHOST_API void SetLastError(DWORD error);

// ---- text

inline constexpr UINT CP_ACP = 0;
inline constexpr UINT CP_UTF8 = 65001;
/// Decodes a code page (CP_ACP: 932). Returns the number of characters written, or needed when `size` is 0; 0
/// on failure.
ZUHOST_API int MultiByteToWideChar(UINT codePage, DWORD flags, const char* bytes, int count, wchar_t* text,
                                   int size);
/// Encodes a text. Returns 0 when the code page cannot represent a character.
ZUHOST_API int WideCharToMultiByte(UINT codePage, DWORD flags, const wchar_t* text, int count, char* bytes,
                                   int size, const char* defaultCharacter, BOOL* usedDefault);

inline void ZeroMemory(void* memory, std::size_t size) {
    std::memset(memory, 0, size);
}
inline void FillMemory(void* memory, std::size_t size, BYTE value) {
    std::memset(memory, value, size);
}
inline void CopyMemory(void* to, const void* from, std::size_t size) {
    std::memcpy(to, from, size);
}
inline void MoveMemory(void* to, const void* from, std::size_t size) {
    std::memmove(to, from, size);
}

// As the platform's functions: a null text is empty, or fails.

inline int lstrlen(const wchar_t* text) {
    return text != nullptr ? static_cast<int>(std::wcslen(text)) : 0;
}
/// Copies up to `size` characters with the final zero; null for null.
ZUHOST_API wchar_t* lstrcpyn(wchar_t* buffer, const wchar_t* text, int size);
ZUHOST_API wchar_t* lstrcpy(wchar_t* buffer, const wchar_t* text);
ZUHOST_API wchar_t* lstrcat(wchar_t* buffer, const wchar_t* text);
ZUHOST_API int lstrcmp(const wchar_t* left, const wchar_t* right);
ZUHOST_API int lstrcmpi(const wchar_t* left, const wchar_t* right);

// ---- profile files

/// Reads a value, or the names of sections or keys (null section or key) separated by NUL. Returns the number
/// of characters written.
ZUHOST_API DWORD GetPrivateProfileStringW(const wchar_t* section, const wchar_t* key, const wchar_t* fallback,
                                          wchar_t* buffer, DWORD size, const wchar_t* file);
ZUHOST_API DWORD GetPrivateProfileSectionNamesW(wchar_t* buffer, DWORD size, const wchar_t* file);
ZUHOST_API UINT GetPrivateProfileIntW(const wchar_t* section, const wchar_t* key, int fallback,
                                      const wchar_t* file);
/// Writes a value; a null value deletes the key, a null key the section. The file is replaced as a whole or
/// not at all.
ZUHOST_API BOOL WritePrivateProfileStringW(const wchar_t* section, const wchar_t* key, const wchar_t* value,
                                           const wchar_t* file);
inline DWORD GetPrivateProfileString(const wchar_t* section, const wchar_t* key, const wchar_t* fallback,
                                     wchar_t* buffer, DWORD size, const wchar_t* file) {
    return GetPrivateProfileStringW(section, key, fallback, buffer, size, file);
}
inline DWORD GetPrivateProfileSectionNames(wchar_t* buffer, DWORD size, const wchar_t* file) {
    return GetPrivateProfileSectionNamesW(buffer, size, file);
}
inline UINT GetPrivateProfileInt(const wchar_t* section, const wchar_t* key, int fallback,
                                 const wchar_t* file) {
    return GetPrivateProfileIntW(section, key, fallback, file);
}
inline BOOL WritePrivateProfileString(const wchar_t* section, const wchar_t* key, const wchar_t* value,
                                      const wchar_t* file) {
    return WritePrivateProfileStringW(section, key, value, file);
}

// ---- modules and their texts

/// Loads a module and runs its attach; "DIR\\NAME.dll" names NAME.dll, NAME.so, libNAME.so or NAME.strings in
/// the folder, whatever its case. A ".strings" file is a module of texts only. Null on failure.
ZUHOST_API HMODULE LoadLibraryW(const wchar_t* path);
/// Runs the module's detach when it was loaded for the last time.
ZUHOST_API BOOL FreeLibrary(HMODULE module);
ZUHOST_API void* GetProcAddress(HMODULE module, const char* name);
/// Returns the module's path in the platform's form: "...\\NAME.dll" for libNAME.so. Null is the program.
ZUHOST_API DWORD GetModuleFileNameW(HMODULE module, wchar_t* buffer, DWORD size);
/// Copies a text of the module, truncated to the buffer. Returns its length; 0 and an empty buffer when the
/// module lacks it.
ZUHOST_API int LoadStringW(HINSTANCE instance, UINT id, wchar_t* buffer, int size);
/// Returns a loaded module by its name or path, with or without ".dll"; null with ERROR_MOD_NOT_FOUND when
/// there is none. The program for null.
ZUHOST_API HMODULE GetModuleHandleW(const wchar_t* name);
inline HMODULE LoadLibrary(const wchar_t* path) {
    return LoadLibraryW(path);
}
inline HMODULE GetModuleHandle(const wchar_t* name) {
    return GetModuleHandleW(name);
}
inline DWORD GetModuleFileName(HMODULE module, wchar_t* buffer, DWORD size) {
    return GetModuleFileNameW(module, buffer, size);
}
inline int LoadString(HINSTANCE instance, UINT id, wchar_t* buffer, int size) {
    return LoadStringW(instance, id, buffer, size);
}

inline constexpr DWORD DLL_PROCESS_DETACH = 0;
inline constexpr DWORD DLL_PROCESS_ATTACH = 1;
inline constexpr DWORD DLL_THREAD_ATTACH = 2;
inline constexpr DWORD DLL_THREAD_DETACH = 3;

// ---- version and language

inline constexpr DWORD VER_PLATFORM_WIN32_WINDOWS = 1;
inline constexpr DWORD VER_PLATFORM_WIN32_NT = 2;
struct OSVERSIONINFOW {
    DWORD dwOSVersionInfoSize = 0;
    DWORD dwMajorVersion = 0;
    DWORD dwMinorVersion = 0;
    DWORD dwBuildNumber = 0;
    DWORD dwPlatformId = 0;
    wchar_t szCSDVersion[128] = {};
};
/// Returns the version of the platform that the host emulates: NT family, 10.0.
ZUHOST_API BOOL GetVersionExW(OSVERSIONINFOW* version);
/// Returns the language of the environment's locale (LC_ALL, LC_MESSAGES, LANG); 0 for "C" and "POSIX".
ZUHOST_API LANGID GetUserDefaultUILanguage();
ZUHOST_API LANGID GetUserDefaultLangID();

// ---- times and the environment

struct SYSTEMTIME {
    WORD wYear = 0;
    WORD wMonth = 0;     ///< From 1.
    WORD wDayOfWeek = 0; ///< From Sunday, 0.
    WORD wDay = 0;
    WORD wHour = 0;
    WORD wMinute = 0;
    WORD wSecond = 0;
    WORD wMilliseconds = 0;
};
ZUHOST_API void GetLocalTime(SYSTEMTIME* time);
ZUHOST_API void GetSystemTime(SYSTEMTIME* time);
/// Returns milliseconds from some moment before the program's start; GetTickCount begins again after 2^32.
ZUHOST_API ULONGLONG GetTickCount64();
inline DWORD GetTickCount() {
    return static_cast<DWORD>(GetTickCount64());
}
ZUHOST_API void Sleep(DWORD milliseconds);
/// Copies a variable of the environment (UTF-8). Returns its length, or the size needed with the final zero
/// when the buffer is too small; 0 when there is none.
ZUHOST_API DWORD GetEnvironmentVariableW(const wchar_t* name, wchar_t* buffer, DWORD size);
inline DWORD GetEnvironmentVariable(const wchar_t* name, wchar_t* buffer, DWORD size) {
    return GetEnvironmentVariableW(name, buffer, size);
}
/// Does nothing: there is no debugger that receives the text.
inline void OutputDebugStringW(const wchar_t* /*text*/) {}
inline void OutputDebugString(const wchar_t* /*text*/) {}

// ---- message boxes

struct HWND__;
using HWND = HWND__*;
inline constexpr UINT MB_OK = 0x00;
inline constexpr UINT MB_OKCANCEL = 0x01;
inline constexpr UINT MB_YESNOCANCEL = 0x03;
inline constexpr UINT MB_YESNO = 0x04;
inline constexpr UINT MB_ABORTRETRYIGNORE = 0x02;
inline constexpr UINT MB_RETRYCANCEL = 0x05;
inline constexpr UINT MB_TYPEMASK = 0x0F;
inline constexpr UINT MB_ICONHAND = 0x10;
inline constexpr UINT MB_ICONSTOP = 0x10;
inline constexpr UINT MB_ICONERROR = 0x10;
inline constexpr UINT MB_ICONQUESTION = 0x20;
inline constexpr UINT MB_ICONEXCLAMATION = 0x30;
inline constexpr UINT MB_ICONWARNING = 0x30;
inline constexpr UINT MB_ICONINFORMATION = 0x40;
inline constexpr UINT MB_ICONASTERISK = 0x40;
inline constexpr UINT MB_DEFBUTTON1 = 0x0000;
inline constexpr UINT MB_DEFBUTTON2 = 0x0100;
inline constexpr UINT MB_DEFBUTTON3 = 0x0200;
inline constexpr UINT MB_APPLMODAL = 0x0000;
inline constexpr UINT MB_TASKMODAL = 0x2000;
inline constexpr UINT MB_SETFOREGROUND = 0x10000;
inline constexpr UINT MB_TOPMOST = 0x40000;
inline constexpr int IDOK = 1;
inline constexpr int IDCANCEL = 2;
inline constexpr int IDYES = 6;
inline constexpr int IDNO = 7;
/// Shows a box on the desktop; without one, prints it on standard error and returns its first button.
ZUHOST_API int MessageBoxW(HWND owner, const wchar_t* text, const wchar_t* caption, UINT style);
inline int MessageBox(HWND owner, const wchar_t* text, const wchar_t* caption, UINT style) {
    return MessageBoxW(owner, text, caption, style);
}
/// Does nothing.
inline BOOL MessageBeep(UINT /*style*/) {
    return TRUE;
}

// ---- language detection of old platform versions; none of it exists on this host

inline const HKEY HKEY_CURRENT_USER = nullptr;
inline constexpr LONG REG_SZ = 1;
/// Reads the default value of a registry key. There is no registry: returns ERROR_FILE_NOT_FOUND.
ZUHOST_API LONG RegQueryValueW(HKEY key, const wchar_t* subKey, wchar_t* value, LONG* size);
using ENUMRESLANGPROCW = BOOL (*)(HMODULE module, const wchar_t* type, const wchar_t* name, WORD language,
                                  LPARAM parameter);
inline const wchar_t* const RT_VERSION = L"#16";
/// Enumerates the languages of a resource. Modules of this host have no version resources: returns FALSE.
ZUHOST_API BOOL EnumResourceLanguagesW(HMODULE module, const wchar_t* type, const wchar_t* name,
                                       ENUMRESLANGPROCW callback, LPARAM parameter);

#include "fileapi.h"
