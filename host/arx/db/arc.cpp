#include "dbents.h"

#include "angles.h"
#include "curve_piece.h"
#include "drawing/tag_view.h"
#include "plane_change.h"

#include <cmath>

ACRX_CONS_DEFINE_MEMBERS(AcDbArc, AcDbCurve)

namespace {

/// An arc is a circle with angles.
constexpr std::string_view kCircle = "AcDbCircle";
constexpr std::string_view kMarker = "AcDbArc";

} // namespace

zuhost::TagList AcDbArc::newRecords() const {
    return recordsOf("ARC", {"AcDbEntity", kCircle, kMarker});
}

AcDbArc::AcDbArc(const AcGePoint3d& centre, double radius, double startAngle, double endAngle)
    : AcDbArc(centre, AcGeVector3d::kZAxis, radius, startAngle, endAngle) {}

AcDbArc::AcDbArc(const AcGePoint3d& centre, const AcGeVector3d& normal, double radius, double startAngle,
                 double endAngle)
    : AcDbArc() {
    if (normal != AcGeVector3d::kZAxis)
        setNormalTag(kCircle, normal);
    setCenter(centre);
    setRadius(radius);
    setStartAngle(startAngle);
    setEndAngle(endAngle);
}

AcGePoint3d AcDbArc::center() const {
    return planePointTag(kCircle, 10);
}
Acad::ErrorStatus AcDbArc::setCenter(const AcGePoint3d& centre) {
    return setPlanePointTag(kCircle, 10, centre);
}
double AcDbArc::radius() const {
    return realTag(kCircle, 40, 0.0);
}
Acad::ErrorStatus AcDbArc::setRadius(double radius) {
    return radius >= 0.0 ? setRealTag(kCircle, 40, radius) : Acad::eInvalidInput;
}
double AcDbArc::startAngle() const {
    return zuhost::toRadians(realTag(kMarker, 50, 0.0));
}
Acad::ErrorStatus AcDbArc::setStartAngle(double angle) {
    return setRealTag(kMarker, 50, zuhost::toDegrees(angle));
}
double AcDbArc::endAngle() const {
    return zuhost::toRadians(realTag(kMarker, 51, 0.0));
}
Acad::ErrorStatus AcDbArc::setEndAngle(double angle) {
    return setRealTag(kMarker, 51, zuhost::toDegrees(angle));
}

double AcDbArc::totalAngle() const {
    const double angle = std::fmod(endAngle() - startAngle(), zuhost::kTurn);
    return angle > 0.0 ? angle : angle + zuhost::kTurn;
}

AcGeVector3d AcDbArc::normal() const {
    return normalTag(kCircle);
}

Acad::ErrorStatus AcDbArc::setNormal(const AcGeVector3d& normal) {
    const AcGePoint3d centre = center();
    const Acad::ErrorStatus status = setNormalTag(kCircle, normal);
    return status == Acad::eOk ? setCenter(centre) : status;
}

double AcDbArc::thickness() const {
    return realTag(kCircle, 39, 0.0);
}
Acad::ErrorStatus AcDbArc::setThickness(double thickness) {
    return setRealTag(kCircle, 39, thickness);
}

Acad::ErrorStatus AcDbArc::subTransformBy(const AcGeMatrix3d& matrix) {
    const auto change = zuhost::planeChange(matrix, normal());
    if (!change)
        return Acad::eCannotScaleNonUniformly;
    const AcGePoint3d centre = matrix * center();
    const double start = change->angle(change->isMirrored ? endAngle() : startAngle());
    const double end = change->angle(change->isMirrored ? startAngle() : endAngle());
    if (thickness() != 0.0)
        setThickness(thickness() * (matrix * normal()).length());
    if (change->normal != normal())
        setNormalTag(kCircle, change->normal);
    setCenter(centre);
    setRadius(radius() * change->scale);
    setStartAngle(std::fmod(start + 2.0 * zuhost::kTurn, zuhost::kTurn));
    return setEndAngle(std::fmod(end + 2.0 * zuhost::kTurn, zuhost::kTurn));
}

std::vector<zuhost::CurvePiece> AcDbArc::pieces() const {
    const AcGeMatrix3d plane = AcGeMatrix3d::planeToWorld(normal());
    const double size = radius();
    const double start = startAngle();
    const double end = start + totalAngle();
    return {zuhost::CurvePiece::arc(center(), plane * AcGeVector3d(size, 0, 0),
                                    plane * AcGeVector3d(0, size, 0), start, end, start, end)};
}
