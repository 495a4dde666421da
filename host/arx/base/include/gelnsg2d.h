#pragma once

#include "gelent2d.h"
#include "gelnsg3d.h"

#include <zuhost/platform/export.h>

/// A straight segment in the plane; the parameter is 0 at its start and 1 at its end.
class ZUHOST_API AcGeLineSeg2d : public AcGeLinearEnt2d {
public:
    /// From the origin to (1, 0).
    AcGeLineSeg2d() = default;
    AcGeLineSeg2d(const AcGePoint2d& start, const AcGePoint2d& end)
        : segment_({start.x, start.y, 0.0}, AcGePoint3d(end.x, end.y, 0.0)) {}
    AcGeLineSeg2d(const AcGePoint2d& start, const AcGeVector2d& toEnd)
        : AcGeLineSeg2d(start, start + toEnd) {}

    AcGeLineSeg2d& set(const AcGePoint2d& start, const AcGePoint2d& end) {
        return *this = AcGeLineSeg2d(start, end);
    }
    AcGeLineSeg2d& set(const AcGePoint2d& start, const AcGeVector2d& toEnd) {
        return *this = AcGeLineSeg2d(start, toEnd);
    }

    [[nodiscard]] AcGePoint2d startPoint() const { return evalPoint(0.0); }
    [[nodiscard]] AcGePoint2d endPoint() const { return evalPoint(1.0); }
    [[nodiscard]] AcGePoint2d midPoint() const { return evalPoint(0.5); }
    using AcGeLinearEnt2d::length;
    [[nodiscard]] double length() const { return segment_.length(); }

    [[nodiscard]] AcGe::EntityId type() const override { return AcGe::kLineSeg2d; }
    [[nodiscard]] bool isKindOf(AcGe::EntityId kind) const override {
        return kind == AcGe::kLineSeg2d || AcGeLinearEnt2d::isKindOf(kind);
    }
    [[nodiscard]] AcGeLineSeg2d* copy() const override { return new AcGeLineSeg2d(*this); }

private:
    void apply(const AcGeMatrix2d& matrix) override { set(matrix * startPoint(), matrix * endPoint()); }
    [[nodiscard]] const AcGeLineSeg3d& inSpace() const override { return segment_; }

    AcGeLineSeg3d segment_;
};
