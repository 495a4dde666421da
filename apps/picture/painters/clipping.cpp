#include "painters/clipping.h"

#include <QPolygonF>

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

namespace zu::picture {

namespace {

/// A side of the rectangle: points are inside where the value is not negative.
struct Side {
    bool isX;
    double sign;
    double limit;

    [[nodiscard]] double inside(const QPointF& point) const {
        return sign * ((isX ? point.x() : point.y()) - limit);
    }
};

std::array<Side, 4> sidesOf(const QRectF& box) {
    return {{{true, 1.0, box.left()},
             {true, -1.0, box.right()},
             {false, 1.0, box.top()},
             {false, -1.0, box.bottom()}}};
}

/// The part of the line within all sides.
std::optional<std::pair<QPointF, QPointF>> clippedLine(QPointF from, QPointF to,
                                                       const std::array<Side, 4>& sides) {
    for (const Side& side : sides) {
        const double a = side.inside(from);
        const double b = side.inside(to);
        if (a < 0.0 && b < 0.0)
            return std::nullopt;
        if (a < 0.0)
            from += (to - from) * (a / (a - b));
        else if (b < 0.0)
            to += (from - to) * (b / (b - a));
    }
    return std::pair{from, to};
}

/// The polygon with what is outside of one side cut off.
QPolygonF cut(const QPolygonF& polygon, const Side& side) {
    QPolygonF kept;
    for (qsizetype i = 0; i < polygon.size(); ++i) {
        const QPointF& from = polygon[i];
        const QPointF& to = polygon[i + 1 < polygon.size() ? i + 1 : 0];
        const double a = side.inside(from);
        const double b = side.inside(to);
        if (a >= 0.0)
            kept << from;
        if ((a < 0.0) != (b < 0.0))
            kept << from + (to - from) * (a / (a - b));
    }
    return kept;
}

} // namespace

QPainterPath clippedLines(const QPainterPath& path, const QRectF& rectangle) {
    const std::array<Side, 4> sides = sidesOf(rectangle);
    QPainterPath clipped;
    for (const QPolygonF& line : path.toSubpathPolygons())
        for (qsizetype i = 0; i + 1 < line.size(); ++i) {
            const auto part = clippedLine(line[i], line[i + 1], sides);
            if (!part)
                continue;
            if (clipped.elementCount() == 0 || clipped.currentPosition() != part->first)
                clipped.moveTo(part->first);
            clipped.lineTo(part->second);
        }
    return clipped;
}

QPainterPath clippedArea(const QPainterPath& path, const QRectF& rectangle) {
    QPainterPath clipped;
    clipped.setFillRule(path.fillRule());
    for (QPolygonF polygon : path.toSubpathPolygons()) {
        for (const Side& side : sidesOf(rectangle))
            polygon = cut(polygon, side);
        if (polygon.size() < 3)
            continue;
        clipped.addPolygon(polygon);
        clipped.closeSubpath();
    }
    return clipped;
}

} // namespace zu::picture
