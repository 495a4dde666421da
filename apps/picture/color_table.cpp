#include "color_table.h"

#include <algorithm>
#include <array>

namespace zu::preview {

namespace {

constexpr int kForeground = 7;
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

QColor plainColor(int number) {
    if (number < kFirstHue)
        return QColor::fromRgb(kNamed[static_cast<std::size_t>(number)]);
    if (number < kFirstGrey)
        return shade(number);
    const int grey = kGreys[static_cast<std::size_t>(number - kFirstGrey)];
    return {grey, grey, grey};
}

/// How bright the eye takes it, 0 to 255.
int luminance(const QColor& color) {
    return (color.red() * 299 + color.green() * 587 + color.blue() * 114) / 1000;
}

} // namespace

QColor colorOf(int number, bool dark) {
    if (number <= 0 || number > kLast || number == kForeground)
        return dark ? QColor(0xF0, 0xF0, 0xF0) : QColor(0x10, 0x10, 0x10);
    const QColor color = plainColor(number);
    constexpr int kTooBright = 140;
    constexpr int kTooDark = 60;
    const int brightness = luminance(color);
    if (!dark && brightness > kTooBright)
        return color.darker(100 * brightness / kTooBright);
    if (dark && brightness < kTooDark)
        return QColor::fromHsl(color.hslHue(), color.hslSaturation(), std::max(color.lightness(), 165));
    return color;
}

} // namespace zu::preview
