#include "circle_pairs.h"

#include "plane.h"

#include <limits>

namespace zu::plane {

namespace {

constexpr double kSameRadius = 0.01;
constexpr double kTouching = 0.00001;
/// Relative to the circles' size; a gap up to this may be due to rounding alone.
constexpr double kRounding = 2.0 * std::numeric_limits<double>::epsilon();

CircleIntersection none(Meeting meeting) {
    return {meeting, 0, {}, {}};
}

/// Two circles relative to the first centre, which preserves precision far from the origin.
struct CirclePair {
    Point centre;
    Point unit;         ///< Direction to the second centre.
    double foot;        ///< Distance of the chord through both points from the first centre.
    double halfSquared; ///< Square of half the chord; negative when the circles don't meet.
    bool touch;         ///< Whether they touch within rounding.

    CirclePair(const Circle& a, const Circle& b) : centre{a.cx, a.cy} {
        const double dx = b.cx - a.cx;
        const double dy = b.cy - a.cy;
        const double distance = std::sqrt(dx * dx + dy * dy);
        unit = {dx / distance, dy / distance};
        const double r1 = std::abs(a.r);
        const double r2 = std::abs(b.r);
        const double sum = r1 + r2;
        const double ratio = (r1 - r2) / distance;
        foot = (distance + ratio * sum) / 2.0;
        // With c = distance * foot this is (r1^2 distance^2 - c^2) / distance^2. As a product it does not
        // cancel for circles that nearly touch.
        const double gap = sum - distance;
        halfSquared = gap * (sum + distance) * ((1.0 - ratio) * (1.0 + ratio)) / 4.0;
        touch = std::abs(gap) <= kRounding * (sum + distance) || std::abs(1.0 - std::abs(ratio)) <= kRounding;
    }

    /// Returns the foot, moved to the left of the direction.
    [[nodiscard]] Point beside(double left) const {
        return {centre.x + (foot * unit.x - left * unit.y), centre.y + (foot * unit.y + left * unit.x)};
    }

    [[nodiscard]] CircleIntersection atFoot() const { return {Meeting::Points, 1, beside(0.0), beside(0.0)}; }
};

/// Centres of equal y: the lower point comes first.
CircleIntersection onHorizontal(const CirclePair& pair) {
    if (pair.halfSquared < -kTouching)
        return none(Meeting::Apart);
    if (pair.halfSquared <= 0.0)
        return pair.atFoot();
    const double left = std::copysign(std::sqrt(pair.halfSquared), pair.unit.x);
    return {Meeting::Points, 2, pair.beside(-left), pair.beside(left)};
}

/// Any other centres: the point with the smaller x comes first. The tolerance applies to the discriminant of
/// the equation for x, which is 4 halfSquared / unit.y^2.
CircleIntersection onSlope(const CirclePair& pair) {
    const double discriminant = 4.0 * pair.halfSquared;
    const double touching = kTouching * pair.unit.y * pair.unit.y;
    if (!pair.touch && discriminant < -touching)
        return none(Meeting::Apart);
    if (pair.touch || discriminant < touching)
        return pair.atFoot();
    const double left = std::copysign(std::sqrt(pair.halfSquared), pair.unit.y);
    return {Meeting::Points, 2, pair.beside(left), pair.beside(-left)};
}

/// Inlined into both callers: the result is too large for registers.
[[gnu::always_inline]] inline CircleIntersection intersect(const Circle& a, const Circle& b) {
    if (a.cy != b.cy)
        return onSlope({a, b});
    if (a.cx != b.cx)
        return onHorizontal({a, b});
    return none(std::abs(a.r - b.r) < kSameRadius ? Meeting::SameCircle : Meeting::Concentric);
}

} // namespace

CircleIntersection intersection(const Circle& a, const Circle& b) {
    return intersect(a, b);
}

} // namespace zu::plane

int Esg_inter_c2c(const Circle* a, const Circle* b, int* n, Point* p1, Point* p2) {
    const auto found = zu::plane::intersect(*a, *b);
    *n = found.count;
    if (found.count > 0) {
        *p1 = found.p1;
        *p2 = found.p2;
    }
    return static_cast<int>(found.meeting);
}
