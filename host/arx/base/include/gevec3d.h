#pragma once

#include "gevec2d.h"

class AcGeMatrix3d;

/// A direction or displacement in space, in drawing units.
class AcGeVector3d {
public:
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;

    constexpr AcGeVector3d() = default;
    constexpr AcGeVector3d(double xx, double yy, double zz) : x(xx), y(yy), z(zz) {}

    static const AcGeVector3d kIdentity;
    static const AcGeVector3d kXAxis;
    static const AcGeVector3d kYAxis;
    static const AcGeVector3d kZAxis;

    constexpr AcGeVector3d& set(double xx, double yy, double zz) { return *this = AcGeVector3d(xx, yy, zz); }
    constexpr AcGeVector3d operator+(const AcGeVector3d& v) const { return {x + v.x, y + v.y, z + v.z}; }
    constexpr AcGeVector3d operator-(const AcGeVector3d& v) const { return {x - v.x, y - v.y, z - v.z}; }
    constexpr AcGeVector3d operator-() const { return {-x, -y, -z}; }
    constexpr AcGeVector3d operator*(double s) const { return {x * s, y * s, z * s}; }
    constexpr AcGeVector3d operator/(double s) const { return {x / s, y / s, z / s}; }
    constexpr AcGeVector3d& operator+=(const AcGeVector3d& v) { return *this = *this + v; }
    constexpr AcGeVector3d& operator-=(const AcGeVector3d& v) { return *this = *this - v; }
    constexpr AcGeVector3d& operator*=(double s) { return *this = *this * s; }
    constexpr bool operator==(const AcGeVector3d&) const = default;

    [[nodiscard]] constexpr double dotProduct(const AcGeVector3d& v) const {
        return x * v.x + y * v.y + z * v.z;
    }
    [[nodiscard]] constexpr AcGeVector3d crossProduct(const AcGeVector3d& v) const {
        return {y * v.z - z * v.y, z * v.x - x * v.z, x * v.y - y * v.x};
    }
    [[nodiscard]] double length() const;
    [[nodiscard]] constexpr double lengthSqrd() const { return dotProduct(*this); }
    /// Returns the vector scaled to length 1; a zero vector is returned unchanged.
    [[nodiscard]] AcGeVector3d normal() const;
    AcGeVector3d& normalize() { return *this = normal(); }
    /// Returns the angle between the vectors in radians, 0 to pi.
    [[nodiscard]] double angleTo(const AcGeVector3d& v) const;
    [[nodiscard]] bool isZeroLength() const { return length() < 1e-10; }

    /// Rotates by an angle in radians about an axis through the origin.
    AcGeVector3d& rotateBy(double angle, const AcGeVector3d& axis);
    AcGeVector3d& transformBy(const AcGeMatrix3d& matrix);
};

constexpr AcGeVector3d operator*(double s, const AcGeVector3d& v) {
    return v * s;
}
