#pragma once

#include <QPainterPath>

#include <span>

namespace zu::picture {

/// Returns the dashes of a path, curves as chords. `lengths` are those of a dash, a gap, a dash ..., together
/// above 0; each part of the path begins with the first.
[[nodiscard]] QPainterPath dashed(const QPainterPath& path, std::span<const double> lengths);

} // namespace zu::picture
