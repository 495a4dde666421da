#pragma once

#include <zuhost/platform/export.h>

#include <cstddef>

// Functions of the C library that the host replaces on every system, so that their results are alike.

/// Returns the decimal value of the leading number, full-width digits included, clamped to the range of int;
/// 0 when there is none.
ZUHOST_API int _wtoi(const wchar_t* text);
/// Returns the value of the leading number; 0 when there is none.
ZUHOST_API double _wtof(const wchar_t* text);
/// Compares ignoring the case of ASCII letters.
ZUHOST_API int _wcsicmp(const wchar_t* left, const wchar_t* right);
ZUHOST_API int _wcsnicmp(const wchar_t* left, const wchar_t* right, std::size_t count);
/// Splits a path; null buffers are skipped, others have room for MAX_PATH characters.
ZUHOST_API void _wsplitpath(const wchar_t* path, wchar_t* drive, wchar_t* folder, wchar_t* name,
                            wchar_t* extension);
