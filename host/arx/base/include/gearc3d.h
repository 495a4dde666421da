#pragma once

#include "gelent3d.h"

#include <zuhost/platform/export.h>

#include <numbers>

/// A circle or an arc of one. The parameter is the angle in radians from the reference vector,
/// counter-clockwise about the normal.
class ZUHOST_API AcGeCircArc3d : public AcGeCurve3d {
public:
    /// The unit circle in the xy plane.
    AcGeCircArc3d() : AcGeCircArc3d(AcGePoint3d::kOrigin, AcGeVector3d::kZAxis, 1.0) {}
    /// A circle.
    AcGeCircArc3d(const AcGePoint3d& centre, const AcGeVector3d& normal, double radius);
    /// An arc; an end angle that is less than the start angle is taken a whole turn later.
    AcGeCircArc3d(const AcGePoint3d& centre, const AcGeVector3d& normal, const AcGeVector3d& reference,
                  double radius, double startAngle, double endAngle);
    /// An arc through three points; the unit circle when they are on a line.
    AcGeCircArc3d(const AcGePoint3d& start, const AcGePoint3d& through, const AcGePoint3d& end);

    AcGeCircArc3d& set(const AcGePoint3d& centre, const AcGeVector3d& normal, double radius) {
        return *this = AcGeCircArc3d(centre, normal, radius);
    }
    AcGeCircArc3d& set(const AcGePoint3d& centre, const AcGeVector3d& normal, const AcGeVector3d& reference,
                       double radius, double startAngle, double endAngle) {
        return *this = AcGeCircArc3d(centre, normal, reference, radius, startAngle, endAngle);
    }
    /// Unchanged when the points are on a line, which `error` reports.
    AcGeCircArc3d& set(const AcGePoint3d& start, const AcGePoint3d& through, const AcGePoint3d& end);
    AcGeCircArc3d& set(const AcGePoint3d& start, const AcGePoint3d& through, const AcGePoint3d& end,
                       AcGeError& error);

    [[nodiscard]] AcGePoint3d center() const { return centre_; }
    [[nodiscard]] AcGeVector3d normal() const { return normal_; }
    [[nodiscard]] AcGeVector3d refVec() const { return reference_; }
    [[nodiscard]] double radius() const { return radius_; }
    [[nodiscard]] double startAng() const { return interval_.lowerBound(); }
    [[nodiscard]] double endAng() const { return interval_.upperBound(); }
    [[nodiscard]] AcGePoint3d startPoint() const { return evalPoint(startAng()); }
    [[nodiscard]] AcGePoint3d endPoint() const { return evalPoint(endAng()); }
    void getPlane(AcGePlane& plane) const;
    /// Returns whether the point is in the circle's plane and not outside the circle.
    [[nodiscard]] bool isInside(const AcGePoint3d& point, const AcGeTol& tol = AcGeContext::gTol) const;

    AcGeCircArc3d& setCenter(const AcGePoint3d& centre) {
        centre_ = centre;
        return *this;
    }
    AcGeCircArc3d& setAxes(const AcGeVector3d& normal, const AcGeVector3d& reference);
    AcGeCircArc3d& setRadius(double radius) {
        radius_ = radius;
        return *this;
    }
    AcGeCircArc3d& setAngles(double startAngle, double endAngle);

    /// Returns false, with a count of 0, when there is no intersection, and for parts of the same circle.
    bool intersectWith(const AcGeLinearEnt3d& line, int& count, AcGePoint3d& first, AcGePoint3d& second,
                       const AcGeTol& tol = AcGeContext::gTol) const;
    bool intersectWith(const AcGeCircArc3d& other, int& count, AcGePoint3d& first, AcGePoint3d& second,
                       const AcGeTol& tol = AcGeContext::gTol) const;
    bool intersectWith(const AcGePlanarEnt& plane, int& count, AcGePoint3d& first, AcGePoint3d& second,
                       const AcGeTol& tol = AcGeContext::gTol) const;
    /// False, with the line unchanged, when the point is not on the arc.
    bool tangent(const AcGePoint3d& point, AcGeLine3d& line, const AcGeTol& tol = AcGeContext::gTol) const;

    [[nodiscard]] AcGePoint3d evalPoint(double parameter) const override;
    [[nodiscard]] double paramOf(const AcGePoint3d& point,
                                 const AcGeTol& tol = AcGeContext::gTol) const override;
    [[nodiscard]] double length(double fromParameter, double toParameter,
                                double tolerance = AcGeContext::gTol.equalPoint()) const override;
    [[nodiscard]] AcGe::EntityId type() const override { return AcGe::kCircArc3d; }
    [[nodiscard]] bool isKindOf(AcGe::EntityId kind) const override {
        return kind == AcGe::kCircArc3d || AcGeCurve3d::isKindOf(kind);
    }
    [[nodiscard]] AcGeCircArc3d* copy() const override { return new AcGeCircArc3d(*this); }
    [[nodiscard]] bool isEqualTo(const AcGeCircArc3d& other, const AcGeTol& tol = AcGeContext::gTol) const;
    bool operator==(const AcGeCircArc3d& other) const { return isEqualTo(other); }

private:
    /// Correct for matrices that scale all directions equally; others would make an ellipse, of which the
    /// radius along the reference vector is kept.
    void apply(const AcGeMatrix3d& matrix) override;

    AcGePoint3d centre_;
    AcGeVector3d normal_;
    AcGeVector3d reference_;
    double radius_ = 1.0;
};
