#pragma once

#include "zuhost/min_max.h"
#include <zuhost/platform/system_rules.h>

#include <cstddef>
#include <cstdint>

// The platform's basic types. Included by windows.h.

using BOOL = int;
using BOOLEAN = unsigned char;
using BYTE = unsigned char;
using CHAR = char;
using UCHAR = unsigned char;
using SHORT = std::int16_t;
using USHORT = std::uint16_t;
using WORD = std::uint16_t;
using INT = int;
using UINT = unsigned int;
using LONG = std::int32_t;
using ULONG = std::uint32_t;
using DWORD = std::uint32_t;
using LONGLONG = std::int64_t;
using ULONGLONG = std::uint64_t;
using INT8 = std::int8_t;
using UINT8 = std::uint8_t;
using INT16 = std::int16_t;
using UINT16 = std::uint16_t;
using INT32 = std::int32_t;
using UINT32 = std::uint32_t;
using INT64 = std::int64_t;
using UINT64 = std::uint64_t;
using DWORD64 = std::uint64_t;
using FLOAT = float;
using DOUBLE = double;
using VOID = void;

using INT_PTR = std::intptr_t;
using UINT_PTR = std::uintptr_t;
using LONG_PTR = std::intptr_t;
using ULONG_PTR = std::uintptr_t;
using DWORD_PTR = std::uintptr_t;
using SIZE_T = std::size_t;
using SSIZE_T = std::ptrdiff_t;

using WPARAM = UINT_PTR;
using LPARAM = LONG_PTR;
using LRESULT = LONG_PTR;
using HRESULT = LONG;
using COLORREF = DWORD;
using ATOM = WORD;
using LANGID = WORD;
using LCID = DWORD;

using WCHAR = wchar_t;
using TCHAR = wchar_t;
using LPSTR = char*;
using PSTR = char*;
using LPCSTR = const char*;
using PCSTR = const char*;
using LPWSTR = wchar_t*;
using PWSTR = wchar_t*;
using LPCWSTR = const wchar_t*;
using PCWSTR = const wchar_t*;
using LPTSTR = wchar_t*;
using PTSTR = wchar_t*;
using LPCTSTR = const wchar_t*;
using PCTSTR = const wchar_t*;

using PVOID = void*;
using LPVOID = void*;
using LPCVOID = const void*;
using LPBYTE = BYTE*;
using PBYTE = BYTE*;
using LPWORD = WORD*;
using PWORD = WORD*;
using LPINT = int*;
using PINT = int*;
using LPUINT = UINT*;
using PUINT = UINT*;
using LPLONG = LONG*;
using PLONG = LONG*;
using LPDWORD = DWORD*;
using PDWORD = DWORD*;
using LPBOOL = BOOL*;
using PBOOL = BOOL*;

using HANDLE = void*;
inline const HANDLE INVALID_HANDLE_VALUE =
    reinterpret_cast<HANDLE>(INT_PTR{-1}); // NOLINT(performance-no-int-to-ptr): the interface's value.

inline constexpr BOOL TRUE = 1;
inline constexpr BOOL FALSE = 0;
/// The lengths of paths and of their parts, with the final zero.
inline constexpr std::size_t MAX_PATH = 260;
inline constexpr std::size_t _MAX_PATH = 260;
inline constexpr std::size_t _MAX_DRIVE = 3;
inline constexpr std::size_t _MAX_DIR = 256;
inline constexpr std::size_t _MAX_FNAME = 256;
inline constexpr std::size_t _MAX_EXT = 256;

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
using LPPOINT = POINT*;
using LPSIZE = SIZE*;
using LPRECT = RECT*;
using LPCRECT = const RECT*;

// Calling conventions, which this platform does not have.
#define CALLBACK
#define WINAPI
#define APIENTRY

/// Returns the number of elements of an array.
template <typename Element, std::size_t count>
constexpr std::size_t _countof(const Element (&/*array*/)[count]) {
    return count;
}

inline constexpr WORD LOWORD(std::uintptr_t value) {
    return static_cast<WORD>(value & 0xFFFFU);
}
inline constexpr WORD HIWORD(std::uintptr_t value) {
    return static_cast<WORD>(value >> 16U & 0xFFFFU);
}
inline constexpr BYTE LOBYTE(std::uintptr_t value) {
    return static_cast<BYTE>(value & 0xFFU);
}
inline constexpr BYTE HIBYTE(std::uintptr_t value) {
    return static_cast<BYTE>(value >> 8U & 0xFFU);
}
inline constexpr WORD MAKEWORD(UINT low, UINT high) {
    return static_cast<WORD>((low & 0xFFU) | (high & 0xFFU) << 8U);
}
inline constexpr LONG MAKELONG(UINT low, UINT high) {
    return static_cast<LONG>((low & 0xFFFFU) | (high & 0xFFFFU) << 16U);
}
