#pragma once

#include <QByteArray>
#include <QImage>
#include <QPainter>
#include <QSizeF>

#include <functional>

namespace zu::picture {

/// Paints a page whose units are 1/96 inch.
using PagePainter = std::function<void(QPainter&)>;

/// Null when memory does not suffice.
[[nodiscard]] QImage pageImage(const QSize& size, const QColor& ground, const PagePainter& paint);

/// The page as a PDF document of this size; empty when it can't be made.
[[nodiscard]] QByteArray pagePdf(const QSizeF& size, const QColor& ground, const PagePainter& paint);

} // namespace zu::picture
