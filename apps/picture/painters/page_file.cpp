#include "painters/page_file.h"

#include <QBuffer>
#include <QPageSize>
#include <QPdfWriter>

namespace zu::picture {

namespace {

constexpr int kUnitsPerInch = 96;
constexpr int kPointsPerInch = 72;
/// Lines and letters are rounded to this.
constexpr int kPdfDotsPerInch = 2400;

} // namespace

QImage pageImage(const QSize& size, const QColor& ground, const PagePainter& paint) {
    QImage image(size, QImage::Format_RGB32);
    if (image.isNull())
        return {};
    image.fill(ground);
    QPainter painter;
    if (!painter.begin(&image))
        return {};
    paint(painter);
    painter.end();
    return image;
}

QByteArray pagePdf(const QSizeF& size, const QColor& ground, const PagePainter& paint) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setResolution(kPdfDotsPerInch);
    writer.setPageSize(
        QPageSize(size * kPointsPerInch / kUnitsPerInch, QPageSize::Point, {}, QPageSize::ExactMatch));
    writer.setPageMargins({});
    QPainter painter;
    if (!painter.begin(&writer))
        return {};
    painter.scale(static_cast<double>(kPdfDotsPerInch) / kUnitsPerInch,
                  static_cast<double>(kPdfDotsPerInch) / kUnitsPerInch);
    painter.fillRect(QRectF({}, size), ground);
    paint(painter);
    painter.end();
    return bytes;
}

} // namespace zu::picture
