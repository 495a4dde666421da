#include "shapes/builders.h"
#include "shapes/curve_path.h"
#include "shapes/hatch_lines.h"

#include <zuhost/spline_points.h>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace zu::picture {

using zuhost::fitCurve;
using zuhost::Nurbs;
using zuhost::nurbsPoints;

namespace {

constexpr double kDegree = std::numbers::pi / 180.0;
constexpr int kExternal = 1;
constexpr int kPolyline = 2;
constexpr int kOutermost = 16;
constexpr int kPerSpan = 12;

struct Boundary {
    int flags = 0;
    QPainterPath path;
};

QPointF flat(const AcGePoint3d& point) {
    return {point.x, point.y};
}

/// Reads the boundary paths of a hatch in the order of its records.
class BoundaryReader {
public:
    explicit BoundaryReader(const Records& records) : records_(records), at_(records.position(91)) {}

    std::vector<Boundary> run() {
        std::vector<Boundary> found;
        at_ = records_.position(92, at_);
        while (at_ < records_.size() && records_.code(at_) == 92)
            found.push_back(readBoundary());
        return found;
    }

    /// The records after the boundaries.
    [[nodiscard]] std::size_t end() const { return at_; }

private:
    [[nodiscard]] bool isAt(int code) const { return at_ < records_.size() && records_.code(at_) == code; }
    /// A path ends where the next one or the pattern begins.
    [[nodiscard]] bool isInPath() const {
        return at_ < records_.size() && !isAt(92) && !isAt(75) && !isAt(76) && !isAt(98);
    }

    Boundary readBoundary() {
        Boundary boundary{records_.integerAt(at_++), {}};
        boundary.path = (boundary.flags & kPolyline) != 0 ? readPolyline() : readEdges();
        boundary.path.closeSubpath();
        while (isInPath())
            ++at_;
        return boundary;
    }

    QPainterPath readPolyline() {
        std::vector<Vertex> vertices;
        for (; isInPath() && !isAt(97); ++at_) {
            if (isAt(10))
                vertices.push_back({flat(records_.pointAt(at_))});
            else if (isAt(42) && !vertices.empty())
                vertices.back().bulge = records_.realAt(at_);
        }
        return polylinePath(vertices, true);
    }

    QPainterPath readEdges() {
        std::vector<QPainterPath> edges;
        while (isInPath() && !isAt(72) && !isAt(97))
            ++at_;
        while (isAt(72)) {
            const int type = records_.integerAt(at_++);
            const std::size_t first = at_;
            while (isInPath() && !isAt(72) && !(isAt(97) && !isFitCount()))
                ++at_;
            if (QPainterPath edge = edgeOf(type, records_.part(first, at_)); !edge.isEmpty())
                edges.push_back(std::move(edge));
        }
        return joined(edges);
    }

    /// Edges follow each other, but any can run backwards.
    static QPainterPath joined(std::vector<QPainterPath>& edges) {
        if (edges.empty())
            return {};
        if (edges.size() > 1 &&
            reach(startOf(edges[0]), edges[1]) < reach(edges[0].currentPosition(), edges[1]))
            edges[0] = edges[0].toReversed();
        QPainterPath path = edges[0];
        for (std::size_t i = 1; i < edges.size(); ++i) {
            const QPointF end = path.currentPosition();
            const bool isBackwards =
                distance(end, edges[i].currentPosition()) < distance(end, startOf(edges[i]));
            path.connectPath(isBackwards ? edges[i].toReversed() : edges[i]);
        }
        return path;
    }

    static QPointF startOf(const QPainterPath& path) { return path.elementAt(0); }
    static double distance(QPointF a, QPointF b) { return std::hypot(a.x() - b.x(), a.y() - b.y()); }
    /// From a point to the nearer end of an edge.
    static double reach(QPointF from, const QPainterPath& edge) {
        return std::min(distance(from, startOf(edge)), distance(from, edge.currentPosition()));
    }

    /// The number of source objects, with which a path ends, has the same code.
    [[nodiscard]] bool isFitCount() const {
        const int next = at_ + 1 < records_.size() ? records_.code(at_ + 1) : 0;
        return next == 11 || next == 12 || next == 72 || next == 97;
    }

    static QPainterPath edgeOf(int type, const Records& edge) {
        switch (type) {
        case 1: {
            QPainterPath path(flat(edge.point(10)));
            path.lineTo(flat(edge.point(11)));
            return path;
        }
        case 2: {
            const double radius = edge.real(40);
            return arcOf(edge, {radius, 0.0}, {0.0, radius});
        }
        case 3: {
            const QPointF major = flat(edge.point(11));
            const double ratio = edge.real(40, 1.0);
            return arcOf(edge, major, QPointF(-major.y(), major.x()) * ratio);
        }
        case 4:
            return splineOf(edge);
        default:
            return {};
        }
    }

    /// Clockwise arcs have the angles of their mirror image.
    static QPainterPath arcOf(const Records& edge, QPointF u, QPointF v) {
        const double start = std::fmod(edge.real(50), 360.0) * kDegree;
        const double end = std::fmod(edge.real(51, 360.0), 360.0) * kDegree;
        const double sweep = sweepFrom(start, end);
        const double sense = edge.integer(73, 1) != 0 ? 1.0 : -1.0;
        QPainterPath path;
        addArc(path, flat(edge.point(10)), u, v, sense * start, sense * sweep, true);
        return path;
    }

    static QPainterPath splineOf(const Records& edge) {
        const Nurbs curve{edge.integer(94, 3), edge.reals(40), edge.reals(42), edge.points(10)};
        std::vector<AcGePoint3d> points = nurbsPoints(curve, kPerSpan);
        if (points.empty())
            points = fitCurve(edge.points(11), false, {}, {}, kPerSpan);
        QPainterPath path;
        for (const AcGePoint3d& point : points)
            if (path.elementCount() == 0)
                path.moveTo(flat(point));
            else
                path.lineTo(flat(point));
        return path;
    }

    const Records& records_;
    std::size_t at_;
};

/// The area by the hatch style: all paths alternating, the outer ones, or the outermost alone.
QPainterPath areaOf(const std::vector<Boundary>& boundaries, int style) {
    const int wanted = style == 2 ? kExternal : kExternal | kOutermost;
    const bool filters =
        style != 0 && std::any_of(boundaries.begin(), boundaries.end(),
                                  [&](const Boundary& b) { return (b.flags & wanted) != 0; });
    QPainterPath area;
    area.setFillRule(Qt::OddEvenFill);
    for (const Boundary& boundary : boundaries)
        if (!filters || (boundary.flags & wanted) != 0)
            area.addPath(boundary.path);
    return area;
}

std::vector<PatternLine> patternOf(const Records& records) {
    std::vector<PatternLine> lines;
    for (std::size_t i = records.position(78); i < records.size(); ++i) {
        const int code = records.code(i);
        if (code == 53)
            lines.push_back({std::fmod(records.realAt(i), 360.0) * kDegree, {}, {}, {}});
        if (lines.empty())
            continue;
        if (code == 43)
            lines.back().base.setX(records.realAt(i));
        else if (code == 44)
            lines.back().base.setY(records.realAt(i));
        else if (code == 45)
            lines.back().offset.setX(records.realAt(i));
        else if (code == 46)
            lines.back().offset.setY(records.realAt(i));
        else if (code == 49)
            lines.back().dashes.push_back(records.realAt(i));
    }
    return lines;
}

Outcome drawPattern(Canvas& canvas, const Entity& entity, const QPainterPath& area, const QTransform& toWorld,
                    const std::vector<PatternLine>& pattern) {
    const auto take = [&](std::uint64_t work) { return canvas.take(work); };
    const auto draw = [&](const QPainterPath& path) { canvas.stroke(entity, path, toWorld); };
    for (const PatternLine& line : pattern) {
        const HatchResult result = hatchLines(area, line, take, draw);
        if (result == HatchResult::tooDense) {
            canvas.stroke(entity, area, toWorld);
            return "its pattern is too dense: only its border is drawn";
        }
        if (result == HatchResult::stopped)
            return kDrawn;
    }
    return kDrawn;
}

/// A gradient is filled with its first colour.
void setGradientColour(Entity& entity) {
    if (entity.records.integer(450) == 0)
        return;
    const std::size_t first = entity.records.position(421);
    if (first < entity.records.size())
        entity.look.colour.rgb = static_cast<std::uint32_t>(entity.records.integerAt(first)) & 0xFFFFFFU;
}

} // namespace

/// HATCH and MPOLYGON.
Outcome buildHatch(Canvas& canvas, const Entity& entity) {
    if (!canvas.take(entity.records.size()))
        return kDrawn;
    BoundaryReader reader(entity.records);
    const std::vector<Boundary> boundaries = reader.run();
    const Records rest = entity.records.part(reader.end(), entity.records.size());
    const QPainterPath area = areaOf(boundaries, rest.integer(75));
    if (area.isEmpty())
        return "it has no border";
    const QTransform toWorld = canvas.planeOf(entity, entity.records.point(10).z);
    if (entity.type == "MPOLYGON")
        canvas.stroke(entity, area, toWorld);
    Entity own = entity;
    own.look.linetype = nullptr;
    if (entity.records.integer(70) != 0) {
        setGradientColour(own);
        canvas.fill(own, area, toWorld);
        return kDrawn;
    }
    const std::vector<PatternLine> pattern = patternOf(rest);
    if (pattern.empty() && entity.type == "HATCH")
        return "it has no pattern lines";
    return drawPattern(canvas, own, area, toWorld, pattern);
}

} // namespace zu::picture
