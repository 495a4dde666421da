#include "tchar.h"

#include "zuhost/character.h"
#include "zuhost/text_codec.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

namespace {

/// The zeros of the decimal digits that the platform's number parser accepts.
constexpr std::array<wchar_t, 18> kZeros{0x0030, 0x0660, 0x06F0, 0x0966, 0x09E6, 0x0A66,
                                         0x0AE6, 0x0B66, 0x0C66, 0x0CE6, 0x0D66, 0x0E50,
                                         0x0ED0, 0x0F20, 0x1040, 0x17E0, 0x1810, 0xFF10};

int digitValue(wchar_t c) {
    for (const wchar_t zero : kZeros)
        if (c >= zero && c < zero + 10)
            return static_cast<int>(c - zero);
    return -1;
}

std::wstring_view withoutSpaces(const wchar_t* text) {
    std::wstring_view rest(text != nullptr ? text : L"");
    while (!rest.empty() && zuhost::isSpace(rest.front()))
        rest.remove_prefix(1);
    return rest;
}

std::string narrow(std::wstring_view text) {
    std::string ascii;
    for (const wchar_t c : text) {
        if (c >= 0x80)
            break;
        ascii += static_cast<char>(c == L'd' || c == L'D' ? 'e' : c);
    }
    return ascii;
}

/// Returns whether a number beyond the range of double is too small rather than too large, by the position of
/// its first significant digit.
bool isBelowOne(std::string_view number, bool hexadecimal) {
    const std::size_t mark = std::min(number.find_first_of(hexadecimal ? "pP" : "eE"), number.size());
    const std::string_view digits = number.substr(0, mark);
    std::string_view exponent = number.substr(std::min(mark + 1, number.size()));
    if (exponent.starts_with('+'))
        exponent.remove_prefix(1);
    std::int64_t shift = 0;
    const auto [end, error] = std::from_chars(exponent.data(), exponent.data() + exponent.size(), shift);
    if (error == std::errc::result_out_of_range)
        return exponent.starts_with('-');
    const auto point = static_cast<std::int64_t>(std::min(digits.find('.'), digits.size()));
    const auto first = static_cast<std::int64_t>(std::min(digits.find_first_not_of("0."), digits.size()));
    return (point - first) * (hexadecimal ? 4 : 1) + shift < 0;
}

std::optional<zuhost::TextCodec> codecOf(UINT codePage) {
    return zuhost::TextCodec::forCodePage(codePage == CP_ACP ? 932 : static_cast<int>(codePage));
}

} // namespace

int _wtoi(const wchar_t* text) {
    std::wstring_view rest = withoutSpaces(text);
    const bool negative = rest.starts_with(L'-');
    if (negative || rest.starts_with(L'+'))
        rest.remove_prefix(1);
    constexpr std::int64_t kLimit = std::int64_t{std::numeric_limits<int>::max()} + 1;
    std::int64_t value = 0;
    for (const wchar_t c : rest) {
        const int digit = digitValue(c);
        if (digit < 0)
            break;
        value = std::min(value * 10 + digit, kLimit);
    }
    return static_cast<int>(negative ? -value : std::min(value, kLimit - 1));
}

std::int64_t _wtoi64(const wchar_t* text) {
    constexpr auto kLargest = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
    std::wstring_view rest = withoutSpaces(text);
    const bool negative = rest.starts_with(L'-');
    if (negative || rest.starts_with(L'+'))
        rest.remove_prefix(1);
    std::uint64_t value = 0;
    for (const wchar_t c : rest) {
        const int digit = digitValue(c);
        if (digit < 0)
            break;
        const auto added = static_cast<std::uint64_t>(digit);
        value = value > (kLargest - added) / 10 ? kLargest + 1 : value * 10 + added;
    }
    if (negative)
        return value > kLargest ? std::numeric_limits<std::int64_t>::min()
                                : -static_cast<std::int64_t>(value);
    return static_cast<std::int64_t>(std::min(value, kLargest));
}

double _wtof(const wchar_t* text) {
    return _tcstod(text, nullptr);
}

double _tcstod(const wchar_t* text, wchar_t** end) {
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-const-cast): the interface's way.
    wchar_t* const start = const_cast<wchar_t*>(text);
    if (end != nullptr)
        *end = start;
    const std::wstring_view rest = withoutSpaces(text);
    std::string number = narrow(rest);
    const bool negative = number.starts_with('-');
    if (negative || number.starts_with('+'))
        number.erase(0, 1);
    if (number.starts_with('-'))
        return 0.0;
    const bool hexadecimal = number.starts_with("0x") || number.starts_with("0X");
    const char* const first = number.data() + (hexadecimal ? 2 : 0);
    double value = 0.0;
    const auto [last, error] =
        std::from_chars(first, number.data() + number.size(), value,
                        hexadecimal ? std::chars_format::hex : std::chars_format::general);
    if (error == std::errc::result_out_of_range) {
        const std::string_view read(first, static_cast<std::size_t>(last - first));
        value = isBelowOne(read, hexadecimal) ? 0.0 : std::numeric_limits<double>::infinity();
    }
    if (end != nullptr && error != std::errc::invalid_argument) {
        const auto sign = static_cast<std::size_t>(negative || rest.starts_with(L'+') ? 1 : 0);
        *end = start + (rest.data() - text) + sign + static_cast<std::size_t>(last - number.data());
    }
    return negative ? -value : value;
}

int _wcsnicmp(const wchar_t* left, const wchar_t* right, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
        const wchar_t a = zuhost::toLower(left[i]);
        const wchar_t b = zuhost::toLower(right[i]);
        if (a != b)
            return a < b ? -1 : 1;
        if (a == L'\0')
            return 0;
    }
    return 0;
}

int _wcsicmp(const wchar_t* left, const wchar_t* right) {
    return _wcsnicmp(left, right, std::numeric_limits<std::size_t>::max());
}

wchar_t* lstrcpyn(wchar_t* buffer, const wchar_t* text, int size) {
    if (buffer == nullptr || text == nullptr || size <= 0)
        return nullptr;
    const std::size_t count = _tcsnlen(text, static_cast<std::size_t>(size) - 1);
    *std::copy_n(text, count, buffer) = L'\0';
    return buffer;
}

wchar_t* lstrcpy(wchar_t* buffer, const wchar_t* text) {
    return buffer != nullptr && text != nullptr ? _tcscpy(buffer, text) : nullptr;
}

wchar_t* lstrcat(wchar_t* buffer, const wchar_t* text) {
    return buffer != nullptr && text != nullptr ? _tcscat(buffer, text) : nullptr;
}

int lstrcmp(const wchar_t* left, const wchar_t* right) {
    return _tcscmp(left != nullptr ? left : L"", right != nullptr ? right : L"");
}

int lstrcmpi(const wchar_t* left, const wchar_t* right) {
    return _wcsicmp(left != nullptr ? left : L"", right != nullptr ? right : L"");
}

void _wsplitpath(const wchar_t* path, wchar_t* drive, wchar_t* folder, wchar_t* name, wchar_t* extension) {
    const auto copyTo = [](std::wstring_view piece, wchar_t* buffer) {
        if (buffer == nullptr)
            return;
        const std::size_t count = std::min<std::size_t>(piece.size(), MAX_PATH - 1);
        std::copy_n(piece.begin(), count, buffer);
        buffer[count] = L'\0';
    };
    std::wstring_view rest(path);
    const std::size_t driveLength = rest.size() > 1 && rest[1] == L':' ? 2 : 0;
    copyTo(rest.substr(0, driveLength), drive);
    rest.remove_prefix(driveLength);
    const std::size_t separator = rest.find_last_of(L"\\/");
    const std::size_t folderLength = separator == std::wstring_view::npos ? 0 : separator + 1;
    copyTo(rest.substr(0, folderLength), folder);
    rest.remove_prefix(folderLength);
    const std::size_t point = std::min(rest.rfind(L'.'), rest.size());
    copyTo(rest.substr(0, point), name);
    copyTo(rest.substr(point), extension);
}

int MultiByteToWideChar(UINT codePage, DWORD /*flags*/, const char* bytes, int count, wchar_t* text,
                        int size) {
    const auto codec = codecOf(codePage);
    if (!codec || bytes == nullptr || count < -1) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    std::wstring decoded = codec->decode(
        count < 0 ? std::string_view(bytes) : std::string_view(bytes, static_cast<std::size_t>(count)));
    if (count < 0)
        decoded += L'\0';
    if (size == 0)
        return static_cast<int>(decoded.size());
    if (static_cast<std::size_t>(size) < decoded.size()) {
        SetLastError(ERROR_MORE_DATA);
        return 0;
    }
    std::copy(decoded.begin(), decoded.end(), text);
    return static_cast<int>(decoded.size());
}

int WideCharToMultiByte(UINT codePage, DWORD /*flags*/, const wchar_t* text, int count, char* bytes, int size,
                        const char* /*defaultCharacter*/, BOOL* usedDefault) {
    const auto codec = codecOf(codePage);
    if (usedDefault != nullptr)
        *usedDefault = FALSE;
    if (!codec || text == nullptr || count < -1) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    auto encoded = codec->encode(count < 0 ? std::wstring_view(text)
                                           : std::wstring_view(text, static_cast<std::size_t>(count)));
    if (!encoded) {
        SetLastError(ERROR_NO_UNICODE_TRANSLATION);
        return 0;
    }
    if (count < 0)
        *encoded += '\0';
    if (size == 0)
        return static_cast<int>(encoded->size());
    if (static_cast<std::size_t>(size) < encoded->size()) {
        SetLastError(ERROR_MORE_DATA);
        return 0;
    }
    std::copy(encoded->begin(), encoded->end(), bytes);
    return static_cast<int>(encoded->size());
}
