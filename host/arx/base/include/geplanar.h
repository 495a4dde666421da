#pragma once

#include "geent3d.h"

#include <zuhost/platform/export.h>

class AcGeLinearEnt3d;

/// A plane with a coordinate system: a point and two axes.
class ZUHOST_API AcGePlanarEnt : public AcGeEntity3d {
public:
    [[nodiscard]] bool isKindOf(AcGe::EntityId kind) const override {
        return kind == AcGe::kPlanarEnt || kind == AcGe::kSurface || AcGeEntity3d::isKindOf(kind);
    }

    [[nodiscard]] AcGePoint3d pointOnPlane() const { return origin_; }
    /// Returns a unit vector.
    [[nodiscard]] AcGeVector3d normal() const { return uAxis_.crossProduct(vAxis_).normal(); }
    void get(AcGePoint3d& origin, AcGeVector3d& uAxis, AcGeVector3d& vAxis) const;
    void getCoordSystem(AcGePoint3d& origin, AcGeVector3d& uAxis, AcGeVector3d& vAxis) const {
        get(origin, uAxis, vAxis);
    }
    /// Returns the coefficients of a x + b y + c z + d = 0.
    void getCoefficients(double& a, double& b, double& c, double& d) const;

    [[nodiscard]] AcGePoint3d closestPointTo(const AcGePoint3d& point,
                                             const AcGeTol& tol = AcGeContext::gTol) const;
    [[nodiscard]] double distanceTo(const AcGePoint3d& point, const AcGeTol& tol = AcGeContext::gTol) const;
    bool intersectWith(const AcGeLinearEnt3d& line, AcGePoint3d& point,
                       const AcGeTol& tol = AcGeContext::gTol) const;
    [[nodiscard]] bool isParallelTo(const AcGePlanarEnt& other, const AcGeTol& tol = AcGeContext::gTol) const;
    [[nodiscard]] bool isParallelTo(const AcGeLinearEnt3d& line,
                                    const AcGeTol& tol = AcGeContext::gTol) const;
    [[nodiscard]] bool isPerpendicularTo(const AcGePlanarEnt& other,
                                         const AcGeTol& tol = AcGeContext::gTol) const;
    [[nodiscard]] bool isPerpendicularTo(const AcGeLinearEnt3d& line,
                                         const AcGeTol& tol = AcGeContext::gTol) const;
    [[nodiscard]] bool isCoplanarTo(const AcGePlanarEnt& other, const AcGeTol& tol = AcGeContext::gTol) const;

protected:
    AcGePlanarEnt(const AcGePoint3d& origin, const AcGeVector3d& uAxis, const AcGeVector3d& vAxis)
        : origin_(origin), uAxis_(uAxis), vAxis_(vAxis) {}

private:
    void apply(const AcGeMatrix3d& matrix) override;
    [[nodiscard]] bool isNear(const AcGePoint3d& point, const AcGeTol& tol) const override;

    AcGePoint3d origin_;
    AcGeVector3d uAxis_;
    AcGeVector3d vAxis_;
};
