#pragma once

#include "gelent3d.h"

#include <zuhost/platform/export.h>

/// A straight segment; the parameter is 0 at its start and 1 at its end.
class ZUHOST_API AcGeLineSeg3d : public AcGeLinearEnt3d {
public:
    /// From the origin to (1, 0, 0).
    AcGeLineSeg3d() : AcGeLineSeg3d(AcGePoint3d::kOrigin, AcGeVector3d::kXAxis) {}
    AcGeLineSeg3d(const AcGePoint3d& start, const AcGeVector3d& toEnd)
        : AcGeLinearEnt3d(start, toEnd, {0.0, 1.0}), end_(start + toEnd) {}
    AcGeLineSeg3d(const AcGePoint3d& start, const AcGePoint3d& end) : AcGeLineSeg3d(start, end - start) {
        end_ = end;
    }

    AcGeLineSeg3d& set(const AcGePoint3d& start, const AcGeVector3d& toEnd) {
        return *this = AcGeLineSeg3d(start, toEnd);
    }
    AcGeLineSeg3d& set(const AcGePoint3d& start, const AcGePoint3d& end) {
        return *this = AcGeLineSeg3d(start, end);
    }

    [[nodiscard]] AcGePoint3d startPoint() const { return pointOnLine(); }
    [[nodiscard]] AcGePoint3d endPoint() const { return end_; }
    [[nodiscard]] AcGePoint3d midPoint() const { return pointOnLine() + along() / 2.0; }
    using AcGeLinearEnt3d::length;
    [[nodiscard]] double length() const { return along().length(); }
    [[nodiscard]] AcGePoint3d evalPoint(double parameter) const override;

    [[nodiscard]] AcGe::EntityId type() const override { return AcGe::kLineSeg3d; }
    [[nodiscard]] bool isKindOf(AcGe::EntityId kind) const override {
        return kind == AcGe::kLineSeg3d || AcGeLinearEnt3d::isKindOf(kind);
    }
    [[nodiscard]] AcGeLineSeg3d* copy() const override { return new AcGeLineSeg3d(*this); }

private:
    void apply(const AcGeMatrix3d& matrix) override { set(matrix * startPoint(), matrix * end_); }

    AcGePoint3d end_; ///< Kept, since adding the step to the start would round it.
};
