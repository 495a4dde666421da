#pragma once

#include "dbcurve.h"

#include <zuhost/platform/export.h>

#include <numbers>

/// An ellipse or an arc of one, in world coordinates. Its parameter is the angle on the circle that it is a
/// squeezed picture of; its angles are those of its points.
class ZUHOST_API AcDbEllipse : public AcDbCurve {
public:
    ACRX_DECLARE_MEMBERS(AcDbEllipse);
    AcDbEllipse() = default;
    AcDbEllipse(const AcGePoint3d& centre, const AcGeVector3d& normal, const AcGeVector3d& majorAxis,
                double radiusRatio, double startAngle = 0.0, double endAngle = 2.0 * std::numbers::pi);

    /// eInvalidInput for axes that are not perpendicular or have no length, and ratios outside 1e-6 to 1.
    Acad::ErrorStatus set(const AcGePoint3d& centre, const AcGeVector3d& normal,
                          const AcGeVector3d& majorAxis, double radiusRatio, double startAngle = 0.0,
                          double endAngle = 2.0 * std::numbers::pi);
    [[nodiscard]] AcGePoint3d center() const;
    Acad::ErrorStatus setCenter(const AcGePoint3d& centre);
    /// From the centre to the end of the axis.
    [[nodiscard]] AcGeVector3d majorAxis() const;
    [[nodiscard]] AcGeVector3d minorAxis() const;
    [[nodiscard]] AcGeVector3d normal() const;
    [[nodiscard]] double radiusRatio() const;
    Acad::ErrorStatus setRadiusRatio(double ratio);
    [[nodiscard]] double startAngle() const;
    Acad::ErrorStatus setStartAngle(double angle);
    [[nodiscard]] double endAngle() const;
    Acad::ErrorStatus setEndAngle(double angle);
    [[nodiscard]] double startParam() const;
    Acad::ErrorStatus setStartParam(double param);
    [[nodiscard]] double endParam() const;
    Acad::ErrorStatus setEndParam(double param);
    [[nodiscard]] double paramAtAngle(double angle) const;
    [[nodiscard]] double angleAtParam(double param) const;
    [[nodiscard]] bool isPeriodic() const override { return isClosed(); }

protected:
    Acad::ErrorStatus subTransformBy(const AcGeMatrix3d& matrix) override;

private:
    [[nodiscard]] zuhost::TagList newRecords() const override;
    friend class AcDbBlockReference;
    [[nodiscard]] std::vector<zuhost::CurvePiece> pieces() const override;
    [[nodiscard]] AcGeVector3d extrusion() const override { return normal(); }
    Acad::ErrorStatus cut(double from, double to, std::unique_ptr<AcDbCurve>& part) const override;
    /// Sets the ellipse of a piece, whatever its axes.
    Acad::ErrorStatus assign(const zuhost::CurvePiece& piece);
};
