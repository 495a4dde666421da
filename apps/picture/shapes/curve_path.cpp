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
