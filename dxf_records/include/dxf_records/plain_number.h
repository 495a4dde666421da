#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
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

} // namespace detail

/// Fast path for nearly every number of a drawing: "12.5", "-300". Returns false and leaves the value
/// untouched for any other text, which parseReal may still accept. Digits up to 2^53 and the powers of ten
/// are exact as doubles, so that their quotient is rounded once, correctly.
inline bool parsePlainReal(std::string_view text, double& value) {
    constexpr std::uint64_t kLargestExact = std::uint64_t{1} << 53U;
    constexpr std::ptrdiff_t kMostDigits = 18;
    const char* at = text.data();
    const char* const end = at + text.size();
    const bool negative = at != end && *at == '-';
    at += negative ? 1 : 0;
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
        ++at;
        places = takeDigits();
    }
    const bool plain =
        at == end && whole + places > 0 && whole + places <= kMostDigits && digits <= kLargestExact;
    if (!plain)
        return false;
    const double magnitude =
        static_cast<double>(digits) / detail::kPowersOfTen[static_cast<std::size_t>(places)];
    value = negative ? -magnitude : magnitude;
    return true;
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
