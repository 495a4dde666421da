#pragma once

#include "gevec2d.h"

/// A point in the plane, in drawing units.
class AcGePoint2d {
public:
    double x = 0.0;
    double y = 0.0;

    constexpr AcGePoint2d() = default;
    constexpr AcGePoint2d(double xx, double yy) : x(xx), y(yy) {}

    constexpr AcGePoint2d operator+(const AcGeVector2d& v) const { return {x + v.x, y + v.y}; }
    constexpr AcGePoint2d operator-(const AcGeVector2d& v) const { return {x - v.x, y - v.y}; }
    constexpr AcGeVector2d operator-(const AcGePoint2d& p) const { return {x - p.x, y - p.y}; }
    constexpr bool operator==(const AcGePoint2d&) const = default;
    [[nodiscard]] double distanceTo(const AcGePoint2d& p) const { return (*this - p).length(); }
};
