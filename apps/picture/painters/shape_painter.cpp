#include "painters/shape_painter.h"

#include "painters/clipping.h"
#include "text_outline.h"

#include <QPolygonF>

#include <algorithm>
#include <cmath>
#include <numeric>

namespace zu::picture {

namespace {

constexpr double kUnitsPerMillimetre = 96.0 / 25.4;
/// Height of capitals below which letters cannot be distinguished.
constexpr double kReadable = 2.2;
/// Capitals below this are thinner than the thinnest line.
constexpr double kVisible = 0.5;
/// Capitals above this are drawn as areas.
constexpr double kTallestLetters = 400.0;
constexpr double kShortestDashes = 1.5;
constexpr double kDotRadius = 1.5;
/// Nothing of the form of a path smaller than this can be seen: a line across stands for it.
constexpr double kSpeck = 1.0;
constexpr double kPoint = 0.3;

/// Unlike QRectF::intersects also for boxes of no width or height.
bool overlap(const QRectF& a, const QRectF& b) {
    return a.left() <= b.right() && b.left() <= a.right() && a.top() <= b.bottom() && b.top() <= a.bottom();
}

std::vector<double> dashesOnPage(const std::vector<double>& dashes, double scale, double width) {
    const double period =
        scale * std::accumulate(dashes.begin(), dashes.end(), 0.0,
                                [](double sum, double dash) { return sum + std::abs(dash); });
    // Written so that NaN gives a continuous line.
    if (!(period > kShortestDashes))
        return {};
    // Patterns alternate; neighbours of the same kind are joined. A dot is as long as the line is wide.
    std::vector<double> lengths;
    bool isDash = false;
    for (const double dash : dashes) {
        const bool next = dash >= 0.0;
        const double length = std::max(std::abs(dash) * scale, next ? width : 0.0);
        if (lengths.empty() && !next)
            return {};
        if (lengths.empty() || next != isDash)
            lengths.push_back(length);
        else
            lengths.back() += length;
        isDash = next;
    }
    if (lengths.size() % 2 != 0)
        lengths.push_back(0.01);
    return lengths;
}

} // namespace

double widthOf(int lineWeight) {
    return std::max(lineWeight, 0) / 100.0 * kUnitsPerMillimetre;
}

ShapePainter::ShapePainter(PageCanvas& canvas, const QTransform& toPage, const QRectF& area)
    : canvas_(canvas), toPage_(toPage), area_(area),
      bounds_(area.adjusted(-area.width(), -area.height(), area.width(), area.height())),
      scale_(std::sqrt(std::abs(toPage.determinant()))) {
    canvas_.setClip(area_);
}

ShapePainter::~ShapePainter() {
    canvas_.setClip({});
}

void ShapePainter::paint(const Shape& shape, const Ink& ink) {
    setClip(shape.clip);
    switch (shape.kind) {
    case Shape::Kind::stroke:
        paintStroke(shape, ink);
        break;
    case Shape::Kind::fill:
        paintFill(shape, ink);
        break;
    case Shape::Kind::text:
        paintText(shape, ink);
        break;
    case Shape::Kind::dot:
        paintDot(shape, ink);
        break;
    }
}

bool ShapePainter::isInSight(const QRectF& box) const {
    return overlap(box, area_);
}

void ShapePainter::setClip(const QRectF& world) {
    if (world == clip_)
        return;
    clip_ = world;
    canvas_.setClip(world.isNull() ? area_ : toPage_.mapRect(world).intersected(area_));
}

void ShapePainter::paintStroke(const Shape& shape, const Ink& ink) {
    QPainterPath path = toPage_.map(shape.path);
    const QRectF box = path.controlPointRect();
    if (!isInSight(box))
        return;
    if (!bounds_.contains(box))
        path = clippedLines(path, bounds_);
    const double width = std::max(widthOf(shape.lineWeight), ink.thinnest) + 2.0 * ink.halo;
    if (box.width() < kSpeck && box.height() < kSpeck && path.elementCount() > 0) {
        // A line without a length would not be painted.
        const QPointF least(kPoint, 0.0);
        path = QPainterPath(box.topLeft() - least);
        path.lineTo(box.bottomRight() + least);
    }
    canvas_.stroke(path, {ink.colour, width, dashesOnPage(shape.dashes, scale_, width)});
}

void ShapePainter::paintFill(const Shape& shape, const Ink& ink) {
    QPainterPath path = toPage_.map(shape.path);
    const QRectF box = path.controlPointRect();
    if (!isInSight(box))
        return;
    if (!bounds_.contains(box))
        path = clippedArea(path, bounds_);
    if (ink.halo > 0.0)
        canvas_.stroke(path, {ink.colour, 2.0 * ink.halo, {}});
    else
        canvas_.fill(path, ink.colour);
}

void ShapePainter::paintText(const Shape& shape, const Ink& ink) {
    TextRun run = shape.run;
    run.place = run.place * toPage_;
    const QPolygonF corners = cornersOf(run);
    if (corners.isEmpty() || !isInSight(corners.boundingRect()))
        return;
    const double height = std::hypot(run.place.m21(), run.place.m22());
    if (height < kVisible)
        return;
    if (ink.halo > 0.0) {
        QPainterPath around;
        around.addPolygon(corners);
        canvas_.fill(around, ink.colour);
        return;
    }
    if (height > kTallestLetters) {
        canvas_.fill(clippedArea(outlineOf(run), bounds_), ink.colour);
        return;
    }
    if (height >= kReadable) {
        canvas_.text(run, ink.colour);
        return;
    }
    QPainterPath line(run.place.map(QPointF(0.0, 0.5)));
    line.lineTo(run.place.map(QPointF(run.width, 0.5)));
    QColor faint = ink.colour;
    faint.setAlphaF(0.5F);
    canvas_.stroke(clippedLines(line, bounds_), {faint, height, {}});
}

void ShapePainter::paintDot(const Shape& shape, const Ink& ink) {
    if (shape.path.elementCount() == 0)
        return;
    const QPointF at = toPage_.map(QPointF(shape.path.elementAt(0)));
    if (!area_.contains(at))
        return;
    QPainterPath dot;
    dot.addEllipse(at, kDotRadius + ink.halo, kDotRadius + ink.halo);
    canvas_.fill(dot, ink.colour);
}

} // namespace zu::picture
