#pragma once

#include <cstddef>
#include <cstdint>

// The part of the platform's base interface that modules use, under the platform's names.

using BOOL = int;
using BYTE = unsigned char;
using WORD = std::uint16_t;
using DWORD = std::uint32_t;
using UINT = unsigned int;
using LONG = std::int32_t;
using ULONGLONG = std::uint64_t;
using COLORREF = std::uint32_t;
using WPARAM = std::uintptr_t;
using LPARAM = std::intptr_t;
using LRESULT = std::intptr_t;
using WCHAR = wchar_t;
using TCHAR = wchar_t;
using LPWSTR = wchar_t*;
using LPTSTR = wchar_t*;
using LPCWSTR = const wchar_t*;
using LPCTSTR = const wchar_t*;
using LPCSTR = const char*;
using LANGID = WORD;
using HRESULT = LONG;

/// A loaded module: the program, a shared library, or a resource-only language module.
struct HINSTANCE__;
using HINSTANCE = HINSTANCE__*;
using HMODULE = HINSTANCE;

struct HKEY__;
using HKEY = HKEY__*;

inline constexpr BOOL TRUE = 1;
inline constexpr BOOL FALSE = 0;
inline constexpr std::size_t MAX_PATH = 260;

inline constexpr DWORD ERROR_SUCCESS = 0;
inline constexpr DWORD ERROR_FILE_NOT_FOUND = 2;
inline constexpr DWORD ERROR_PATH_NOT_FOUND = 3;
inline constexpr DWORD ERROR_TOO_MANY_OPEN_FILES = 4;
inline constexpr DWORD ERROR_ACCESS_DENIED = 5;
inline constexpr DWORD ERROR_INVALID_HANDLE = 6;
inline constexpr DWORD ERROR_NOT_ENOUGH_MEMORY = 8;
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

struct POINT {
    LONG x = 0;
    LONG y = 0;
};
struct SIZE {
    LONG cx = 0;
    LONG cy = 0;
};
struct RECT {
    LONG left = 0;
    LONG top = 0;
    LONG right = 0;
    LONG bottom = 0;
};

/// The calling thread's last error, set by the functions below when they fail.
DWORD GetLastError();
void SetLastError(DWORD error);

// ---- text

/// Returns the decimal value of the leading number, full-width digits included, clamped to the range of int;
/// 0 when there is none.
int _wtoi(const wchar_t* text);
/// Returns the value of the leading number; 0 when there is none.
double _wtof(const wchar_t* text);
/// Compares ignoring the case of ASCII letters.
int _wcsicmp(const wchar_t* left, const wchar_t* right);
int _wcsnicmp(const wchar_t* left, const wchar_t* right, std::size_t count);
/// Splits a path; null buffers are skipped, others have room for MAX_PATH characters.
void _wsplitpath(const wchar_t* path, wchar_t* drive, wchar_t* folder, wchar_t* name, wchar_t* extension);

inline constexpr UINT CP_ACP = 0;
inline constexpr UINT CP_UTF8 = 65001;
/// Decodes a code page (CP_ACP: 932). Returns the number of characters written, or needed when `size` is 0; 0
/// on failure.
int MultiByteToWideChar(UINT codePage, DWORD flags, const char* bytes, int count, wchar_t* text, int size);
/// Encodes a text. Returns 0 when the code page cannot represent a character.
int WideCharToMultiByte(UINT codePage, DWORD flags, const wchar_t* text, int count, char* bytes, int size,
                        const char* defaultCharacter, BOOL* usedDefault);

// ---- files

BOOL CopyFileW(const wchar_t* from, const wchar_t* to, BOOL failIfExists);
BOOL MoveFileW(const wchar_t* from, const wchar_t* to);
BOOL DeleteFileW(const wchar_t* path);

// ---- profile files

/// Reads a value, or the names of sections or keys (null section or key) separated by NUL. Returns the number
/// of characters written.
DWORD GetPrivateProfileStringW(const wchar_t* section, const wchar_t* key, const wchar_t* fallback,
                               wchar_t* buffer, DWORD size, const wchar_t* file);
UINT GetPrivateProfileIntW(const wchar_t* section, const wchar_t* key, int fallback, const wchar_t* file);
/// Writes a value; a null value deletes the key, a null key the section. The file is replaced as a whole or
/// not at all.
BOOL WritePrivateProfileStringW(const wchar_t* section, const wchar_t* key, const wchar_t* value,
                                const wchar_t* file);

// ---- modules and their texts

/// Loads a module and runs its attach; "DIR\\NAME.dll" names NAME.dll, NAME.so, libNAME.so or NAME.strings in
/// the folder, whatever its case. A ".strings" file is a module of texts only. Null on failure.
HMODULE LoadLibraryW(const wchar_t* path);
/// Runs the module's detach when it was loaded for the last time.
BOOL FreeLibrary(HMODULE module);
void* GetProcAddress(HMODULE module, const char* name);
/// Returns the module's path in the platform's form: "...\\NAME.dll" for libNAME.so. Null is the program.
DWORD GetModuleFileNameW(HMODULE module, wchar_t* buffer, DWORD size);
/// Copies a text of the module, truncated to the buffer. Returns its length; 0 and an empty buffer when the
/// module lacks it.
int LoadStringW(HINSTANCE instance, UINT id, wchar_t* buffer, int size);

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
BOOL GetVersionExW(OSVERSIONINFOW* version);
/// Returns the language of the environment's locale (LC_ALL, LC_MESSAGES, LANG); 0 for "C" and "POSIX".
LANGID GetUserDefaultUILanguage();
LANGID GetUserDefaultLangID();

// ---- message boxes

struct HWND__;
using HWND = HWND__*;
inline constexpr UINT MB_OK = 0x00;
inline constexpr UINT MB_OKCANCEL = 0x01;
inline constexpr UINT MB_YESNOCANCEL = 0x03;
inline constexpr UINT MB_YESNO = 0x04;
inline constexpr UINT MB_ICONSTOP = 0x10;
inline constexpr UINT MB_ICONERROR = 0x10;
inline constexpr UINT MB_ICONQUESTION = 0x20;
inline constexpr UINT MB_ICONEXCLAMATION = 0x30;
inline constexpr UINT MB_ICONINFORMATION = 0x40;
inline constexpr int IDOK = 1;
inline constexpr int IDCANCEL = 2;
inline constexpr int IDYES = 6;
inline constexpr int IDNO = 7;
/// Shows a box on the desktop; without one, prints it on standard error and returns its first button.
int MessageBoxW(HWND owner, const wchar_t* text, const wchar_t* caption, UINT style);

// ---- language detection of old platform versions; none of it exists on this host

inline const HKEY HKEY_CURRENT_USER = nullptr;
inline constexpr LONG REG_SZ = 1;
/// Reads the default value of a registry key. There is no registry: returns ERROR_FILE_NOT_FOUND.
LONG RegQueryValueW(HKEY key, const wchar_t* subKey, wchar_t* value, LONG* size);
using ENUMRESLANGPROCW = BOOL (*)(HMODULE module, const wchar_t* type, const wchar_t* name, WORD language,
                                  LPARAM parameter);
inline const wchar_t* const RT_VERSION = L"#16";
/// Enumerates the languages of a resource. Modules of this host have no version resources: returns FALSE.
BOOL EnumResourceLanguagesW(HMODULE module, const wchar_t* type, const wchar_t* name,
                            ENUMRESLANGPROCW callback, LPARAM parameter);
