#include "circle_pairs.h"

#include "plane.h"

namespace zu::plane {

namespace {

constexpr double kSameRadius = 0.01;
constexpr double kTouching = 0.00001;

CircleIntersection none(Meeting meeting) {
    return {meeting, 0, {}, {}};
}

/// Centres on a horizontal: the points have the x of the radical line.
CircleIntersection onHorizontal(const Circle& a, const Circle& b) {
    const double x = (a.cx * a.cx - b.cx * b.cx - (a.r * a.r - b.r * b.r)) / (2.0 * (a.cx - b.cx));
    const double square = a.r * a.r - (x - a.cx) * (x - a.cx);
    if (square < -kTouching)
        return none(Meeting::Apart);
    if (square <= 0.0)
        return {Meeting::Points, 1, {x, a.cy}, {x, a.cy}};
    const double s = std::sqrt(square);
    return {Meeting::Points, 2, {x, a.cy - s}, {x, a.cy + s}};
}

/// Any other centres: the radical line y = k + m x put into the first circle gives a quadratic equation in x.
CircleIntersection onSlope(const Circle& a, const Circle& b) {
    const double dy = a.cy - b.cy;
    const double m = -(a.cx - b.cx) / dy;
    const double k =
        (a.cy * a.cy - b.cy * b.cy + a.cx * a.cx - b.cx * b.cx - (a.r * a.r - b.r * b.r)) / (2.0 * dy);
    const double qa = 1.0 + m * m;
    const double qb = -2.0 * (a.cx - (k - a.cy) * m);
    const double qc = (k - a.cy) * (k - a.cy) + a.cx * a.cx - a.r * a.r;
    const double discriminant = qb * qb - 4.0 * qa * qc;
    if (discriminant < -kTouching)
        return none(Meeting::Apart);
    if (discriminant < kTouching) {
        const double x = -qb / (2.0 * qa);
        const Point p{x, k + m * x};
        return {Meeting::Points, 1, p, p};
    }
    const double s = std::sqrt(discriminant);
    const double x1 = (-qb - s) / (2.0 * qa);
    const double x2 = (s - qb) / (2.0 * qa);
    return {Meeting::Points, 2, {x1, k + m * x1}, {x2, k + m * x2}};
}

} // namespace

CircleIntersection intersection(const Circle& a, const Circle& b) {
    if (a.cy != b.cy)
        return onSlope(a, b);
    if (a.cx != b.cx)
        return onHorizontal(a, b);
    return none(std::abs(a.r - b.r) < kSameRadius ? Meeting::SameCircle : Meeting::Concentric);
}

} // namespace zu::plane

int Esg_inter_c2c(const Circle* a, const Circle* b, int* n, Point* p1, Point* p2) {
    const auto found = zu::plane::intersection(*a, *b);
    *n = found.count;
    if (found.count > 0) {
        *p1 = found.p1;
        *p2 = found.p2;
    }
    return static_cast<int>(found.meeting);
}
