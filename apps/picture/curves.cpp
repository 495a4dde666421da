#include "curves.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace zu::preview {

namespace {

constexpr double kFullTurn = 360;

QRectF boxOf(QPointF centre, double radius) {
    return {centre.x() - radius, centre.y() - radius, 2 * radius, 2 * radius};
}

/// The angle from start to end, above 0 up to a full turn.
double sweepOf(double start, double end, double fullTurn) {
    const double sweep = std::fmod(end - start, fullTurn);
    return sweep > 0 ? sweep : sweep + fullTurn;
}

double degrees(double radians) {
    return radians * 180 / std::numbers::pi;
}

/// Qt counts angles counter-clockwise as seen with y downwards, which is clockwise here.
void addArc(QPainterPath& path, QPointF centre, double radius, double start, double sweep) {
    path.arcTo(boxOf(centre, radius), -start, -sweep);
}

void addSegment(QPainterPath& path, const CDblPoint& from, QPointF to) {
    const QPointF start(from.x, from.y);
    const QPointF chord = to - start;
    const double length = std::hypot(chord.x(), chord.y());
    constexpr double kStraight = 1e-6;
    if (std::abs(from.bulge) < kStraight || length == 0 || !std::isfinite(from.bulge)) {
        path.lineTo(to);
        return;
    }
    const double angle = 4 * std::atan(from.bulge);
    const double radius = length / (2 * std::sin(std::abs(angle) / 2));
    // From the middle of the chord to the centre; to the left of the chord for a flat counter-clockwise arc.
    const double offset = length / 2 / std::tan(angle / 2);
    const QPointF normal(-chord.y() / length, chord.x() / length);
    const QPointF centre = (start + to) / 2 + normal * offset;
    addArc(path, centre, radius, degrees(std::atan2(start.y() - centre.y(), start.x() - centre.x())),
           degrees(angle));
    path.lineTo(to);
}

} // namespace

QPainterPath circle(QPointF centre, double radius) {
    QPainterPath path;
    path.addEllipse(centre, radius, radius);
    return path;
}

QPainterPath arc(QPointF centre, double radius, double start, double end) {
    QPainterPath path;
    path.arcMoveTo(boxOf(centre, radius), -start);
    addArc(path, centre, radius, start, sweepOf(start, end, kFullTurn));
    return path;
}

QPainterPath ellipse(const CEllipse& ellipse) {
    const double major = std::hypot(ellipse.m_majorX, ellipse.m_majorY);
    const double start = degrees(ellipse.m_start);
    const double end = ellipse.Has(42) ? degrees(ellipse.m_end) : start;
    QTransform toPlace(ellipse.m_majorX / major, ellipse.m_majorY / major, -ellipse.m_majorY / major,
                       ellipse.m_majorX / major, ellipse.m_x, ellipse.m_y);
    toPlace.scale(major, major * (ellipse.m_mirrored ? -ellipse.m_ratio : ellipse.m_ratio));
    return toPlace.map(arc({0, 0}, 1, start, end));
}

QPainterPath bulged(std::span<const CDblPoint> points, bool closed) {
    QPainterPath path;
    if (points.empty())
        return path;
    path.moveTo(points.front().x, points.front().y);
    for (std::size_t i = 1; i < points.size(); ++i)
        addSegment(path, points[i - 1], {points[i].x, points[i].y});
    if (closed) {
        addSegment(path, points.back(), {points.front().x, points.front().y});
        path.closeSubpath();
    }
    return path;
}

} // namespace zu::preview
