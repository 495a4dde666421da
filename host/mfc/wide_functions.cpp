#include "tchar.h"

#include "zuhost/character.h"
#include "zuhost/paths.h"

#include <array>
#include <cerrno>
#include <charconv>
#include <cstdlib>
#include <limits>
#include <string>

namespace {

std::wstring_view orEmpty(const wchar_t* text) {
    return text != nullptr ? std::wstring_view(text) : std::wstring_view();
}

errno_t clear(wchar_t* buffer, std::size_t size, errno_t error) {
    if (buffer != nullptr && size > 0)
        *buffer = L'\0';
    return error;
}

/// Returns the length of the text in a buffer; `size` when it has no final zero.
std::size_t lengthIn(const wchar_t* buffer, std::size_t size) {
    return buffer != nullptr ? _tcsnlen(buffer, size) : size;
}

/// Appends the first `count` characters at `start`.
errno_t append(wchar_t* buffer, std::size_t size, std::size_t start, const wchar_t* text, std::size_t count) {
    if (buffer == nullptr || size == 0)
        return EINVAL;
    if (text == nullptr || start >= size)
        return clear(buffer, size, EINVAL);
    const std::size_t room = size - start - 1;
    const std::size_t length = _tcsnlen(text, count == _TRUNCATE ? room : std::min(count, room + 1));
    if (length > room)
        return clear(buffer, size, ERANGE);
    std::wmemcpy(buffer + start, text, length);
    buffer[start + length] = L'\0';
    return 0;
}

/// Appends a whole text.
errno_t append(wchar_t* buffer, std::size_t size, std::size_t start, const wchar_t* text) {
    return append(buffer, size, start, text, _TRUNCATE - 1);
}

wchar_t* changed(wchar_t* text, wchar_t (*change)(wchar_t)) {
    for (wchar_t* c = text; c != nullptr && *c != L'\0'; ++c)
        *c = change(*c);
    return text;
}

errno_t changed(wchar_t* text, std::size_t size, wchar_t (*change)(wchar_t)) {
    if (text == nullptr || lengthIn(text, size) == size)
        return clear(text, size, EINVAL);
    changed(text, change);
    return 0;
}

int digitOf(wchar_t c) {
    const wchar_t lower = zuhost::toLower(c);
    if (lower >= L'0' && lower <= L'9')
        return static_cast<int>(lower - L'0');
    return lower >= L'a' && lower <= L'z' ? static_cast<int>(lower - L'a') + 10 : 36;
}

struct ReadInteger {
    std::uint64_t magnitude = 0; ///< At most 2^32.
    bool isNegative = false;
    const wchar_t* end = nullptr;
};

ReadInteger readInteger(const wchar_t* text, int base) {
    constexpr std::uint64_t kLimit = std::uint64_t{1} << 32U;
    ReadInteger read{0, false, text};
    if (text == nullptr || base < 0 || base == 1 || base > 36)
        return read;
    const wchar_t* at = text;
    while (zuhost::isSpace(*at))
        ++at;
    read.isNegative = *at == L'-';
    if (*at == L'-' || *at == L'+')
        ++at;
    const bool hasPrefix = at[0] == L'0' && zuhost::toLower(at[1]) == L'x' && digitOf(at[2]) < 16;
    if (hasPrefix && (base == 0 || base == 16))
        at += 2;
    if (base == 0)
        base = hasPrefix ? 16 : *at == L'0' ? 8 : 10;
    for (int digit = digitOf(*at); digit < base; digit = digitOf(*at)) {
        read.magnitude = std::min(
            read.magnitude * static_cast<std::uint64_t>(base) + static_cast<std::uint64_t>(digit), kLimit);
        read.end = ++at;
    }
    return read;
}

void storeEnd(wchar_t** end, const wchar_t* place) {
    if (end != nullptr)
        *end = const_cast<wchar_t*>(
            place); // NOLINT(cppcoreguidelines-pro-type-const-cast): the interface's way.
}

std::wstring madePath(std::wstring_view drive, std::wstring_view folder, std::wstring_view name,
                      std::wstring_view extension) {
    std::wstring path(drive.substr(0, 1));
    if (!drive.empty())
        path += L':';
    path += folder;
    if (!folder.empty() && folder.back() != L'\\' && folder.back() != L'/')
        path += L'\\';
    path += name;
    if (!extension.empty() && extension.front() != L'.')
        path += L'.';
    return path.append(extension);
}

std::string narrowed(std::wstring_view ascii) {
    return {ascii.begin(), ascii.end()};
}

} // namespace

LONG _wtol(const wchar_t* text) {
    return _wtoi(text);
}

LONG _tcstol(const wchar_t* text, wchar_t** end, int base) {
    const ReadInteger read = readInteger(text, base);
    storeEnd(end, read.end);
    constexpr auto kLargest = static_cast<std::uint64_t>(std::numeric_limits<LONG>::max());
    const auto value =
        static_cast<std::int64_t>(std::min(read.magnitude, kLargest + (read.isNegative ? 1 : 0)));
    return static_cast<LONG>(read.isNegative ? -value : value);
}

ULONG _tcstoul(const wchar_t* text, wchar_t** end, int base) {
    const ReadInteger read = readInteger(text, base);
    storeEnd(end, read.end);
    if (read.magnitude > std::numeric_limits<ULONG>::max())
        return std::numeric_limits<ULONG>::max();
    const auto value = static_cast<ULONG>(read.magnitude);
    return read.isNegative ? 0U - value : value;
}

errno_t _itow_s(int value, wchar_t* buffer, std::size_t size, int base) {
    if (buffer == nullptr || size == 0)
        return EINVAL;
    if (base < 2 || base > 36)
        return clear(buffer, size, EINVAL);
    std::array<char, 34> digits{};
    // Only decimal numbers have a sign.
    const auto [end, error] =
        base == 10 ? std::to_chars(digits.begin(), digits.end(), value)
                   : std::to_chars(digits.begin(), digits.end(), static_cast<unsigned>(value), base);
    const auto length = static_cast<std::size_t>(end - digits.data());
    if (error != std::errc() || length >= size)
        return clear(buffer, size, ERANGE);
    std::copy(digits.data(), end, buffer);
    buffer[length] = L'\0';
    return 0;
}

wchar_t* _itow(int value, wchar_t* buffer, int base) {
    constexpr std::size_t kLongest = 34;
    _itow_s(value, buffer, kLongest, base);
    return buffer;
}

errno_t wcscpy_s(wchar_t* buffer, std::size_t size, const wchar_t* text) {
    return append(buffer, size, 0, text);
}

errno_t wcscat_s(wchar_t* buffer, std::size_t size, const wchar_t* text) {
    return append(buffer, size, lengthIn(buffer, size), text);
}

errno_t wcsncpy_s(wchar_t* buffer, std::size_t size, const wchar_t* text, std::size_t count) {
    return append(buffer, size, 0, text, count);
}

errno_t wcsncat_s(wchar_t* buffer, std::size_t size, const wchar_t* text, std::size_t count) {
    return append(buffer, size, lengthIn(buffer, size), text, count);
}

wchar_t* _wcsdup(const wchar_t* text) {
    if (text == nullptr)
        return nullptr;
    const std::size_t size = std::wcslen(text) + 1;
    // NOLINTNEXTLINE(cppcoreguidelines-no-malloc, hicpp-no-malloc): the caller calls free.
    auto* const copy = static_cast<wchar_t*>(std::malloc(size * sizeof(wchar_t)));
    return copy != nullptr ? std::wmemcpy(copy, text, size) : nullptr;
}

wchar_t* _wcslwr(wchar_t* text) {
    return changed(text, zuhost::toLower);
}

wchar_t* _wcsupr(wchar_t* text) {
    return changed(text, zuhost::toUpper);
}

wchar_t* _wcsrev(wchar_t* text) {
    if (text != nullptr)
        std::reverse(text, text + std::wcslen(text));
    return text;
}

errno_t _wcslwr_s(wchar_t* text, std::size_t size) {
    return changed(text, size, zuhost::toLower);
}

errno_t _wcsupr_s(wchar_t* text, std::size_t size) {
    return changed(text, size, zuhost::toUpper);
}

wchar_t* wcstok_s(wchar_t* text, const wchar_t* separators, wchar_t** rest) {
    if (separators == nullptr || rest == nullptr || (text == nullptr && *rest == nullptr))
        return nullptr;
    wchar_t* const from = text != nullptr ? text : *rest;
    wchar_t* const start = from + _tcsspn(from, separators);
    wchar_t* const end = start + _tcscspn(start, separators);
    *rest = *end != L'\0' ? end + 1 : end;
    *end = L'\0';
    return start != end ? start : nullptr;
}

int zuhost::copyFormatted(const std::wstring& text, wchar_t* buffer, std::size_t size) {
    return append(buffer, size, 0, text.c_str()) == 0 ? static_cast<int>(text.size()) : -1;
}

int zuhost::copyTruncated(const std::wstring& text, wchar_t* buffer, std::size_t size, std::size_t count) {
    const std::wstring start = count == _TRUNCATE ? text : text.substr(0, std::min(count, text.size()));
    const errno_t error = append(buffer, size, 0, start.c_str(), count == _TRUNCATE ? count : start.size());
    const bool isWhole = error == 0 && text.size() == std::wcslen(buffer);
    return isWhole ? static_cast<int>(text.size()) : -1;
}

void _wmakepath(wchar_t* path, const wchar_t* drive, const wchar_t* folder, const wchar_t* name,
                const wchar_t* extension) {
    _wmakepath_s(path, MAX_PATH, drive, folder, name, extension);
}

errno_t _wmakepath_s(wchar_t* path, std::size_t size, const wchar_t* drive, const wchar_t* folder,
                     const wchar_t* name, const wchar_t* extension) {
    const std::wstring made = madePath(orEmpty(drive), orEmpty(folder), orEmpty(name), orEmpty(extension));
    return append(path, size, 0, made.c_str());
}

errno_t _wsplitpath_s(const wchar_t* path, wchar_t* drive, std::size_t driveSize, wchar_t* folder,
                      std::size_t folderSize, wchar_t* name, std::size_t nameSize, wchar_t* extension,
                      std::size_t extensionSize) {
    std::array<std::wstring, 4> parts;
    const struct {
        wchar_t* buffer;
        std::size_t size;
    } targets[] = {{drive, driveSize}, {folder, folderSize}, {name, nameSize}, {extension, extensionSize}};
    errno_t result = path != nullptr ? 0 : EINVAL;
    if (path != nullptr) {
        std::array<std::array<wchar_t, MAX_PATH>, 4> buffers{};
        _wsplitpath(path, buffers[0].data(), buffers[1].data(), buffers[2].data(), buffers[3].data());
        for (std::size_t i = 0; i < parts.size(); ++i)
            parts[i] = buffers[i].data();
    }
    for (std::size_t i = 0; i < parts.size(); ++i)
        if (targets[i].buffer != nullptr)
            if (const errno_t error = append(targets[i].buffer, targets[i].size, 0, parts[i].c_str()))
                result = error;
    return result;
}

int _waccess(const wchar_t* path, int mode) {
    constexpr int kWrite = 2;
    const DWORD attributes = GetFileAttributesW(path);
    if (attributes == INVALID_FILE_ATTRIBUTES)
        return -1;
    return (mode & kWrite) != 0 && (attributes & FILE_ATTRIBUTE_READONLY) != 0 ? -1 : 0;
}

std::FILE* _wfopen(const wchar_t* path, const wchar_t* mode) {
    const std::wstring_view given = orEmpty(mode);
    // "ccs=" names an encoding.
    const std::string wanted = narrowed(given.substr(0, given.find(L',')));
    const std::string file = zuhost::systemPath(orEmpty(path));
    // The C library reads and writes it: these operations do not pass through file_ops.
    return file.empty() || file.front() == '\0' || wanted.empty() ? nullptr
                                                                  : std::fopen(file.c_str(), wanted.c_str());
}

errno_t _wfopen_s(std::FILE** file, const wchar_t* path, const wchar_t* mode) {
    if (file == nullptr)
        return EINVAL;
    *file = _wfopen(path, mode);
    return *file != nullptr ? 0 : ENOENT;
}
