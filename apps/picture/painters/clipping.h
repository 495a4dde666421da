#pragma once

#include <QPainterPath>
#include <QRectF>

namespace zu::picture {

// Painters slow down and overflow far outside of the page. Paths that reach there are cut before.

/// Returns the parts of the lines of a path within a rectangle; curves become chords.
[[nodiscard]] QPainterPath clippedLines(const QPainterPath& path, const QRectF& rectangle);

/// Returns a path that fills the same points of a rectangle as a path, and lies within it.
[[nodiscard]] QPainterPath clippedArea(const QPainterPath& path, const QRectF& rectangle);

} // namespace zu::picture
