#include "wide_segments.h"

#include <QPolygonF>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace zu::preview {

namespace {

/// An arc is drawn as chords of this angle at most.
constexpr double kChord = std::numbers::pi / 36;

/// A place on a segment and the direction to its left.
struct Station {
    QPointF place;
    QPointF left;
};

/// Of the start (0), the end (1) and what lies between.
class Segment {
public:
    Segment(const CDblPoint& from, const CDblPoint& to)
        : start_(from.x, from.y), chord_(to.x - from.x, to.y - from.y),
          length_(std::hypot(chord_.x(), chord_.y())),
          angle_(std::isfinite(from.bulge) ? 4 * std::atan(from.bulge) : 0) {}

    [[nodiscard]] bool hasLength() const { return length_ > 0 && std::isfinite(length_); }
    [[nodiscard]] int chords() const { return static_cast<int>(std::abs(angle_) / kChord) + 1; }

    /// On an arc the chord to a place is turned, and shorter than the whole one by the sines of the angles.
    [[nodiscard]] Station at(double part) const {
        constexpr double kStraight = 1e-5;
        const QPointF along = chord_ / length_;
        const double turned = (part - 1) * angle_ / 2;
        const double reach = std::abs(angle_) < kStraight
                                 ? length_ * part
                                 : length_ * std::sin(part * angle_ / 2) / std::sin(angle_ / 2);
        const QPointF forward = rotated(along, (part - 0.5) * angle_);
        return {start_ + rotated(along, turned) * reach, {-forward.y(), forward.x()}};
    }

private:
    static QPointF rotated(QPointF direction, double angle) {
        const double cosine = std::cos(angle);
        const double sine = std::sin(angle);
        return {direction.x() * cosine - direction.y() * sine, direction.x() * sine + direction.y() * cosine};
    }

    QPointF start_;
    QPointF chord_;
    double length_;
    double angle_; ///< That the segment turns by, counter-clockwise.
};

QPolygonF areaOf(const Segment& segment, const CDblWidth& width) {
    const qsizetype chords = segment.chords();
    QPolygonF area(2 * (chords + 1));
    for (qsizetype i = 0; i <= chords; ++i) {
        const double part = static_cast<double>(i) / static_cast<double>(chords);
        const Station station = segment.at(part);
        const QPointF aside = station.left * (std::lerp(width.start, width.end, part) / 2);
        area[i] = station.place + aside;
        area[2 * chords + 1 - i] = station.place - aside;
    }
    return area;
}

} // namespace

QPainterPath wideSegments(std::span<const CDblPoint> points, std::span<const CDblWidth> widths, bool closed) {
    QPainterPath areas;
    for (std::size_t i = 0; i < std::min(points.size(), widths.size()); ++i) {
        const bool isLast = i + 1 == points.size();
        const Segment segment(points[i], points[isLast ? 0 : i + 1]);
        const bool isWide = widths[i].start > 0 || widths[i].end > 0;
        if (!isWide || (isLast && !closed) || !segment.hasLength())
            continue;
        areas.addPolygon(areaOf(segment, widths[i]));
        areas.closeSubpath();
    }
    if (!areas.isEmpty())
        areas.setFillRule(Qt::WindingFill); // segments overlap where they meet
    return areas;
}

} // namespace zu::preview
