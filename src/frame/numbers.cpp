#include "numbers.h"

#include <zucomn/settings.h>
#include <zucomn/strings.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <string>

namespace {

constexpr double kSmall = 0.001;
constexpr int kMostPlaces = 16;
constexpr double kFullTurn = 360.0;
constexpr int kMostDigits = 400;

/// Truncates towards zero. Formats a double because the whole part may exceed every integer type. Adding 0.0
/// turns a negative zero, which would be written "-0", into a positive one.
CString whole(double value) {
    CString text;
    text.Format(L"%.0f", std::trunc(value) + 0.0);
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

/// Returns the digits after the decimal point of a magnitude below 1, in the shortest form that reads back as
/// the same number: repeated multiplication by 10 would turn 0.0003 into 0.00029999...
std::string decimalsOf(double magnitude) {
    constexpr std::size_t kPoint = 2; // "0."
    std::array<char, 400> buffer{};
    const auto end =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), magnitude, std::chars_format::fixed);
    const std::string text(buffer.data(), end.ptr);
    return text.size() > kPoint ? text.substr(kPoint) : std::string();
}

CString smallReal(double value, int precision, int significantDigits) {
    const std::string shown = decimalsOf(std::abs(value)).substr(0, static_cast<std::size_t>(precision));
    const std::size_t last = shown.find_last_not_of('0');
    // When every digit within the precision is zero, one of them is dropped as a trailing zero.
    const int places = last != std::string::npos ? static_cast<int>(last) + 1 : precision - 1;
    if (places > kMostPlaces)
        return significant(value, significantDigits);
    if (places <= 0)
        return whole(value);
    CString text;
    text.Format(L"%0.*f", places, value);
    // Rounding up may leave a zero in the last place.
    return last != std::string::npos ? text.TrimRight(L'0') : text;
}

} // namespace

int zu::configuredPrecision() {
    CString value;
    ZuComn_readEnvConfig(value, L"実数精度桁数");
    return std::max(_wtoi(value), 0);
}

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
        precision = zu::configuredPrecision();
    const int digits = wholeDigits(value) + std::min(precision, kMostDigits);
    if (precision == 0)
        return whole(rounding == 0 ? value : (value < 0.0 ? value - 0.5 : value + 0.5));
    return isSmall(value) ? smallReal(value, precision, digits) : significant(value, digits);
}
