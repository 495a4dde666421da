#include "dbents.h"

#include "curve_piece.h"
#include "drawing/tag_view.h"
#include "entity_parts.h"
#include "plane_change.h"

ACRX_CONS_DEFINE_MEMBERS(AcDb2dPolyline, AcDbCurve)
ACRX_CONS_DEFINE_MEMBERS(AcDb3dPolyline, AcDbCurve)

using zuhost::CurvePiece;

namespace {

constexpr std::string_view k2d = "AcDb2dPolyline";
constexpr std::string_view k3d = "AcDb3dPolyline";
constexpr int kFlags = 70;
constexpr int kSmoothing = 75;
constexpr std::int64_t kClosed = 1;
constexpr std::int64_t kFitted = 2;
constexpr std::int64_t kSpline = 4;
constexpr std::int64_t kIn3d = 8;
constexpr std::int64_t kQuadratic = 5;
constexpr std::int64_t kCubic = 6;

std::int64_t withFlag(std::int64_t flags, std::int64_t flag, bool on) {
    return on ? flags | flag : flags & ~flag;
}

} // namespace

zuhost::TagList AcDb2dPolyline::newRecords() const {
    zuhost::TagList records = recordsOf("POLYLINE", {"AcDbEntity", k2d});
    records.add(66, "1");
    records.add(10, "0.0");
    records.add(20, "0.0");
    records.add(30, "0.0");
    records.add(70, "0");
    return records;
}

AcDb2dPolyline::AcDb2dPolyline(AcDb::Poly2dType type, AcGePoint3dArray& vertices, double elevation,
                               bool closed, double defaultStartWidth, double defaultEndWidth,
                               AcGeDoubleArray* bulges, AcGeDoubleArray* vertexWidths)
    : AcDb2dPolyline() {
    if (elevation != 0.0)
        setElevation(elevation);
    std::int64_t flags = closed ? kClosed : 0;
    if (type == AcDb::k2dFitCurvePoly)
        flags |= kFitted;
    else if (type != AcDb::k2dSimplePoly)
        flags |= kSpline;
    setIntegerTag(k2d, kFlags, flags);
    if ((flags & kSpline) != 0)
        setIntegerTag(k2d, kSmoothing, type == AcDb::k2dQuadSplinePoly ? kQuadratic : kCubic);
    if (defaultStartWidth != 0.0)
        setDefaultStartWidth(defaultStartWidth);
    if (defaultEndWidth != 0.0)
        setDefaultEndWidth(defaultEndWidth);
    for (int i = 0; i < vertices.length(); ++i) {
        const double bulge = bulges != nullptr && i < bulges->length() ? (*bulges)[i] : 0.0;
        const bool hasWidths = vertexWidths != nullptr && 2 * i + 1 < vertexWidths->length();
        appendVertex(new AcDb2dVertex({vertices[i].x, vertices[i].y, elevation}, bulge,
                                      hasWidths ? (*vertexWidths)[2 * i] : defaultStartWidth,
                                      hasWidths ? (*vertexWidths)[2 * i + 1] : defaultEndWidth));
    }
}

AcDb::Poly2dType AcDb2dPolyline::polyType() const {
    const std::int64_t flags = integerTag(k2d, kFlags, 0);
    if ((flags & kSpline) != 0)
        return integerTag(k2d, kSmoothing, kCubic) == kQuadratic ? AcDb::k2dQuadSplinePoly
                                                                 : AcDb::k2dCubicSplinePoly;
    return (flags & kFitted) != 0 ? AcDb::k2dFitCurvePoly : AcDb::k2dSimplePoly;
}

bool AcDb2dPolyline::isClosed() const {
    return (integerTag(k2d, kFlags, 0) & kClosed) != 0;
}
Acad::ErrorStatus AcDb2dPolyline::setClosed(bool closed) {
    return setIntegerTag(k2d, kFlags, withFlag(integerTag(k2d, kFlags, 0), kClosed, closed));
}
double AcDb2dPolyline::defaultStartWidth() const {
    return realTag(k2d, 40, 0.0);
}
Acad::ErrorStatus AcDb2dPolyline::setDefaultStartWidth(double width) {
    return setRealTag(k2d, 40, width);
}
double AcDb2dPolyline::defaultEndWidth() const {
    return realTag(k2d, 41, 0.0);
}
Acad::ErrorStatus AcDb2dPolyline::setDefaultEndWidth(double width) {
    return setRealTag(k2d, 41, width);
}
double AcDb2dPolyline::thickness() const {
    return realTag(k2d, 39, 0.0);
}
Acad::ErrorStatus AcDb2dPolyline::setThickness(double thickness) {
    return setRealTag(k2d, 39, thickness);
}
AcGeVector3d AcDb2dPolyline::normal() const {
    return normalTag(k2d);
}
Acad::ErrorStatus AcDb2dPolyline::setNormal(const AcGeVector3d& normal) {
    return setNormalTag(k2d, normal);
}
double AcDb2dPolyline::elevation() const {
    return realTag(k2d, 30, 0.0);
}
Acad::ErrorStatus AcDb2dPolyline::setElevation(double elevation) {
    return setPointTag(k2d, 10, {0.0, 0.0, elevation});
}

Acad::ErrorStatus AcDb2dPolyline::appendVertex(AcDb2dVertex* vertex) {
    AcDbObjectId id;
    return appendVertex(id, vertex);
}
Acad::ErrorStatus AcDb2dPolyline::appendVertex(AcDbObjectId& id, AcDb2dVertex* vertex) {
    return zuhost::appendPart(*this, verticesToCome_, vertex, id);
}
AcDbObjectIterator* AcDb2dPolyline::vertexIterator() const {
    return zuhost::newPartIterator(*this, verticesToCome_);
}
Acad::ErrorStatus AcDb2dPolyline::openVertex(AcDb2dVertex*& vertex, AcDbObjectId id, AcDb::OpenMode mode,
                                             bool openErased) const {
    return zuhost::openPart(*this, vertex, id, mode, openErased);
}

AcGePoint3d AcDb2dPolyline::vertexPosition(const AcDb2dVertex& vertex) const {
    const AcGePoint3d inPlane = vertex.position();
    return AcGeMatrix3d::planeToWorld(normal()) * AcGePoint3d(inPlane.x, inPlane.y, elevation());
}

Acad::ErrorStatus AcDb2dPolyline::subTransformBy(const AcGeMatrix3d& matrix) {
    const auto change = zuhost::planeChange(matrix, normal());
    if (!change)
        return Acad::eCannotScaleNonUniformly;
    if (const Acad::ErrorStatus status = zuhost::canChangeParts(*this); status != Acad::eOk)
        return status;
    const AcGeMatrix3d toNew = change->coordinates(matrix, normal());
    const double before = elevation();
    const double height = (toNew * AcGePoint3d(0.0, 0.0, before)).z;
    forEachPart([&](AcDbEntity& part) {
        auto* const vertex = AcDb2dVertex::cast(&part);
        if (vertex == nullptr)
            return;
        const AcGePoint3d at = vertex->position();
        vertex->setPosition(toNew * AcGePoint3d(at.x, at.y, before));
        if (change->isMirrored && vertex->bulge() != 0.0)
            vertex->setBulge(-vertex->bulge());
        if (vertex->startWidth() != 0.0 || vertex->endWidth() != 0.0) {
            vertex->setStartWidth(vertex->startWidth() * change->scale);
            vertex->setEndWidth(vertex->endWidth() * change->scale);
        }
    });
    if (defaultStartWidth() != 0.0)
        setDefaultStartWidth(defaultStartWidth() * change->scale);
    if (defaultEndWidth() != 0.0)
        setDefaultEndWidth(defaultEndWidth() * change->scale);
    if (thickness() != 0.0)
        setThickness(thickness() * (matrix * normal()).length());
    if (change->normal != normal())
        setNormal(change->normal);
    return setElevation(height);
}

void AcDb2dPolyline::forEachPart(const std::function<void(AcDbEntity&)>& change) {
    zuhost::changeParts(*this, verticesToCome_, change);
}
void AcDb2dPolyline::copyPartsTo(AcDbEntity& copy) const {
    zuhost::copyParts(*this, verticesToCome_, static_cast<AcDb2dPolyline&>(copy).verticesToCome_);
}
void AcDb2dPolyline::subAppended() {
    zuhost::appendPending(*this, verticesToCome_, true);
}

std::vector<const AcDb2dVertex*> AcDb2dPolyline::curveVertices() const {
    std::vector<const AcDb2dVertex*> vertices;
    for (const AcDbEntity* const part : zuhost::readParts(*this, verticesToCome_)) {
        const auto* const vertex = AcDb2dVertex::cast(part);
        // The frame of a spline is not part of the curve.
        if (vertex != nullptr && vertex->vertexType() != AcDb::k2dSplineCtlVertex)
            vertices.push_back(vertex);
    }
    return vertices;
}

std::vector<CurvePiece> AcDb2dPolyline::pieces() const {
    const std::vector<const AcDb2dVertex*> vertices = curveVertices();
    std::vector<CurvePiece> pieces;
    const std::size_t count = vertices.size();
    const std::size_t segments = count == 0 || isClosed() ? count : count - 1;
    for (std::size_t i = 0; i < segments; ++i)
        pieces.push_back(CurvePiece::bulged(vertexPosition(*vertices[i]),
                                            vertexPosition(*vertices[(i + 1) % count]), normal(),
                                            vertices[i]->bulge(), static_cast<double>(i)));
    return pieces;
}

zuhost::TagList AcDb3dPolyline::newRecords() const {
    zuhost::TagList records = recordsOf("POLYLINE", {"AcDbEntity", k3d});
    records.add(66, "1");
    records.add(10, "0.0");
    records.add(20, "0.0");
    records.add(30, "0.0");
    records.add(70, "8");
    return records;
}

AcDb3dPolyline::AcDb3dPolyline(AcDb::Poly3dType type, AcGePoint3dArray& vertices, bool closed)
    : AcDb3dPolyline() {
    const bool isSpline = type != AcDb::k3dSimplePoly;
    setIntegerTag(k3d, kFlags, kIn3d | (closed ? kClosed : 0) | (isSpline ? kSpline : 0));
    if (isSpline)
        setIntegerTag(k3d, kSmoothing, type == AcDb::k3dQuadSplinePoly ? kQuadratic : kCubic);
    for (const AcGePoint3d& vertex : vertices)
        appendVertex(new AcDb3dPolylineVertex(vertex));
}

AcDb::Poly3dType AcDb3dPolyline::polyType() const {
    if ((integerTag(k3d, kFlags, 0) & kSpline) == 0)
        return AcDb::k3dSimplePoly;
    return integerTag(k3d, kSmoothing, kCubic) == kQuadratic ? AcDb::k3dQuadSplinePoly
                                                             : AcDb::k3dCubicSplinePoly;
}
bool AcDb3dPolyline::isClosed() const {
    return (integerTag(k3d, kFlags, 0) & kClosed) != 0;
}
Acad::ErrorStatus AcDb3dPolyline::setClosed(bool closed) {
    return setIntegerTag(k3d, kFlags, withFlag(integerTag(k3d, kFlags, 0), kClosed, closed));
}
Acad::ErrorStatus AcDb3dPolyline::appendVertex(AcDb3dPolylineVertex* vertex) {
    AcDbObjectId id;
    return appendVertex(id, vertex);
}
Acad::ErrorStatus AcDb3dPolyline::appendVertex(AcDbObjectId& id, AcDb3dPolylineVertex* vertex) {
    return zuhost::appendPart(*this, verticesToCome_, vertex, id);
}
AcDbObjectIterator* AcDb3dPolyline::vertexIterator() const {
    return zuhost::newPartIterator(*this, verticesToCome_);
}
Acad::ErrorStatus AcDb3dPolyline::openVertex(AcDb3dPolylineVertex*& vertex, AcDbObjectId id,
                                             AcDb::OpenMode mode, bool openErased) const {
    return zuhost::openPart(*this, vertex, id, mode, openErased);
}

Acad::ErrorStatus AcDb3dPolyline::subTransformBy(const AcGeMatrix3d& matrix) {
    if (const Acad::ErrorStatus status = zuhost::canChangeParts(*this); status != Acad::eOk)
        return status;
    forEachPart([&](AcDbEntity& part) { part.transformBy(matrix); });
    return Acad::eOk;
}
void AcDb3dPolyline::forEachPart(const std::function<void(AcDbEntity&)>& change) {
    zuhost::changeParts(*this, verticesToCome_, change);
}
void AcDb3dPolyline::copyPartsTo(AcDbEntity& copy) const {
    zuhost::copyParts(*this, verticesToCome_, static_cast<AcDb3dPolyline&>(copy).verticesToCome_);
}
void AcDb3dPolyline::subAppended() {
    zuhost::appendPending(*this, verticesToCome_, true);
}

std::vector<CurvePiece> AcDb3dPolyline::pieces() const {
    std::vector<AcGePoint3d> points;
    for (const AcDbEntity* const part : zuhost::readParts(*this, verticesToCome_)) {
        const auto* const vertex = AcDb3dPolylineVertex::cast(part);
        if (vertex != nullptr && vertex->vertexType() != AcDb::k3dControlVertex)
            points.push_back(vertex->position());
    }
    std::vector<CurvePiece> pieces;
    const std::size_t count = points.size();
    const std::size_t segments = count == 0 || isClosed() ? count : count - 1;
    for (std::size_t i = 0; i < segments; ++i) {
        const auto param = static_cast<double>(i);
        pieces.push_back(CurvePiece::segment(points[i], points[(i + 1) % count], param, param + 1.0));
    }
    return pieces;
}
