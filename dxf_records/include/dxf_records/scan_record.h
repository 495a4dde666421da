#pragma once

#include "find_byte.h"
#include "value_type.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace zuhost::dxf {

// Fast path for well-formed records; AsciiReader and BinaryReader read and diagnose the rest. Comments are
// left to them, too.

inline constexpr int kComment = 999;

struct ScannedRecord {
    const char* end = nullptr; ///< First byte after the record; null when the fast path does not apply.
    int code = 0;
    std::string_view value; ///< As in Record.
};

namespace detail {

/// Scans blanks, up to four digits and their line end. Returns the place after it; null for any other text.
inline const char* scanCode(const char* at, const char* end, int& code) {
    constexpr std::ptrdiff_t kMostDigits = 4;
    while (at != end && *at == ' ')
        ++at;
    const char* const digits = at;
    code = 0;
    for (; at != end && at - digits <= kMostDigits && static_cast<unsigned char>(*at - '0') < 10; ++at)
        code = code * 10 + (*at - '0');
    const std::ptrdiff_t count = at - digits;
    if (at != end && *at == '\r')
        ++at;
    return count == 0 || count > kMostDigits || at == end || *at != '\n' ? nullptr : at + 1;
}

inline constexpr unsigned char kNoCodeDigit = 0xFF;

/// The digit that a character of a group code stands for; a blank before the others counts as 0.
inline constexpr auto kCodeDigits = [] {
    std::array<unsigned char, 256> digits{};
    digits.fill(kNoCodeDigit);
    digits[' '] = 0;
    for (unsigned char i = 0; i < 10; ++i)
        digits['0' + std::size_t{i}] = i;
    return digits;
}();

/// Scans a group code of three characters, blanks first, or of four digits, and its line end. Returns the
/// place after it; null for any other text.
inline const char* scanPaddedCode(const char* at, const char* end, int& code) {
    constexpr std::ptrdiff_t kLongest = 6; // with CR LF
    if (end - at < kLongest || (at[0] != ' ' && at[1] == ' ') || at[2] == ' ')
        return nullptr;
    const auto digit = [at](std::size_t i) { return kCodeDigits[static_cast<unsigned char>(at[i])]; };
    const unsigned hundreds = digit(0);
    const unsigned tens = digit(1);
    const unsigned ones = digit(2);
    if ((hundreds | tens | ones) == kNoCodeDigit)
        return nullptr;
    code = static_cast<int>(hundreds * 100 + tens * 10 + ones);
    at += 3;
    if (const unsigned next = static_cast<unsigned char>(*at - '0'); next < 10) {
        code = code * 10 + static_cast<int>(next);
        ++at;
    }
    at += *at == '\r' ? 1 : 0;
    return *at == '\n' ? at + 1 : nullptr;
}

/// Scans the line of a value, null where there was no group code before it.
inline ScannedRecord scanValue(const char* value, const char* end, int code) {
    if (value == nullptr || code == kComment)
        return {};
    const char* const lineEnd = findByte(value, end, '\n');
    if (lineEnd == end)
        return {};
    const bool withReturn = lineEnd != value && lineEnd[-1] == '\r';
    return {lineEnd + 1, code, {value, static_cast<std::size_t>(lineEnd - value) - (withReturn ? 1 : 0)}};
}

} // namespace detail

/// Scans a line with blanks and up to four digits, then a second line. Both end in LF or CR LF.
inline ScannedRecord scanAsciiRecord(const char* at, const char* end) {
    int code = 0;
    const char* const value = detail::scanCode(at, end, code);
    return detail::scanValue(value, end, code);
}

/// The same, not inlined.
ScannedRecord scanUnpaddedRecord(const char* at, const char* end);

/// The same as scanAsciiRecord, faster for group codes of three characters, blanks first, which most drawings
/// have, but slower where values are converted between them.
inline ScannedRecord scanPaddedRecord(const char* at, const char* end) {
    int code = 0;
    const char* const value = detail::scanPaddedCode(at, end, code);
    return value != nullptr ? detail::scanValue(value, end, code) : scanUnpaddedRecord(at, end);
}

/// Returns the place after the line, which ends in LF or CR LF; null when another line is there.
inline const char* afterLine(const char* at, const char* end, std::string_view line) {
    constexpr std::size_t kLongestEnd = 2;
    if (static_cast<std::size_t>(end - at) < line.size() + kLongestEnd)
        return nullptr;
    const char* const next = at + line.size() + (at[line.size()] == '\r' ? 2 : 1);
    return next[-1] == '\n' && std::memcmp(at, line.data(), line.size()) == 0 ? next : nullptr;
}

namespace detail {

/// The size of a binary value is 1 to 8 bytes by its group code, or one of these.
inline constexpr std::uint8_t kZeroTerminated = 0;
inline constexpr std::uint8_t kNoFastPath = 0xFF;

constexpr std::uint8_t sizeOf(int code) {
    const ValueType type = valueType(code);
    if (const std::size_t size = fixedSize(type); size != 0)
        return static_cast<std::uint8_t>(size);
    const bool isText = type == ValueType::text || type == ValueType::handle;
    return isText && code != kComment ? kZeroTerminated : kNoFastPath;
}

inline constexpr auto kSizes = [] {
    std::array<std::uint8_t, kLargestKnownCode + 1> sizes{};
    for (int code = 0; code <= kLargestKnownCode; ++code)
        sizes[static_cast<std::size_t>(code)] = sizeOf(code);
    return sizes;
}();

} // namespace detail

/// Scans a group code of two bytes with a number or a text.
inline ScannedRecord scanBinaryRecord(const char* at, const char* end) {
    constexpr std::ptrdiff_t kLongest = 10;
    if (end - at < kLongest)
        return {};
    const int code = static_cast<unsigned char>(at[0]) | static_cast<unsigned char>(at[1]) << 8;
    if (code > kLargestKnownCode)
        return {};
    const char* const value = at + 2;
    const std::size_t size = detail::kSizes[static_cast<std::size_t>(code)];
    if (size == 8) // A constant length, so that the next record does not depend on a table look-up.
        return {value + 8, code, {value, 8}};
    if (size == detail::kZeroTerminated) {
        const char* const zero = findByte(value, end, '\0');
        if (zero == end)
            return {};
        return {zero + 1, code, {value, static_cast<std::size_t>(zero - value)}};
    }
    if (size == detail::kNoFastPath)
        return {};
    return {value + size, code, {value, size}};
}

} // namespace zuhost::dxf
