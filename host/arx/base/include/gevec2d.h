#pragma once

#include <cmath>

/// A direction or displacement in the plane, in drawing units.
class AcGeVector2d {
public:
    double x = 0.0;
    double y = 0.0;

    constexpr AcGeVector2d() = default;
    constexpr AcGeVector2d(double xx, double yy) : x(xx), y(yy) {}

    constexpr AcGeVector2d operator+(const AcGeVector2d& v) const { return {x + v.x, y + v.y}; }
    constexpr AcGeVector2d operator-(const AcGeVector2d& v) const { return {x - v.x, y - v.y}; }
    constexpr AcGeVector2d operator*(double s) const { return {x * s, y * s}; }
    constexpr bool operator==(const AcGeVector2d&) const = default;
    [[nodiscard]] double length() const { return std::hypot(x, y); }
    /// Returns the angle from the x axis in radians, in [-pi, pi].
    [[nodiscard]] double angle() const { return std::atan2(y, x); }
};
