#pragma once

#include <windows.h>
#include <zuhost/platform/export.h>
#include "zuhost/format.h"

#include <cstdio>
#include <cwchar>
#include <string_view>
#include <utility>

// The platform's text functions for wide characters, under their wide and their neutral names. Unlike the
// platform's functions, those for buffers return an error where the platform would end the program: on a null
// pointer or a text that does not fit, which leave an empty text in the buffer.

#define _T(text) L##text
#define _TEXT(text) L##text

using errno_t = int;
using _TCHAR = wchar_t;
using TINT = wint_t;

inline constexpr std::size_t _TRUNCATE = static_cast<std::size_t>(-1);

// ---- numbers

/// As _wtoi, for 32 bits (the platform's `long`) and 64 bits.
ZUHOST_API LONG _wtol(const wchar_t* text);
ZUHOST_API std::int64_t _wtoi64(const wchar_t* text);
/// As the standard functions, independent of the process's locale.
ZUHOST_API LONG _tcstol(const wchar_t* text, wchar_t** end, int base);
ZUHOST_API ULONG _tcstoul(const wchar_t* text, wchar_t** end, int base);
ZUHOST_API double _tcstod(const wchar_t* text, wchar_t** end);
/// Writes a number with base 2 to 36, with room for it in the buffer; returns the buffer.
ZUHOST_API wchar_t* _itow(int value, wchar_t* buffer, int base);
ZUHOST_API errno_t _itow_s(int value, wchar_t* buffer, std::size_t size, int base);
template <std::size_t size>
errno_t _itow_s(int value, wchar_t (&buffer)[size], int base) {
    return _itow_s(value, buffer, size, base);
}

// ---- buffers

ZUHOST_API errno_t wcscpy_s(wchar_t* buffer, std::size_t size, const wchar_t* text);
ZUHOST_API errno_t wcscat_s(wchar_t* buffer, std::size_t size, const wchar_t* text);
/// Copies up to `count` characters; _TRUNCATE copies what fits.
ZUHOST_API errno_t wcsncpy_s(wchar_t* buffer, std::size_t size, const wchar_t* text, std::size_t count);
ZUHOST_API errno_t wcsncat_s(wchar_t* buffer, std::size_t size, const wchar_t* text, std::size_t count);
template <std::size_t size>
errno_t wcscpy_s(wchar_t (&buffer)[size], const wchar_t* text) {
    return wcscpy_s(buffer, size, text);
}
template <std::size_t size>
errno_t wcscat_s(wchar_t (&buffer)[size], const wchar_t* text) {
    return wcscat_s(buffer, size, text);
}
template <std::size_t size>
errno_t wcsncpy_s(wchar_t (&buffer)[size], const wchar_t* text, std::size_t count) {
    return wcsncpy_s(buffer, size, text, count);
}
template <std::size_t size>
errno_t wcsncat_s(wchar_t (&buffer)[size], const wchar_t* text, std::size_t count) {
    return wcsncat_s(buffer, size, text, count);
}

/// Returns a copy from malloc; null for null.
ZUHOST_API wchar_t* _wcsdup(const wchar_t* text);
/// Each changes the text itself and returns it. Only ASCII letters change case.
ZUHOST_API wchar_t* _wcslwr(wchar_t* text);
ZUHOST_API wchar_t* _wcsupr(wchar_t* text);
ZUHOST_API wchar_t* _wcsrev(wchar_t* text);
ZUHOST_API errno_t _wcslwr_s(wchar_t* text, std::size_t size);
ZUHOST_API errno_t _wcsupr_s(wchar_t* text, std::size_t size);
/// Returns the next piece between separators, changing the text; null at the end. `rest` holds the place.
ZUHOST_API wchar_t* wcstok_s(wchar_t* text, const wchar_t* separators, wchar_t** rest);

// ---- formats

namespace zuhost {

/// Copies a formatted text; returns its length. -1 with an empty buffer when it does not fit.
ZUHOST_API int copyFormatted(const std::wstring& text, wchar_t* buffer, std::size_t size);
/// Copies the first `count` characters that fit; returns -1 when some are cut off.
ZUHOST_API int copyTruncated(const std::wstring& text, wchar_t* buffer, std::size_t size, std::size_t count);

} // namespace zuhost

template <typename... Arguments>
int swprintf_s(wchar_t* buffer, std::size_t size, const wchar_t* format, const Arguments&... arguments) {
    return zuhost::copyFormatted(zuhost::formatAll(format, arguments...), buffer, size);
}
template <std::size_t size, typename... Arguments>
int swprintf_s(wchar_t (&buffer)[size], const wchar_t* format, const Arguments&... arguments) {
    return zuhost::copyFormatted(zuhost::formatAll(format, arguments...), buffer, size);
}
inline int vswprintf_s(wchar_t* buffer, std::size_t size, const wchar_t* format, std::va_list arguments) {
    return zuhost::copyFormatted(format != nullptr ? zuhost::formatText(format, arguments) : L"", buffer,
                                 size);
}
/// Writes up to `count` characters; a text of that length or more has no final zero.
template <typename... Arguments>
int _snwprintf(wchar_t* buffer, std::size_t count, const wchar_t* format, const Arguments&... arguments) {
    const std::wstring text = zuhost::formatAll(format, arguments...);
    if (buffer == nullptr)
        return -1;
    text.copy(buffer, count);
    if (text.size() < count)
        buffer[text.size()] = L'\0';
    return text.size() <= count ? static_cast<int>(text.size()) : -1;
}
template <typename... Arguments>
int _snwprintf_s(wchar_t* buffer, std::size_t size, std::size_t count, const wchar_t* format,
                 const Arguments&... arguments) {
    return zuhost::copyTruncated(zuhost::formatAll(format, arguments...), buffer, size, count);
}
template <std::size_t size, typename... Arguments>
int _snwprintf_s(wchar_t (&buffer)[size], std::size_t count, const wchar_t* format,
                 const Arguments&... arguments) {
    return zuhost::copyTruncated(zuhost::formatAll(format, arguments...), buffer, size, count);
}

// ---- paths

/// Joins the parts of a path, with the separators that they lack; null parts are skipped. The buffer has room
/// for MAX_PATH characters.
ZUHOST_API void _wmakepath(wchar_t* path, const wchar_t* drive, const wchar_t* folder, const wchar_t* name,
                           const wchar_t* extension);
ZUHOST_API errno_t _wmakepath_s(wchar_t* path, std::size_t size, const wchar_t* drive, const wchar_t* folder,
                                const wchar_t* name, const wchar_t* extension);
template <std::size_t size>
errno_t _wmakepath_s(wchar_t (&path)[size], const wchar_t* drive, const wchar_t* folder, const wchar_t* name,
                     const wchar_t* extension) {
    return _wmakepath_s(path, size, drive, folder, name, extension);
}
ZUHOST_API errno_t _wsplitpath_s(const wchar_t* path, wchar_t* drive, std::size_t driveSize, wchar_t* folder,
                                 std::size_t folderSize, wchar_t* name, std::size_t nameSize,
                                 wchar_t* extension, std::size_t extensionSize);
template <std::size_t driveSize, std::size_t folderSize, std::size_t nameSize, std::size_t extensionSize>
errno_t _wsplitpath_s(const wchar_t* path, wchar_t (&drive)[driveSize], wchar_t (&folder)[folderSize],
                      wchar_t (&name)[nameSize], wchar_t (&extension)[extensionSize]) {
    return _wsplitpath_s(path, drive, driveSize, folder, folderSize, name, nameSize, extension,
                         extensionSize);
}
/// Returns 0 when the file exists (mode 0) and may be read (4) or written (2), otherwise -1.
ZUHOST_API int _waccess(const wchar_t* path, int mode);
/// Opens a file; null on failure. A text is read and written byte by byte: use CStdioFile for its encoding.
ZUHOST_API std::FILE* _wfopen(const wchar_t* path, const wchar_t* mode);
ZUHOST_API errno_t _wfopen_s(std::FILE** file, const wchar_t* path, const wchar_t* mode);

// ---- neutral names

inline std::size_t _tcslen(const wchar_t* text) {
    return std::wcslen(text);
}
inline std::size_t _tcsnlen(const wchar_t* text, std::size_t most) {
    const wchar_t* const end = std::find(text, text + most, L'\0');
    return static_cast<std::size_t>(end - text);
}
inline std::size_t _tclen(const wchar_t* /*text*/) {
    return 1;
}
inline wchar_t* _tcscpy(wchar_t* buffer, const wchar_t* text) {
    return std::wmemcpy(buffer, text, std::wcslen(text) + 1);
}
/// Fills the rest of `count` characters with zeros; a longer text gets no final zero.
inline wchar_t* _tcsncpy(wchar_t* buffer, const wchar_t* text, std::size_t count) {
    const std::size_t length = _tcsnlen(text, count);
    std::fill(std::copy_n(text, length, buffer), buffer + count, L'\0');
    return buffer;
}
inline wchar_t* _tcscat(wchar_t* buffer, const wchar_t* text) {
    _tcscpy(buffer + std::wcslen(buffer), text);
    return buffer;
}
inline wchar_t* _tcsncat(wchar_t* buffer, const wchar_t* text, std::size_t count) {
    *std::copy_n(text, _tcsnlen(text, count), buffer + std::wcslen(buffer)) = L'\0';
    return buffer;
}
inline int _tcscmp(const wchar_t* left, const wchar_t* right) {
    return std::wstring_view(left).compare(right);
}
inline int _tcsncmp(const wchar_t* left, const wchar_t* right, std::size_t count) {
    return std::wstring_view(left, _tcsnlen(left, count))
        .compare(std::wstring_view(right, _tcsnlen(right, count)));
}
inline int _tcscoll(const wchar_t* left, const wchar_t* right) {
    return _tcscmp(left, right);
}
inline int _tcsicmp(const wchar_t* left, const wchar_t* right) {
    return _wcsicmp(left, right);
}
inline int _tcsnicmp(const wchar_t* left, const wchar_t* right, std::size_t count) {
    return _wcsnicmp(left, right, count);
}

// Each returns the place of the first (last) occurrence, null when there is none; constant for a constant
// text.

namespace zuhost {

template <typename Text>
Text* placeAt(Text* text, std::size_t place) {
    return place != std::wstring_view::npos ? text + place : nullptr;
}

} // namespace zuhost

template <typename Text>
Text* _tcschr(Text* text, wchar_t character) {
    return zuhost::placeAt(text, std::wstring_view(text, std::wcslen(text) + 1).find(character));
}
template <typename Text>
Text* _tcsrchr(Text* text, wchar_t character) {
    return zuhost::placeAt(text, std::wstring_view(text, std::wcslen(text) + 1).rfind(character));
}
template <typename Text>
Text* _tcsstr(Text* text, const wchar_t* wanted) {
    return zuhost::placeAt(text, std::wstring_view(text).find(wanted));
}
template <typename Text>
Text* _tcspbrk(Text* text, const wchar_t* characters) {
    return zuhost::placeAt(text, std::wstring_view(text).find_first_of(characters));
}
inline std::size_t _tcsspn(const wchar_t* text, const wchar_t* characters) {
    const std::wstring_view view(text);
    return std::min(view.find_first_not_of(characters), view.size());
}
inline std::size_t _tcscspn(const wchar_t* text, const wchar_t* characters) {
    const std::wstring_view view(text);
    return std::min(view.find_first_of(characters), view.size());
}
inline wchar_t* _tcstok_s(wchar_t* text, const wchar_t* separators, wchar_t** rest) {
    return wcstok_s(text, separators, rest);
}
inline wchar_t* _tcsdup(const wchar_t* text) {
    return _wcsdup(text);
}
inline wchar_t* _tcslwr(wchar_t* text) {
    return _wcslwr(text);
}
inline wchar_t* _tcsupr(wchar_t* text) {
    return _wcsupr(text);
}
inline wchar_t* _tcsrev(wchar_t* text) {
    return _wcsrev(text);
}
inline errno_t _tcslwr_s(wchar_t* text, std::size_t size) {
    return _wcslwr_s(text, size);
}
inline errno_t _tcsupr_s(wchar_t* text, std::size_t size) {
    return _wcsupr_s(text, size);
}
inline wchar_t* _tcsinc(const wchar_t* text) {
    return const_cast<wchar_t*>(text) +
           1; // NOLINT(cppcoreguidelines-pro-type-const-cast): the interface's way.
}

inline int _ttoi(const wchar_t* text) {
    return _wtoi(text);
}
inline int _tstoi(const wchar_t* text) {
    return _wtoi(text);
}
inline LONG _ttol(const wchar_t* text) {
    return _wtol(text);
}
inline LONG _tstol(const wchar_t* text) {
    return _wtol(text);
}
inline std::int64_t _ttoi64(const wchar_t* text) {
    return _wtoi64(text);
}
inline double _ttof(const wchar_t* text) {
    return _wtof(text);
}
inline double _tstof(const wchar_t* text) {
    return _wtof(text);
}
inline wchar_t* _itot(int value, wchar_t* buffer, int base) {
    return _itow(value, buffer, base);
}
inline wchar_t* _ltot(LONG value, wchar_t* buffer, int base) {
    return _itow(value, buffer, base);
}
template <typename... Arguments>
errno_t _itot_s(int value, Arguments&&... arguments) {
    return _itow_s(value, std::forward<Arguments>(arguments)...);
}

// The forms with a buffer of known size and with a pointer and a size.

template <typename Buffer, typename... Arguments>
errno_t _tcscpy_s(Buffer&& buffer, const Arguments&... arguments) {
    return wcscpy_s(std::forward<Buffer>(buffer), arguments...);
}
template <typename Buffer, typename... Arguments>
errno_t _tcscat_s(Buffer&& buffer, const Arguments&... arguments) {
    return wcscat_s(std::forward<Buffer>(buffer), arguments...);
}
template <typename Buffer, typename... Arguments>
errno_t _tcsncpy_s(Buffer&& buffer, const Arguments&... arguments) {
    return wcsncpy_s(std::forward<Buffer>(buffer), arguments...);
}
template <typename Buffer, typename... Arguments>
errno_t _tcsncat_s(Buffer&& buffer, const Arguments&... arguments) {
    return wcsncat_s(std::forward<Buffer>(buffer), arguments...);
}
template <typename Buffer, typename... Arguments>
int _stprintf_s(Buffer&& buffer, const Arguments&... arguments) {
    return swprintf_s(std::forward<Buffer>(buffer), arguments...);
}
/// For arrays only: the buffer's size is checked.
template <std::size_t size, typename... Arguments>
int _stprintf(wchar_t (&buffer)[size], const wchar_t* format, const Arguments&... arguments) {
    return swprintf_s(buffer, size, format, arguments...);
}
inline int _vstprintf_s(wchar_t* buffer, std::size_t size, const wchar_t* format, std::va_list arguments) {
    return vswprintf_s(buffer, size, format, arguments);
}
template <typename... Arguments>
int _sntprintf(wchar_t* buffer, std::size_t count, const wchar_t* format, const Arguments&... arguments) {
    return _snwprintf(buffer, count, format, arguments...);
}
template <typename Buffer, typename... Arguments>
int _sntprintf_s(Buffer&& buffer, const Arguments&... arguments) {
    return _snwprintf_s(std::forward<Buffer>(buffer), arguments...);
}

// Classes of characters of the platform's C locale: ASCII only, as for the case of letters.

inline int _istdigit(wint_t c) {
    return c >= L'0' && c <= L'9' ? 1 : 0;
}
inline int _istupper(wint_t c) {
    return c >= L'A' && c <= L'Z' ? 1 : 0;
}
inline int _istlower(wint_t c) {
    return c >= L'a' && c <= L'z' ? 1 : 0;
}
inline int _istalpha(wint_t c) {
    return _istupper(c) | _istlower(c);
}
inline int _istalnum(wint_t c) {
    return _istalpha(c) | _istdigit(c);
}
inline int _istxdigit(wint_t c) {
    return _istdigit(c) != 0 || (c >= L'a' && c <= L'f') || (c >= L'A' && c <= L'F') ? 1 : 0;
}
inline int _istspace(wint_t c) {
    return c == L' ' || (c >= L'\t' && c <= L'\r') || c == 0x3000 ? 1 : 0;
}
inline wint_t _totupper(wint_t c) {
    return _istlower(c) != 0 ? c - 32 : c;
}
inline wint_t _totlower(wint_t c) {
    return _istupper(c) != 0 ? c + 32 : c;
}

inline void _tsplitpath(const wchar_t* path, wchar_t* drive, wchar_t* folder, wchar_t* name,
                        wchar_t* extension) {
    _wsplitpath(path, drive, folder, name, extension);
}
template <typename... Arguments>
errno_t _tsplitpath_s(const wchar_t* path, Arguments&&... arguments) {
    return _wsplitpath_s(path, std::forward<Arguments>(arguments)...);
}
inline void _tmakepath(wchar_t* path, const wchar_t* drive, const wchar_t* folder, const wchar_t* name,
                       const wchar_t* extension) {
    _wmakepath(path, drive, folder, name, extension);
}
template <typename Buffer, typename... Arguments>
errno_t _tmakepath_s(Buffer&& buffer, const Arguments&... arguments) {
    return _wmakepath_s(std::forward<Buffer>(buffer), arguments...);
}
inline int _taccess(const wchar_t* path, int mode) {
    return _waccess(path, mode);
}
inline std::FILE* _tfopen(const wchar_t* path, const wchar_t* mode) {
    return _wfopen(path, mode);
}
inline errno_t _tfopen_s(std::FILE** file, const wchar_t* path, const wchar_t* mode) {
    return _wfopen_s(file, path, mode);
}
