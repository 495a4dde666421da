#pragma once

#include <QPainterPath>

#include <gepnt3d.h>

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

/// A B-spline, rational when it has weights.
struct Nurbs {
    int degree = 3;
    std::vector<double> knots;
    std::vector<double> weights;
    std::vector<AcGePoint3d> points;
};

/// Returns points on the curve, `perSpan` to each span between knots; empty when the curve is not valid.
[[nodiscard]] std::vector<AcGePoint3d> nurbsPoints(const Nurbs& curve, int perSpan);

/// Returns points on a smooth curve through all fit points, with natural ends unless tangents are given (null
/// vectors are none).
[[nodiscard]] std::vector<AcGePoint3d> fitCurve(std::span<const AcGePoint3d> fit, bool closed,
                                                const AcGeVector3d& startTangent,
                                                const AcGeVector3d& endTangent, int perSpan);

} // namespace zu::picture
