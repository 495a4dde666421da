#include "dbents.h"

#include "drawing/tag_view.h"

ACRX_CONS_DEFINE_MEMBERS(AcDb2dVertex, AcDbEntity)
ACRX_CONS_DEFINE_MEMBERS(AcDb3dPolylineVertex, AcDbEntity)
ACRX_CONS_DEFINE_MEMBERS(AcDbSequenceEnd, AcDbEntity)

namespace {

constexpr std::string_view k2dVertex = "AcDb2dVertex";
constexpr std::string_view k3dVertex = "AcDb3dPolylineVertex";
constexpr int kFlags = 70;
constexpr std::int64_t kFitVertex = 1;
constexpr std::int64_t kSplineVertex = 8;
constexpr std::int64_t kControlVertex = 16;

} // namespace

zuhost::TagList AcDb2dVertex::newRecords() const {
    zuhost::TagList records = recordsOf("VERTEX", {"AcDbEntity", "AcDbVertex", k2dVertex});
    records.add(10, "0.0");
    records.add(20, "0.0");
    records.add(30, "0.0");
    return records;
}

AcDb2dVertex::AcDb2dVertex(const AcGePoint3d& position, double bulge, double startWidth, double endWidth)
    : AcDb2dVertex() {
    setPosition(position);
    if (startWidth != 0.0 || endWidth != 0.0) {
        setStartWidth(startWidth);
        setEndWidth(endWidth);
    }
    if (bulge != 0.0)
        setBulge(bulge);
}

AcDb::Vertex2dType AcDb2dVertex::vertexType() const {
    const std::int64_t flags = integerTag(k2dVertex, kFlags, 0);
    if ((flags & kControlVertex) != 0)
        return AcDb::k2dSplineCtlVertex;
    if ((flags & kSplineVertex) != 0)
        return AcDb::k2dSplineFitVertex;
    return (flags & kFitVertex) != 0 ? AcDb::k2dCurveFitVertex : AcDb::k2dVertex;
}

AcGePoint3d AcDb2dVertex::position() const {
    return pointTag(k2dVertex, 10);
}
Acad::ErrorStatus AcDb2dVertex::setPosition(const AcGePoint3d& position) {
    return setPointTag(k2dVertex, 10, position);
}
double AcDb2dVertex::bulge() const {
    return realTag(k2dVertex, 42, 0.0);
}
Acad::ErrorStatus AcDb2dVertex::setBulge(double bulge) {
    return setRealTag(k2dVertex, 42, bulge);
}
double AcDb2dVertex::startWidth() const {
    return realTag(k2dVertex, 40, 0.0);
}
Acad::ErrorStatus AcDb2dVertex::setStartWidth(double width) {
    return setRealTag(k2dVertex, 40, width);
}
double AcDb2dVertex::endWidth() const {
    return realTag(k2dVertex, 41, 0.0);
}
Acad::ErrorStatus AcDb2dVertex::setEndWidth(double width) {
    return setRealTag(k2dVertex, 41, width);
}

zuhost::TagList AcDb3dPolylineVertex::newRecords() const {
    zuhost::TagList records = recordsOf("VERTEX", {"AcDbEntity", "AcDbVertex", k3dVertex});
    records.add(10, "0.0");
    records.add(20, "0.0");
    records.add(30, "0.0");
    records.add(70, "32");
    return records;
}

AcDb3dPolylineVertex::AcDb3dPolylineVertex(const AcGePoint3d& position) : AcDb3dPolylineVertex() {
    setPosition(position);
}

AcDb::Vertex3dType AcDb3dPolylineVertex::vertexType() const {
    const std::int64_t flags = integerTag(k3dVertex, kFlags, 0);
    if ((flags & kControlVertex) != 0)
        return AcDb::k3dControlVertex;
    return (flags & kSplineVertex) != 0 ? AcDb::k3dFitVertex : AcDb::k3dSimpleVertex;
}

AcGePoint3d AcDb3dPolylineVertex::position() const {
    return pointTag(k3dVertex, 10);
}
Acad::ErrorStatus AcDb3dPolylineVertex::setPosition(const AcGePoint3d& position) {
    return setPointTag(k3dVertex, 10, position);
}
Acad::ErrorStatus AcDb3dPolylineVertex::subTransformBy(const AcGeMatrix3d& matrix) {
    return setPosition(matrix * position());
}

zuhost::TagList AcDbSequenceEnd::newRecords() const {
    return recordsOf("SEQEND", {"AcDbEntity"});
}
