#pragma once

#include "gepnt3d.h"
#include "gescl3d.h"

/// An affine transformation of space: `entry[row][column]`, applied to column vectors.
class AcGeMatrix3d {
public:
    double entry[4][4] = {{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}};

    static const AcGeMatrix3d kIdentity;

    AcGeMatrix3d& setToIdentity() { return *this = AcGeMatrix3d(); }
    [[nodiscard]] AcGeMatrix3d operator*(const AcGeMatrix3d& right) const;
    AcGeMatrix3d& preMultBy(const AcGeMatrix3d& left) { return *this = left * *this; }
    AcGeMatrix3d& postMultBy(const AcGeMatrix3d& right) { return *this = *this * right; }
    AcGeMatrix3d& setToProduct(const AcGeMatrix3d& left, const AcGeMatrix3d& right) {
        return *this = left * right;
    }
    bool operator==(const AcGeMatrix3d& other) const;

    /// Returns the inverse; the identity for a singular matrix.
    [[nodiscard]] AcGeMatrix3d inverse() const;
    AcGeMatrix3d& invert() { return *this = inverse(); }
    [[nodiscard]] double det() const;

    static AcGeMatrix3d translation(const AcGeVector3d& by);
    /// Rotates by an angle in radians about an axis through `centre`.
    static AcGeMatrix3d rotation(double angle, const AcGeVector3d& axis,
                                 const AcGePoint3d& centre = AcGePoint3d::kOrigin);
    static AcGeMatrix3d scaling(double factor, const AcGePoint3d& centre = AcGePoint3d::kOrigin);
    static AcGeMatrix3d scaling(const AcGeScale3d& factors, const AcGePoint3d& centre = AcGePoint3d::kOrigin);
    /// Mirrors across the plane through `point` with the given normal.
    static AcGeMatrix3d mirroring(const AcGePoint3d& point, const AcGeVector3d& normal);
    /// Maps the coordinate system of a plane with the given normal (by the arbitrary axis algorithm of
    /// drawings) to the world.
    static AcGeMatrix3d planeToWorld(const AcGeVector3d& normal);
    static AcGeMatrix3d worldToPlane(const AcGeVector3d& normal) { return planeToWorld(normal).inverse(); }

    /// Sets the first three columns to the axes and the last to the origin.
    AcGeMatrix3d& setCoordSystem(const AcGePoint3d& origin, const AcGeVector3d& xAxis,
                                 const AcGeVector3d& yAxis, const AcGeVector3d& zAxis);
    void getCoordSystem(AcGePoint3d& origin, AcGeVector3d& xAxis, AcGeVector3d& yAxis,
                        AcGeVector3d& zAxis) const;
};

[[nodiscard]] AcGePoint3d operator*(const AcGeMatrix3d& matrix, const AcGePoint3d& point);
[[nodiscard]] AcGeVector3d operator*(const AcGeMatrix3d& matrix, const AcGeVector3d& vector);
