#pragma once

#include "gevec2d.h"

#include <zuhost/platform/export.h>

class AcGeLine2d;

/// A point in the plane, in drawing units.
class ZUHOST_API AcGePoint2d {
public:
    double x = 0.0;
    double y = 0.0;

    constexpr AcGePoint2d() = default;
    constexpr AcGePoint2d(double xx, double yy) : x(xx), y(yy) {}

    static const AcGePoint2d kOrigin;

    constexpr AcGePoint2d& set(double xx, double yy) { return *this = AcGePoint2d(xx, yy); }
    constexpr AcGePoint2d operator+(const AcGeVector2d& v) const { return {x + v.x, y + v.y}; }
    constexpr AcGePoint2d operator-(const AcGeVector2d& v) const { return {x - v.x, y - v.y}; }
    constexpr AcGeVector2d operator-(const AcGePoint2d& p) const { return {x - p.x, y - p.y}; }
    constexpr AcGePoint2d operator*(double s) const { return {x * s, y * s}; }
    constexpr AcGePoint2d operator/(double s) const { return {x / s, y / s}; }
    constexpr AcGePoint2d& operator+=(const AcGeVector2d& v) { return *this = *this + v; }
    constexpr AcGePoint2d& operator-=(const AcGeVector2d& v) { return *this = *this - v; }
    constexpr AcGePoint2d& operator*=(double s) { return *this = *this * s; }
    constexpr AcGePoint2d& operator/=(double s) { return *this = *this / s; }
    constexpr AcGePoint2d& setToSum(const AcGePoint2d& p, const AcGeVector2d& v) { return *this = p + v; }

    /// 0 and 1.
    constexpr double& operator[](unsigned int i) { return i == 0 ? x : y; }
    constexpr double operator[](unsigned int i) const { return i == 0 ? x : y; }

    [[nodiscard]] constexpr AcGeVector2d asVector() const { return {x, y}; }
    [[nodiscard]] double distanceTo(const AcGePoint2d& p) const { return (*this - p).length(); }
    [[nodiscard]] bool isEqualTo(const AcGePoint2d& p, const AcGeTol& tol = AcGeContext::gTol) const {
        return (*this - p).lengthSqrd() <= tol.equalPoint() * tol.equalPoint();
    }
    /// As isEqualTo with the default tolerance.
    bool operator==(const AcGePoint2d& p) const { return isEqualTo(p); }

    /// Rotates counter-clockwise by an angle in radians about `centre`.
    AcGePoint2d& rotateBy(double angle, const AcGePoint2d& centre = kOrigin);
    AcGePoint2d& mirror(const AcGeLine2d& line);
    AcGePoint2d& scaleBy(double factor, const AcGePoint2d& centre = kOrigin);
    AcGePoint2d& transformBy(const AcGeMatrix2d& matrix);
    AcGePoint2d& setToProduct(const AcGeMatrix2d& matrix, const AcGePoint2d& p);
};

constexpr AcGePoint2d operator*(double s, const AcGePoint2d& p) {
    return p * s;
}
