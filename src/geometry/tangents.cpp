#include "circle_pairs.h"
#include "plane.h"

#include <array>

using namespace zu::plane;

namespace {

constexpr double kNormalLength = 1000.0;
constexpr double kRadiusMatch = 0.5;
constexpr double kLeastRadii = 0.01;
constexpr int kMostCircles = 4;

/// A point where a circle may touch a line, and the line's perpendicular there.
struct Touch {
    Point p;
    std::optional<ImplicitLine> normal;
};

/// Two touching points on either side of the corner for each of two distances.
using Touches = std::array<Touch, 4>;

Touches touchesOn(const Point& corner, double angle, double near, double far) {
    const Point forward = unitAt(toRadians(angle));
    const Point backward = unitAt(toRadians(angle + 180.0));
    const Point across = unitAt(toRadians(angle + 90.0));
    const auto at = [&](const Point& unit, double distance) -> Touch {
        const Point p = moved(corner, unit, distance);
        const auto normal = directed(between(p, moved(p, across, kNormalLength)));
        if (!normal)
            return {p, std::nullopt};
        return {p, ImplicitLine(*normal)};
    };
    return {at(forward, near), at(backward, near), at(forward, far), at(backward, far)};
}

Line tangent(const Circle& a, const Circle& b, double angleAtA, double angleAtB) {
    return between(moved({a.cx, a.cy}, unitAt(angleAtA), a.r), moved({b.cx, b.cy}, unitAt(angleAtB), b.r));
}

Line tangent(const Circle& a, const Circle& b, double angle) {
    const Point unit = unitAt(angle);
    return between(moved({a.cx, a.cy}, unit, a.r), moved({b.cx, b.cy}, unit, b.r));
}

} // namespace

int Esg_tangentArc_l2l(const Line* a, const Line* b, double r, Circle* out) {
    const auto lineA = directed(*a);
    if (!lineA)
        return 1;
    const auto lineB = directed(*b);
    if (!lineB)
        return 2;
    if (r <= 0.0)
        return 3;
    const auto corner = intersection(ImplicitLine(*lineA), ImplicitLine(*lineB));
    if (!corner)
        return 4;
    const auto alpha = angleInDegrees(start(*a), end(*a));
    const auto beta = angleInDegrees(start(*b), end(*b));
    if (!alpha || !beta)
        return 5;
    const double turn = std::abs(*alpha - *beta);
    const double delta = turn > 180.0 ? turn - 180.0 : turn;
    if (delta <= 0.0 || 180.0 - delta <= 0.0)
        return 6;

    const double near = r / std::tan(toRadians(delta / 2.0));
    const double far = r / std::tan(toRadians((180.0 - delta) / 2.0));
    const Touches onA = touchesOn(*corner, *alpha, near, far);
    const Touches onB = touchesOn(*corner, *beta, near, far);
    int count = 0;
    for (std::size_t i = 0; i < onA.size(); ++i) {
        const std::size_t firstOfPair = i / 2 * 2;
        for (std::size_t j = firstOfPair; j < firstOfPair + 2; ++j) {
            if (!onA[i].normal || !onB[j].normal)
                return 7;
            const auto centre = intersection(*onA[i].normal, *onB[j].normal);
            if (!centre)
                return 7;
            const Line radius = between(onB[j].p, *centre);
            if (isDegenerate(radius))
                return 8;
            if (!(std::abs(length(radius) - r) < kRadiusMatch))
                continue;
            out[count] = {centre->x, centre->y, r};
            if (++count == kMostCircles)
                return 0;
        }
    }
    return 0;
}

int Esg_tangentLine_c2c(const Circle* a, const Circle* b, Line* out, int* n) {
    if (a->r + b->r < kLeastRadii)
        return 1;
    const Line centres{a->cx, a->cy, b->cx, b->cy};
    const auto direction = angleInDegrees(start(centres), end(centres));
    if (!direction)
        return 1;
    const double distance = length(centres);
    const double outer = (a->r - b->r) / distance;
    if (!(std::abs(outer) <= 1.0))
        return 1;

    const double theta = toRadians(*direction);
    const double phi = std::acos(outer);
    out[0] = tangent(*a, *b, theta + phi);
    out[1] = tangent(*a, *b, theta - phi);
    *n = 2;
    // Circles that just meet may be found apart by rounding; they have no inner tangents all the same.
    const double inner = (a->r + b->r) / distance;
    if (intersection(*a, *b).meeting == Meeting::Points || !(std::abs(inner) <= 1.0))
        return 0;
    const double atA = std::acos(inner);
    const double atB = kPi - atA;
    out[2] = tangent(*a, *b, theta + atA, theta - atB);
    out[3] = tangent(*a, *b, theta - atA, theta + atB);
    *n = 4;
    return 0;
}
