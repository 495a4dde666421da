#include "zucomn/settings.h"
#include "zucomn/strings.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr double kSmall = 0.001;
constexpr int kMostPlaces = 16;
constexpr double kFullTurn = 360.0;

/// Towards zero, kept within the range of int.
int truncated(double value) {
    if (std::isnan(value))
        return std::numeric_limits<int>::min();
    constexpr double kLeast = std::numeric_limits<int>::min();
    constexpr double kMost = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp(value, kLeast, kMost));
}

CString whole(double value) {
    CString text;
    text.Format(L"%d", truncated(value));
    return text;
}

CString significant(double value, int digits) {
    CString text;
    text.Format(L"%.*g", digits, value);
    return text;
}

int wholeDigits(double value) {
    const int length = whole(value).GetLength();
    return value < 0.0 && length >= 2 ? length - 1 : length;
}

bool isSmall(double value) {
    return (value > 0.0 && value <= kSmall) || (value < 0.0 && value >= -kSmall);
}

/// Places behind the point that show `precision` digits of a small value without trailing zeros.
int placesOf(double value, int precision) {
    double fraction = std::abs(value) - std::floor(std::abs(value));
    int leadingZeros = 0;
    int digits = 0;
    for (int i = 0; i < precision; ++i) {
        fraction *= 10.0;
        if (digits == 0 && truncated(fraction) == 0)
            ++leadingZeros;
        else
            ++digits;
    }
    const CString shown = whole(fraction);
    const int trailingZeros = shown.GetLength() - CString(shown).TrimRight(L'0').GetLength();
    return digits - trailingZeros + leadingZeros;
}

CString smallReal(double value, int precision, int significantDigits) {
    const int places = placesOf(value, std::min(precision, 2 * kMostPlaces));
    if (places > kMostPlaces)
        return significant(value, significantDigits);
    if (places <= 0)
        return whole(value);
    CString text;
    text.Format(L"%0.*f", places, value);
    return text;
}

int configuredPrecision() {
    CString value;
    ZuComn_readEnvConfig(value, L"実数精度桁数");
    return _wtoi(value);
}

} // namespace

double ZuComn_C4O5I(double value) {
    // Adding 0.0 turns a negative zero, which would be written "-0", into a positive one.
    return std::trunc(value >= 0.0 ? value + 0.5 : value - 0.4) + 0.0;
}

double ZUComn_AngleAptitude(double degrees) {
    double angle = degrees;
    for (int pass = 0; pass < 100; ++pass) {
        if (angle >= kFullTurn)
            angle -= kFullTurn;
        if (angle < 0.0)
            angle += kFullTurn;
        if (angle >= 0.0 && angle < kFullTurn)
            return angle;
    }
    return degrees;
}

CString ZuComn_RealFormat(double value, int precision, int rounding) {
    if (precision < 0)
        precision = configuredPrecision();
    const int digits = wholeDigits(value) + std::min(precision, 400);
    if (precision == 0)
        return whole(rounding == 0 ? value : (value < 0.0 ? value - 0.5 : value + 0.5));
    return isSmall(value) ? smallReal(value, precision, digits) : significant(value, digits);
}
