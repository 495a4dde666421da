#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace zuhost {

namespace detail {

inline constexpr auto kPowersOfTen = [] {
    std::array<double, 23> powers{};
    double power = 1;
    for (double& entry : powers) {
        entry = power;
        power *= 10;
    }
    return powers;
}();

inline constexpr unsigned char kNoDigit = 0xFF;

inline constexpr auto kHexDigits = [] {
    std::array<unsigned char, 256> values{};
    values.fill(kNoDigit);
    for (unsigned char i = 0; i < 10; ++i)
        values['0' + std::size_t{i}] = i;
    for (unsigned char i = 0; i < 6; ++i)
        values['a' + std::size_t{i}] = values['A' + std::size_t{i}] = static_cast<unsigned char>(10 + i);
    return values;
}();

/// Reads eight digits at once: adds them to the number and returns true when these bytes are digits.
inline bool takeEightDigits(const char* at, std::uint64_t& number) {
    if constexpr (std::endian::native != std::endian::little)
        return false;
    constexpr std::uint64_t kUpperHalves = 0xF0F0F0F0F0F0F0F0;
    std::uint64_t bytes = 0;
    std::memcpy(&bytes, at, sizeof bytes);
    const std::uint64_t afterNine = bytes + 0x0606060606060606;
    if (((bytes & kUpperHalves) | (afterNine & kUpperHalves) >> 4U) != 0x3333333333333333)
        return false;
    // Pairs of digits, of pairs, and of these: the first digit is in the lowest byte.
    bytes = (bytes & 0x0F0F0F0F0F0F0F0F) * (1 + (10 << 8)) >> 8U;
    bytes = (bytes & 0x00FF00FF00FF00FF) * (1 + (100 << 16)) >> 16U;
    bytes = (bytes & 0x0000FFFF0000FFFF) * (1 + (std::uint64_t{10000} << 32U)) >> 32U;
    number = number * 100'000'000 + bytes;
    return true;
}

} // namespace detail

/// A number without exponent: digits / 10^places.
struct PlainDecimal {
    std::uint64_t digits = 0;
    std::size_t places = 0;
    bool negative = false;

    [[nodiscard]] double withSign(double magnitude) const { return negative ? -magnitude : magnitude; }
};

/// Parses "12.5", "-300" of up to 19 digits. Returns false for any other text.
inline bool parsePlainDecimal(std::string_view text, PlainDecimal& decimal) {
    constexpr std::ptrdiff_t kMostDigits = 19;
    const char* at = text.data();
    const char* const end = at + text.size();
    decimal.negative = at != end && *at == '-';
    at += decimal.negative ? 1 : 0;
    std::uint64_t digits = 0;
    const auto takeDigits = [&] {
        const char* const first = at;
        while (end - at >= 8 && detail::takeEightDigits(at, digits))
            at += 8;
        for (; at != end && static_cast<unsigned char>(*at - '0') < 10; ++at)
            digits = digits * 10 + static_cast<unsigned char>(*at - '0');
        return at - first;
    };
    const std::ptrdiff_t whole = takeDigits();
    std::ptrdiff_t places = 0;
    if (at != end && *at == '.') {
        ++at;
        places = takeDigits();
    }
    decimal.digits = digits;
    decimal.places = static_cast<std::size_t>(places);
    return at == end && whole + places > 0 && whole + places <= kMostDigits;
}

/// Sets the value of a number of up to 2^53 digits: these and the powers of ten are exact as doubles, so that
/// their quotient is rounded once, correctly. Returns false and leaves it untouched for more digits.
inline bool divideExactly(const PlainDecimal& decimal, double& value) {
    constexpr std::uint64_t kLargestExact = std::uint64_t{1} << 53U;
    if (decimal.digits > kLargestExact)
        return false;
    value = decimal.withSign(static_cast<double>(decimal.digits) / detail::kPowersOfTen[decimal.places]);
    return true;
}

/// Fast path for nearly every number of a drawing. Returns false and leaves the value untouched for any other
/// text, which parseReal may still accept.
inline bool parsePlainReal(std::string_view text, double& value) {
    PlainDecimal decimal;
    return parsePlainDecimal(text, decimal) && divideExactly(decimal, value);
}

/// Parses one to sixteen hexadecimal digits without blanks. Returns false and leaves the value untouched for
/// any other text.
inline bool parsePlainHandle(std::string_view text, std::uint64_t& value) {
    constexpr std::size_t kMostDigits = 16;
    if (text.empty() || text.size() > kMostDigits)
        return false;
    std::uint64_t digits = 0;
    unsigned seen = 0;
    for (const char c : text) {
        const unsigned digit = detail::kHexDigits[static_cast<unsigned char>(c)];
        digits = digits << 4U | digit;
        seen |= digit;
    }
    if (seen > 0xF)
        return false;
    value = digits;
    return true;
}

} // namespace zuhost
