#include "circle_pairs.h"
#include "plane.h"

#include <algorithm>
#include <array>
#include <limits>

using namespace zu::plane;

namespace {

constexpr double kNormalLength = 1000.0;
constexpr double kRadiusMatch = 0.5;
constexpr double kLeastRadii = 0.01;
constexpr int kMostCircles = 4;
/// Rounding may give slightly more than 1 for circles that touch from inside.
constexpr double kMostCosine = 1.0 + 2.0 * std::numeric_limits<double>::epsilon();

/// A point where a circle may touch a line, and the line's perpendicular there.
struct Touch {
    Point p;
    std::optional<ImplicitLine> normal;
};

/// The tangent points on either side of the corner, for each of two distances from it.
using Touches = std::array<Touch, 4>;

Touches touchesOn(const Point& corner, double angle, double inAngle, double inSupplement) {
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
    return {at(forward, inAngle), at(backward, inAngle), at(forward, inSupplement),
            at(backward, inSupplement)};
}

/// Stores in `out` up to four circles whose centre, the intersection of two normals, is about `r` from the
/// touching points; returns the result of Esg_tangentArc_l2l.
int findCircles(const Touches& onA, const Touches& onB, double r, Circle* out) {
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

/// The unit vectors to the left and right of another whose angle with it has a given cosine.
struct Normals {
    Point left;
    Point right;

    Normals(const Point& unit, double cosine) {
        const double sine = std::sqrt(std::max(0.0, (1.0 - cosine) * (1.0 + cosine)));
        left = {cosine * unit.x - sine * unit.y, cosine * unit.y + sine * unit.x};
        right = {cosine * unit.x + sine * unit.y, cosine * unit.y - sine * unit.x};
    }
};

/// Returns the line from a's centre moved by its radius along the normal to b's centre moved by `radius`.
Line tangent(const Circle& a, const Circle& b, const Point& normal, double radius) {
    return between(moved({a.cx, a.cy}, normal, a.r), moved({b.cx, b.cy}, normal, radius));
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

    const double inAngle = r / std::tan(toRadians(delta / 2.0));
    const double inSupplement = r / std::tan(toRadians((180.0 - delta) / 2.0));
    return findCircles(touchesOn(*corner, *alpha, inAngle, inSupplement),
                       touchesOn(*corner, *beta, inAngle, inSupplement), r, out);
}

int Esg_tangentLine_c2c(const Circle* a, const Circle* b, Line* out, int* n) {
    if (a->r + b->r < kLeastRadii)
        return 1;
    const Line centres{a->cx, a->cy, b->cx, b->cy};
    if (!angleInDegrees(start(centres), end(centres)))
        return 1;
    const double distance = length(centres);
    const double outer = (a->r - b->r) / distance;
    if (!(std::abs(outer) <= kMostCosine))
        return 1;

    const Point unit{(b->cx - a->cx) / distance, (b->cy - a->cy) / distance};
    const Normals outward(unit, outer);
    out[0] = tangent(*a, *b, outward.left, b->r);
    out[1] = tangent(*a, *b, outward.right, b->r);
    *n = 2;
    // Circles that touch within the tolerance have no inner tangents, even where rounding leaves a gap.
    const double inner = (a->r + b->r) / distance;
    if (intersection(*a, *b).meeting == Meeting::Points || !(std::abs(inner) <= 1.0))
        return 0;
    const Normals inward(unit, inner);
    out[2] = tangent(*a, *b, inward.left, -b->r);
    out[3] = tangent(*a, *b, inward.right, -b->r);
    *n = 4;
    return 0;
}
