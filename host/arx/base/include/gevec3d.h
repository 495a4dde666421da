#pragma once

#include "gegblge.h"
#include "gevec2d.h"

#include <zuhost/platform/export.h>

class AcGeMatrix3d;
class AcGePlanarEnt;

/// A direction or displacement in space, in drawing units.
class ZUHOST_API AcGeVector3d {
public:
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;

    constexpr AcGeVector3d() = default;
    constexpr AcGeVector3d(double xx, double yy, double zz) : x(xx), y(yy), z(zz) {}
    /// A vector in the plane's axes.
    AcGeVector3d(const AcGePlanarEnt& plane, const AcGeVector2d& v) { set(plane, v); }

    static const AcGeVector3d kIdentity;
    static const AcGeVector3d kXAxis;
    static const AcGeVector3d kYAxis;
    static const AcGeVector3d kZAxis;

    constexpr AcGeVector3d& set(double xx, double yy, double zz) { return *this = AcGeVector3d(xx, yy, zz); }
    AcGeVector3d& set(const AcGePlanarEnt& plane, const AcGeVector2d& v);
    constexpr AcGeVector3d operator+(const AcGeVector3d& v) const { return {x + v.x, y + v.y, z + v.z}; }
    constexpr AcGeVector3d operator-(const AcGeVector3d& v) const { return {x - v.x, y - v.y, z - v.z}; }
    constexpr AcGeVector3d operator-() const { return {-x, -y, -z}; }
    constexpr AcGeVector3d operator*(double s) const { return {x * s, y * s, z * s}; }
    constexpr AcGeVector3d operator/(double s) const { return {x / s, y / s, z / s}; }
    constexpr AcGeVector3d& operator+=(const AcGeVector3d& v) { return *this = *this + v; }
    constexpr AcGeVector3d& operator-=(const AcGeVector3d& v) { return *this = *this - v; }
    constexpr AcGeVector3d& operator*=(double s) { return *this = *this * s; }
    constexpr AcGeVector3d& operator/=(double s) { return *this = *this / s; }
    constexpr AcGeVector3d& setToSum(const AcGeVector3d& a, const AcGeVector3d& b) { return *this = a + b; }
    constexpr AcGeVector3d& negate() { return *this = -*this; }

    /// 0 to 2.
    constexpr double& operator[](unsigned int i) { return i == 0 ? x : (i == 1 ? y : z); }
    constexpr double operator[](unsigned int i) const { return i == 0 ? x : (i == 1 ? y : z); }

    [[nodiscard]] constexpr double dotProduct(const AcGeVector3d& v) const {
        return x * v.x + y * v.y + z * v.z;
    }
    [[nodiscard]] constexpr AcGeVector3d crossProduct(const AcGeVector3d& v) const {
        return {y * v.z - z * v.y, z * v.x - x * v.z, x * v.y - y * v.x};
    }
    [[nodiscard]] double length() const;
    [[nodiscard]] constexpr double lengthSqrd() const { return dotProduct(*this); }
    /// Returns the index of the component with the largest absolute value.
    [[nodiscard]] unsigned int largestElement() const;
    /// Returns the vector scaled to length 1; one shorter than the tolerance is returned unchanged.
    [[nodiscard]] AcGeVector3d normal(const AcGeTol& tol = AcGeContext::gTol) const;
    AcGeVector3d& normalize(const AcGeTol& tol = AcGeContext::gTol) { return *this = normal(tol); }
    /// Returns a unit vector perpendicular to this one: the x axis that the arbitrary axis algorithm of
    /// drawings gives a plane with this normal.
    [[nodiscard]] AcGeVector3d perpVector() const;

    /// Returns the angle between the vectors in radians, 0 to pi.
    [[nodiscard]] double angleTo(const AcGeVector3d& v) const;
    /// Returns the angle by which this vector turns to `v` about `reference`, in radians, in [0, 2 pi).
    [[nodiscard]] double angleTo(const AcGeVector3d& v, const AcGeVector3d& reference) const;
    /// Returns the angle of the projection onto the plane from the plane's x axis, in [0, 2 pi).
    [[nodiscard]] double angleOnPlane(const AcGePlanarEnt& plane) const;

    [[nodiscard]] bool isEqualTo(const AcGeVector3d& v, const AcGeTol& tol = AcGeContext::gTol) const {
        return (*this - v).lengthSqrd() <= tol.equalVector() * tol.equalVector();
    }
    /// As isEqualTo with the default tolerance.
    bool operator==(const AcGeVector3d& v) const { return isEqualTo(v); }
    [[nodiscard]] bool isUnitLength(const AcGeTol& tol = AcGeContext::gTol) const;
    [[nodiscard]] bool isZeroLength(const AcGeTol& tol = AcGeContext::gTol) const {
        return length() <= tol.equalVector();
    }
    /// The next three compare directions; false when a vector has no length, which `error` reports.
    [[nodiscard]] bool isParallelTo(const AcGeVector3d& v, const AcGeTol& tol = AcGeContext::gTol) const;
    [[nodiscard]] bool isCodirectionalTo(const AcGeVector3d& v, const AcGeTol& tol = AcGeContext::gTol) const;
    [[nodiscard]] bool isPerpendicularTo(const AcGeVector3d& v, const AcGeTol& tol = AcGeContext::gTol) const;
    bool isParallelTo(const AcGeVector3d& v, const AcGeTol& tol, AcGeError& error) const;
    bool isCodirectionalTo(const AcGeVector3d& v, const AcGeTol& tol, AcGeError& error) const;
    bool isPerpendicularTo(const AcGeVector3d& v, const AcGeTol& tol, AcGeError& error) const;

    /// Rotates by an angle in radians about an axis through the origin.
    AcGeVector3d& rotateBy(double angle, const AcGeVector3d& axis);
    /// Mirrors across a plane with the given normal.
    AcGeVector3d& mirror(const AcGeVector3d& normalToPlane);
    AcGeVector3d& transformBy(const AcGeMatrix3d& matrix);
    AcGeVector3d& setToProduct(const AcGeMatrix3d& matrix, const AcGeVector3d& v);
    /// Returns the coordinates of the projection in the plane's axes.
    [[nodiscard]] AcGeVector2d convert2d(const AcGePlanarEnt& plane) const;
    /// Returns the projection onto a plane with the given normal, along `direction`; unchanged when the
    /// direction is parallel to the plane.
    [[nodiscard]] AcGeVector3d project(const AcGeVector3d& planeNormal, const AcGeVector3d& direction) const;
    [[nodiscard]] AcGeVector3d orthoProject(const AcGeVector3d& planeNormal) const;
};

constexpr AcGeVector3d operator*(double s, const AcGeVector3d& v) {
    return v * s;
}
