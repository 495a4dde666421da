#include "shapes/builders.h"
#include "shapes/curve_path.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace zu::picture {

Outcome buildLine(Canvas& canvas, const Entity& entity) {
    canvas.line(entity, entity.records.point(10), entity.records.point(11));
    return kDrawn;
}

namespace {

/// The part of a line that lies in a box, as parameters; empty when `first` is above `last`.
struct Cut {
    double first;
    double last;

    void clip(double place, double direction, double low, double high) {
        if (direction == 0.0) {
            if (place < low || place > high)
                last = -std::numeric_limits<double>::infinity();
            return;
        }
        const double a = (low - place) / direction;
        const double b = (high - place) / direction;
        first = std::max(first, std::min(a, b));
        last = std::min(last, std::max(a, b));
    }
};

} // namespace

/// RAY and XLINE, cut at the frame of the picture.
Outcome buildInfiniteLine(Canvas& canvas, const Entity& entity) {
    const AcGePoint3d start = entity.records.point(10);
    const AcGePoint3d along = entity.records.point(11);
    const QPointF place = canvas.worldPoint(start);
    const QPointF direction = canvas.worldPoint(start + along.asVector()) - place;
    if (!(std::hypot(direction.x(), direction.y()) > 0.0))
        return "it has no direction in plan";
    if (canvas.isMeasuring())
        return kDrawn;
    const QRectF frame = canvas.frame();
    const bool isRay = entity.type == "RAY";
    Cut cut{isRay ? 0.0 : -std::numeric_limits<double>::infinity(), std::numeric_limits<double>::infinity()};
    cut.clip(place.x(), direction.x(), frame.left(), frame.right());
    cut.clip(place.y(), direction.y(), frame.top(), frame.bottom());
    if (!(cut.first < cut.last))
        return "it passes the picture by";
    QPainterPath path(place + direction * cut.first);
    path.lineTo(place + direction * cut.last);
    canvas.stroke(entity, path, {});
    return kDrawn;
}

namespace {

void addMark(QPainterPath& path, int figure) {
    const auto addLine = [&](QPointF from, QPointF to) {
        path.moveTo(from);
        path.lineTo(to);
    };
    if (figure == 2) {
        addLine({-1.0, 0.0}, {1.0, 0.0});
        addLine({0.0, -1.0}, {0.0, 1.0});
    } else if (figure == 3) {
        addLine({-1.0, -1.0}, {1.0, 1.0});
        addLine({-1.0, 1.0}, {1.0, -1.0});
    } else if (figure == 4) {
        addLine({0.0, 0.0}, {0.0, 0.5});
    }
}

/// The size of a point mark; negative and 0 are percentages of the picture's height.
double markSize(Canvas& canvas) {
    constexpr double kUsual = 0.05;
    const double size = canvas.drawing().variable("$PDSIZE").real(40);
    if (size > 0.0)
        return size;
    return (size < 0.0 ? -size / 100.0 : kUsual) * canvas.frame().height();
}

} // namespace

/// By the drawing's point mode: a figure, with a circle (32) and a square (64) around it.
Outcome buildPoint(Canvas& canvas, const Entity& entity) {
    constexpr int kFigure = 7;
    constexpr int kCircle = 32;
    constexpr int kSquare = 64;
    const int mode = canvas.drawing().variable("$PDMODE").integer(70);
    const AcGePoint3d place = entity.records.point(10);
    if (mode == 1)
        return "the drawing's point mode (1) shows nothing";
    if ((mode & kFigure) == 0 || canvas.isMeasuring())
        canvas.dot(entity, place);
    QPainterPath mark;
    addMark(mark, mode & kFigure);
    if ((mode & kCircle) != 0)
        addArc(mark, {}, {0.5, 0.0}, {0.0, 0.5}, 0.0, 6.283185307179586, true);
    if ((mode & kSquare) != 0)
        mark.addRect(-0.5, -0.5, 1.0, 1.0);
    if (mark.isEmpty() || canvas.isMeasuring())
        return kDrawn;
    const QPointF centre = canvas.worldPoint(place);
    const double size = markSize(canvas);
    QTransform toWorld = QTransform::fromTranslate(centre.x(), centre.y());
    toWorld.rotate(-entity.records.real(50));
    toWorld.scale(size, size);
    canvas.stroke(entity, mark, toWorld);
    return kDrawn;
}

namespace {

std::vector<AcGePoint3d> corners(const Records& records) {
    std::vector<AcGePoint3d> points{records.point(10), records.point(11), records.point(12)};
    points.push_back(records.point(13, points.back()));
    return points;
}

} // namespace

/// SOLID and TRACE. The last two corners are stored crosswise.
Outcome buildSolid(Canvas& canvas, const Entity& entity) {
    const std::vector<AcGePoint3d> points = corners(entity.records);
    QPolygonF area;
    for (const std::size_t i : {0U, 1U, 3U, 2U})
        area << QPointF(points[i].x, points[i].y);
    QPainterPath path;
    path.addPolygon(area);
    path.closeSubpath();
    const QTransform toWorld = canvas.planeOf(entity, points[0].z);
    if (canvas.drawing().variable("$FILLMODE").integer(70, 1) != 0)
        canvas.fill(entity, path, toWorld);
    else
        canvas.stroke(entity, path, toWorld);
    return kDrawn;
}

Outcome buildFace(Canvas& canvas, const Entity& entity) {
    const std::vector<AcGePoint3d> points = corners(entity.records);
    const auto hidden = static_cast<unsigned>(entity.records.integer(70));
    for (unsigned i = 0; i < 4; ++i)
        if ((hidden >> i & 1U) == 0 && !(points[i] == points[(i + 1) % 4]))
            canvas.line(entity, points[i], points[(i + 1) % 4]);
    return (hidden & 15U) == 15U ? "all its edges are invisible" : kDrawn;
}

} // namespace zu::picture
