#pragma once

#include <QRectF>

#include <cmath>
#include <cstdint>

namespace zu::picture {

/// The work of an entity and of a letter, where a point of a path is 1; options bound the work of a scene.
inline constexpr std::uint64_t kWorkPerEntity = 10;
inline constexpr std::uint64_t kWorkPerLetter = 20;

/// Returns whether coordinates are small enough to be painted.
inline bool isNear(const QRectF& box) {
    constexpr double kFarthest = 1e12;
    const auto isWithin = [](double value) { return std::abs(value) < kFarthest; };
    return isWithin(box.left()) && isWithin(box.right()) && isWithin(box.top()) && isWithin(box.bottom());
}

} // namespace zu::picture
