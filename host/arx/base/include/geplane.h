#pragma once

#include "geplanar.h"

#include <zuhost/platform/export.h>

/// An endless plane.
class ZUHOST_API AcGePlane : public AcGePlanarEnt {
public:
    /// The xy plane.
    AcGePlane() : AcGePlane(AcGePoint3d::kOrigin, AcGeVector3d::kXAxis, AcGeVector3d::kYAxis) {}
    /// The axes are those of the arbitrary axis algorithm of drawings.
    AcGePlane(const AcGePoint3d& origin, const AcGeVector3d& normal);
    AcGePlane(const AcGePoint3d& origin, const AcGeVector3d& uAxis, const AcGeVector3d& vAxis)
        : AcGePlanarEnt(origin, uAxis, vAxis) {}
    /// The axes lead from the origin to the two other points.
    AcGePlane(const AcGePoint3d& onU, const AcGePoint3d& origin, const AcGePoint3d& onV)
        : AcGePlane(origin, onU - origin, onV - origin) {}
    /// The plane a x + b y + c z + d = 0.
    AcGePlane(double a, double b, double c, double d);

    static const AcGePlane kXYPlane;
    static const AcGePlane kYZPlane;
    static const AcGePlane kZXPlane;

    AcGePlane& set(const AcGePoint3d& origin, const AcGeVector3d& normal) {
        return *this = AcGePlane(origin, normal);
    }
    AcGePlane& set(const AcGePoint3d& origin, const AcGeVector3d& uAxis, const AcGeVector3d& vAxis) {
        return *this = AcGePlane(origin, uAxis, vAxis);
    }
    AcGePlane& set(const AcGePoint3d& onU, const AcGePoint3d& origin, const AcGePoint3d& onV) {
        return *this = AcGePlane(onU, origin, onV);
    }

    /// Positive on the side of the normal.
    [[nodiscard]] double signedDistanceTo(const AcGePoint3d& point) const;
    using AcGePlanarEnt::intersectWith;
    /// False, with the line unchanged, for parallel planes.
    bool intersectWith(const AcGePlane& other, AcGeLine3d& line,
                       const AcGeTol& tol = AcGeContext::gTol) const;

    [[nodiscard]] AcGe::EntityId type() const override { return AcGe::kPlane; }
    [[nodiscard]] bool isKindOf(AcGe::EntityId kind) const override {
        return kind == AcGe::kPlane || AcGePlanarEnt::isKindOf(kind);
    }
    [[nodiscard]] AcGePlane* copy() const override { return new AcGePlane(*this); }
};
