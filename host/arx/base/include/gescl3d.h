#pragma once

#include <zuhost/platform/export.h>

class AcGeMatrix3d;

/// Scale factors along the three axes.
class ZUHOST_API AcGeScale3d {
public:
    double sx = 1.0;
    double sy = 1.0;
    double sz = 1.0;

    constexpr AcGeScale3d() = default;
    constexpr explicit AcGeScale3d(double factor) : sx(factor), sy(factor), sz(factor) {}
    constexpr AcGeScale3d(double x, double y, double z) : sx(x), sy(y), sz(z) {}

    constexpr AcGeScale3d& set(double x, double y, double z) { return *this = AcGeScale3d(x, y, z); }
    constexpr AcGeScale3d operator*(const AcGeScale3d& s) const { return {sx * s.sx, sy * s.sy, sz * s.sz}; }
    constexpr AcGeScale3d operator*(double s) const { return {sx * s, sy * s, sz * s}; }
    [[nodiscard]] constexpr AcGeScale3d inverse() const { return {1.0 / sx, 1.0 / sy, 1.0 / sz}; }
    constexpr double& operator[](unsigned int i) { return i == 0 ? sx : (i == 1 ? sy : sz); }
    constexpr double operator[](unsigned int i) const { return i == 0 ? sx : (i == 1 ? sy : sz); }
    constexpr bool operator==(const AcGeScale3d&) const = default;

    /// Sets the matrix to a scaling about the origin.
    void getMatrix(AcGeMatrix3d& matrix) const;
    operator AcGeMatrix3d() const; // NOLINT(google-explicit-constructor): implicit in the interface
};
