#include <zuhost/spline_points.h>

#include <algorithm>
#include <cmath>

namespace zuhost {

namespace {

bool isValid(const Nurbs& curve) {
    constexpr int kHighestDegree = 20;
    const std::size_t count = curve.points.size();
    if (curve.degree < 1 || curve.degree > kHighestDegree || count <= static_cast<std::size_t>(curve.degree))
        return false;
    if (curve.knots.size() < count + static_cast<std::size_t>(curve.degree) + 1)
        return false;
    return std::is_sorted(curve.knots.begin(), curve.knots.end());
}

struct Homogeneous {
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
    double w = 1.0;
};

Homogeneous blend(const Homogeneous& a, const Homogeneous& b, double t) {
    return {std::lerp(a.x, b.x, t), std::lerp(a.y, b.y, t), std::lerp(a.z, b.z, t), std::lerp(a.w, b.w, t)};
}

/// De Boor's algorithm within the span [knots[span], knots[span + 1]).
AcGePoint3d evaluate(const Nurbs& curve, std::size_t span, double t, std::vector<Homogeneous>& scratch) {
    const auto degree = static_cast<std::size_t>(curve.degree);
    scratch.resize(degree + 1);
    for (std::size_t i = 0; i <= degree; ++i) {
        const std::size_t at = span - degree + i;
        const double w = at < curve.weights.size() ? curve.weights[at] : 1.0;
        const AcGePoint3d& p = curve.points[at];
        scratch[i] = {p.x * w, p.y * w, p.z * w, w};
    }
    for (std::size_t level = 1; level <= degree; ++level)
        for (std::size_t i = degree; i >= level; --i) {
            const double low = curve.knots[span - degree + i];
            const double high = curve.knots[span + 1 + i - level];
            scratch[i] = blend(scratch[i - 1], scratch[i], high > low ? (t - low) / (high - low) : 0.0);
        }
    const Homogeneous& h = scratch[degree];
    const double w = std::abs(h.w) > 1e-12 ? h.w : 1.0;
    return {h.x / w, h.y / w, h.z / w};
}

} // namespace

std::vector<AcGePoint3d> nurbsPoints(const Nurbs& curve, int perSpan) {
    std::vector<AcGePoint3d> points;
    if (!isValid(curve))
        return points;
    std::vector<Homogeneous> scratch;
    for (auto span = static_cast<std::size_t>(curve.degree); span < curve.points.size(); ++span) {
        const double low = curve.knots[span];
        const double high = curve.knots[span + 1];
        if (!(high > low))
            continue;
        for (int i = points.empty() ? 0 : 1; i <= perSpan; ++i)
            points.push_back(evaluate(curve, span, std::lerp(low, high, double(i) / perSpan), scratch));
    }
    return points;
}

namespace {

/// The directions of a cubic spline at its points (chord-length parameters): solves a tridiagonal system.
std::vector<AcGeVector3d> splineTangents(std::span<const AcGePoint3d> p, const std::vector<double>& h,
                                         const AcGeVector3d& start, const AcGeVector3d& end) {
    const std::size_t n = p.size();
    std::vector<double> diagonal(n, 2.0);
    std::vector<double> upper(n, 1.0);
    std::vector<AcGeVector3d> right(n);
    const auto slope = [&](std::size_t i) { return (p[i + 1] - p[i]) / h[i]; };
    right[0] = slope(0) * 3.0;
    if (!start.isZeroLength()) {
        upper[0] = 0.0;
        right[0] = start.normal() * 2.0;
    }
    for (std::size_t i = 1; i < n; ++i) {
        const bool isLast = i + 1 == n;
        const bool isFixed = isLast && !end.isZeroLength();
        const double lower = isLast ? (isFixed ? 0.0 : 1.0) : h[i];
        diagonal[i] = isLast ? 2.0 : 2.0 * (h[i - 1] + h[i]);
        upper[i] = isLast ? 0.0 : h[i - 1];
        right[i] = isFixed  ? end.normal() * 2.0
                   : isLast ? slope(i - 1) * 3.0
                            : (slope(i - 1) * h[i] + slope(i) * h[i - 1]) * 3.0;
        const double factor = lower / diagonal[i - 1];
        diagonal[i] -= factor * upper[i - 1];
        right[i] -= right[i - 1] * factor;
    }
    std::vector<AcGeVector3d> tangents(n);
    for (std::size_t i = n; i-- > 0;) {
        const AcGeVector3d next = i + 1 < n ? tangents[i + 1] * upper[i] : AcGeVector3d();
        tangents[i] = (right[i] - next) / diagonal[i];
    }
    return tangents;
}

AcGePoint3d hermite(const AcGePoint3d& a, const AcGePoint3d& b, const AcGeVector3d& ta,
                    const AcGeVector3d& tb, double t) {
    const double t2 = t * t;
    const double t3 = t2 * t;
    const AcGeVector3d v = a.asVector() * (2.0 * t3 - 3.0 * t2 + 1.0) + ta * (t3 - 2.0 * t2 + t) +
                           b.asVector() * (3.0 * t2 - 2.0 * t3) + tb * (t3 - t2);
    return {v.x, v.y, v.z};
}

} // namespace

std::vector<AcGePoint3d> fitCurve(std::span<const AcGePoint3d> fit, bool closed,
                                  const AcGeVector3d& startTangent, const AcGeVector3d& endTangent,
                                  int perSpan) {
    std::vector<AcGePoint3d> p;
    for (const AcGePoint3d& point : fit)
        if (p.empty() || point.distanceTo(p.back()) > 0.0)
            p.push_back(point);
    if (closed && p.size() > 2 && p.front().distanceTo(p.back()) > 0.0)
        p.push_back(p.front());
    if (p.size() < 3)
        return p;
    std::vector<double> h;
    for (std::size_t i = 0; i + 1 < p.size(); ++i)
        h.push_back(p[i].distanceTo(p[i + 1]));
    AcGeVector3d start = startTangent;
    AcGeVector3d end = endTangent;
    if (closed && start.isZeroLength())
        start = end = p[1] - p[p.size() - 2];
    const std::vector<AcGeVector3d> tangents = splineTangents(p, h, start, end);
    std::vector<AcGePoint3d> points{p.front()};
    for (std::size_t i = 0; i + 1 < p.size(); ++i)
        for (int k = 1; k <= perSpan; ++k)
            points.push_back(
                hermite(p[i], p[i + 1], tangents[i] * h[i], tangents[i + 1] * h[i], double(k) / perSpan));
    return points;
}

} // namespace zuhost
