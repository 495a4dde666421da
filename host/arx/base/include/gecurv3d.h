#pragma once

#include "geent3d.h"
#include "geintrvl.h"
#include "gept3dar.h"

#include <zuhost/platform/export.h>

/// A curve in space, as a function of a parameter.
class ZUHOST_API AcGeCurve3d : public AcGeEntity3d {
public:
    [[nodiscard]] bool isKindOf(AcGe::EntityId kind) const override {
        return kind == AcGe::kCurve3d || AcGeEntity3d::isKindOf(kind);
    }

    void getInterval(AcGeInterval& interval) const { interval = interval_; }
    [[nodiscard]] virtual AcGePoint3d evalPoint(double parameter) const = 0;
    /// Returns the parameter of the point of the curve that is closest.
    [[nodiscard]] virtual double paramOf(const AcGePoint3d& point,
                                         const AcGeTol& tol = AcGeContext::gTol) const = 0;
    [[nodiscard]] virtual double length(double fromParameter, double toParameter,
                                        double tolerance = AcGeContext::gTol.equalPoint()) const = 0;

    [[nodiscard]] AcGePoint3d closestPointTo(const AcGePoint3d& point,
                                             const AcGeTol& tol = AcGeContext::gTol) const {
        return evalPoint(paramOf(point, tol));
    }
    [[nodiscard]] double distanceTo(const AcGePoint3d& point, const AcGeTol& tol = AcGeContext::gTol) const {
        return closestPointTo(point, tol).distanceTo(point);
    }
    using AcGeEntity3d::isOn;
    /// Also returns the parameter of the point.
    bool isOn(const AcGePoint3d& point, double& parameter, const AcGeTol& tol = AcGeContext::gTol) const {
        parameter = paramOf(point, tol);
        return isOn(point, tol);
    }
    [[nodiscard]] bool isOn(double parameter) const { return interval_.contains(parameter); }

    /// False for a curve that is endless there; `point` is then unchanged.
    bool hasStartPoint(AcGePoint3d& point) const;
    bool hasEndPoint(AcGePoint3d& point) const;
    [[nodiscard]] bool isClosed(const AcGeTol& tol = AcGeContext::gTol) const;
    /// Returns points at equal distances of the parameter, from the start to the end; none for an endless
    /// curve or fewer than two.
    void getSamplePoints(int count, AcGePoint3dArray& points) const;

protected:
    AcGeCurve3d() = default;
    explicit AcGeCurve3d(const AcGeInterval& interval) : interval_(interval) {}

    AcGeInterval interval_;

private:
    /// The distance is within the tolerance of points, or explained by the rounding of large coordinates.
    [[nodiscard]] bool isNear(const AcGePoint3d& point, const AcGeTol& tol) const override;
};
