#pragma once

#include "gelent2d.h"
#include "geline3d.h"

#include <zuhost/platform/export.h>

/// An endless line in the plane.
class ZUHOST_API AcGeLine2d : public AcGeLinearEnt2d {
public:
    /// The x axis.
    AcGeLine2d() = default;
    AcGeLine2d(const AcGePoint2d& point, const AcGeVector2d& direction)
        : line_({point.x, point.y, 0.0}, AcGeVector3d(direction.x, direction.y, 0.0)) {}
    AcGeLine2d(const AcGePoint2d& first, const AcGePoint2d& second) : AcGeLine2d(first, second - first) {}

    static const AcGeLine2d kXAxis;
    static const AcGeLine2d kYAxis;

    AcGeLine2d& set(const AcGePoint2d& point, const AcGeVector2d& direction) {
        return *this = AcGeLine2d(point, direction);
    }
    AcGeLine2d& set(const AcGePoint2d& first, const AcGePoint2d& second) {
        return *this = AcGeLine2d(first, second);
    }

    [[nodiscard]] AcGe::EntityId type() const override { return AcGe::kLine2d; }
    [[nodiscard]] bool isKindOf(AcGe::EntityId kind) const override {
        return kind == AcGe::kLine2d || AcGeLinearEnt2d::isKindOf(kind);
    }
    [[nodiscard]] AcGeLine2d* copy() const override { return new AcGeLine2d(*this); }

private:
    void apply(const AcGeMatrix2d& matrix) override;
    [[nodiscard]] const AcGeLine3d& inSpace() const override { return line_; }

    AcGeLine3d line_;
};
