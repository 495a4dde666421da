#pragma once

#include "dbmain.h"

class AcGeCurve3d;

namespace zuhost {
struct CurvePiece;
} // namespace zuhost

/// An entity that is a curve. Points are in world coordinates. The parameter of a line is the distance from
/// its start; of circles, arcs and ellipses the angle in radians; of polylines the index of the vertex, with
/// fractions between vertices.
///
/// The functions return eInvalidInput for parameters, distances and points that are not on the curve, and
/// eDegenerateGeometry for a curve without points.
class AcDbCurve : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(AcDbCurve);

    [[nodiscard]] virtual bool isClosed() const;
    /// True for circles and whole ellipses.
    [[nodiscard]] virtual bool isPeriodic() const { return false; }

    Acad::ErrorStatus getStartParam(double& param) const;
    Acad::ErrorStatus getEndParam(double& param) const;
    Acad::ErrorStatus getStartPoint(AcGePoint3d& point) const;
    Acad::ErrorStatus getEndPoint(AcGePoint3d& point) const;

    Acad::ErrorStatus getPointAtParam(double param, AcGePoint3d& point) const;
    Acad::ErrorStatus getParamAtPoint(const AcGePoint3d& point, double& param) const;
    Acad::ErrorStatus getDistAtParam(double param, double& distance) const;
    Acad::ErrorStatus getParamAtDist(double distance, double& param) const;
    Acad::ErrorStatus getDistAtPoint(const AcGePoint3d& point, double& distance) const;
    Acad::ErrorStatus getPointAtDist(double distance, AcGePoint3d& point) const;
    Acad::ErrorStatus getFirstDeriv(double param, AcGeVector3d& derivative) const;
    Acad::ErrorStatus getFirstDeriv(const AcGePoint3d& point, AcGeVector3d& derivative) const;
    Acad::ErrorStatus getSecondDeriv(double param, AcGeVector3d& derivative) const;
    Acad::ErrorStatus getSecondDeriv(const AcGePoint3d& point, AcGeVector3d& derivative) const;

    /// With `extend`, lines count as endless and arcs as whole; the ends of polylines are not extended.
    Acad::ErrorStatus getClosestPointTo(const AcGePoint3d& point, AcGePoint3d& onCurve,
                                        bool extend = false) const;
    /// The point of the curve whose projection along the normal is closest to the point's. eInvalidInput for
    /// a normal without length.
    Acad::ErrorStatus getClosestPointTo(const AcGePoint3d& point, const AcGeVector3d& normal,
                                        AcGePoint3d& onCurve, bool extend = false) const;
    /// The area that the curve, closed by a straight line, encloses; eNotApplicable for curves that are not
    /// in a plane, and straight ones.
    Acad::ErrorStatus getArea(double& area) const;
    /// Returns a line segment, circle or arc that the caller deletes; eNotImplementedYet for other curves.
    Acad::ErrorStatus getAcGeCurve(AcGeCurve3d*& curve, const AcGeTol& tol = AcGeContext::gTol) const;

protected:
    AcDbCurve() = default;

    Acad::ErrorStatus extentsUnder(const AcGeMatrix3d& matrix, zuhost::Expansion& expansion,
                                   AcDbExtents& extents) const override;

private:
    friend class AcDbBlockReference;
    friend class AcDbEntity;
    friend struct zuhost::ObjectAccess;
    /// Returns the curve's segments and arcs in order, in world coordinates.
    [[nodiscard]] virtual std::vector<zuhost::CurvePiece> pieces() const = 0;
};
