#pragma once

#include "dbmain.h"
#include "gedblar.h"

#include <zuhost/platform/export.h>

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
class ZUHOST_API AcDbCurve : public AcDbEntity {
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
    Acad::ErrorStatus getPlane(AcGePlane& plane, AcDb::Planarity& planarity) const override;

    /// Swaps the ends of a line or polyline; closed ones keep their start. eNotApplicable for circles, arcs
    /// and ellipses, which always run counter-clockwise; eNotImplementedYet for smoothed polylines.
    Acad::ErrorStatus reverseCurve();
    /// Appends the parts of the curve between the parameters, which must ascend, as new entities that the
    /// caller owns. Those at the ends of an open curve count as none. Circles and whole ellipses have as many
    /// parts as parameters, the first one from the first parameter; closed polylines are cut at their start
    /// as well. eInvalidInput for parameters that do not ascend or are not on the curve; eNotImplementedYet
    /// for smoothed polylines.
    Acad::ErrorStatus getSplitCurves(const AcGeDoubleArray& params, AcDbVoidPtrArray& curves) const;
    /// The same for points on the curve, in their order along it.
    Acad::ErrorStatus getSplitCurves(const AcGePoint3dArray& points, AcDbVoidPtrArray& curves) const;
    /// Appends the parallel curve as a new entity that the caller owns: to the right of the direction, seen
    /// from the tip of the normal, so that circles and arcs grow by a distance above 0; to the left by one
    /// below. eInvalidInput for an arc that would have no radius left. eNotImplementedYet for ellipses, whose
    /// parallels are none, for polylines in space and smoothed ones, for arcs of polylines that do not meet
    /// their neighbours in a tangent, and where the parallel of a polyline would lose segments or cross
    /// itself.
    Acad::ErrorStatus getOffsetCurves(double distance, AcDbVoidPtrArray& curves) const;
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
    /// Returns the normal of the curve's plane; without length for a curve in space.
    [[nodiscard]] virtual AcGeVector3d extrusion() const { return {}; }
    virtual Acad::ErrorStatus reverse() { return Acad::eNotApplicable; }
    /// Return a new curve with this one's properties: the part between two parameters, and the parallel.
    virtual Acad::ErrorStatus cut(double from, double to, std::unique_ptr<AcDbCurve>& part) const = 0;
    virtual Acad::ErrorStatus offset(double distance, std::unique_ptr<AcDbCurve>& parallel) const;
};
