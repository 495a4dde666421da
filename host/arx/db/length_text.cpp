#include "acdbads.h"
#include "zuhost/unit_settings.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <numeric>
#include <optional>
#include <string>
#include <string_view>

namespace {

constexpr double kInchesPerFoot = 12.0;
constexpr int kGreatestPrecision = 8;
constexpr int kNoLeadingZero = 4; // bits of DIMZIN for decimals
constexpr int kNoTrailingZeros = 8;
constexpr double kGreatestFraction = 1e15; // beyond it a number has no fractions

enum Unit { kScientific = 1, kDecimal, kEngineering, kArchitectural, kFractional };

std::wstring widened(std::string_view text) {
    return {text.begin(), text.end()};
}

std::wstring formatted(double value, std::chars_format form, int precision) {
    std::array<char, 512> buffer{};
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, form, precision);
    return widened({buffer.data(), end.ptr});
}

std::wstring withoutZeros(std::wstring text, int suppression) {
    if ((suppression & kNoTrailingZeros) != 0 && text.find(L'.') != std::wstring::npos) {
        text.erase(text.find_last_not_of(L'0') + 1);
        if (text.back() == L'.')
            text.pop_back();
    }
    if ((suppression & kNoLeadingZero) != 0 && text.starts_with(L"0."))
        text.erase(0, 1);
    return text;
}

std::wstring decimal(double value, int precision, int suppression) {
    return withoutZeros(formatted(value, std::chars_format::fixed, precision), suppression);
}

/// Writes the exponent in upper case with two digits: "1.5500E+01".
std::wstring scientific(double value, int precision) {
    std::wstring text = formatted(value, std::chars_format::scientific, precision);
    const std::size_t exponent = text.find(L'e');
    if (exponent != std::wstring::npos)
        text[exponent] = L'E';
    return text;
}

/// A number rounded to a fraction of which the denominator is a power of two.
struct Fraction {
    double whole = 0.0;
    long long numerator = 0;
    long long denominator = 1;
};

Fraction fractionOf(double value, int precision) {
    const long long denominator = 1LL << precision;
    const double parts = std::round(value * static_cast<double>(denominator));
    const double whole = std::floor(parts / static_cast<double>(denominator));
    const auto rest = static_cast<long long>(parts - whole * static_cast<double>(denominator));
    const long long divisor = std::gcd(rest, denominator);
    return {whole, rest / divisor, denominator / divisor};
}

std::wstring fractional(const Fraction& number) {
    std::wstring whole = formatted(number.whole, std::chars_format::fixed, 0);
    if (number.numerator == 0)
        return whole;
    const std::wstring part = std::to_wstring(number.numerator) + L"/" + std::to_wstring(number.denominator);
    return number.whole == 0.0 ? part : whole + L" " + part;
}

/// DIMZIN 0 suppresses zero feet and inches, 1 neither, 2 zero inches, 3 zero feet.
std::wstring feetAndInches(double feet, const std::wstring& inches, bool isZeroInches, int suppression) {
    const int kind = suppression & 3;
    const bool hasFeet = feet != 0.0 || kind == 1 || kind == 2;
    const bool hasInches = !isZeroInches || !hasFeet || kind == 1 || kind == 3;
    std::wstring text = hasFeet ? formatted(feet, std::chars_format::fixed, 0) + L"'" : std::wstring();
    if (hasInches)
        text += (hasFeet ? L"-" : L"") + inches + L"\"";
    return text;
}

std::wstring engineering(double value, int precision, int suppression) {
    const double scale = std::pow(10.0, precision);
    const double rounded = std::round(value * scale) / scale;
    const double feet = std::floor(rounded / kInchesPerFoot);
    const double inches = rounded - feet * kInchesPerFoot;
    return feetAndInches(feet, decimal(inches, precision, suppression), inches == 0.0, suppression);
}

std::wstring architectural(double value, int precision, int suppression) {
    Fraction number = fractionOf(value, precision);
    const double feet = std::floor(number.whole / kInchesPerFoot);
    number.whole -= feet * kInchesPerFoot;
    const bool isZero = number.whole == 0.0 && number.numerator == 0;
    return feetAndInches(feet, fractional(number), isZero, suppression);
}

std::optional<std::wstring> lengthText(double value, int unit, int precision, int suppression) {
    if (unit != kScientific && unit != kDecimal && std::abs(value) > kGreatestFraction)
        return std::nullopt;
    switch (unit) {
    case kScientific:
        return scientific(value, precision);
    case kDecimal:
        return decimal(value, precision, suppression);
    case kEngineering:
        return engineering(value, precision, suppression);
    case kArchitectural:
        return architectural(value, precision, suppression);
    case kFractional:
        return fractional(fractionOf(value, precision));
    default:
        return std::nullopt;
    }
}

// ---- parsing

bool isDigitOrPoint(wchar_t c) {
    return (c >= L'0' && c <= L'9') || c == L'.';
}

/// Reads texts of lengths from front to back.
class LengthReader {
public:
    explicit LengthReader(std::wstring_view text) {
        std::transform(text.begin(), text.end(), std::back_inserter(text_),
                       [](wchar_t c) { return c > 0 && c < 128 ? static_cast<char>(c) : '?'; });
    }

    std::optional<double> read() {
        skipBlanks();
        const bool negative = accept('-');
        if (!negative)
            accept('+');
        const auto value = readFeetAndInches();
        skipBlanks();
        if (!value || at_ != text_.size() || !std::isfinite(*value))
            return std::nullopt;
        return negative ? -*value : *value;
    }

private:
    std::optional<double> readFeetAndInches() {
        auto number = readNumber();
        if (!number)
            return std::nullopt;
        if (!accept('\''))
            return readInches(*number);
        const double feet = *number * kInchesPerFoot;
        accept('-');
        skipBlanks();
        if (at_ == text_.size())
            return feet;
        number = readNumber();
        const auto inches = number ? readInches(*number) : std::nullopt;
        return inches ? std::optional(feet + *inches) : std::nullopt;
    }

    /// Reads what follows the first number of inches: the rest of its fraction, or a fraction.
    std::optional<double> readInches(double number) {
        std::optional<double> value = number;
        if (accept('/')) {
            value = divided(number);
        } else if (at_ + 1 < text_.size() && (text_[at_] == '-' || text_[at_] == ' ') &&
                   isDigitOrPoint(static_cast<wchar_t>(text_[at_ + 1]))) {
            ++at_;
            const auto numerator = readNumber();
            const auto part = numerator && accept('/') ? divided(*numerator) : std::nullopt;
            value = part ? std::optional(number + *part) : std::nullopt;
        }
        accept('"');
        return value;
    }

    std::optional<double> divided(double numerator) {
        const auto denominator = readNumber();
        return denominator && *denominator != 0.0 ? std::optional(numerator / *denominator) : std::nullopt;
    }

    std::optional<double> readNumber() {
        if (at_ >= text_.size() || !isDigitOrPoint(static_cast<wchar_t>(text_[at_])))
            return std::nullopt; // no second sign, no "inf" or "nan"
        double value = 0.0;
        const char* const end = text_.data() + text_.size();
        const auto [rest, error] = std::from_chars(text_.data() + at_, end, value);
        if (error != std::errc())
            return std::nullopt;
        at_ = static_cast<std::size_t>(rest - text_.data());
        return value;
    }

    bool accept(char c) {
        const bool found = at_ < text_.size() && text_[at_] == c;
        at_ += found ? 1 : 0;
        return found;
    }
    void skipBlanks() {
        while (accept(' ') || accept('\t')) {
        }
    }

    std::string text_;
    std::size_t at_ = 0;
};

} // namespace

int acdbRToS(ads_real value, int unit, int precision, ACHAR* text, std::size_t size) {
    const zuhost::UnitSettings settings = zuhost::unitSettings();
    const int digits =
        std::clamp(precision < 0 ? settings.lengthPrecision : precision, 0, kGreatestPrecision);
    if (!std::isfinite(value))
        return RTERROR;
    const auto written = lengthText(std::abs(value), unit == -1 ? settings.lengthUnit : unit, digits,
                                    settings.zeroSuppression);
    return written && zuhost::copyToBuffer((value < 0.0 ? L"-" : L"") + *written, text, size) ? RTNORM
                                                                                              : RTERROR;
}

int acdbDisToF(const ACHAR* text, int unit, ads_real* value) {
    if (text == nullptr || value == nullptr || unit < -1 || unit == 0 || unit > kFractional)
        return RTERROR;
    const auto length = LengthReader(text).read();
    if (length)
        *value = *length;
    return length ? RTNORM : RTERROR;
}
