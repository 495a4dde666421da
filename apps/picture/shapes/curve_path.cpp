#include "shapes/curve_path.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace zu::picture {

namespace {

constexpr double kTurn = 2.0 * std::numbers::pi;
constexpr double kStraight = 1e-6;

double lengthOf(QPointF vector) {
    return std::hypot(vector.x(), vector.y());
}

QPointF rotated(QPointF direction, double angle) {
    const double cosine = std::cos(angle);
    const double sine = std::sin(angle);
    return {direction.x() * cosine - direction.y() * sine, direction.x() * sine + direction.y() * cosine};
}

} // namespace

double sweepFrom(double start, double end) {
    const double sweep = std::fmod(end - start, kTurn);
    if (!std::isfinite(sweep))
        return kTurn;
    return sweep > 1e-12 ? sweep : sweep + kTurn;
}

void addArc(QPainterPath& path, QPointF centre, QPointF u, QPointF v, double start, double sweep,
            bool moves) {
    constexpr double kLargestPiece = std::numbers::pi / 2.0;
    const double turn = std::clamp(sweep, -kTurn, kTurn);
    const int pieces = std::max(1, static_cast<int>(std::ceil(std::abs(turn) / kLargestPiece - 1e-9)));
    const double step = turn / pieces;
    const double handle = 4.0 / 3.0 * std::tan(step / 4.0);
    const double from = std::fmod(start, kTurn);
    double cosine = std::cos(from);
    double sine = std::sin(from);
    if (moves)
        path.moveTo(centre + u * cosine + v * sine);
    for (int i = 1; i <= pieces; ++i) {
        const double nextCosine = std::cos(from + step * i);
        const double nextSine = std::sin(from + step * i);
        path.cubicTo(centre + u * (cosine - handle * sine) + v * (sine + handle * cosine),
                     centre + u * (nextCosine + handle * nextSine) + v * (nextSine - handle * nextCosine),
                     centre + u * nextCosine + v * nextSine);
        cosine = nextCosine;
        sine = nextSine;
    }
}

void addBulge(QPainterPath& path, QPointF to, double bulge) {
    const QPointF from = path.currentPosition();
    const QPointF chord = to - from;
    if (std::abs(bulge) < kStraight || std::abs(bulge) > 1.0 / kStraight || !(lengthOf(chord) > 0.0)) {
        path.lineTo(to);
        return;
    }
    const double angle = 4.0 * std::atan(bulge);
    // From the middle of the chord to the centre, in chords; to the left for a flat counter-clockwise arc.
    const double offset = (1.0 - bulge * bulge) / (4.0 * bulge);
    const QPointF centre = (from + to) / 2.0 + QPointF(-chord.y(), chord.x()) * offset;
    const QPointF u = from - centre;
    addArc(path, centre, u, {-u.y(), u.x()}, 0.0, angle, false);
}

QPainterPath polylinePath(std::span<const Vertex> vertices, bool closed) {
    QPainterPath path;
    if (vertices.empty())
        return path;
    path.moveTo(vertices.front().place);
    for (std::size_t i = 1; i < vertices.size(); ++i)
        addBulge(path, vertices[i].place, vertices[i - 1].bulge);
    if (closed) {
        addBulge(path, vertices.front().place, vertices.back().bulge);
        path.closeSubpath();
    }
    return path;
}

namespace {

/// A place on a wide segment and the direction to its left.
struct Station {
    QPointF place;
    QPointF left;
};

/// A segment from its start (0) to its end (1).
class Segment {
public:
    Segment(const Vertex& from, const Vertex& to)
        : start_(from.place), chord_(to.place - from.place), length_(lengthOf(chord_)),
          angle_(4.0 * std::atan(from.bulge)) {}

    [[nodiscard]] bool hasLength() const { return length_ > 0.0 && std::isfinite(length_); }
    [[nodiscard]] int chords() const {
        constexpr double kChord = std::numbers::pi / 36.0;
        return static_cast<int>(std::abs(angle_) / kChord) + 1;
    }

    /// On an arc the chord to a place is turned, and shorter than the whole one by the sines of the angles.
    [[nodiscard]] Station at(double part) const {
        const QPointF along = chord_ / length_;
        const double turned = (part - 1.0) * angle_ / 2.0;
        const double reach = std::abs(angle_) < kStraight
                                 ? length_ * part
                                 : length_ * std::sin(part * angle_ / 2.0) / std::sin(angle_ / 2.0);
        const QPointF forward = rotated(along, (part - 0.5) * angle_);
        return {start_ + rotated(along, turned) * reach, {-forward.y(), forward.x()}};
    }

private:
    QPointF start_;
    QPointF chord_;
    double length_;
    double angle_; ///< That the segment turns by, counter-clockwise.
};

QPolygonF areaOf(const Segment& segment, const Vertex& from) {
    const qsizetype chords = segment.chords();
    QPolygonF area(2 * (chords + 1));
    for (qsizetype i = 0; i <= chords; ++i) {
        const double part = static_cast<double>(i) / static_cast<double>(chords);
        const Station station = segment.at(part);
        const QPointF aside = station.left * (std::lerp(from.startWidth, from.endWidth, part) / 2.0);
        area[i] = station.place + aside;
        area[2 * chords + 1 - i] = station.place - aside;
    }
    return area;
}

} // namespace

QPainterPath wideSegments(std::span<const Vertex> vertices, bool closed) {
    QPainterPath areas;
    for (std::size_t i = 0; i < vertices.size(); ++i) {
        const bool isLast = i + 1 == vertices.size();
        const bool isWide = vertices[i].startWidth > 0.0 || vertices[i].endWidth > 0.0;
        const Segment segment(vertices[i], vertices[isLast ? 0 : i + 1]);
        if (!isWide || (isLast && !closed) || !segment.hasLength())
            continue;
        areas.addPolygon(areaOf(segment, vertices[i]));
        areas.closeSubpath();
    }
    areas.setFillRule(Qt::WindingFill); // segments overlap where they meet
    return areas;
}

namespace {

bool isValid(const Nurbs& curve) {
    constexpr int kHighestDegree = 20;
    const std::size_t count = curve.points.size();
    if (curve.degree < 1 || curve.degree > kHighestDegree || count <= static_cast<std::size_t>(curve.degree))
        return false;
    if (curve.knots.size() < count + static_cast<std::size_t>(curve.degree) + 1)
        return false;
    return std::is_sorted(curve.knots.begin(), curve.knots.end());
}

struct Homogeneous {
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
    double w = 1.0;
};

Homogeneous blend(const Homogeneous& a, const Homogeneous& b, double t) {
    return {std::lerp(a.x, b.x, t), std::lerp(a.y, b.y, t), std::lerp(a.z, b.z, t), std::lerp(a.w, b.w, t)};
}

/// De Boor's algorithm within the span [knots[span], knots[span + 1]).
AcGePoint3d evaluate(const Nurbs& curve, std::size_t span, double t, std::vector<Homogeneous>& scratch) {
    const auto degree = static_cast<std::size_t>(curve.degree);
    scratch.resize(degree + 1);
    for (std::size_t i = 0; i <= degree; ++i) {
        const std::size_t at = span - degree + i;
        const double w = at < curve.weights.size() ? curve.weights[at] : 1.0;
        const AcGePoint3d& p = curve.points[at];
        scratch[i] = {p.x * w, p.y * w, p.z * w, w};
    }
    for (std::size_t level = 1; level <= degree; ++level)
        for (std::size_t i = degree; i >= level; --i) {
            const double low = curve.knots[span - degree + i];
            const double high = curve.knots[span + 1 + i - level];
            scratch[i] = blend(scratch[i - 1], scratch[i], high > low ? (t - low) / (high - low) : 0.0);
        }
    const Homogeneous& h = scratch[degree];
    const double w = std::abs(h.w) > 1e-12 ? h.w : 1.0;
    return {h.x / w, h.y / w, h.z / w};
}

} // namespace

std::vector<AcGePoint3d> nurbsPoints(const Nurbs& curve, int perSpan) {
    std::vector<AcGePoint3d> points;
    if (!isValid(curve))
        return points;
    std::vector<Homogeneous> scratch;
    for (auto span = static_cast<std::size_t>(curve.degree); span < curve.points.size(); ++span) {
        const double low = curve.knots[span];
        const double high = curve.knots[span + 1];
        if (!(high > low))
            continue;
        for (int i = points.empty() ? 0 : 1; i <= perSpan; ++i)
            points.push_back(evaluate(curve, span, std::lerp(low, high, double(i) / perSpan), scratch));
    }
    return points;
}

namespace {

/// The directions of a cubic spline at its points (chord-length parameters): solves a tridiagonal system.
std::vector<AcGeVector3d> splineTangents(std::span<const AcGePoint3d> p, const std::vector<double>& h,
                                         const AcGeVector3d& start, const AcGeVector3d& end) {
    const std::size_t n = p.size();
    std::vector<double> diagonal(n, 2.0);
    std::vector<double> upper(n, 1.0);
    std::vector<AcGeVector3d> right(n);
    const auto slope = [&](std::size_t i) { return (p[i + 1] - p[i]) / h[i]; };
    right[0] = slope(0) * 3.0;
    if (!start.isZeroLength()) {
        upper[0] = 0.0;
        right[0] = start.normal() * 2.0;
    }
    for (std::size_t i = 1; i < n; ++i) {
        const bool isLast = i + 1 == n;
        const bool isFixed = isLast && !end.isZeroLength();
        const double lower = isLast ? (isFixed ? 0.0 : 1.0) : h[i];
        diagonal[i] = isLast ? 2.0 : 2.0 * (h[i - 1] + h[i]);
        upper[i] = isLast ? 0.0 : h[i - 1];
        right[i] = isFixed  ? end.normal() * 2.0
                   : isLast ? slope(i - 1) * 3.0
                            : (slope(i - 1) * h[i] + slope(i) * h[i - 1]) * 3.0;
        const double factor = lower / diagonal[i - 1];
        diagonal[i] -= factor * upper[i - 1];
        right[i] -= right[i - 1] * factor;
    }
    std::vector<AcGeVector3d> tangents(n);
    for (std::size_t i = n; i-- > 0;) {
        const AcGeVector3d next = i + 1 < n ? tangents[i + 1] * upper[i] : AcGeVector3d();
        tangents[i] = (right[i] - next) / diagonal[i];
    }
    return tangents;
}

AcGePoint3d hermite(const AcGePoint3d& a, const AcGePoint3d& b, const AcGeVector3d& ta,
                    const AcGeVector3d& tb, double t) {
    const double t2 = t * t;
    const double t3 = t2 * t;
    const AcGeVector3d v = a.asVector() * (2.0 * t3 - 3.0 * t2 + 1.0) + ta * (t3 - 2.0 * t2 + t) +
                           b.asVector() * (3.0 * t2 - 2.0 * t3) + tb * (t3 - t2);
    return {v.x, v.y, v.z};
}

} // namespace

std::vector<AcGePoint3d> fitCurve(std::span<const AcGePoint3d> fit, bool closed,
                                  const AcGeVector3d& startTangent, const AcGeVector3d& endTangent,
                                  int perSpan) {
    std::vector<AcGePoint3d> p;
    for (const AcGePoint3d& point : fit)
        if (p.empty() || point.distanceTo(p.back()) > 0.0)
            p.push_back(point);
    if (closed && p.size() > 2 && p.front().distanceTo(p.back()) > 0.0)
        p.push_back(p.front());
    if (p.size() < 3)
        return p;
    std::vector<double> h;
    for (std::size_t i = 0; i + 1 < p.size(); ++i)
        h.push_back(p[i].distanceTo(p[i + 1]));
    AcGeVector3d start = startTangent;
    AcGeVector3d end = endTangent;
    if (closed && start.isZeroLength())
        start = end = p[1] - p[p.size() - 2];
    const std::vector<AcGeVector3d> tangents = splineTangents(p, h, start, end);
    std::vector<AcGePoint3d> points{p.front()};
    for (std::size_t i = 0; i + 1 < p.size(); ++i)
        for (int k = 1; k <= perSpan; ++k)
            points.push_back(
                hermite(p[i], p[i + 1], tangents[i] * h[i], tangents[i + 1] * h[i], double(k) / perSpan));
    return points;
}

QList<QPolygonF> flattened(const QPainterPath& path) {
    const QRectF box = path.controlPointRect();
    const double size = std::max(box.width(), box.height());
    if (!(size > 0.0))
        return {};
    QTransform enlarge = QTransform::fromScale(2000.0 / size, 2000.0 / size);
    enlarge = QTransform::fromTranslate(-box.left(), -box.top()) * enlarge;
    const QTransform back = enlarge.inverted();
    QList<QPolygonF> polygons;
    for (const QPolygonF& polygon : path.toSubpathPolygons(enlarge))
        polygons += back.map(polygon);
    return polygons;
}

} // namespace zu::picture
