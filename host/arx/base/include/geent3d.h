#pragma once

#include "gemat3d.h"

#include <zuhost/platform/export.h>

/// A geometric object in space.
class ZUHOST_API AcGeEntity3d {
public:
    virtual ~AcGeEntity3d() = default;

    [[nodiscard]] virtual AcGe::EntityId type() const = 0;
    [[nodiscard]] virtual bool isKindOf(AcGe::EntityId kind) const { return kind == AcGe::kEntity3d; }
    /// Returns a copy, which the caller deletes.
    [[nodiscard]] virtual AcGeEntity3d* copy() const = 0;
    [[nodiscard]] bool isOn(const AcGePoint3d& point, const AcGeTol& tol = AcGeContext::gTol) const {
        return isNear(point, tol);
    }

    AcGeEntity3d& transformBy(const AcGeMatrix3d& matrix) {
        apply(matrix);
        return *this;
    }
    AcGeEntity3d& translateBy(const AcGeVector3d& by) { return transformBy(AcGeMatrix3d::translation(by)); }
    AcGeEntity3d& rotateBy(double angle, const AcGeVector3d& axis,
                           const AcGePoint3d& centre = AcGePoint3d::kOrigin) {
        return transformBy(AcGeMatrix3d::rotation(angle, axis, centre));
    }
    AcGeEntity3d& mirror(const AcGePlane& plane) { return transformBy(AcGeMatrix3d::mirroring(plane)); }
    AcGeEntity3d& scaleBy(double factor, const AcGePoint3d& centre = AcGePoint3d::kOrigin) {
        return transformBy(AcGeMatrix3d::scaling(factor, centre));
    }

protected:
    AcGeEntity3d() = default;
    AcGeEntity3d(const AcGeEntity3d&) = default;
    AcGeEntity3d& operator=(const AcGeEntity3d&) = default;

private:
    virtual void apply(const AcGeMatrix3d& matrix) = 0;
    [[nodiscard]] virtual bool isNear(const AcGePoint3d& point, const AcGeTol& tol) const = 0;
};
