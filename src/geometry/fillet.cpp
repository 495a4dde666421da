#include "plane.h"

#include <utility>

using namespace zu::plane;

namespace {

constexpr double kNormalLength = 100.0;
constexpr double kSameAngle = 0.01;

/// A ray from the corner along one of the lines.
struct Ray {
    Point unit;
    double angle;

    void reverse() {
        unit = {-unit.x, -unit.y};
        angle += 180.0;
        if (angle >= 360.0)
            angle -= 360.0;
    }
};

std::optional<DirectedLine> normalAt(const Point& p, double angle) {
    return directed(between(p, moved(p, unitAt(toRadians(angle + 90.0)), kNormalLength)));
}

/// The arc's start and end: of the two sweeps between the angles the one under 180 degrees.
std::pair<double, double> smallerSweep(double first, double second) {
    if (first > second) {
        const double sweep = 360.0 - first + second;
        return sweep > 180.0 ? std::pair(second, first) : std::pair(first, second);
    }
    return second - first < 180.0 ? std::pair(first, second) : std::pair(second, first);
}

/// The line from where it touches the arc, which lies at an angle from the corner, to its start when that
/// lies beyond in this direction, else to its end. Nothing when it touches within 0.1 of its start.
std::optional<Line> trimmed(const Line& line, const Point& touch, double angle) {
    const auto toStart = angleInDegrees(touch, start(line));
    if (!toStart)
        return std::nullopt;
    return between(touch, std::abs(*toStart - angle) < kSameAngle ? start(line) : end(line));
}

} // namespace

int Esg_fillet_l2l(const Point* pick, const Line* a, const Line* b, double r, Arcs* arc, Line* out_a,
                   Line* out_b) {
    const auto lineA = directed(*a);
    if (!lineA)
        return 1;
    const auto lineB = directed(*b);
    if (!lineB)
        return 2;
    if (r == 0.0)
        return 3;
    const auto corner = intersection(ImplicitLine(*lineA), ImplicitLine(*lineB));
    if (!corner)
        return 4;

    const Point footA = footOn(*lineA, *pick);
    const Point footB = footOn(*lineB, *pick);
    const auto towardsA = directed(between(*corner, footA));
    if (!towardsA)
        return 1;
    const auto towardsB = directed(between(*corner, footB));
    if (!towardsB)
        return 2;
    const auto alphaA = angleInDegrees(*corner, footA);
    if (!alphaA)
        return 3;
    const auto alphaB = angleInDegrees(*corner, footB);
    if (!alphaB)
        return 4;
    // In a wide corner the foot may fall on the line's other half, beyond the corner.
    Ray rayA{towardsA->unit, *alphaA};
    if (sideOf(*towardsB, *pick) != sideOf(*towardsB, footA))
        rayA.reverse();
    Ray rayB{towardsB->unit, *alphaB};
    if (sideOf(*towardsA, *pick) != sideOf(*towardsA, footB))
        rayB.reverse();

    const double turn = std::abs(rayA.angle - rayB.angle);
    const double opening = turn > 180.0 ? 360.0 - turn : turn;
    const double distance = r / std::tan(toRadians(opening / 2.0));
    const Point touchA = moved(*corner, rayA.unit, distance);
    const Point touchB = moved(*corner, rayB.unit, distance);

    const auto angleA = angleInDegrees(*corner, touchA);
    if (!angleA)
        return 5;
    const auto normalA = normalAt(touchA, *angleA);
    if (!normalA)
        return 6;
    const auto angleB = angleInDegrees(*corner, touchB);
    if (!angleB)
        return 7;
    const auto normalB = normalAt(touchB, *angleB);
    if (!normalB)
        return 8;
    const auto centre = intersection(ImplicitLine(*normalA), ImplicitLine(*normalB));
    if (!centre)
        return 9;
    const auto gammaA = angleInDegrees(*centre, touchA);
    if (!gammaA)
        return 10;
    const auto gammaB = angleInDegrees(*centre, touchB);
    if (!gammaB)
        return 11;
    const auto [first, last] = smallerSweep(*gammaA, *gammaB);
    *arc = {centre->x, centre->y, r, first, last};

    // The directions of the lines and of the tangent points are known by now, so that 12 to 15 don't come up.
    const auto trimmedA = trimmed(*a, touchA, *angleA);
    if (!trimmedA)
        return 16;
    *out_a = *trimmedA;
    const auto trimmedB = trimmed(*b, touchB, *angleB);
    if (!trimmedB)
        return 17;
    *out_b = *trimmedB;
    return 0;
}
