#include "plane_path.h"

#include "curve_piece.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <optional>

namespace zuhost {

namespace {

/// Fractions of a segment, and distances in proportion to its length, that count as none.
constexpr double kLeast = 1e-9;

struct Segment {
    AcGePoint2d from;
    AcGePoint2d to;
    PlaneVertex vertex;
};

AcGeVector2d turned(const AcGeVector2d& vector, double angle) {
    const double c = std::cos(angle);
    const double s = std::sin(angle);
    return {vector.x * c - vector.y * s, vector.x * s + vector.y * c};
}

/// Returns half the angle of the arc, positive counter-clockwise.
double halfAngle(double bulge) {
    return 2.0 * std::atan(bulge);
}

AcGePoint2d pointAt(const Segment& segment, double t) {
    const AcGeVector2d chord = segment.to - segment.from;
    if (t == 1.0)
        return segment.to;
    if (segment.vertex.bulge == 0.0)
        return segment.from + chord * t;
    const double half = halfAngle(segment.vertex.bulge);
    return segment.from + turned(chord, (t - 1.0) * half) * (std::sin(t * half) / std::sin(half));
}

Segment segmentAt(const PlanePath& path, std::size_t index) {
    const std::vector<PlaneVertex>& all = path.vertices;
    return {all[index].point, all[(index + 1) % all.size()].point, all[index]};
}

std::vector<Segment> segmentsOf(const PlanePath& path) {
    std::vector<Segment> segments;
    const std::size_t count = path.vertices.size();
    for (std::size_t i = 0; i < (path.isClosed || count == 0 ? count : count - 1); ++i)
        if (const Segment segment = segmentAt(path, i); segment.from != segment.to)
            segments.push_back(segment);
    return segments;
}

double snapped(double param) {
    const double whole = std::round(param);
    return std::abs(param - whole) <= kLeast ? whole : param;
}

/// Returns the segment moved to the right; nullopt for an arc that would have no radius left.
std::optional<Segment> moved(const Segment& segment, double distance) {
    const AcGeVector2d chord = segment.to - segment.from;
    const double half = halfAngle(segment.vertex.bulge);
    if (half != 0.0) {
        const double radius = chord.length() / (2.0 * std::sin(std::abs(half)));
        if (!(radius + (half > 0.0 ? distance : -distance) > kLeast * radius))
            return std::nullopt;
    }
    const AcGeVector2d right = AcGeVector2d(chord.y, -chord.x) * (distance / chord.length());
    return Segment{segment.from + turned(right, -half), segment.to + turned(right, half), segment.vertex};
}

double cross(const AcGeVector2d& a, const AcGeVector2d& b) {
    return a.x * b.y - a.y * b.x;
}

/// Makes the end of a segment and the start of the next one the same point: of straight ones the point in
/// which they meet.
bool join(Segment& segment, Segment& next) {
    const AcGeVector2d gap = next.from - segment.to;
    const AcGeVector2d a = segment.to - segment.from;
    const AcGeVector2d b = next.to - next.from;
    if (gap.length() <= kLeast * std::max({1.0, a.length(), b.length()})) {
        next.from = segment.to;
        return true;
    }
    const double sine = cross(a, b);
    if (segment.vertex.bulge != 0.0 || next.vertex.bulge != 0.0 ||
        std::abs(sine) <= kLeast * a.length() * b.length())
        return false;
    segment.to = segment.from + a * (cross(next.from - segment.from, b) / sine);
    next.from = segment.to;
    return true;
}

CurvePiece pieceOf(const Segment& segment) {
    return CurvePiece::bulged({segment.from.x, segment.from.y, 0.0}, {segment.to.x, segment.to.y, 0.0},
                              AcGeVector3d::kZAxis, segment.vertex.bulge, 0.0);
}

/// Returns whether segments that do not follow each other meet. Compares those whose extents overlap, in the
/// order of their least x.
bool crossesItself(const std::vector<Segment>& segments, bool isClosed) {
    std::vector<CurvePiece> pieces;
    std::vector<AcDbExtents> boxes(segments.size());
    for (std::size_t i = 0; i < segments.size(); ++i) {
        pieces.push_back(pieceOf(segments[i]));
        pieces.back().addTo(boxes[i]);
    }
    const auto areNeighbours = [&](std::size_t a, std::size_t b) {
        const std::size_t gap = a < b ? b - a : a - b;
        return gap == 1 || (isClosed && gap == segments.size() - 1);
    };
    std::vector<std::size_t> order(segments.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::ranges::sort(order, {}, [&](std::size_t i) { return boxes[i].minPoint().x; });
    std::vector<std::size_t> open;
    std::vector<AcGePoint3d> points;
    for (const std::size_t i : order) {
        std::erase_if(open, [&](std::size_t o) { return boxes[o].maxPoint().x < boxes[i].minPoint().x; });
        for (const std::size_t o : open) {
            const bool isApart = boxes[o].maxPoint().y < boxes[i].minPoint().y ||
                                 boxes[i].maxPoint().y < boxes[o].minPoint().y;
            if (isApart || areNeighbours(i, o))
                continue;
            intersect({pieces[i]}, false, {pieces[o]}, false, points);
            if (!points.empty())
                return true;
        }
        open.push_back(i);
    }
    return false;
}

} // namespace

PlanePath PlanePath::reversed() const {
    PlanePath path{{}, isClosed};
    const std::size_t count = vertices.size();
    for (std::size_t i = 0; i < count; ++i) {
        // A closed path keeps its start.
        const std::size_t vertex = isClosed ? (count - i) % count : count - 1 - i;
        const PlaneVertex& segment = vertices[(vertex + count - 1) % count];
        path.vertices.push_back({vertices[vertex].point, segment.bulge != 0.0 ? -segment.bulge : 0.0,
                                 segment.endWidth, segment.startWidth});
    }
    return path;
}

PlanePath PlanePath::part(double from, double to) const {
    PlanePath path;
    double at = snapped(from);
    const double end = snapped(to);
    while (at < end) {
        const double index = std::floor(at);
        const double next = std::min(index + 1.0, end);
        const Segment segment = segmentAt(*this, static_cast<std::size_t>(index));
        const double t0 = at - index;
        const double t1 = next - index;
        const auto width = [&v = segment.vertex](double t) { return std::lerp(v.startWidth, v.endWidth, t); };
        const double bulge = segment.vertex.bulge;
        path.vertices.push_back({pointAt(segment, t0),
                                 t1 - t0 == 1.0 ? bulge : std::tan((t1 - t0) * std::atan(bulge)), width(t0),
                                 width(t1)});
        if (next == end)
            path.vertices.push_back({pointAt(segment, t1), 0.0, width(t1), width(t1)});
        at = next;
    }
    return path;
}

Acad::ErrorStatus PlanePath::parallel(double distance, PlanePath& result) const {
    const std::vector<Segment> own = segmentsOf(*this);
    if (own.empty())
        return Acad::eDegenerateGeometry;
    std::vector<Segment> segments;
    for (const Segment& segment : own) {
        const auto placed = moved(segment, distance);
        if (!placed)
            return Acad::eNotImplementedYet;
        segments.push_back(*placed);
    }
    for (std::size_t i = 0; i + 1 < segments.size(); ++i)
        if (!join(segments[i], segments[i + 1]))
            return Acad::eNotImplementedYet;
    if (isClosed && !join(segments.back(), segments.front()))
        return Acad::eNotImplementedYet;
    for (std::size_t i = 0; i < own.size(); ++i)
        if (!((segments[i].to - segments[i].from).dotProduct(own[i].to - own[i].from) > 0.0))
            return Acad::eNotImplementedYet;
    if (crossesItself(segments, isClosed))
        return Acad::eNotImplementedYet;
    result = {{}, isClosed};
    for (const Segment& segment : segments) {
        result.vertices.push_back(segment.vertex);
        result.vertices.back().point = segment.from;
    }
    if (!isClosed)
        result.vertices.push_back(
            {segments.back().to, 0.0, vertices.back().startWidth, vertices.back().endWidth});
    return Acad::eOk;
}

} // namespace zuhost
