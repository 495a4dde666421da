#include "painters/painter_canvas.h"

#include "painters/dashes.h"
#include "painters/text_pieces.h"
#include "text_outline.h"

#include <QFontMetricsF>
#include <QPaintDevice>

#include <algorithm>
#include <array>
#include <utility>

namespace zu::picture {

namespace {

/// Corners and control points of lines that are painted together.
constexpr int kMostWaiting = 2000;
/// More lines than these are painted by another thread.
constexpr qsizetype kWorthAThread = 500;
/// Height of capitals in which text is given to the painter, before its place scales it.
constexpr double kFontHeight = 100.0;

/// Width of lines whose ends need no shape.
constexpr double kThin = 2.2;
/// Of paths that are painted line by line.
constexpr int kMostCorners = 8;

/// A few straight lines. The many short ones of a curve would show twice where they meet.
bool isStraight(const QPainterPath& path) {
    if (path.elementCount() > kMostCorners)
        return false;
    for (int i = 0; i < path.elementCount(); ++i)
        if (path.elementAt(i).type == QPainterPath::CurveToElement)
            return false;
    return true;
}

QPen asQPen(const Pen& pen, Letters letters) {
    QPen made(pen.colour, pen.width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    if (pen.dashes.empty())
        return made;
    made.setCapStyle(Qt::FlatCap);
    if (letters == Letters::areas)
        return made;
    QList<qreal> pattern;
    for (const double length : pen.dashes)
        pattern << length / pen.width;
    made.setDashPattern(pattern);
    return made;
}

/// More are painted by stamps.
constexpr std::size_t kManyCircles = 5000;
constexpr int kStampPlaces = 4; ///< In a pixel, on each axis.

QImage stampOf(const Circle& circle, int half, const QPointF& offset) {
    QImage image(2 * half + 1, 2 * half + 1, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    const QPointF centre = QPointF(half, half) + offset;
    PainterCanvas(painter, Letters::areas).circles(std::span(&centre, 1), circle);
    return image;
}

} // namespace

PainterCanvas::PainterCanvas(QPainter& painter, Letters letters) : painter_(painter), letters_(letters) {
    painter_.setRenderHint(QPainter::Antialiasing);
}

PainterCanvas::~PainterCanvas() {
    finish();
}

void PainterCanvas::stroke(const QPainterPath& path, const Pen& pen) {
    if (pen != pen_ || path_.elementCount() > kMostWaiting || lines_.size() > kMostWaiting) {
        flush();
        pen_ = pen;
    }
    // Where lines end and meet, thin ones need no round caps and joins. What shows through would show twice.
    if (pen.width < kThin && pen.dashes.empty() && pen.colour.alpha() == 255 && isStraight(path))
        addLines(path);
    else if (letters_ == Letters::areas && !pen.dashes.empty())
        path_.addPath(dashed(path, pen.dashes)); // the pen's own are inexact in lines thinner than a pixel
    else
        path_.addPath(path);
}

void PainterCanvas::addLines(const QPainterPath& path) {
    for (int i = 1; i < path.elementCount(); ++i)
        if (path.elementAt(i).type == QPainterPath::LineToElement)
            lines_.emplace_back(path.elementAt(i - 1), path.elementAt(i));
}

/// Many lines are painted by another thread, while this one goes on until it needs the painter itself.
void PainterCanvas::flush() {
    if (!lines_.isEmpty())
        flushLines();
    if (path_.isEmpty())
        return;
    wait();
    painter_.strokePath(path_, asQPen(pen_, letters_));
    path_ = {};
}

void PainterCanvas::flushLines() {
    wait();
    QPen pen = asQPen(pen_, letters_);
    pen.setCapStyle(Qt::SquareCap);
    const bool isMany = letters_ == Letters::areas && lines_.size() > kWorthAThread;
    auto paint = [this, pen, lines = std::exchange(lines_, {})] {
        painter_.setPen(pen);
        painter_.drawLines(lines);
    };
    if (isMany)
        painting_ = std::async(std::move(paint));
    else
        paint();
}

void PainterCanvas::finish() {
    flush();
    wait();
}

void PainterCanvas::wait() {
    if (painting_.valid())
        painting_.get();
}

void PainterCanvas::fill(const QPainterPath& path, const QColor& colour) {
    finish();
    painter_.fillPath(path, colour);
}

void PainterCanvas::circles(std::span<const QPointF> centres, const Circle& circle) {
    finish();
    if (letters_ == Letters::areas && centres.size() > kManyCircles && painter_.transform().isIdentity())
        stamp(centres, circle);
    else
        PageCanvas::circles(centres, circle);
}

/// Copies pictures of the circle, one for each place in a pixel, to a quarter of a pixel.
void PainterCanvas::stamp(std::span<const QPointF> centres, const Circle& circle) {
    const int half = qCeil(circle.radius + circle.ring.width) + 1;
    std::array<std::array<QImage, kStampPlaces>, kStampPlaces> stamps;
    const QPointF edge(half, half);
    const QRectF sheet(-edge, QPointF(painter_.device()->width(), painter_.device()->height()) + edge);
    for (const QPointF& centre : centres) {
        if (!sheet.contains(centre))
            continue;
        const QPoint at = ((centre + edge) * kStampPlaces).toPoint();
        const QPoint place(at.x() % kStampPlaces, at.y() % kStampPlaces);
        QImage& stamp = stamps[static_cast<std::size_t>(place.y())][static_cast<std::size_t>(place.x())];
        if (stamp.isNull())
            stamp = stampOf(circle, half, QPointF(place) / kStampPlaces);
        painter_.drawImage(QPoint(at.x() / kStampPlaces, at.y() / kStampPlaces) - QPoint(half, half) * 2,
                           stamp);
    }
}

void PainterCanvas::text(const TextRun& run, const QColor& colour) {
    finish();
    if (letters_ == Letters::areas) {
        for (const QPainterPath& letters : outlinesOf(run))
            painter_.fillPath(letters, colour);
        return;
    }
    const QFont font = fontOf(run, kFontHeight);
    const QFontMetricsF metrics(font);
    painter_.setFont(font);
    painter_.setPen(colour);
    for (const TextPiece& piece : piecesOf(run)) {
        const double advance = metrics.horizontalAdvance(piece.text);
        if (!(advance > 0.0))
            continue;
        painter_.save();
        // On a grid a letter keeps its form in the middle of its cell, unless it is wider.
        const double fitting = piece.width / advance;
        const double stretch = run.onGrid ? std::min(1.0 / kFontHeight, fitting) : fitting;
        const double start = piece.start + (piece.width - advance * stretch) / 2.0;
        painter_.setTransform(QTransform(stretch, 0.0, 0.0, -1.0 / kFontHeight, start, 0.0) * run.place,
                              true);
        painter_.drawText(QPointF(0.0, 0.0), piece.text);
        painter_.restore();
    }
}

void PainterCanvas::setClip(const QRectF& rectangle) {
    finish();
    if (rectangle.isNull())
        painter_.setClipping(false);
    else
        painter_.setClipRect(rectangle);
}

} // namespace zu::picture
