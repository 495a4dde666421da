#include "painters/theme.h"

#include <algorithm>
#include <array>

namespace zu::picture {

namespace {

constexpr int kFirstHue = 10;
constexpr int kFirstGrey = 250;
constexpr int kLast = 255;

constexpr std::array<QRgb, 10> kNamed{0x000000, 0xFF0000, 0xFFFF00, 0x00FF00, 0x00FFFF,
                                      0x0000FF, 0xFF00FF, 0xFFFFFF, 0x808080, 0xC0C0C0};
constexpr std::array<int, 6> kGreys{51, 91, 132, 173, 214, 255};

/// From 10 on ten shades of each of 24 hues: five degrees of darkness, each full and half saturated.
QColor shade(int number) {
    constexpr std::array<int, 5> kValues{255, 165, 127, 76, 38};
    const int place = number % 10;
    const int hue = (number / 10 - 1) * 15;
    return QColor::fromHsv(hue, place % 2 == 0 ? 255 : 128, kValues[static_cast<std::size_t>(place / 2)]);
}

QColor plainColour(int number) {
    if (number < kFirstHue)
        return QColor::fromRgb(kNamed[static_cast<std::size_t>(number)]);
    if (number < kFirstGrey)
        return shade(number);
    const int grey = kGreys[static_cast<std::size_t>(number - kFirstGrey)];
    return {grey, grey, grey};
}

/// How bright the eye takes it, 0 to 255.
int luminance(const QColor& colour) {
    return (colour.red() * 299 + colour.green() * 587 + colour.blue() * 114) / 1000;
}

} // namespace

Theme Theme::light() {
    return {QColor(0xFF, 0xFF, 0xFF), QColor(0x10, 0x10, 0x10), false};
}

Theme Theme::dark() {
    return {QColor(0x1E, 0x22, 0x26), QColor(0xF0, 0xF0, 0xF0), true};
}

QColor Theme::colourOf(const Colour& colour) const {
    if (colour.rgb)
        return visible(QColor::fromRgb(*colour.rgb));
    if (colour.number <= 0 || colour.number > kLast || colour.number == Colour::kForeground)
        return ink;
    return visible(plainColour(colour.number));
}

QColor Theme::visible(const QColor& colour) const {
    constexpr int kTooBright = 140;
    constexpr int kTooDark = 110;
    constexpr int kLightened = 165;
    const int brightness = luminance(colour);
    if (!isDark && brightness > kTooBright)
        return colour.darker(100 * brightness / kTooBright);
    if (isDark && brightness < kTooDark)
        return QColor::fromHsl(colour.hslHue(), colour.hslSaturation(),
                               std::max(colour.lightness(), kLightened));
    return colour;
}

QColor Theme::faded(const QColor& colour, double share) const {
    const auto mixed = [share](int from, int to) {
        return static_cast<int>(from + (to - from) * std::clamp(share, 0.0, 1.0));
    };
    return {mixed(colour.red(), ground.red()), mixed(colour.green(), ground.green()),
            mixed(colour.blue(), ground.blue()), colour.alpha()};
}

} // namespace zu::picture
