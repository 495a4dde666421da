#pragma once

#include <gepnt3d.h>
#include <zuhost/platform/export.h>

#include <span>
#include <vector>

namespace zuhost {

/// A B-spline, rational when it has weights.
struct Nurbs {
    int degree = 3;
    std::vector<double> knots;
    std::vector<double> weights;
    std::vector<AcGePoint3d> points;
};

/// Returns points on the curve, `perSpan` to each span between knots; empty when the curve is not valid.
[[nodiscard]] ZUHOST_API std::vector<AcGePoint3d> nurbsPoints(const Nurbs& curve, int perSpan);

/// Returns points on a smooth curve through all fit points, with natural ends unless tangents are given (null
/// vectors are none).
[[nodiscard]] ZUHOST_API std::vector<AcGePoint3d> fitCurve(std::span<const AcGePoint3d> fit, bool closed,
                                                           const AcGeVector3d& startTangent,
                                                           const AcGeVector3d& endTangent, int perSpan);

} // namespace zuhost
