#include "painters/painter_canvas.h"

#include "painters/text_pieces.h"
#include "text_outline.h"

#include <QFontMetricsF>

namespace zu::picture {

namespace {

/// Corners and control points of lines that are painted together.
constexpr int kMostWaiting = 2000;
/// Height of capitals in which text is given to the painter, before its place scales it.
constexpr double kFontHeight = 100.0;

QPen asQPen(const Pen& pen) {
    QPen made(pen.colour, pen.width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    if (pen.dashes.empty())
        return made;
    QList<qreal> pattern;
    for (const double length : pen.dashes)
        pattern << length / pen.width;
    made.setCapStyle(Qt::FlatCap);
    made.setDashPattern(pattern);
    return made;
}

} // namespace

PainterCanvas::PainterCanvas(QPainter& painter, Letters letters) : painter_(painter), letters_(letters) {
    painter_.setRenderHint(QPainter::Antialiasing);
}

PainterCanvas::~PainterCanvas() {
    flush();
}

void PainterCanvas::stroke(const QPainterPath& path, const Pen& pen) {
    if (pen != pen_ || path_.elementCount() > kMostWaiting) {
        flush();
        pen_ = pen;
    }
    path_.addPath(path);
}

void PainterCanvas::flush() {
    if (path_.isEmpty())
        return;
    painter_.strokePath(path_, asQPen(pen_));
    path_ = {};
}

void PainterCanvas::fill(const QPainterPath& path, const QColor& colour) {
    flush();
    painter_.fillPath(path, colour);
}

void PainterCanvas::text(const TextRun& run, const QColor& colour) {
    flush();
    if (letters_ == Letters::areas) {
        painter_.fillPath(outlineOf(run), colour);
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
        const double stretch = run.onGrid ? 1.0 / kFontHeight : piece.width / advance;
        painter_.setTransform(QTransform(stretch, 0.0, 0.0, -1.0 / kFontHeight, piece.start, 0.0) * run.place,
                              true);
        painter_.drawText(QPointF(0.0, 0.0), piece.text);
        painter_.restore();
    }
}

void PainterCanvas::setClip(const QRectF& rectangle) {
    flush();
    if (rectangle.isNull())
        painter_.setClipping(false);
    else
        painter_.setClipRect(rectangle);
}

} // namespace zu::picture
