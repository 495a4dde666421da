#pragma once

#include "gegblge.h"
#include "gemat2d.h"

#include <zuhost/platform/export.h>

/// A geometric object in the plane.
class ZUHOST_API AcGeEntity2d {
public:
    virtual ~AcGeEntity2d() = default;

    [[nodiscard]] virtual AcGe::EntityId type() const = 0;
    [[nodiscard]] virtual bool isKindOf(AcGe::EntityId kind) const { return kind == AcGe::kEntity2d; }
    /// Returns a copy, which the caller deletes.
    [[nodiscard]] virtual AcGeEntity2d* copy() const = 0;

    AcGeEntity2d& transformBy(const AcGeMatrix2d& matrix) {
        apply(matrix);
        return *this;
    }
    AcGeEntity2d& translateBy(const AcGeVector2d& by) { return transformBy(AcGeMatrix2d::translation(by)); }
    AcGeEntity2d& rotateBy(double angle, const AcGePoint2d& centre = AcGePoint2d::kOrigin) {
        return transformBy(AcGeMatrix2d::rotation(angle, centre));
    }
    AcGeEntity2d& mirror(const AcGeLine2d& line) { return transformBy(AcGeMatrix2d::mirroring(line)); }
    AcGeEntity2d& scaleBy(double factor, const AcGePoint2d& centre = AcGePoint2d::kOrigin) {
        return transformBy(AcGeMatrix2d::scaling(factor, centre));
    }

protected:
    AcGeEntity2d() = default;
    AcGeEntity2d(const AcGeEntity2d&) = default;
    AcGeEntity2d& operator=(const AcGeEntity2d&) = default;

private:
    virtual void apply(const AcGeMatrix2d& matrix) = 0;
};
