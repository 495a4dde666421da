#include "shapes/builders.h"
#include "shapes/curve_path.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <limits>

namespace zu::picture {

namespace {

constexpr int kClosed = 1;

/// The segments that have no width.
QPainterPath thinSegments(std::span<const Vertex> vertices, bool closed) {
    QPainterPath path;
    for (std::size_t i = 0; i + (closed ? 0 : 1) < vertices.size(); ++i) {
        if (vertices[i].startWidth > 0.0 || vertices[i].endWidth > 0.0)
            continue;
        path.moveTo(vertices[i].place);
        addBulge(path, vertices[(i + 1) % vertices.size()].place, vertices[i].bulge);
    }
    return path;
}

void drawWideSegments(Canvas& canvas, const Entity& entity, std::span<const Vertex> vertices, bool closed,
                      const QTransform& toWorld) {
    const bool fills = canvas.drawing().variable("$FILLMODE").integer(70, 1) != 0;
    const QPainterPath areas = wideSegments(vertices, closed);
    if (fills)
        canvas.fill(entity, areas, toWorld);
    else
        canvas.stroke(entity, areas, toWorld);
}

/// A painter's time grows with the square of the areas in a path: those of long polylines are several paths.
void drawWide(Canvas& canvas, const Entity& entity, std::span<const Vertex> vertices, bool closed,
              const QTransform& toWorld) {
    constexpr std::size_t kMost = 500;
    if (vertices.size() <= kMost) {
        drawWideSegments(canvas, entity, vertices, closed, toWorld);
        return;
    }
    for (std::size_t first = 0; first + 1 < vertices.size() && !canvas.isStopped(); first += kMost)
        drawWideSegments(canvas, entity,
                         vertices.subspan(first).first(std::min(kMost + 1, vertices.size() - first)), false,
                         toWorld);
    if (closed)
        drawWideSegments(canvas, entity, std::array{vertices.back(), vertices.front()}, false, toWorld);
}

Outcome drawVertices(Canvas& canvas, const Entity& entity, std::span<const Vertex> vertices, bool closed,
                     double elevation) {
    if (vertices.empty())
        return "it has no vertices";
    const QTransform toWorld = canvas.planeOf(entity, elevation);
    const bool isWide = std::any_of(vertices.begin(), vertices.end(),
                                    [](const Vertex& v) { return v.startWidth > 0.0 || v.endWidth > 0.0; });
    if (!isWide) {
        canvas.stroke(entity, polylinePath(vertices, closed), toWorld);
        return kDrawn;
    }
    drawWide(canvas, entity, vertices, closed, toWorld);
    canvas.stroke(entity, thinSegments(vertices, closed), toWorld);
    return kDrawn;
}

} // namespace

Outcome buildLightPolyline(Canvas& canvas, const Entity& entity) {
    const Records& records = entity.records;
    const double width = records.real(43);
    std::vector<Vertex> vertices;
    for (std::size_t i = 0; i < records.size(); ++i) {
        const int code = records.code(i);
        if (code == 10) {
            const AcGePoint3d place = records.pointAt(i);
            vertices.push_back({{place.x, place.y}, 0.0, width, width});
        } else if (!vertices.empty() && code == 40) {
            vertices.back().startWidth = records.realAt(i);
        } else if (!vertices.empty() && code == 41) {
            vertices.back().endWidth = records.realAt(i);
        } else if (!vertices.empty() && code == 42) {
            vertices.back().bulge = records.realAt(i);
        }
    }
    return drawVertices(canvas, entity, vertices, (records.integer(70) & kClosed) != 0, records.real(38));
}

namespace {

constexpr int kSpline = 4;
constexpr int kThreeDimensional = 8;
constexpr int kMesh = 16;
constexpr int kClosedAcross = 32;
constexpr int kPolyface = 64;
constexpr int kFramePoint = 16; ///< Of a vertex: a control point of a smooth curve.
constexpr int kPolyfaceVertex = 64;
constexpr int kPolyfacePart = 128;

/// The vertices of a polyline without the control points of a smoothed one.
std::vector<Records> shownVertices(Canvas& canvas, const Entity& entity, int flags) {
    std::vector<Records> all;
    std::vector<Records> shown;
    const ObjectRange parts = canvas.drawing().partsOf(entity.index);
    for (std::size_t i = parts.first; i < parts.last; ++i) {
        all.push_back(canvas.drawing().records(i));
        const bool isFrame = (all.back().integer(70) & kFramePoint) != 0;
        if (!isFrame)
            shown.push_back(all.back());
    }
    const bool isSmooth = (flags & kSpline) != 0;
    return isSmooth && !shown.empty() ? shown : all;
}

Outcome drawMesh(Canvas& canvas, const Entity& entity, const std::vector<Records>& vertices, int flags) {
    const bool isSmooth = (flags & kSpline) != 0;
    const auto size = [&](int plain, int smooth) {
        const int value = entity.records.integer(isSmooth ? smooth : plain);
        return static_cast<std::size_t>(std::clamp(value, 0, 32'767));
    };
    const std::size_t rows = size(71, 73);
    const std::size_t columns = size(72, 74);
    if (rows == 0 || columns == 0 || vertices.size() < rows * columns)
        return "its mesh lacks vertices";
    std::vector<AcGePoint3d> points;
    points.reserve(rows * columns);
    for (std::size_t i = 0; i < rows * columns; ++i)
        points.push_back(vertices[i].point(10));
    for (std::size_t row = 0; row < rows; ++row) {
        const auto first = points.begin() + static_cast<std::ptrdiff_t>(row * columns);
        canvas.stroke(entity, {first, first + static_cast<std::ptrdiff_t>(columns)},
                      (flags & kClosedAcross) != 0);
    }
    for (std::size_t column = 0; column < columns; ++column) {
        std::vector<AcGePoint3d> line;
        for (std::size_t row = 0; row < rows; ++row)
            line.push_back(points[row * columns + column]);
        canvas.stroke(entity, line, (flags & kClosed) != 0);
    }
    return kDrawn;
}

/// A polyface mesh: positions, then faces that name them; a negative number hides the edge from there.
Outcome drawFaces(Canvas& canvas, const Entity& entity, const std::vector<Records>& vertices) {
    std::vector<AcGePoint3d> points;
    for (const Records& vertex : vertices)
        if ((vertex.integer(70) & kPolyfaceVertex) != 0)
            points.push_back(vertex.point(10));
    const auto isPoint = [&](int number) {
        return number >= 1 && static_cast<std::size_t>(number) <= points.size();
    };
    for (const Records& vertex : vertices) {
        if ((vertex.integer(70) & (kPolyfacePart | kPolyfaceVertex)) != kPolyfacePart)
            continue;
        std::vector<int> corners;
        for (const int code : {71, 72, 73, 74})
            if (const int number = std::clamp(vertex.integer(code), -1'000'000, 1'000'000);
                isPoint(std::abs(number)))
                corners.push_back(number);
        for (std::size_t i = 0; i < corners.size(); ++i)
            if (corners[i] > 0)
                canvas.line(
                    entity, points[static_cast<std::size_t>(corners[i]) - 1],
                    points[static_cast<std::size_t>(std::abs(corners[(i + 1) % corners.size()])) - 1]);
    }
    return points.empty() ? "it has no vertices" : kDrawn;
}

} // namespace

Outcome buildPolyline(Canvas& canvas, const Entity& entity) {
    const int flags = entity.records.integer(70);
    const std::vector<Records> vertices = shownVertices(canvas, entity, flags);
    if (!canvas.take(vertices.size()))
        return kDrawn;
    if ((flags & kMesh) != 0)
        return drawMesh(canvas, entity, vertices, flags);
    if ((flags & kPolyface) != 0)
        return drawFaces(canvas, entity, vertices);
    const bool closed = (flags & kClosed) != 0;
    if ((flags & kThreeDimensional) != 0) {
        std::vector<AcGePoint3d> points;
        points.reserve(vertices.size());
        for (const Records& vertex : vertices)
            points.push_back(vertex.point(10));
        canvas.stroke(entity, points, closed);
        return points.empty() ? "it has no vertices" : kDrawn;
    }
    const double startWidth = entity.records.real(40);
    const double endWidth = entity.records.real(41);
    std::vector<Vertex> corners;
    corners.reserve(vertices.size());
    for (const Records& vertex : vertices) {
        const AcGePoint3d place = vertex.point(10);
        corners.push_back(
            {{place.x, place.y}, vertex.real(42), vertex.real(40, startWidth), vertex.real(41, endWidth)});
    }
    return drawVertices(canvas, entity, corners, closed, entity.records.point(10).z);
}

/// MESH: the edges of the faces of its coarsest level.
Outcome buildMesh(Canvas& canvas, const Entity& entity) {
    const Records& records = entity.records;
    const std::vector<AcGePoint3d> points = records.points(10);
    const std::size_t first = records.position(93) + 1;
    const std::size_t last = records.position(94, first);
    for (std::size_t i = first; i < last;) {
        std::vector<AcGePoint3d> face;
        const auto count = static_cast<std::size_t>(std::max(0, records.integerAt(i++)));
        for (std::size_t k = 0; k < count && i < last; ++k, ++i)
            if (const int at = records.integerAt(i, -1);
                at >= 0 && static_cast<std::size_t>(at) < points.size())
                face.push_back(points[static_cast<std::size_t>(at)]);
        canvas.stroke(entity, face, true);
    }
    return points.empty() || first >= last ? "it has no faces" : kDrawn;
}

} // namespace zu::picture
