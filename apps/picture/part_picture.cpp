#include "part_picture.h"

#include "color_table.h"
#include "part_shapes.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <optional>

namespace zu::preview {

namespace {

/// The box that holds both; unlike QRectF's own, with boxes of no width or height.
QRectF united(const QRectF& a, const QRectF& b) {
    return {QPointF(std::min(a.left(), b.left()), std::min(a.top(), b.top())),
            QPointF(std::max(a.right(), b.right()), std::max(a.bottom(), b.bottom()))};
}

/// Headers are often left behind by later changes: one that cuts away a good part of the drawing, or holds
/// much more than the drawing, doesn't count.
bool isGoodFor(const QRectF& header, const QRectF& drawn) {
    if (!(header.width() > 0) || !(header.height() > 0))
        return false;
    constexpr double kTooMuch = 4;
    const QRectF both = united(header, drawn);
    return both.width() < header.width() * 1.05 && both.height() < header.height() * 1.05 &&
           (header.width() < drawn.width() * kTooMuch || header.height() < drawn.height() * kTooMuch);
}

QRectF extentsOf(const CAcadDxf& part, const QRectF& drawn) {
    double minX = 0;
    double minY = 0;
    double maxX = 0;
    double maxY = 0;
    part.GetSave(minX, minY, maxX, maxY);
    const QRectF header(QPointF(minX, minY), QPointF(maxX, maxY));
    return isGoodFor(header, drawn) ? header : drawn;
}

/// Fits the box into the picture, y turned around.
QTransform fitInto(const QSize& size, const QRectF& box) {
    const double margin = std::max(4.0, 0.04 * std::min(size.width(), size.height()));
    // Far from the origin digits are lost: something small there must not be enlarged to where they would
    // show.
    const double farthest =
        std::max({std::abs(box.left()), std::abs(box.right()), std::abs(box.top()), std::abs(box.bottom())});
    const double smallest = std::max({box.width() * 1e-6, box.height() * 1e-6, farthest * 1e-10, 1e-15});
    const double scale = std::min((size.width() - 2 * margin) / std::max(box.width(), smallest),
                                  (size.height() - 2 * margin) / std::max(box.height(), smallest));
    QTransform transform = QTransform::fromTranslate(size.width() / 2.0, size.height() / 2.0);
    transform.scale(scale, -scale);
    transform.translate(-box.center().x(), -box.center().y());
    return transform;
}

void paint(QPainter& painter, const Shape& shape, const QTransform& toPicture, bool dark) {
    constexpr double kThinnest = 0.9;
    // In a picture 800 pixels wide 0.25 mm is about one and a half pixels.
    const double pixelsPerUnit = 0.055 * painter.device()->width() / 800;
    constexpr double kDot = 2.5;
    const QColor color = colorOf(shape.color, dark);
    const QPainterPath path = toPicture.map(shape.path);
    switch (shape.kind) {
    case ShapeKind::stroke:
        painter.strokePath(path, QPen(color, std::max(kThinnest, shape.lineWeight * pixelsPerUnit),
                                      shape.style, Qt::RoundCap, Qt::RoundJoin));
        break;
    case ShapeKind::fill:
        painter.fillPath(path, color);
        break;
    case ShapeKind::dot:
        painter.setPen(Qt::NoPen);
        painter.setBrush(color);
        painter.drawEllipse(path.boundingRect().center(), kDot, kDot);
        break;
    }
}

} // namespace

QImage pictureOf(const CAcadDxf& part, const PictureOptions& options) {
    std::optional<QRectF> box;
    const bool isWhole = forEachShape(part, [&box](const Shape& shape) {
        const QRectF own = shape.path.boundingRect();
        box = box ? united(*box, own) : own;
    });
    if (!isWhole)
        return {};
    QImage image(options.size, QImage::Format_RGB32);
    image.fill(options.dark ? QColor(0x1F, 0x24, 0x2B) : QColor(Qt::white));
    if (!box)
        return image;
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    const QTransform toPicture = fitInto(options.size, extentsOf(part, *box));
    const bool isPainted =
        forEachShape(part, [&](const Shape& shape) { paint(painter, shape, toPicture, options.dark); });
    return isPainted ? image : QImage();
}

} // namespace zu::preview
