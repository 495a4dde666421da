#pragma once

#include "records/styles.h"

#include <QPainterPath>
#include <QTransform>

#include <vector>

namespace zu::picture {

/// Returns the places, from text space to world, of a linetype's text along a line. `period` is the length of
/// the scaled pattern, above 0; each part of the path begins with a new one.
[[nodiscard]] std::vector<QTransform> placesAlong(const QPainterPath& line, const LinetypeText& text,
                                                  double scale, double period);

} // namespace zu::picture
