#pragma once

#include "gecurv3d.h"

#include <zuhost/platform/export.h>

class AcGeCircArc3d;

/// A line, a segment or a ray.
class ZUHOST_API AcGeLinearEnt3d : public AcGeCurve3d {
public:
    [[nodiscard]] bool isKindOf(AcGe::EntityId kind) const override {
        return kind == AcGe::kLinearEnt3d || AcGeCurve3d::isKindOf(kind);
    }
    [[nodiscard]] AcGePoint3d evalPoint(double parameter) const override;
    [[nodiscard]] double paramOf(const AcGePoint3d& point,
                                 const AcGeTol& tol = AcGeContext::gTol) const override;
    using AcGeCurve3d::length;
    [[nodiscard]] double length(double fromParameter, double toParameter,
                                double tolerance = AcGeContext::gTol.equalPoint()) const override;

    [[nodiscard]] AcGePoint3d pointOnLine() const { return origin_; }
    /// Returns a unit vector.
    [[nodiscard]] AcGeVector3d direction() const { return along_.normal(); }
    void getLine(AcGeLine3d& line) const;
    /// Returns the plane through the point that is perpendicular to the line.
    void getPerpPlane(const AcGePoint3d& point, AcGePlane& plane) const;

    /// False, with `point` unchanged, when the two are parallel or miss each other.
    bool intersectWith(const AcGeLinearEnt3d& other, AcGePoint3d& point,
                       const AcGeTol& tol = AcGeContext::gTol) const;
    bool intersectWith(const AcGePlanarEnt& plane, AcGePoint3d& point,
                       const AcGeTol& tol = AcGeContext::gTol) const;

    using AcGeCurve3d::isOn;
    /// Returns whether the whole line is in the plane.
    [[nodiscard]] bool isOn(const AcGePlane& plane, const AcGeTol& tol = AcGeContext::gTol) const;
    [[nodiscard]] bool isParallelTo(const AcGeLinearEnt3d& other,
                                    const AcGeTol& tol = AcGeContext::gTol) const;
    [[nodiscard]] bool isParallelTo(const AcGePlanarEnt& plane, const AcGeTol& tol = AcGeContext::gTol) const;
    [[nodiscard]] bool isPerpendicularTo(const AcGeLinearEnt3d& other,
                                         const AcGeTol& tol = AcGeContext::gTol) const;
    [[nodiscard]] bool isPerpendicularTo(const AcGePlanarEnt& plane,
                                         const AcGeTol& tol = AcGeContext::gTol) const;
    [[nodiscard]] bool isColinearTo(const AcGeLinearEnt3d& other,
                                    const AcGeTol& tol = AcGeContext::gTol) const;
    bool operator==(const AcGeLinearEnt3d& other) const { return isEqualTo(other); }
    [[nodiscard]] bool isEqualTo(const AcGeLinearEnt3d& other, const AcGeTol& tol = AcGeContext::gTol) const;

protected:
    AcGeLinearEnt3d(const AcGePoint3d& origin, const AcGeVector3d& along, const AcGeInterval& interval)
        : AcGeCurve3d(interval), origin_(origin), along_(along) {}

    void assign(const AcGePoint3d& origin, const AcGeVector3d& along) {
        origin_ = origin;
        along_ = along;
    }
    [[nodiscard]] const AcGeVector3d& along() const { return along_; }

private:
    void apply(const AcGeMatrix3d& matrix) override;

    AcGePoint3d origin_;
    AcGeVector3d along_; ///< The step of the parameter from 0 to 1.
};
