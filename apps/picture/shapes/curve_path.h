#pragma once

#include <QPainterPath>

#include <span>
#include <vector>

namespace zu::picture {

// Curves in a plane as paths, y upwards, angles in radians counter-clockwise. Angles may be of any size.

/// Returns the angle from start to end, counter-clockwise, above 0 up to a full turn.
[[nodiscard]] double sweepFrom(double start, double end);

/// Appends the arc centre + cos(t) u + sin(t) v, t from start over sweep; connected to the path unless
/// `moves`.
void addArc(QPainterPath& path, QPointF centre, QPointF u, QPointF v, double start, double sweep, bool moves);

/// Appends the segment from the path's position with a bulge: the tangent of a quarter of its angle.
void addBulge(QPainterPath& path, QPointF to, double bulge);

/// A polyline's vertex; bulge and widths apply to the segment that starts here.
struct Vertex {
    QPointF place;
    double bulge = 0.0;
    double startWidth = 0.0;
    double endWidth = 0.0;
};

/// Returns the parts of a path as polygons, not closed where the path is not. Chords are as fine as the path
/// is large, whatever its unit.
[[nodiscard]] QList<QPolygonF> flattened(const QPainterPath& path);

[[nodiscard]] QPainterPath polylinePath(std::span<const Vertex> vertices, bool closed);

/// Returns the areas of the segments that have a width; empty when none has.
[[nodiscard]] QPainterPath wideSegments(std::span<const Vertex> vertices, bool closed);

} // namespace zu::picture
