#include "dbents.h"

#include "angles.h"
#include "drawing/tag_view.h"
#include "plane_change.h"

ACRX_CONS_DEFINE_MEMBERS(AcDbPoint, AcDbEntity)

namespace {

constexpr std::string_view kMarker = "AcDbPoint";

} // namespace

zuhost::TagList AcDbPoint::newRecords() const {
    return recordsOf("POINT", {"AcDbEntity", kMarker});
}

AcDbPoint::AcDbPoint(const AcGePoint3d& position) : AcDbPoint() {
    setPosition(position);
}

AcGePoint3d AcDbPoint::position() const {
    return pointTag(kMarker, 10);
}
Acad::ErrorStatus AcDbPoint::setPosition(const AcGePoint3d& position) {
    return setPointTag(kMarker, 10, position);
}
AcGeVector3d AcDbPoint::normal() const {
    return normalTag(kMarker);
}
Acad::ErrorStatus AcDbPoint::setNormal(const AcGeVector3d& normal) {
    return setNormalTag(kMarker, normal);
}
double AcDbPoint::thickness() const {
    return realTag(kMarker, 39, 0.0);
}
Acad::ErrorStatus AcDbPoint::setThickness(double thickness) {
    return setRealTag(kMarker, 39, thickness);
}

double AcDbPoint::ecsRotation() const {
    return -zuhost::toRadians(realTag(kMarker, 50, 0.0));
}
Acad::ErrorStatus AcDbPoint::setEcsRotation(double angle) {
    return setRealTag(kMarker, 50, -zuhost::toDegrees(angle));
}

Acad::ErrorStatus AcDbPoint::subTransformBy(const AcGeMatrix3d& matrix) {
    const auto change = zuhost::planeChange(matrix, normal());
    setPosition(matrix * position());
    if (thickness() != 0.0)
        setThickness(thickness() * (matrix * normal()).length());
    if (!change)
        return Acad::eOk; // a point has no extent that could be scaled unequally
    if (ecsRotation() != 0.0)
        setEcsRotation(change->angle(ecsRotation()));
    if (change->normal != normal())
        setNormal(change->normal);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPoint::extentsUnder(const AcGeMatrix3d& matrix, zuhost::Expansion& /*expansion*/,
                                          AcDbExtents& extents) const {
    const AcGePoint3d point = matrix * position();
    extents = AcDbExtents(point, point);
    return Acad::eOk;
}
