#pragma once

#include "gepnt2d.h"

#include <zuhost/platform/export.h>

/// An affine transformation of the plane: `entry[row][column]`, applied to column vectors.
class ZUHOST_API AcGeMatrix2d {
public:
    double entry[3][3] = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}};

    static const AcGeMatrix2d kIdentity;

    double& operator()(unsigned int row, unsigned int column) { return entry[row][column]; }
    double operator()(unsigned int row, unsigned int column) const { return entry[row][column]; }

    AcGeMatrix2d& setToIdentity() { return *this = AcGeMatrix2d(); }
    [[nodiscard]] AcGeMatrix2d operator*(const AcGeMatrix2d& right) const;
    AcGeMatrix2d& operator*=(const AcGeMatrix2d& right) { return *this = *this * right; }
    AcGeMatrix2d& preMultBy(const AcGeMatrix2d& left) { return *this = left * *this; }
    AcGeMatrix2d& postMultBy(const AcGeMatrix2d& right) { return *this = *this * right; }
    AcGeMatrix2d& setToProduct(const AcGeMatrix2d& left, const AcGeMatrix2d& right) {
        return *this = left * right;
    }
    /// Compares each entry by the tolerance of vectors.
    [[nodiscard]] bool isEqualTo(const AcGeMatrix2d& other, const AcGeTol& tol = AcGeContext::gTol) const;
    bool operator==(const AcGeMatrix2d& other) const { return isEqualTo(other); }

    [[nodiscard]] double det() const;
    /// The determinant, relative to the lengths of the axes, is within the tolerance of vectors.
    [[nodiscard]] bool isSingular(const AcGeTol& tol = AcGeContext::gTol) const;
    /// Returns the inverse; the identity for a singular matrix.
    [[nodiscard]] AcGeMatrix2d inverse() const;
    AcGeMatrix2d& invert() { return *this = inverse(); }
    [[nodiscard]] AcGeMatrix2d transpose() const;
    AcGeMatrix2d& transposeIt() { return *this = transpose(); }

    [[nodiscard]] AcGeVector2d translation() const { return {entry[0][2], entry[1][2]}; }
    AcGeMatrix2d& setTranslation(const AcGeVector2d& by);

    static AcGeMatrix2d translation(const AcGeVector2d& by) { return AcGeMatrix2d().setTranslation(by); }
    /// Rotates counter-clockwise by an angle in radians about `centre`.
    static AcGeMatrix2d rotation(double angle, const AcGePoint2d& centre = AcGePoint2d::kOrigin);
    static AcGeMatrix2d scaling(double factor, const AcGePoint2d& centre = AcGePoint2d::kOrigin);
    static AcGeMatrix2d mirroring(const AcGePoint2d& point) { return scaling(-1.0, point); }
    static AcGeMatrix2d mirroring(const AcGeLine2d& line);
    /// Maps the first coordinate system to the second.
    static AcGeMatrix2d alignCoordSys(const AcGePoint2d& fromOrigin, const AcGeVector2d& fromX,
                                      const AcGeVector2d& fromY, const AcGePoint2d& toOrigin,
                                      const AcGeVector2d& toX, const AcGeVector2d& toY);

    AcGeMatrix2d& setToTranslation(const AcGeVector2d& by) { return *this = translation(by); }
    AcGeMatrix2d& setToRotation(double angle, const AcGePoint2d& centre = AcGePoint2d::kOrigin) {
        return *this = rotation(angle, centre);
    }
    AcGeMatrix2d& setToScaling(double factor, const AcGePoint2d& centre = AcGePoint2d::kOrigin) {
        return *this = scaling(factor, centre);
    }
    AcGeMatrix2d& setToMirroring(const AcGePoint2d& point) { return *this = mirroring(point); }
    AcGeMatrix2d& setToMirroring(const AcGeLine2d& line) { return *this = mirroring(line); }
    AcGeMatrix2d& setToAlignCoordSys(const AcGePoint2d& fromOrigin, const AcGeVector2d& fromX,
                                     const AcGeVector2d& fromY, const AcGePoint2d& toOrigin,
                                     const AcGeVector2d& toX, const AcGeVector2d& toY) {
        return *this = alignCoordSys(fromOrigin, fromX, fromY, toOrigin, toX, toY);
    }

    /// Sets the first two columns to the axes and the last to the origin.
    AcGeMatrix2d& setCoordSystem(const AcGePoint2d& origin, const AcGeVector2d& xAxis,
                                 const AcGeVector2d& yAxis);
    void getCoordSystem(AcGePoint2d& origin, AcGeVector2d& xAxis, AcGeVector2d& yAxis) const;
};

[[nodiscard]] ZUHOST_API AcGePoint2d operator*(const AcGeMatrix2d& matrix, const AcGePoint2d& point);
[[nodiscard]] ZUHOST_API AcGeVector2d operator*(const AcGeMatrix2d& matrix, const AcGeVector2d& vector);
