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

inline constexpr std::array<std::uint64_t, 9> kWholePowers{1,       10,        100,        1'000,      10'000,
                                                           100'000, 1'000'000, 10'000'000, 100'000'000};

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

/// Reads the last `count` of the eight bytes before `end` at once, 1 to 8: adds them to the number and
/// returns true when they are digits.
inline bool takeDigitsBefore(const char* end, std::ptrdiff_t count, std::uint64_t& number) {
    if constexpr (std::endian::native != std::endian::little)
        return false;
    constexpr std::uint64_t kUpperHalves = 0xF0F0F0F0F0F0F0F0;
    constexpr std::uint64_t kZeros = 0x3030303030303030;
    std::uint64_t bytes = 0;
    std::memcpy(&bytes, end - sizeof bytes, sizeof bytes);
    // The bytes before the digits, the lower ones, count as zeros.
    const std::uint64_t wanted = ~std::uint64_t{0} << (8 * (8 - static_cast<unsigned>(count)));
    bytes = (bytes & wanted) | (kZeros & ~wanted);
    const std::uint64_t afterNine = bytes + 0x0606060606060606;
    if (((bytes & kUpperHalves) | (afterNine & kUpperHalves) >> 4U) != 0x3333333333333333)
        return false;
    // Pairs of digits, of pairs, and of these: the first digit is in the lowest byte.
    bytes = (bytes & 0x0F0F0F0F0F0F0F0F) * (1 + (10 << 8)) >> 8U;
    bytes = (bytes & 0x00FF00FF00FF00FF) * (1 + (100 << 16)) >> 16U;
    bytes = (bytes & 0x0000FFFF0000FFFF) * (1 + (std::uint64_t{10000} << 32U)) >> 32U;
    number = number * kWholePowers[static_cast<std::size_t>(count)] + bytes;
    return true;
}

/// Reads digits up to `end`, eight at once; at least eight bytes of text precede it. Returns the place of the
/// first byte that it did not read.
inline const char* takeLastDigits(const char* at, const char* end, std::uint64_t& number) {
    while (end - at > 8 && takeDigitsBefore(at + 8, 8, number))
        at += 8;
    return end - at >= 1 && end - at <= 8 && takeDigitsBefore(end, end - at, number) ? end : at;
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
        for (; at != end && static_cast<unsigned char>(*at - '0') < 10; ++at)
            digits = digits * 10 + static_cast<unsigned char>(*at - '0');
        return at - first;
    };
    const std::ptrdiff_t whole = takeDigits();
    std::ptrdiff_t places = 0;
    if (at != end && *at == '.') {
        const char* const fraction = ++at;
        if (text.size() >= 8)
            at = detail::takeLastDigits(at, end, digits);
        takeDigits();
        places = at - fraction;
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
