#pragma once

#include "gearc3d.h"
#include "gelent2d.h"

#include <zuhost/platform/export.h>

/// A circle or an arc of one in the plane. The parameter is the angle in radians from the reference vector,
/// in the arc's own direction.
class ZUHOST_API AcGeCircArc2d : public AcGeCurve2d {
public:
    /// The unit circle.
    AcGeCircArc2d() = default;
    AcGeCircArc2d(const AcGePoint2d& centre, double radius);
    AcGeCircArc2d(const AcGePoint2d& centre, double radius, double startAngle, double endAngle,
                  const AcGeVector2d& reference = AcGeVector2d::kXAxis, bool isClockWise = false);
    /// An arc through three points; the unit circle when they are on a line.
    AcGeCircArc2d(const AcGePoint2d& start, const AcGePoint2d& through, const AcGePoint2d& end);
    /// The arc of a polyline: a positive bulge (the tangent of a quarter of the angle) runs
    /// counter-clockwise. With `bulgeFlag` false the number is the rise of the arc over its chord. The unit
    /// circle when the points are equal or the bulge is 0.
    AcGeCircArc2d(const AcGePoint2d& start, const AcGePoint2d& end, double bulge, bool bulgeFlag = true);

    AcGeCircArc2d& set(const AcGePoint2d& centre, double radius) {
        return *this = AcGeCircArc2d(centre, radius);
    }
    AcGeCircArc2d& set(const AcGePoint2d& centre, double radius, double startAngle, double endAngle,
                       const AcGeVector2d& reference = AcGeVector2d::kXAxis, bool isClockWise = false) {
        return *this = AcGeCircArc2d(centre, radius, startAngle, endAngle, reference, isClockWise);
    }
    AcGeCircArc2d& set(const AcGePoint2d& start, const AcGePoint2d& through, const AcGePoint2d& end) {
        return *this = AcGeCircArc2d(start, through, end);
    }
    AcGeCircArc2d& set(const AcGePoint2d& start, const AcGePoint2d& end, double bulge,
                       bool bulgeFlag = true) {
        return *this = AcGeCircArc2d(start, end, bulge, bulgeFlag);
    }

    [[nodiscard]] AcGePoint2d center() const { return {arc_.center().x, arc_.center().y}; }
    [[nodiscard]] double radius() const { return arc_.radius(); }
    [[nodiscard]] double startAng() const { return arc_.startAng(); }
    [[nodiscard]] double endAng() const { return arc_.endAng(); }
    [[nodiscard]] AcGeVector2d refVec() const { return {arc_.refVec().x, arc_.refVec().y}; }
    [[nodiscard]] bool isClockWise() const { return arc_.normal().z < 0.0; }
    [[nodiscard]] AcGePoint2d startPoint() const { return evalPoint(startAng()); }
    [[nodiscard]] AcGePoint2d endPoint() const { return evalPoint(endAng()); }
    [[nodiscard]] bool isInside(const AcGePoint2d& point, const AcGeTol& tol = AcGeContext::gTol) const;

    AcGeCircArc2d& setCenter(const AcGePoint2d& centre);
    AcGeCircArc2d& setRadius(double radius);
    AcGeCircArc2d& setAngles(double startAngle, double endAngle);

    /// Returns false, with a count of 0, when there is no intersection, and for parts of the same circle.
    bool intersectWith(const AcGeLinearEnt2d& line, int& count, AcGePoint2d& first, AcGePoint2d& second,
                       const AcGeTol& tol = AcGeContext::gTol) const;
    bool intersectWith(const AcGeCircArc2d& other, int& count, AcGePoint2d& first, AcGePoint2d& second,
                       const AcGeTol& tol = AcGeContext::gTol) const;
    /// False, with the line unchanged, when the point is not on the arc.
    bool tangent(const AcGePoint2d& point, AcGeLine2d& line, const AcGeTol& tol = AcGeContext::gTol) const;

    [[nodiscard]] AcGe::EntityId type() const override { return AcGe::kCircArc2d; }
    [[nodiscard]] bool isKindOf(AcGe::EntityId kind) const override {
        return kind == AcGe::kCircArc2d || AcGeCurve2d::isKindOf(kind);
    }
    [[nodiscard]] AcGeCircArc2d* copy() const override { return new AcGeCircArc2d(*this); }

private:
    void apply(const AcGeMatrix2d& matrix) override;
    [[nodiscard]] const AcGeCircArc3d& inSpace() const override { return arc_; }

    AcGeCircArc3d arc_;
};
