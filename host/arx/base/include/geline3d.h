#pragma once

#include "gelent3d.h"

#include <zuhost/platform/export.h>

/// An endless line.
class ZUHOST_API AcGeLine3d : public AcGeLinearEnt3d {
public:
    /// The x axis.
    AcGeLine3d() : AcGeLine3d(AcGePoint3d::kOrigin, AcGeVector3d::kXAxis) {}
    AcGeLine3d(const AcGePoint3d& point, const AcGeVector3d& direction)
        : AcGeLinearEnt3d(point, direction, {}) {}
    AcGeLine3d(const AcGePoint3d& first, const AcGePoint3d& second) : AcGeLine3d(first, second - first) {}

    static const AcGeLine3d kXAxis;
    static const AcGeLine3d kYAxis;
    static const AcGeLine3d kZAxis;

    AcGeLine3d& set(const AcGePoint3d& point, const AcGeVector3d& direction) {
        return *this = AcGeLine3d(point, direction);
    }
    AcGeLine3d& set(const AcGePoint3d& first, const AcGePoint3d& second) {
        return *this = AcGeLine3d(first, second);
    }

    [[nodiscard]] AcGe::EntityId type() const override { return AcGe::kLine3d; }
    [[nodiscard]] bool isKindOf(AcGe::EntityId kind) const override {
        return kind == AcGe::kLine3d || AcGeLinearEnt3d::isKindOf(kind);
    }
    [[nodiscard]] AcGeLine3d* copy() const override { return new AcGeLine3d(*this); }
};
