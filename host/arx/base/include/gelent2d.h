#pragma once

#include "gecurv2d.h"
#include "gelent3d.h"

#include <zuhost/platform/export.h>

/// A line, a segment or a ray in the plane.
class ZUHOST_API AcGeLinearEnt2d : public AcGeCurve2d {
public:
    [[nodiscard]] bool isKindOf(AcGe::EntityId kind) const override {
        return kind == AcGe::kLinearEnt2d || AcGeCurve2d::isKindOf(kind);
    }

    [[nodiscard]] AcGePoint2d pointOnLine() const;
    /// Returns a unit vector.
    [[nodiscard]] AcGeVector2d direction() const;
    void getLine(AcGeLine2d& line) const;
    /// Returns the perpendicular line through the point.
    void getPerpLine(const AcGePoint2d& point, AcGeLine2d& line) const;

    /// False, with `point` unchanged, when the two are parallel or miss each other.
    bool intersectWith(const AcGeLinearEnt2d& other, AcGePoint2d& point,
                       const AcGeTol& tol = AcGeContext::gTol) const;
    [[nodiscard]] bool isParallelTo(const AcGeLinearEnt2d& other,
                                    const AcGeTol& tol = AcGeContext::gTol) const {
        return inSpace().isParallelTo(other.inSpace(), tol);
    }
    [[nodiscard]] bool isPerpendicularTo(const AcGeLinearEnt2d& other,
                                         const AcGeTol& tol = AcGeContext::gTol) const {
        return inSpace().isPerpendicularTo(other.inSpace(), tol);
    }
    [[nodiscard]] bool isColinearTo(const AcGeLinearEnt2d& other,
                                    const AcGeTol& tol = AcGeContext::gTol) const {
        return inSpace().isColinearTo(other.inSpace(), tol);
    }
    bool operator==(const AcGeLinearEnt2d& other) const { return inSpace() == other.inSpace(); }

private:
    friend class AcGeCircArc2d;
    [[nodiscard]] const AcGeLinearEnt3d& inSpace() const override = 0;
};
