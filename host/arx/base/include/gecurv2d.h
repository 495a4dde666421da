#pragma once

#include "gecurv3d.h"
#include "geent2d.h"
#include "gept2dar.h"

#include <zuhost/platform/export.h>

/// A curve in the plane: one in the xy plane of space.
class ZUHOST_API AcGeCurve2d : public AcGeEntity2d {
public:
    [[nodiscard]] bool isKindOf(AcGe::EntityId kind) const override {
        return kind == AcGe::kCurve2d || AcGeEntity2d::isKindOf(kind);
    }

    void getInterval(AcGeInterval& interval) const { inSpace().getInterval(interval); }
    [[nodiscard]] AcGePoint2d evalPoint(double parameter) const;
    /// Returns the parameter of the point of the curve that is closest.
    [[nodiscard]] double paramOf(const AcGePoint2d& point, const AcGeTol& tol = AcGeContext::gTol) const;
    [[nodiscard]] double length(double fromParameter, double toParameter) const {
        return inSpace().length(fromParameter, toParameter);
    }
    [[nodiscard]] AcGePoint2d closestPointTo(const AcGePoint2d& point,
                                             const AcGeTol& tol = AcGeContext::gTol) const;
    [[nodiscard]] double distanceTo(const AcGePoint2d& point, const AcGeTol& tol = AcGeContext::gTol) const;
    [[nodiscard]] bool isOn(const AcGePoint2d& point, const AcGeTol& tol = AcGeContext::gTol) const;
    /// Also returns the parameter of the point.
    bool isOn(const AcGePoint2d& point, double& parameter, const AcGeTol& tol = AcGeContext::gTol) const;
    [[nodiscard]] bool isOn(double parameter) const { return inSpace().isOn(parameter); }
    /// False for a curve that is endless there; `point` is then unchanged.
    bool hasStartPoint(AcGePoint2d& point) const;
    bool hasEndPoint(AcGePoint2d& point) const;
    [[nodiscard]] bool isClosed(const AcGeTol& tol = AcGeContext::gTol) const {
        return inSpace().isClosed(tol);
    }
    /// Returns points at equal distances of the parameter, from the start to the end; none for an endless
    /// curve or fewer than two.
    void getSamplePoints(int count, AcGePoint2dArray& points) const;

protected:
    AcGeCurve2d() = default;

private:
    [[nodiscard]] virtual const AcGeCurve3d& inSpace() const = 0;
};
