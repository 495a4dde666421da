#include "dbents.h"

#include "curve_piece.h"
#include "drawing/tag_view.h"

ACRX_CONS_DEFINE_MEMBERS(AcDbLine, AcDbCurve)

namespace {

constexpr std::string_view kMarker = "AcDbLine";

} // namespace

zuhost::TagList AcDbLine::newRecords() const {
    return recordsOf("LINE", {"AcDbEntity", kMarker});
}

AcDbLine::AcDbLine(const AcGePoint3d& start, const AcGePoint3d& end) : AcDbLine() {
    setStartPoint(start);
    setEndPoint(end);
}

AcGePoint3d AcDbLine::startPoint() const {
    return pointTag(kMarker, 10);
}
AcGePoint3d AcDbLine::endPoint() const {
    return pointTag(kMarker, 11);
}
Acad::ErrorStatus AcDbLine::setStartPoint(const AcGePoint3d& point) {
    return setPointTag(kMarker, 10, point);
}
Acad::ErrorStatus AcDbLine::setEndPoint(const AcGePoint3d& point) {
    return setPointTag(kMarker, 11, point);
}
AcGeVector3d AcDbLine::normal() const {
    return normalTag(kMarker);
}
Acad::ErrorStatus AcDbLine::setNormal(const AcGeVector3d& normal) {
    return setNormalTag(kMarker, normal);
}
double AcDbLine::thickness() const {
    return realTag(kMarker, 39, 0.0);
}
Acad::ErrorStatus AcDbLine::setThickness(double thickness) {
    return setRealTag(kMarker, 39, thickness);
}

Acad::ErrorStatus AcDbLine::subTransformBy(const AcGeMatrix3d& matrix) {
    const AcGeVector3d up = matrix * normal();
    if (thickness() != 0.0)
        setThickness(thickness() * up.length());
    if (!up.isZeroLength() && up.normal() != normal())
        setNormal(up);
    setStartPoint(matrix * startPoint());
    return setEndPoint(matrix * endPoint());
}

std::vector<zuhost::CurvePiece> AcDbLine::pieces() const {
    const AcGePoint3d start = startPoint();
    const AcGePoint3d end = endPoint();
    return {zuhost::CurvePiece::segment(start, end, 0.0, start.distanceTo(end))};
}
