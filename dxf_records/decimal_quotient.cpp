#include "decimal_quotient.h"

#include <array>
#include <bit>

namespace zuhost {
namespace {

/// 1 / 10^places: value / 2^shift, rounded down. The value has 64 bits.
struct Reciprocal {
    std::uint64_t value = 0;
    int shift = 0;
};

constexpr std::size_t kMostPlaces = 18; ///< Twice the power has 64 bits at most.

constexpr auto kReciprocals = [] {
    std::array<Reciprocal, kMostPlaces + 1> reciprocals{};
    std::uint64_t power = 1;
    for (std::size_t places = 1; places <= kMostPlaces; ++places) {
        power *= 10;
        Reciprocal& reciprocal = reciprocals[places];
        const auto bits = static_cast<int>(std::bit_width(power));
        std::uint64_t rest = std::uint64_t{1} << static_cast<unsigned>(bits - 1);
        for (int i = 0; i < 64; ++i) {
            rest *= 2;
            const bool isSet = rest >= power;
            rest -= isSet ? power : 0;
            reciprocal.value = reciprocal.value << 1U | (isSet ? 1U : 0U);
        }
        reciprocal.shift = 63 + bits;
    }
    return reciprocals;
}();

/// Returns the upper 64 bits of a product.
constexpr std::uint64_t upperProduct(std::uint64_t a, std::uint64_t b) {
    constexpr std::uint64_t kLower = 0xFFFFFFFF;
    const std::uint64_t outer = (a >> 32U) * (b & kLower);
    const std::uint64_t inner = (a & kLower) * (b >> 32U);
    const std::uint64_t middle = ((a & kLower) * (b & kLower) >> 32U) + (outer & kLower) + inner;
    return (a >> 32U) * (b >> 32U) + (outer >> 32U) + (middle >> 32U);
}

constexpr double powerOfTwo(int exponent) {
    return std::bit_cast<double>(static_cast<std::uint64_t>(1023 + exponent) << 52U);
}

} // namespace

bool divideRounding(const PlainDecimal& decimal, double& value) {
    if (decimal.places == 0) {
        value = decimal.withSign(static_cast<double>(decimal.digits));
        return true;
    }
    if (decimal.places > kMostPlaces)
        return false;
    const Reciprocal& reciprocal = kReciprocals[decimal.places];
    const int zeros = std::countl_zero(decimal.digits);
    const std::uint64_t product =
        upperProduct(decimal.digits << static_cast<unsigned>(zeros), reciprocal.value);
    // The quotient exceeds the product by more than 0 and less than 2. The product has 63 bits at least, of
    // which the upper 54 decide on rounding: no carry reaches these unless all bits below them are set.
    constexpr std::uint64_t kBelow = 0x1FF;
    if ((product & kBelow) == kBelow)
        return false;
    value = decimal.withSign(static_cast<double>(product | 1U) * powerOfTwo(64 - reciprocal.shift - zeros));
    return true;
}

} // namespace zuhost
