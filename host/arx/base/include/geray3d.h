#pragma once

#include "gelent3d.h"

/// A line that begins at a point and is endless in one direction.
class AcGeRay3d : public AcGeLinearEnt3d {
public:
    /// From the origin along the x axis.
    AcGeRay3d() : AcGeRay3d(AcGePoint3d::kOrigin, AcGeVector3d::kXAxis) {}
    AcGeRay3d(const AcGePoint3d& start, const AcGeVector3d& direction)
        : AcGeLinearEnt3d(start, direction, AcGeInterval(0.0, AcGeInterval().upperBound())) {}
    AcGeRay3d(const AcGePoint3d& start, const AcGePoint3d& through) : AcGeRay3d(start, through - start) {}

    AcGeRay3d& set(const AcGePoint3d& start, const AcGeVector3d& direction) {
        return *this = AcGeRay3d(start, direction);
    }
    AcGeRay3d& set(const AcGePoint3d& start, const AcGePoint3d& through) {
        return *this = AcGeRay3d(start, through);
    }

    [[nodiscard]] AcGe::EntityId type() const override { return AcGe::kRay3d; }
    [[nodiscard]] bool isKindOf(AcGe::EntityId kind) const override {
        return kind == AcGe::kRay3d || AcGeLinearEnt3d::isKindOf(kind);
    }
    [[nodiscard]] AcGeRay3d* copy() const override { return new AcGeRay3d(*this); }
};
