#include "shapes/builders.h"
#include "shapes/curve_path.h"

#include <zuhost/spline_points.h>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace zu::picture {

using zuhost::fitCurve;
using zuhost::Nurbs;
using zuhost::nurbsPoints;

namespace {

constexpr double kTurn = 2.0 * std::numbers::pi;
constexpr double kDegree = std::numbers::pi / 180.0;

Outcome strokeArc(Canvas& canvas, const Entity& entity, double start, double sweep) {
    const AcGePoint3d centre = entity.records.point(10);
    const double radius = entity.records.real(40);
    if (!(radius > 0.0))
        return "its radius is not positive";
    QPainterPath path;
    addArc(path, {centre.x, centre.y}, {radius, 0.0}, {0.0, radius}, start, sweep, true);
    canvas.stroke(entity, path, canvas.planeOf(entity, centre.z));
    return kDrawn;
}

} // namespace

Outcome buildCircle(Canvas& canvas, const Entity& entity) {
    return strokeArc(canvas, entity, 0.0, kTurn);
}

Outcome buildArc(Canvas& canvas, const Entity& entity) {
    const double start = std::fmod(entity.records.real(50), 360.0) * kDegree;
    const double end = std::fmod(entity.records.real(51), 360.0) * kDegree;
    return strokeArc(canvas, entity, start, sweepFrom(start, end));
}

Outcome buildEllipse(Canvas& canvas, const Entity& entity) {
    const AcGePoint3d centre = entity.records.point(10);
    const AcGeVector3d major = entity.records.point(11).asVector();
    const AcGeVector3d normal = entity.records.point(210, {0.0, 0.0, 1.0}).asVector().normal();
    const AcGeVector3d minor = normal.crossProduct(major) * entity.records.real(40, 1.0);
    if (!(major.length() > 0.0))
        return "its major axis has no length";
    const double start = std::fmod(entity.records.real(41), kTurn);
    const double end = entity.records.has(42) ? std::fmod(entity.records.real(42, kTurn), kTurn) : start;
    const QPointF place = canvas.worldPoint(centre);
    QPainterPath path;
    addArc(path, place, canvas.worldPoint(centre + major) - place, canvas.worldPoint(centre + minor) - place,
           start, sweepFrom(start, end), true);
    canvas.stroke(entity, path, {});
    return kDrawn;
}

/// SPLINE and HELIX: by control points, without valid ones by fit points.
Outcome buildSpline(Canvas& canvas, const Entity& entity) {
    constexpr int kPerSpan = 12;
    constexpr int kClosed = 1;
    const Records own = entity.records.subclass("AcDbSpline");
    const Records& records = own.size() > 0 ? own : entity.records;
    const Nurbs curve{records.integer(71, 3), records.reals(40), records.reals(41), records.points(10)};
    const std::vector<AcGePoint3d> fit = records.points(11);
    if (!canvas.take((curve.points.size() + fit.size()) * kPerSpan))
        return kDrawn;
    std::vector<AcGePoint3d> points = nurbsPoints(curve, curve.degree == 1 ? 1 : kPerSpan);
    if (points.empty())
        points = fitCurve(fit, (records.integer(70) & kClosed) != 0, records.point(12).asVector(),
                          records.point(13).asVector(), kPerSpan);
    if (points.size() < 2)
        return "it has neither valid control points nor fit points";
    canvas.stroke(entity, points);
    return kDrawn;
}

} // namespace zu::picture
