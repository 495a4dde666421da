#include "dbents.h"

#include "drawing/tag_view.h"
#include "plane_change.h"

#include <algorithm>
#include <cmath>

ACRX_CONS_DEFINE_MEMBERS(AcDbPolyline, AcDbCurve)

using zuhost::TagList;
using zuhost::TagRange;

namespace {

constexpr std::string_view kMarker = "AcDbPolyline";
constexpr std::int64_t kClosed = 1;
constexpr std::int64_t kAcross = 128;

/// Reads the first vertex without looking for the others.
Acad::ErrorStatus readFirstPoint(const zuhost::TagView& records, AcGePoint2d& point) {
    auto at = records.begin();
    while (at != records.end() && at->code != 10)
        ++at;
    if (at == records.end())
        return Acad::eInvalidIndex;
    point = {at->real().value_or(0.0), 0.0};
    for (++at; at != records.end() && at->code != 10; ++at)
        if (at->code == 20) {
            point.y = at->real().value_or(0.0);
            break;
        }
    return Acad::eOk;
}

bool isOfVertex(const zuhost::Tag& tag) {
    return tag.code == 10 || tag.code == 20 || (tag.code >= 40 && tag.code <= 42) || tag.code == 91;
}

} // namespace

zuhost::TagList AcDbPolyline::newRecords() const {
    zuhost::TagList records = recordsOf("LWPOLYLINE", {"AcDbEntity", kMarker});
    records.add(90, "0");
    records.add(70, "0");
    return records;
}

unsigned int AcDbPolyline::numVerts() const {
    return static_cast<unsigned int>(vertices().size() - 1);
}

const std::vector<std::size_t>& AcDbPolyline::vertices() const {
    if (verticesVersion_ == tagVersion() && !vertices_.empty())
        return vertices_;
    vertices_.clear();
    const zuhost::TagView part = section(kMarker);
    zuhost::TagView::Iterator it = part.begin();
    for (; it != part.end(); ++it)
        if (it->code == 10)
            vertices_.push_back(it.place());
    vertices_.push_back(it.place());
    verticesVersion_ = tagVersion();
    return vertices_;
}

bool AcDbPolyline::isClosed() const {
    return (integerTag(kMarker, 70, 0) & kClosed) != 0;
}

Acad::ErrorStatus AcDbPolyline::setClosed(bool closed) {
    const std::int64_t flags = integerTag(kMarker, 70, 0);
    return setIntegerTag(kMarker, 70, closed ? flags | kClosed : flags & ~kClosed);
}

bool AcDbPolyline::hasPlinegen() const {
    return (integerTag(kMarker, 70, 0) & kAcross) != 0;
}

void AcDbPolyline::setPlinegen(bool across) {
    const std::int64_t flags = integerTag(kMarker, 70, 0);
    setIntegerTag(kMarker, 70, across ? flags | kAcross : flags & ~kAcross);
}

TagRange AcDbPolyline::vertexRange(unsigned int index) const {
    const std::vector<std::size_t>& places = vertices();
    if (index + std::size_t{1} >= places.size())
        return {places.back(), places.back()};
    return {places[index], places[index + std::size_t{1}]};
}

double AcDbPolyline::vertexReal(unsigned int index, int code) const {
    return tags().in(vertexRange(index)).real(code).value_or(0.0);
}

Acad::ErrorStatus AcDbPolyline::setVertexReals(unsigned int index,
                                               std::initializer_list<std::pair<int, double>> reals) {
    if (index >= numVerts())
        return Acad::eInvalidIndex;
    if (!std::all_of(reals.begin(), reals.end(), [](const auto& r) { return std::isfinite(r.second); }))
        return Acad::eInvalidInput;
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    for (const auto& [code, value] : reals) {
        TagList& records = changingTags();
        // The last vertex may be followed by records of the whole polyline, such as the extrusion.
        TagRange range = vertexRange(index);
        std::size_t last = range.first;
        while (last < range.last && records[last].code < 100 && records[last].code != 39)
            ++last;
        records.setReal(code, value, {range.first, last});
        vertices_.clear(); // a number that was missing has moved the vertices
    }
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::setHeadReal(int code, double value) {
    if (!std::isfinite(value))
        return Acad::eInvalidInput;
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    TagList& records = changingTags();
    const TagRange range = section(kMarker).range();
    const bool isThere = records.find(code, range) < range.last;
    records.setReal(code, value, isThere ? range : TagRange{range.first, vertices().front()});
    vertices_.clear(); // a number that was missing has moved them
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getPointAt(unsigned int index, AcGePoint2d& point) const {
    if (index == 0 && vertices_.empty())
        return readFirstPoint(section(kMarker), point);
    if (index >= numVerts())
        return Acad::eInvalidIndex;
    point = {vertexReal(index, 10), vertexReal(index, 20)};
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getPointAt(unsigned int index, AcGePoint3d& point) const {
    AcGePoint2d inPlane;
    const Acad::ErrorStatus status = getPointAt(index, inPlane);
    if (status == Acad::eOk)
        point = planeToWorld() * AcGePoint3d(inPlane.x, inPlane.y, elevation());
    return status;
}

Acad::ErrorStatus AcDbPolyline::setPointAt(unsigned int index, const AcGePoint2d& point) {
    return setVertexReals(index, {{10, point.x}, {20, point.y}});
}

Acad::ErrorStatus AcDbPolyline::getBulgeAt(unsigned int index, double& bulge) const {
    if (index >= numVerts())
        return Acad::eInvalidIndex;
    bulge = vertexReal(index, 42);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::setBulgeAt(unsigned int index, double bulge) {
    return setVertexReals(index, {{42, bulge}});
}

Acad::ErrorStatus AcDbPolyline::getWidthsAt(unsigned int index, double& start, double& end) const {
    if (index >= numVerts())
        return Acad::eInvalidIndex;
    const zuhost::TagView vertex = tags().in(vertexRange(index));
    const double whole = realTag(kMarker, 43, 0.0);
    start = vertex.real(40).value_or(whole);
    end = vertex.real(41).value_or(whole);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::setWidthsAt(unsigned int index, double start, double end) {
    if (!(start >= 0.0) || !(end >= 0.0))
        return Acad::eInvalidInput;
    return setVertexReals(index, {{40, start}, {41, end}});
}

Acad::ErrorStatus AcDbPolyline::addVertexAt(unsigned int index, const AcGePoint2d& point, double bulge,
                                            double startWidth, double endWidth, Adesk::Int32 /*identifier*/) {
    const unsigned int count = numVerts();
    if (index > count)
        return Acad::eInvalidIndex;
    for (const double value : {point.x, point.y, bulge, startWidth, endWidth})
        if (!std::isfinite(value))
            return Acad::eInvalidInput;
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    TagList vertex;
    const auto add = [&vertex](int code, double value) { vertex.setReal(code, value, vertex.all()); };
    add(10, point.x);
    add(20, point.y);
    if (startWidth >= 0.0)
        add(40, startWidth);
    if (endWidth >= 0.0)
        add(41, endWidth);
    if (bulge != 0.0)
        add(42, bulge);
    const std::size_t at = vertexRange(index).first;
    TagList& records = changingTags();
    const std::size_t added = vertex.size();
    records.insert(at, std::move(vertex));
    // Updates the index of the vertices: building it for each new one would take quadratic time.
    const auto next = vertices_.insert(vertices_.begin() + index, at) + 1;
    std::for_each(next, vertices_.end(), [added](std::size_t& place) { place += added; });
    verticesVersion_ = tagVersion();
    const std::size_t size = records.size();
    const Acad::ErrorStatus counted = setVertexCount(count + 1);
    // A number that was missing has moved the vertices.
    if (records.size() == size)
        verticesVersion_ = tagVersion();
    return counted;
}

Acad::ErrorStatus AcDbPolyline::setVertexCount(unsigned int count) {
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    const std::size_t end = vertices().front();
    TagList& records = changingTags();
    std::size_t first = 0;
    while (first < end && (records[first].code != 100 || records[first].value != kMarker))
        ++first;
    records.setInteger(90, count, {first, end});
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::removeVertexAt(unsigned int index) {
    const unsigned int count = numVerts();
    if (index >= count)
        return Acad::eInvalidIndex;
    if (count <= 2)
        return Acad::eDegenerateGeometry;
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    TagList& records = changingTags();
    records.eraseIf(vertexRange(index), isOfVertex);
    return setVertexCount(count - 1);
}

Acad::ErrorStatus AcDbPolyline::reset(bool reuse, unsigned int count) {
    const unsigned int kept = reuse ? std::min(count, numVerts()) : 0;
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    TagList& records = changingTags();
    const std::vector<std::size_t>& places = vertices();
    records.eraseIf({places[kept], places.back()}, isOfVertex);
    return setVertexCount(kept);
}

bool AcDbPolyline::hasBulges() const {
    for (unsigned int i = 0; i < numVerts(); ++i)
        if (vertexReal(i, 42) != 0.0)
            return true;
    return false;
}

bool AcDbPolyline::hasWidth() const {
    double width = 0.0;
    return getConstantWidth(width) != Acad::eOk || width != 0.0;
}

Acad::ErrorStatus AcDbPolyline::getConstantWidth(double& width) const {
    double start = realTag(kMarker, 43, 0.0);
    double end = start;
    double common = start;
    for (unsigned int i = 0; i < numVerts(); ++i) {
        getWidthsAt(i, start, end);
        if (i == 0)
            common = start;
        if (start != common || end != common)
            return Acad::eInvalidInput;
    }
    width = common;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::setConstantWidth(double width) {
    if (!(width >= 0.0))
        return Acad::eInvalidInput;
    const Acad::ErrorStatus status = setHeadReal(43, width);
    if (status == Acad::eOk)
        removeTags(kMarker, {40, 41});
    return status;
}

AcGeVector3d AcDbPolyline::normal() const {
    return normalTag(kMarker);
}
Acad::ErrorStatus AcDbPolyline::setNormal(const AcGeVector3d& normal) {
    return setNormalTag(kMarker, normal);
}
double AcDbPolyline::elevation() const {
    return realTag(kMarker, 38, 0.0);
}
Acad::ErrorStatus AcDbPolyline::setElevation(double elevation) {
    return setHeadReal(38, elevation);
}
double AcDbPolyline::thickness() const {
    return realTag(kMarker, 39, 0.0);
}
Acad::ErrorStatus AcDbPolyline::setThickness(double thickness) {
    return setHeadReal(39, thickness);
}

AcGeMatrix3d AcDbPolyline::planeToWorld() const {
    const AcGeVector3d up = normal();
    return up == AcGeVector3d::kZAxis ? AcGeMatrix3d() : AcGeMatrix3d::planeToWorld(up);
}

Acad::ErrorStatus AcDbPolyline::subTransformBy(const AcGeMatrix3d& matrix) {
    const auto change = zuhost::planeChange(matrix, normal());
    if (!change)
        return Acad::eCannotScaleNonUniformly;
    const AcGeMatrix3d toNew = change->coordinates(matrix, normal());
    const double before = elevation();
    double height = (toNew * AcGePoint3d(0, 0, before)).z;
    TagList& records = changingTags();
    const std::vector<std::size_t> places = vertices();
    // Backwards: a vertex that lacks a coordinate gets it, which moves the records after it.
    for (std::size_t v = places.size() - 1; v-- > 0;) {
        const TagRange vertex{places[v], places[v + 1]};
        const AcGePoint3d moved = toNew * AcGePoint3d(tags().in(vertex).real(10).value_or(0.0),
                                                      tags().in(vertex).real(20).value_or(0.0), before);
        height = moved.z;
        records.setReal(10, moved.x, vertex);
        records.setReal(20, moved.y, vertex);
        for (std::size_t i = vertex.first; i < vertex.last; ++i) {
            const int code = records[i].code;
            const double value = tags().in({i, i + 1}).real(code).value_or(0.0);
            if (code == 42 && change->isMirrored)
                records.setReal(code, -value, {i, i + 1});
            else if (code == 40 || code == 41)
                records.setReal(code, value * change->scale, {i, i + 1});
        }
    }
    changingTags();
    if (const double width = realTag(kMarker, 43, 0.0); width != 0.0)
        setHeadReal(43, width * change->scale);
    if (thickness() != 0.0)
        setThickness(thickness() * (matrix * normal()).length());
    if (change->normal != normal())
        setNormalTag(kMarker, change->normal);
    return height != before ? setElevation(height) : Acad::eOk;
}
