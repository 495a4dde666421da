#pragma once

#include "gepnt2d.h"
#include "gevec3d.h"

/// A point in space, in drawing units.
class AcGePoint3d {
public:
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;

    constexpr AcGePoint3d() = default;
    constexpr AcGePoint3d(double xx, double yy, double zz) : x(xx), y(yy), z(zz) {}

    static const AcGePoint3d kOrigin;

    constexpr AcGePoint3d& set(double xx, double yy, double zz) { return *this = AcGePoint3d(xx, yy, zz); }
    constexpr AcGePoint3d operator+(const AcGeVector3d& v) const { return {x + v.x, y + v.y, z + v.z}; }
    constexpr AcGePoint3d operator-(const AcGeVector3d& v) const { return {x - v.x, y - v.y, z - v.z}; }
    constexpr AcGeVector3d operator-(const AcGePoint3d& p) const { return {x - p.x, y - p.y, z - p.z}; }
    constexpr AcGePoint3d& operator+=(const AcGeVector3d& v) { return *this = *this + v; }
    constexpr AcGePoint3d& operator-=(const AcGeVector3d& v) { return *this = *this - v; }
    constexpr bool operator==(const AcGePoint3d&) const = default;

    double& operator[](int i) { return i == 0 ? x : (i == 1 ? y : z); }
    double operator[](int i) const { return i == 0 ? x : (i == 1 ? y : z); }

    [[nodiscard]] constexpr AcGeVector3d asVector() const { return {x, y, z}; }
    [[nodiscard]] constexpr AcGePoint2d convert2d() const { return {x, y}; }
    [[nodiscard]] double distanceTo(const AcGePoint3d& p) const { return (*this - p).length(); }

    /// Rotates by an angle in radians about an axis through `centre`.
    AcGePoint3d& rotateBy(double angle, const AcGeVector3d& axis, const AcGePoint3d& centre = kOrigin);
    AcGePoint3d& transformBy(const AcGeMatrix3d& matrix);
    AcGePoint3d& scaleBy(double factor, const AcGePoint3d& centre = kOrigin);
};
