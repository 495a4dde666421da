#pragma once

#include <numbers>

namespace zuhost {

inline constexpr double kTurn = 2.0 * std::numbers::pi;

/// Records hold angles in degrees, the interface has radians.
constexpr double toRadians(double degrees) {
    return degrees * std::numbers::pi / 180.0;
}
constexpr double toDegrees(double radians) {
    return radians * 180.0 / std::numbers::pi;
}

} // namespace zuhost
