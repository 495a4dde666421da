#pragma once

#include "shape.h"

#include <QFont>

#include <vector>

namespace zu::picture {

/// Returns the font of a run in a size whose capitals are about as high as `capitalHeight` pixels.
[[nodiscard]] QFont fontOf(const TextRun& run, double capitalHeight);

/// Returns the letters of a run as areas in world coordinates. Needs a QGuiApplication.
[[nodiscard]] QPainterPath outlineOf(const TextRun& run);
/// The same as one area or, for a long text, several that lie beside each other.
[[nodiscard]] std::vector<QPainterPath> outlinesOf(const TextRun& run);

/// Returns the corners of a run in world coordinates, descenders included: first the start of the baseline.
[[nodiscard]] QPolygonF cornersOf(const TextRun& run);

} // namespace zu::picture
