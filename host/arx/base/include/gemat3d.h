#pragma once

#include "gepnt3d.h"
#include "gescl3d.h"

#include <zuhost/platform/export.h>

class AcGeLine3d;

/// An affine transformation of space: `entry[row][column]`, applied to column vectors.
class ZUHOST_API AcGeMatrix3d {
public:
    double entry[4][4] = {{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}};

    static const AcGeMatrix3d kIdentity;

    double& operator()(unsigned int row, unsigned int column) { return entry[row][column]; }
    double operator()(unsigned int row, unsigned int column) const { return entry[row][column]; }

    AcGeMatrix3d& setToIdentity() { return *this = AcGeMatrix3d(); }
    [[nodiscard]] AcGeMatrix3d operator*(const AcGeMatrix3d& right) const;
    AcGeMatrix3d& operator*=(const AcGeMatrix3d& right) { return *this = *this * right; }
    AcGeMatrix3d& preMultBy(const AcGeMatrix3d& left) { return *this = left * *this; }
    AcGeMatrix3d& postMultBy(const AcGeMatrix3d& right) { return *this = *this * right; }
    AcGeMatrix3d& setToProduct(const AcGeMatrix3d& left, const AcGeMatrix3d& right) {
        return *this = left * right;
    }
    /// Compares each entry by the tolerance of vectors.
    [[nodiscard]] bool isEqualTo(const AcGeMatrix3d& other, const AcGeTol& tol = AcGeContext::gTol) const;
    bool operator==(const AcGeMatrix3d& other) const { return isEqualTo(other); }

    [[nodiscard]] double det() const;
    /// The determinant, relative to the lengths of the axes, is within the tolerance of vectors.
    [[nodiscard]] bool isSingular(const AcGeTol& tol = AcGeContext::gTol) const;
    /// Returns the inverse; the identity for a singular matrix.
    [[nodiscard]] AcGeMatrix3d inverse() const;
    /// Returns false for a matrix that is singular within the tolerance; `inverse` is then unchanged.
    bool inverse(AcGeMatrix3d& inverse, double tolerance) const;
    AcGeMatrix3d& invert() { return *this = inverse(); }
    [[nodiscard]] AcGeMatrix3d transpose() const;
    AcGeMatrix3d& transposeIt() { return *this = transpose(); }

    /// The axes are perpendicular to each other; with isUniScaledOrtho also equally long.
    [[nodiscard]] bool isScaledOrtho(const AcGeTol& tol = AcGeContext::gTol) const;
    [[nodiscard]] bool isUniScaledOrtho(const AcGeTol& tol = AcGeContext::gTol) const;
    /// Returns the length of the longest axis.
    [[nodiscard]] double scale() const;
    /// Returns the largest absolute value of the axes' components.
    [[nodiscard]] double norm() const;

    [[nodiscard]] AcGeVector3d translation() const { return {entry[0][3], entry[1][3], entry[2][3]}; }
    AcGeMatrix3d& setTranslation(const AcGeVector3d& by);

    static AcGeMatrix3d translation(const AcGeVector3d& by) { return AcGeMatrix3d().setTranslation(by); }
    /// Rotates by an angle in radians about an axis through `centre`.
    static AcGeMatrix3d rotation(double angle, const AcGeVector3d& axis,
                                 const AcGePoint3d& centre = AcGePoint3d::kOrigin);
    static AcGeMatrix3d scaling(double factor, const AcGePoint3d& centre = AcGePoint3d::kOrigin);
    static AcGeMatrix3d mirroring(const AcGePlane& plane);
    static AcGeMatrix3d mirroring(const AcGePoint3d& point) { return scaling(-1.0, point); }
    static AcGeMatrix3d mirroring(const AcGeLine3d& line);
    /// Projects onto the plane along the direction; the identity when that is parallel to the plane.
    static AcGeMatrix3d projection(const AcGePlane& plane, const AcGeVector3d& direction);
    /// Maps the first coordinate system to the second.
    static AcGeMatrix3d alignCoordSys(const AcGePoint3d& fromOrigin, const AcGeVector3d& fromX,
                                      const AcGeVector3d& fromY, const AcGeVector3d& fromZ,
                                      const AcGePoint3d& toOrigin, const AcGeVector3d& toX,
                                      const AcGeVector3d& toY, const AcGeVector3d& toZ);
    /// Maps the coordinate system of a plane through the origin with the given normal (by the arbitrary axis
    /// algorithm of drawings) to the world.
    static AcGeMatrix3d planeToWorld(const AcGeVector3d& normal);
    /// Maps the plane's own coordinate system to the world.
    static AcGeMatrix3d planeToWorld(const AcGePlane& plane);
    static AcGeMatrix3d worldToPlane(const AcGeVector3d& normal) { return planeToWorld(normal).inverse(); }
    static AcGeMatrix3d worldToPlane(const AcGePlane& plane) { return planeToWorld(plane).inverse(); }

    AcGeMatrix3d& setToTranslation(const AcGeVector3d& by) { return *this = translation(by); }
    AcGeMatrix3d& setToRotation(double angle, const AcGeVector3d& axis,
                                const AcGePoint3d& centre = AcGePoint3d::kOrigin) {
        return *this = rotation(angle, axis, centre);
    }
    AcGeMatrix3d& setToScaling(double factor, const AcGePoint3d& centre = AcGePoint3d::kOrigin) {
        return *this = scaling(factor, centre);
    }
    AcGeMatrix3d& setToMirroring(const AcGePlane& plane) { return *this = mirroring(plane); }
    AcGeMatrix3d& setToMirroring(const AcGePoint3d& point) { return *this = mirroring(point); }
    AcGeMatrix3d& setToMirroring(const AcGeLine3d& line) { return *this = mirroring(line); }
    AcGeMatrix3d& setToProjection(const AcGePlane& plane, const AcGeVector3d& direction) {
        return *this = projection(plane, direction);
    }
    AcGeMatrix3d& setToAlignCoordSys(const AcGePoint3d& fromOrigin, const AcGeVector3d& fromX,
                                     const AcGeVector3d& fromY, const AcGeVector3d& fromZ,
                                     const AcGePoint3d& toOrigin, const AcGeVector3d& toX,
                                     const AcGeVector3d& toY, const AcGeVector3d& toZ) {
        return *this = alignCoordSys(fromOrigin, fromX, fromY, fromZ, toOrigin, toX, toY, toZ);
    }
    AcGeMatrix3d& setToPlaneToWorld(const AcGeVector3d& normal) { return *this = planeToWorld(normal); }
    AcGeMatrix3d& setToPlaneToWorld(const AcGePlane& plane) { return *this = planeToWorld(plane); }
    AcGeMatrix3d& setToWorldToPlane(const AcGeVector3d& normal) { return *this = worldToPlane(normal); }
    AcGeMatrix3d& setToWorldToPlane(const AcGePlane& plane) { return *this = worldToPlane(plane); }

    /// Sets the first three columns to the axes and the last to the origin.
    AcGeMatrix3d& setCoordSystem(const AcGePoint3d& origin, const AcGeVector3d& xAxis,
                                 const AcGeVector3d& yAxis, const AcGeVector3d& zAxis);
    void getCoordSystem(AcGePoint3d& origin, AcGeVector3d& xAxis, AcGeVector3d& yAxis,
                        AcGeVector3d& zAxis) const;
};

[[nodiscard]] ZUHOST_API AcGePoint3d operator*(const AcGeMatrix3d& matrix, const AcGePoint3d& point);
[[nodiscard]] ZUHOST_API AcGeVector3d operator*(const AcGeMatrix3d& matrix, const AcGeVector3d& vector);
