#include "outline.h"

#include "dbents.h"
#include "dbobjptr.h"
#include "dbsymtb.h"
#include "record_outline.h"
#include "zuhost/curve_points.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>

namespace zuhost {

namespace {

constexpr int kChordsPerTurn = 96;
constexpr int kDeepest = 16;
/// Limits what nested blocks expand to, which grows exponentially.
constexpr std::size_t kMostPaths = 200'000;
constexpr double kLetterWidth = 0.6; ///< Of the text's height, on average.

class OutlineBuilder {
public:
    void add(const AcDbEntity& entity, const AcGeMatrix3d& transform, int depth);

    std::vector<Path> paths;

private:
    void addPath(const std::vector<AcGePoint3d>& points, const AcGeMatrix3d& transform);
    void addCurve(const AcDbCurve& curve, const AcGeMatrix3d& transform);
    void addFrame(const AcGePoint3d& corner, double width, double height, double rotation,
                  const AcGeMatrix3d& transform);
    void addReference(const AcDbBlockReference& reference, const AcGeMatrix3d& transform, int depth);
    /// Returns false for a block that can't be read.
    bool addBlock(AcDbObjectId id, const AcGeMatrix3d& transform, int depth);
    void addRecords(const AcDbEntity& entity, const AcGeMatrix3d& transform, int depth);
};

void OutlineBuilder::addPath(const std::vector<AcGePoint3d>& points, const AcGeMatrix3d& transform) {
    Path path;
    for (const AcGePoint3d& point : points) {
        const AcGePoint3d placed = transform * point;
        path.emplace_back(placed.x, placed.y);
    }
    if (!path.empty() && paths.size() < kMostPaths)
        paths.push_back(std::move(path));
}

void OutlineBuilder::addCurve(const AcDbCurve& curve, const AcGeMatrix3d& transform) {
    std::vector<AcGePoint3d> points = curvePoints(curve, kChordsPerTurn);
    const auto* const polyline = AcDbPolyline::cast(&curve);
    AcGePoint3d only;
    if (points.empty() && polyline != nullptr && polyline->getPointAt(0, only) == Acad::eOk)
        points.push_back(only);
    addPath(points, transform);
}

void OutlineBuilder::addFrame(const AcGePoint3d& corner, double width, double height, double rotation,
                              const AcGeMatrix3d& transform) {
    const AcGeVector3d along(std::cos(rotation), std::sin(rotation), 0.0);
    const AcGeVector3d up(-along.y, along.x, 0.0);
    addPath(
        {corner, corner + along * width, corner + along * width + up * height, corner + up * height, corner},
        transform);
}

void OutlineBuilder::addReference(const AcDbBlockReference& reference, const AcGeMatrix3d& transform,
                                  int depth) {
    if (!addBlock(reference.blockTableRecord(), transform * reference.blockTransform(), depth))
        addPath({reference.position()}, transform);
}

bool OutlineBuilder::addBlock(AcDbObjectId id, const AcGeMatrix3d& transform, int depth) {
    const AcDbObjectPointer<AcDbBlockTableRecord> block(id);
    AcDbBlockTableRecordIterator* made = nullptr;
    if (block.openStatus() != Acad::eOk || depth >= kDeepest || block->newIterator(made) != Acad::eOk)
        return false;
    const std::unique_ptr<AcDbBlockTableRecordIterator> entities(made);
    const AcGeMatrix3d inner = transform * AcGeMatrix3d::translation(-block->origin().asVector());
    for (; !entities->done() && paths.size() < kMostPaths; entities->step()) {
        AcDbObjectId content;
        entities->getEntityId(content);
        const AcDbObjectPointer<AcDbEntity> entity(content);
        if (entity.openStatus() == Acad::eOk)
            add(*entity.object(), inner, depth + 1);
    }
    return true;
}

void OutlineBuilder::addRecords(const AcDbEntity& entity, const AcGeMatrix3d& transform, int depth) {
    const RecordOutline found = recordOutline(entity, kChordsPerTurn);
    for (const std::vector<AcGePoint3d>& path : found.paths)
        addPath(path, transform);
    if (found.block.empty())
        return;
    const AcDbObjectPointer<AcDbBlockTable> table(entity.database()->blockTableId());
    AcDbObjectId block;
    if (table.openStatus() == Acad::eOk && table->getAt(found.block.c_str(), block) == Acad::eOk)
        addBlock(block, transform, depth);
}

double textWidth(const AcDbText& text) {
    AcString string;
    text.textString(string);
    return static_cast<double>(string.length()) * text.height() * kLetterWidth * text.widthFactor();
}

void OutlineBuilder::add(const AcDbEntity& entity, const AcGeMatrix3d& transform, int depth) {
    if (const auto* const curve = AcDbCurve::cast(&entity))
        addCurve(*curve, transform);
    else if (const auto* const point = AcDbPoint::cast(&entity))
        addPath({point->position()}, transform);
    else if (const auto* const text = AcDbText::cast(&entity))
        addFrame(text->position(), textWidth(*text), text->height(), text->rotation(), transform);
    else if (const auto* const paragraph = AcDbMText::cast(&entity))
        addPath({paragraph->location()}, transform);
    else if (const auto* const reference = AcDbBlockReference::cast(&entity))
        addReference(*reference, transform, depth);
    else if (entity.isA() == AcDbEntity::desc())
        addRecords(entity, transform, depth);
}

double cross(const AcGeVector2d& a, const AcGeVector2d& b) {
    return a.x * b.y - a.y * b.x;
}

bool segmentsMeet(const AcGePoint2d& a, const AcGePoint2d& b, const AcGePoint2d& c, const AcGePoint2d& d) {
    const auto overlap = [](double p, double q, double r, double s) {
        return std::max(p, q) >= std::min(r, s) && std::max(r, s) >= std::min(p, q);
    };
    if (!overlap(a.x, b.x, c.x, d.x) || !overlap(a.y, b.y, c.y, d.y))
        return false;
    return cross(b - a, c - a) * cross(b - a, d - a) <= 0.0 &&
           cross(d - c, a - c) * cross(d - c, b - c) <= 0.0;
}

/// Calls `test` with each segment of the path, a point as one of no length; returns whether any is true.
template <typename Test>
bool anySegment(const Path& path, Test test) {
    if (path.size() == 1)
        return test(path[0], path[0]);
    for (std::size_t i = 1; i < path.size(); ++i)
        if (test(path[i - 1], path[i]))
            return true;
    return false;
}

bool contains(const Path& polygon, const AcGePoint2d& p) {
    bool inside = false;
    for (std::size_t i = 0, j = polygon.size() - 1; i < polygon.size(); j = i++) {
        const AcGePoint2d& a = polygon[i];
        const AcGePoint2d& b = polygon[j];
        if (segmentsMeet(a, b, p, p))
            return true;
        if ((a.y > p.y) != (b.y > p.y) && p.x < (b.x - a.x) * (p.y - a.y) / (b.y - a.y) + a.x)
            inside = !inside;
    }
    return inside;
}

/// Returns whether the segment crosses from one side of the polygon to the other.
bool leaves(const AcGePoint2d& a, const AcGePoint2d& b, const Path& polygon) {
    for (std::size_t i = 0, j = polygon.size() - 1; i < polygon.size(); j = i++)
        if (cross(b - a, polygon[i] - a) * cross(b - a, polygon[j] - a) < 0.0 &&
            cross(polygon[i] - polygon[j], a - polygon[j]) * cross(polygon[i] - polygon[j], b - polygon[j]) <
                0.0)
            return true;
    return false;
}

double distanceToSegment(const AcGePoint2d& p, const AcGePoint2d& a, const AcGePoint2d& b) {
    const AcGeVector2d along = b - a;
    const double size = along.x * along.x + along.y * along.y;
    const AcGeVector2d offset = p - a;
    const double at =
        size > 0.0 ? std::clamp((offset.x * along.x + offset.y * along.y) / size, 0.0, 1.0) : 0.0;
    return p.distanceTo(a + along * at);
}

} // namespace

std::vector<Path> outline(const AcDbEntity& entity) {
    OutlineBuilder builder;
    builder.add(entity, AcGeMatrix3d::kIdentity, 0);
    return std::move(builder.paths);
}

bool isWithin(const std::vector<Path>& paths, const Path& polygon) {
    return !paths.empty() && std::none_of(paths.begin(), paths.end(), [&](const Path& path) {
        return anySegment(path, [&](const AcGePoint2d& a, const AcGePoint2d& b) {
            return !contains(polygon, a) || !contains(polygon, b) || leaves(a, b, polygon);
        });
    });
}

bool isWithinOrCrosses(const std::vector<Path>& paths, const Path& polygon) {
    Path boundary = polygon;
    boundary.push_back(polygon.front());
    return crosses(paths, boundary) || std::any_of(paths.begin(), paths.end(), [&](const Path& path) {
               return contains(polygon, path.front());
           });
}

bool crosses(const std::vector<Path>& paths, const Path& line) {
    return std::any_of(paths.begin(), paths.end(), [&](const Path& path) {
        return anySegment(path, [&](const AcGePoint2d& a, const AcGePoint2d& b) {
            return anySegment(
                line, [&](const AcGePoint2d& c, const AcGePoint2d& d) { return segmentsMeet(a, b, c, d); });
        });
    });
}

double distanceTo(const std::vector<Path>& paths, const AcGePoint2d& point) {
    double nearest = std::numeric_limits<double>::infinity();
    for (const Path& path : paths)
        anySegment(path, [&](const AcGePoint2d& a, const AcGePoint2d& b) {
            nearest = std::min(nearest, distanceToSegment(point, a, b));
            return false;
        });
    return nearest;
}

} // namespace zuhost
