// Directions, parts and parallels of polylines.

#include "curve_piece.h"
#include "dbents.h"
#include "entity_parts.h"
#include "plane_path.h"

#include <algorithm>

using zuhost::PlanePath;
using zuhost::PlaneVertex;

namespace {

PlanePath pathOf(const AcDbPolyline& polyline) {
    PlanePath path{{}, polyline.isClosed()};
    for (unsigned int i = 0; i < polyline.numVerts(); ++i) {
        PlaneVertex vertex;
        polyline.getPointAt(i, vertex.point);
        polyline.getBulgeAt(i, vertex.bulge);
        polyline.getWidthsAt(i, vertex.startWidth, vertex.endWidth);
        path.vertices.push_back(vertex);
    }
    return path;
}

/// Gives a polyline without vertices those of the path.
void addVertices(AcDbPolyline& polyline, const PlanePath& path, bool hasWidths) {
    for (const PlaneVertex& vertex : path.vertices)
        polyline.addVertexAt(polyline.numVerts(), vertex.point, vertex.bulge,
                             hasWidths ? vertex.startWidth : -1.0, hasWidths ? vertex.endWidth : -1.0);
}

std::unique_ptr<AcDbCurve> newPolyline(const AcDbPolyline& source, const PlanePath& path) {
    auto polyline = std::make_unique<AcDbPolyline>();
    double width = 0.0;
    const bool isConstant = source.getConstantWidth(width) == Acad::eOk;
    addVertices(*polyline, path, !isConstant);
    if (isConstant && width != 0.0)
        polyline->setConstantWidth(width);
    polyline->setClosed(path.isClosed);
    polyline->setNormal(source.normal());
    polyline->setElevation(source.elevation());
    polyline->setThickness(source.thickness());
    polyline->setPlinegen(source.hasPlinegen());
    polyline->setPropertiesFrom(&source);
    return polyline;
}

PlanePath pathOf(const std::vector<const AcDb2dVertex*>& vertices, bool isClosed) {
    PlanePath path{{}, isClosed};
    for (const AcDb2dVertex* const vertex : vertices)
        path.vertices.push_back({{vertex->position().x, vertex->position().y},
                                 vertex->bulge(),
                                 vertex->startWidth(),
                                 vertex->endWidth()});
    return path;
}

std::unique_ptr<AcDbCurve> newPolyline(const AcDb2dPolyline& source, const PlanePath& path) {
    AcGePoint3dArray points;
    AcGeDoubleArray bulges;
    AcGeDoubleArray widths;
    for (const PlaneVertex& vertex : path.vertices) {
        points.append({vertex.point.x, vertex.point.y, 0.0});
        bulges.append(vertex.bulge);
        widths.append(vertex.startWidth);
        widths.append(vertex.endWidth);
    }
    auto polyline = std::make_unique<AcDb2dPolyline>(AcDb::k2dSimplePoly, points, source.elevation(),
                                                     path.isClosed, source.defaultStartWidth(),
                                                     source.defaultEndWidth(), &bulges, &widths);
    polyline->setNormal(source.normal());
    polyline->setThickness(source.thickness());
    polyline->setPropertiesFrom(&source);
    return polyline;
}

} // namespace

// ---- polylines in a plane

Acad::ErrorStatus AcDbPolyline::reverse() {
    const PlanePath path = pathOf(*this).reversed();
    double width = 0.0;
    const bool isConstant = getConstantWidth(width) == Acad::eOk;
    reset(false, 0);
    addVertices(*this, path, !isConstant);
    double now = 0.0;
    if (isConstant && (getConstantWidth(now) != Acad::eOk || now != width))
        setConstantWidth(width);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::cut(double from, double to, std::unique_ptr<AcDbCurve>& part) const {
    part = newPolyline(*this, pathOf(*this).part(from, to));
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::offset(double distance, std::unique_ptr<AcDbCurve>& parallel) const {
    PlanePath path;
    const Acad::ErrorStatus status = pathOf(*this).parallel(distance, path);
    if (status == Acad::eOk)
        parallel = newPolyline(*this, path);
    return status;
}

// ---- polylines with vertices of their own

Acad::ErrorStatus AcDb2dPolyline::reverse() {
    if (polyType() != AcDb::k2dSimplePoly)
        return Acad::eNotImplementedYet;
    if (const Acad::ErrorStatus status = zuhost::canChangeParts(*this); status != Acad::eOk)
        return status;
    const PlanePath path = pathOf(curveVertices(), isClosed()).reversed();
    auto at = path.vertices.begin();
    forEachPart([&](AcDbEntity& part) {
        auto* const vertex = AcDb2dVertex::cast(&part);
        if (vertex == nullptr || at == path.vertices.end())
            return;
        vertex->setPosition({at->point.x, at->point.y, vertex->position().z});
        if (vertex->bulge() != at->bulge)
            vertex->setBulge(at->bulge);
        if (vertex->startWidth() != at->startWidth)
            vertex->setStartWidth(at->startWidth);
        if (vertex->endWidth() != at->endWidth)
            vertex->setEndWidth(at->endWidth);
        ++at;
    });
    return Acad::eOk;
}

Acad::ErrorStatus AcDb2dPolyline::cut(double from, double to, std::unique_ptr<AcDbCurve>& part) const {
    if (polyType() != AcDb::k2dSimplePoly)
        return Acad::eNotImplementedYet;
    part = newPolyline(*this, pathOf(curveVertices(), isClosed()).part(from, to));
    return Acad::eOk;
}

Acad::ErrorStatus AcDb2dPolyline::offset(double distance, std::unique_ptr<AcDbCurve>& parallel) const {
    if (polyType() != AcDb::k2dSimplePoly)
        return Acad::eNotImplementedYet;
    PlanePath path;
    const Acad::ErrorStatus status = pathOf(curveVertices(), isClosed()).parallel(distance, path);
    if (status == Acad::eOk)
        parallel = newPolyline(*this, path);
    return status;
}

Acad::ErrorStatus AcDb3dPolyline::reverse() {
    if (polyType() != AcDb::k3dSimplePoly)
        return Acad::eNotImplementedYet;
    if (const Acad::ErrorStatus status = zuhost::canChangeParts(*this); status != Acad::eOk)
        return status;
    std::vector<AcGePoint3d> points;
    forEachPart([&](AcDbEntity& part) {
        if (const auto* const vertex = AcDb3dPolylineVertex::cast(&part))
            points.push_back(vertex->position());
    });
    if (isClosed() && !points.empty()) // keeps its start
        std::rotate(points.begin(), points.begin() + 1, points.end());
    forEachPart([&](AcDbEntity& part) {
        auto* const vertex = AcDb3dPolylineVertex::cast(&part);
        if (vertex == nullptr || points.empty())
            return;
        vertex->setPosition(points.back());
        points.pop_back();
    });
    return Acad::eOk;
}

Acad::ErrorStatus AcDb3dPolyline::cut(double from, double to, std::unique_ptr<AcDbCurve>& part) const {
    if (polyType() != AcDb::k3dSimplePoly)
        return Acad::eNotImplementedYet;
    AcGePoint3dArray points;
    for (const zuhost::CurvePiece& piece : pieces()) {
        if (piece.lastParam <= from || piece.firstParam >= to)
            continue;
        if (points.isEmpty())
            points.append(piece.at(piece.fromParam(std::max(from, piece.firstParam))));
        points.append(piece.at(piece.fromParam(std::min(to, piece.lastParam))));
    }
    auto polyline = std::make_unique<AcDb3dPolyline>(AcDb::k3dSimplePoly, points);
    polyline->setPropertiesFrom(this);
    part = std::move(polyline);
    return Acad::eOk;
}
