#pragma once

#include "gepnt2d.h"
#include "gevec3d.h"

#include <zuhost/platform/export.h>

class AcGePlane;

/// A point in space, in drawing units.
class ZUHOST_API AcGePoint3d {
public:
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;

    constexpr AcGePoint3d() = default;
    constexpr AcGePoint3d(double xx, double yy, double zz) : x(xx), y(yy), z(zz) {}
    /// A point in the plane's coordinates.
    AcGePoint3d(const AcGePlanarEnt& plane, const AcGePoint2d& p) { set(plane, p); }

    static const AcGePoint3d kOrigin;

    constexpr AcGePoint3d& set(double xx, double yy, double zz) { return *this = AcGePoint3d(xx, yy, zz); }
    AcGePoint3d& set(const AcGePlanarEnt& plane, const AcGePoint2d& p);
    constexpr AcGePoint3d operator+(const AcGeVector3d& v) const { return {x + v.x, y + v.y, z + v.z}; }
    constexpr AcGePoint3d operator-(const AcGeVector3d& v) const { return {x - v.x, y - v.y, z - v.z}; }
    constexpr AcGeVector3d operator-(const AcGePoint3d& p) const { return {x - p.x, y - p.y, z - p.z}; }
    constexpr AcGePoint3d operator*(double s) const { return {x * s, y * s, z * s}; }
    constexpr AcGePoint3d operator/(double s) const { return {x / s, y / s, z / s}; }
    constexpr AcGePoint3d& operator+=(const AcGeVector3d& v) { return *this = *this + v; }
    constexpr AcGePoint3d& operator-=(const AcGeVector3d& v) { return *this = *this - v; }
    constexpr AcGePoint3d& operator*=(double s) { return *this = *this * s; }
    constexpr AcGePoint3d& operator/=(double s) { return *this = *this / s; }
    constexpr AcGePoint3d& setToSum(const AcGePoint3d& p, const AcGeVector3d& v) { return *this = p + v; }

    /// 0 to 2.
    constexpr double& operator[](unsigned int i) { return i == 0 ? x : (i == 1 ? y : z); }
    constexpr double operator[](unsigned int i) const { return i == 0 ? x : (i == 1 ? y : z); }

    [[nodiscard]] constexpr AcGeVector3d asVector() const { return {x, y, z}; }
    [[nodiscard]] double distanceTo(const AcGePoint3d& p) const { return (*this - p).length(); }
    [[nodiscard]] bool isEqualTo(const AcGePoint3d& p, const AcGeTol& tol = AcGeContext::gTol) const {
        return (*this - p).lengthSqrd() <= tol.equalPoint() * tol.equalPoint();
    }
    /// As isEqualTo with the default tolerance.
    bool operator==(const AcGePoint3d& p) const { return isEqualTo(p); }

    /// Returns the coordinates of the projection in the plane's system.
    [[nodiscard]] AcGePoint2d convert2d(const AcGePlanarEnt& plane) const;
    /// Returns the projection onto the plane along `direction`; unchanged when that is parallel to the plane.
    [[nodiscard]] AcGePoint3d project(const AcGePlane& plane, const AcGeVector3d& direction) const;
    [[nodiscard]] AcGePoint3d orthoProject(const AcGePlane& plane) const;

    /// Rotates by an angle in radians about an axis through `centre`.
    AcGePoint3d& rotateBy(double angle, const AcGeVector3d& axis, const AcGePoint3d& centre = kOrigin);
    AcGePoint3d& mirror(const AcGePlane& plane);
    AcGePoint3d& transformBy(const AcGeMatrix3d& matrix);
    AcGePoint3d& scaleBy(double factor, const AcGePoint3d& centre = kOrigin);
    AcGePoint3d& setToProduct(const AcGeMatrix3d& matrix, const AcGePoint3d& p);
};

constexpr AcGePoint3d operator*(double s, const AcGePoint3d& p) {
    return p * s;
}
