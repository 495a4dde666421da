#pragma once

#include "gegbl.h"

#include <zuhost/platform/export.h>

#include <cmath>

class AcGeMatrix2d;

/// A direction or displacement in the plane, in drawing units.
class ZUHOST_API AcGeVector2d {
public:
    double x = 0.0;
    double y = 0.0;

    constexpr AcGeVector2d() = default;
    constexpr AcGeVector2d(double xx, double yy) : x(xx), y(yy) {}

    static const AcGeVector2d kIdentity;
    static const AcGeVector2d kXAxis;
    static const AcGeVector2d kYAxis;

    constexpr AcGeVector2d& set(double xx, double yy) { return *this = AcGeVector2d(xx, yy); }
    constexpr AcGeVector2d operator+(const AcGeVector2d& v) const { return {x + v.x, y + v.y}; }
    constexpr AcGeVector2d operator-(const AcGeVector2d& v) const { return {x - v.x, y - v.y}; }
    constexpr AcGeVector2d operator-() const { return {-x, -y}; }
    constexpr AcGeVector2d operator*(double s) const { return {x * s, y * s}; }
    constexpr AcGeVector2d operator/(double s) const { return {x / s, y / s}; }
    constexpr AcGeVector2d& operator+=(const AcGeVector2d& v) { return *this = *this + v; }
    constexpr AcGeVector2d& operator-=(const AcGeVector2d& v) { return *this = *this - v; }
    constexpr AcGeVector2d& operator*=(double s) { return *this = *this * s; }
    constexpr AcGeVector2d& operator/=(double s) { return *this = *this / s; }
    constexpr AcGeVector2d& setToSum(const AcGeVector2d& a, const AcGeVector2d& b) { return *this = a + b; }
    constexpr AcGeVector2d& negate() { return *this = -*this; }

    /// 0 and 1.
    constexpr double& operator[](unsigned int i) { return i == 0 ? x : y; }
    constexpr double operator[](unsigned int i) const { return i == 0 ? x : y; }

    [[nodiscard]] constexpr double dotProduct(const AcGeVector2d& v) const { return x * v.x + y * v.y; }
    [[nodiscard]] constexpr double lengthSqrd() const { return dotProduct(*this); }
    [[nodiscard]] double length() const { return std::hypot(x, y); }
    /// Returns the vector turned a quarter counter-clockwise.
    [[nodiscard]] constexpr AcGeVector2d perpVector() const { return {-y, x}; }
    /// Returns the vector scaled to length 1; one shorter than the tolerance is returned unchanged.
    [[nodiscard]] AcGeVector2d normal(const AcGeTol& tol = AcGeContext::gTol) const;
    AcGeVector2d& normalize(const AcGeTol& tol = AcGeContext::gTol) { return *this = normal(tol); }

    /// Returns the angle from the x axis in radians, in [0, 2 pi).
    [[nodiscard]] double angle() const;
    /// Returns the angle between the vectors in radians, 0 to pi.
    [[nodiscard]] double angleTo(const AcGeVector2d& v) const;
    /// Returns the angle by which this vector turns counter-clockwise to `v`, in radians, in [0, 2 pi).
    [[nodiscard]] double angleToCCW(const AcGeVector2d& v) const;

    [[nodiscard]] bool isEqualTo(const AcGeVector2d& v, const AcGeTol& tol = AcGeContext::gTol) const {
        return (*this - v).lengthSqrd() <= tol.equalVector() * tol.equalVector();
    }
    /// As isEqualTo with the default tolerance.
    bool operator==(const AcGeVector2d& v) const { return isEqualTo(v); }
    [[nodiscard]] bool isUnitLength(const AcGeTol& tol = AcGeContext::gTol) const {
        return std::abs(length() - 1.0) <= tol.equalVector();
    }
    [[nodiscard]] bool isZeroLength(const AcGeTol& tol = AcGeContext::gTol) const {
        return length() <= tol.equalVector();
    }
    /// The next three compare directions; false when a vector has no length.
    [[nodiscard]] bool isParallelTo(const AcGeVector2d& v, const AcGeTol& tol = AcGeContext::gTol) const;
    [[nodiscard]] bool isCodirectionalTo(const AcGeVector2d& v, const AcGeTol& tol = AcGeContext::gTol) const;
    [[nodiscard]] bool isPerpendicularTo(const AcGeVector2d& v, const AcGeTol& tol = AcGeContext::gTol) const;

    /// Rotates counter-clockwise by an angle in radians.
    AcGeVector2d& rotateBy(double angle);
    /// Mirrors across a line of the given direction.
    AcGeVector2d& mirror(const AcGeVector2d& line);
    AcGeVector2d& transformBy(const AcGeMatrix2d& matrix);
    AcGeVector2d& setToProduct(const AcGeMatrix2d& matrix, const AcGeVector2d& v);
};

constexpr AcGeVector2d operator*(double s, const AcGeVector2d& v) {
    return v * s;
}
