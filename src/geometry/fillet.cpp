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

/// Returns the start and end angles of the arc between two angles whose sweep is less than 180 degrees.
std::pair<double, double> smallerSweep(double first, double second) {
    if (first > second) {
        const double sweep = 360.0 - first + second;
        return sweep > 180.0 ? std::pair(second, first) : std::pair(first, second);
    }
    return second - first < 180.0 ? std::pair(first, second) : std::pair(second, first);
}

/// The corner that contains the pick: the intersection of the lines, and the rays along its sides.
struct Corner {
    Point point;
    Ray rayA;
    Ray rayB;
};

struct TangentPoint {
    Point point;
    double angle; ///< Direction from the corner.
};

// The functions below return 0 or the result of Esg_fillet_l2l for the step that fails.

int findCorner(const Point& pick, const DirectedLine& a, const DirectedLine& b, Corner& found) {
    const auto corner = intersection(ImplicitLine(a), ImplicitLine(b));
    if (!corner)
        return 4;
    const Point footA = footOn(a, pick);
    const Point footB = footOn(b, pick);
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
    found = {*corner, {towardsA->unit, *alphaA}, {towardsB->unit, *alphaB}};
    // At an obtuse corner a foot may fall on the line's other half, beyond the corner.
    if (sideOf(*towardsB, pick) != sideOf(*towardsB, footA))
        found.rayA.reverse();
    if (sideOf(*towardsA, pick) != sideOf(*towardsA, footB))
        found.rayB.reverse();
    return 0;
}

int fitArc(const Corner& corner, double r, TangentPoint& a, TangentPoint& b, Arcs& arc) {
    const double turn = std::abs(corner.rayA.angle - corner.rayB.angle);
    const double opening = turn > 180.0 ? 360.0 - turn : turn;
    const double distance = r / std::tan(toRadians(opening / 2.0));
    const Point touchA = moved(corner.point, corner.rayA.unit, distance);
    const Point touchB = moved(corner.point, corner.rayB.unit, distance);

    const auto angleA = angleInDegrees(corner.point, touchA);
    if (!angleA)
        return 5;
    const auto normalA = normalAt(touchA, *angleA);
    if (!normalA)
        return 6;
    const auto angleB = angleInDegrees(corner.point, touchB);
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
    arc = {centre->x, centre->y, r, first, last};
    a = {touchA, *angleA};
    b = {touchB, *angleB};
    return 0;
}

/// Returns the line from its tangent point to its start when that lies at `angle`, the direction from the
/// corner to the tangent point, else to its end. Returns nullopt for a tangent point within 0.1 of the start.
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
    Corner corner{};
    if (const int failed = findCorner(*pick, *lineA, *lineB, corner); failed != 0)
        return failed;
    TangentPoint touchA{};
    TangentPoint touchB{};
    if (const int failed = fitArc(corner, r, touchA, touchB, *arc); failed != 0)
        return failed;

    // Results 12 to 15 cannot occur: the directions of the lines and to the tangent points exist.
    const auto trimmedA = trimmed(*a, touchA.point, touchA.angle);
    if (!trimmedA)
        return 16;
    *out_a = *trimmedA;
    const auto trimmedB = trimmed(*b, touchB.point, touchB.angle);
    if (!trimmedB)
        return 17;
    *out_b = *trimmedB;
    return 0;
}
