#pragma once

#include "dbcolor.h"

#include <cstdint>

namespace zuhost {

/// Group codes of a colour's index, of its red, green and blue parts, and of its name in a colour book.
inline constexpr int kColor = 62;
inline constexpr int kTrueColor = 420;
inline constexpr int kColorName = 430;
/// The version of drawings that introduced parts of colours.
inline constexpr int kTrueColorVersion = 1018;

/// Returns the colour of records; `parts` is negative when the records have none.
[[nodiscard]] inline AcCmColor colorOf(Adesk::UInt16 index, std::int64_t parts) {
    AcCmColor color;
    if (parts >= 0)
        color.setRGB(static_cast<Adesk::UInt8>(parts >> 16), static_cast<Adesk::UInt8>(parts >> 8),
                     static_cast<Adesk::UInt8>(parts));
    else
        color.setColorIndex(index);
    return color;
}

[[nodiscard]] inline std::int64_t partsOf(const AcCmColor& color) {
    return color.red() << 16 | color.green() << 8 | color.blue();
}

} // namespace zuhost
