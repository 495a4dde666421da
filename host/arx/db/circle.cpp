#include "dbents.h"

#include "angles.h"
#include "curve_piece.h"
#include "drawing/tag_view.h"
#include "plane_change.h"

ACRX_CONS_DEFINE_MEMBERS(AcDbCircle, AcDbCurve)

namespace {

constexpr std::string_view kMarker = "AcDbCircle";

} // namespace

zuhost::TagList AcDbCircle::newRecords() const {
    return recordsOf("CIRCLE", {"AcDbEntity", kMarker});
}

AcDbCircle::AcDbCircle(const AcGePoint3d& centre, const AcGeVector3d& normal, double radius) : AcDbCircle() {
    if (normal != AcGeVector3d::kZAxis)
        setNormalTag(kMarker, normal);
    setCenter(centre);
    setRadius(radius);
}

AcGePoint3d AcDbCircle::center() const {
    return planePointTag(kMarker, 10);
}
Acad::ErrorStatus AcDbCircle::setCenter(const AcGePoint3d& centre) {
    return setPlanePointTag(kMarker, 10, centre);
}
double AcDbCircle::radius() const {
    return realTag(kMarker, 40, 0.0);
}
Acad::ErrorStatus AcDbCircle::setRadius(double radius) {
    return radius >= 0.0 ? setRealTag(kMarker, 40, radius) : Acad::eInvalidInput;
}
AcGeVector3d AcDbCircle::normal() const {
    return normalTag(kMarker);
}

Acad::ErrorStatus AcDbCircle::setNormal(const AcGeVector3d& normal) {
    const AcGePoint3d centre = center();
    const Acad::ErrorStatus status = setNormalTag(kMarker, normal);
    return status == Acad::eOk ? setCenter(centre) : status;
}

double AcDbCircle::thickness() const {
    return realTag(kMarker, 39, 0.0);
}
Acad::ErrorStatus AcDbCircle::setThickness(double thickness) {
    return setRealTag(kMarker, 39, thickness);
}

Acad::ErrorStatus AcDbCircle::subTransformBy(const AcGeMatrix3d& matrix) {
    const auto change = zuhost::planeChange(matrix, normal());
    if (!change)
        return Acad::eCannotScaleNonUniformly;
    const AcGePoint3d centre = matrix * center();
    if (thickness() != 0.0)
        setThickness(thickness() * (matrix * normal()).length());
    if (change->normal != normal())
        setNormalTag(kMarker, change->normal);
    setCenter(centre);
    return setRadius(radius() * change->scale);
}

std::vector<zuhost::CurvePiece> AcDbCircle::pieces() const {
    const AcGeMatrix3d plane = AcGeMatrix3d::planeToWorld(normal());
    const double size = radius();
    return {zuhost::CurvePiece::arc(center(), plane * AcGeVector3d(size, 0, 0),
                                    plane * AcGeVector3d(0, size, 0), 0.0, zuhost::kTurn, 0.0,
                                    zuhost::kTurn)};
}
