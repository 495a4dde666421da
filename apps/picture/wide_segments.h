#pragma once

#include <QPainterPath>

#include <span>
#include <zucomn/dxf.h>

namespace zu::preview {

/// The areas of the segments of a polyline that have a width, each from its width at the start to that at the
/// end. Vertices without an entry in `widths` have none.
[[nodiscard]] QPainterPath wideSegments(std::span<const CDblPoint> points, std::span<const CDblWidth> widths,
                                        bool closed);

} // namespace zu::preview
