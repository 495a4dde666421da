#pragma once

#include <QPainterPath>
#include <QTransform>

#include <vector>
#include <zucomn/dxf.h>

namespace zu::preview {

// Curves as paths, y upwards, angles in degrees counter-clockwise.

[[nodiscard]] QPainterPath circle(QPointF centre, double radius);
/// From the start to the end angle, through 0 where need be; a full circle when they are equal.
[[nodiscard]] QPainterPath arc(QPointF centre, double radius, double start, double end);
[[nodiscard]] QPainterPath ellipse(const CEllipse& ellipse);
/// Straight segments and arcs; the bulge of a point is the tangent of a quarter of the angle to the next one.
[[nodiscard]] QPainterPath bulged(std::span<const CDblPoint> points, bool closed);

} // namespace zu::preview
