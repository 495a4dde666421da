#include "acdbads.h"
#include "zuhost/unit_settings.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <numbers>
#include <optional>
#include <string>
#include <string_view>

namespace {

constexpr double kFullTurn = 2.0 * std::numbers::pi;
constexpr double kDegree = std::numbers::pi / 180.0;
constexpr double kGrad = std::numbers::pi / 200.0;
constexpr double kSixty = 60.0;
constexpr int kGreatestPrecision = 8;
constexpr int kSecondsPrecision = 4; ///< Further digits are decimals of seconds.

enum Unit { kDegrees, kMinutes, kGrads, kRadians, kBearings };

std::wstring fixed(double value, int precision) {
    std::array<char, 64> buffer{};
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                   std::chars_format::fixed, precision);
    return {buffer.data(), end.ptr};
}

/// "45d", "45d30'" or "45d30'15\"", by the precision.
std::wstring minutesText(double degrees, int precision) {
    if (precision == 0)
        return fixed(degrees, 0) + L"d";
    const int decimals = std::max(precision - kSecondsPrecision, 0);
    const bool hasSeconds = precision > 2;
    // In the smallest unit shown, rounded once: no "60" can appear.
    const double parts = (hasSeconds ? kSixty : 1.0) * std::pow(10.0, decimals);
    const double total = std::round(degrees * kSixty * parts);
    const double minutes = std::floor(total / parts);
    std::wstring text =
        fixed(std::floor(minutes / kSixty), 0) + L"d" + fixed(std::fmod(minutes, kSixty), 0) + L"'";
    if (hasSeconds)
        text += fixed(std::fmod(total, parts) / std::pow(10.0, decimals), decimals) + L"\"";
    return text;
}

std::wstring bearingText(double angle, int precision) {
    const double degrees = angle / kDegree;
    const bool north = degrees <= 180.0;
    const bool east = degrees < 90.0 || degrees > 270.0;
    const double fromAxis = std::abs(90.0 - std::fmod(degrees, 180.0));
    if (degrees == 0.0)
        return L"E";
    if (degrees == 90.0)
        return L"N";
    if (degrees == 180.0)
        return L"W";
    if (degrees == 270.0)
        return L"S";
    return std::wstring(north ? L"N " : L"S ") + minutesText(fromAxis, precision) + (east ? L" E" : L" W");
}

std::optional<std::wstring> angleText(double angle, int unit, int precision) {
    switch (unit) {
    case kDegrees:
        return fixed(angle / kDegree, precision);
    case kMinutes:
        return minutesText(angle / kDegree, precision);
    case kGrads:
        return fixed(angle / kGrad, precision) + L"g";
    case kRadians:
        return fixed(angle, precision) + L"r";
    case kBearings:
        return bearingText(angle, precision);
    default:
        return std::nullopt;
    }
}

// ---- parsing

/// Reads texts of angles, in upper case and without blanks, from front to back.
class AngleReader {
public:
    explicit AngleReader(std::wstring_view text) {
        for (const wchar_t c : text)
            if (c != L' ' && c != L'\t')
                text_ += upper(c);
    }

    std::optional<double> read(int unit) {
        if (text_.empty())
            return std::nullopt;
        const auto angle = text_.find_first_of("NSEW") == 0 ? readBearing() : readPlain(unit);
        return angle && at_ == text_.size() && std::isfinite(*angle) ? angle : std::nullopt;
    }

private:
    static char upper(wchar_t c) {
        if (c <= 0 || c >= 128)
            return '?';
        return static_cast<char>(c >= L'a' && c <= L'z' ? c - L'a' + L'A' : c);
    }

    std::optional<double> readPlain(int unit) {
        const bool negative = accept('-');
        if (!negative)
            accept('+');
        const auto angle = readSize(unit);
        return angle && negative ? -*angle : angle;
    }

    std::optional<double> readSize(int unit) {
        const auto number = readNumber();
        if (!number)
            return std::nullopt;
        if (accept('G'))
            return *number * kGrad;
        if (accept('R'))
            return *number;
        if (accept('D'))
            return readMinutes(*number);
        if (unit == kGrads)
            return *number * kGrad;
        return unit == kRadians ? *number : *number * kDegree;
    }

    std::optional<double> readMinutes(double degrees) {
        auto number = readNumber();
        if (number && accept('\'')) {
            degrees += *number / kSixty;
            number = readNumber();
        }
        if (!number)
            return degrees * kDegree;
        if (!accept('"'))
            return std::nullopt;
        return (degrees + *number / (kSixty * kSixty)) * kDegree;
    }

    /// "N45DE": from north or south towards east or west; "N", "E" ... alone are the directions themselves.
    std::optional<double> readBearing() {
        const char from = text_[at_++];
        if (at_ == text_.size())
            return direction(from);
        if (from != 'N' && from != 'S')
            return std::nullopt;
        const auto size = readSize(kDegrees);
        const bool east = accept('E');
        if (!size || (!east && !accept('W')))
            return std::nullopt;
        const double turn = east == (from == 'N') ? -*size : *size;
        return direction(from) + turn;
    }

    static double direction(char name) {
        constexpr std::string_view kNames = "ENWS";
        return static_cast<double>(kNames.find(name)) * kFullTurn / 4.0;
    }

    std::optional<double> readNumber() {
        const bool starts =
            at_ < text_.size() && (text_[at_] == '.' || (text_[at_] >= '0' && text_[at_] <= '9'));
        if (!starts)
            return std::nullopt;
        double value = 0.0;
        const auto [rest, error] = std::from_chars(text_.data() + at_, text_.data() + text_.size(), value);
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

    std::string text_;
    std::size_t at_ = 0;
};

} // namespace

int acdbAngToS(ads_real angle, int unit, int precision, ACHAR* text, std::size_t size) {
    const zuhost::UnitSettings settings = zuhost::unitSettings();
    const int digits = std::clamp(precision < 0 ? settings.anglePrecision : precision, 0, kGreatestPrecision);
    if (!std::isfinite(angle))
        return RTERROR;
    const int used = unit == -1 ? settings.angleUnit : unit;
    // Bearings name directions of the world.
    const auto written = angleText(
        used == kBearings ? zuhost::withinTurn(angle) : zuhost::fromAngleBase(angle, settings), used, digits);
    return written && zuhost::copyToBuffer(*written, text, size) ? RTNORM : RTERROR;
}

int acdbAngToF(const ACHAR* text, int unit, ads_real* angle) {
    if (text == nullptr || angle == nullptr || unit < -1 || unit > kBearings)
        return RTERROR;
    const zuhost::UnitSettings settings = zuhost::unitSettings();
    const auto read = AngleReader(text).read(unit == -1 ? settings.angleUnit : unit);
    if (!read)
        return RTERROR;
    const bool isBearing = std::wstring_view(text).find_first_of(L"NSEWnsew") != std::wstring_view::npos;
    if (isBearing)
        *angle = zuhost::withinTurn(*read);
    else
        *angle = zuhost::withinTurn(settings.isClockwise ? settings.angleBase - *read
                                                         : settings.angleBase + *read);
    return RTNORM;
}
