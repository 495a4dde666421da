#include "plane.h"

#include <utility>

using namespace zu::plane;

namespace {

constexpr int kNone = 0;
constexpr int kTwoPoints = 1;
constexpr int kOnePoint = 2;
constexpr Point kOrigin{0.0, 0.0};

/// Tolerance for touching, on the difference of squared radius and squared distance.
double touchTolerance(double r) {
    return r >= 1.0 ? r * 0.001 * r * 0.1 : r * 0.0015 * r * 0.01;
}

/// Returns whether a point lies in the arc's sweep; a point at the centre counts as at 0 degrees.
bool isInSweep(const Arcs& arc, const Point& p) {
    const auto once = [](double angle) { return angle >= 360.0 ? angle - 360.0 : angle; };
    const double first = once(arc.sang);
    const double last = once(arc.eang);
    const double angle = angleInDegrees({arc.cx, arc.cy}, p).value_or(0.0);
    if (first <= last)
        return first <= angle && angle <= last;
    return angle <= last || angle >= first;
}

int keepOnSegment(const Line& segment, int found, Point& p1, const Point& p2) {
    if (found == kNone)
        return kNone;
    const bool first = isOnSegment(segment, p1, kOnSegment);
    if (found == kOnePoint)
        return first ? kOnePoint : kNone;
    const bool second = isOnSegment(segment, p2, kOnSegment);
    if (first)
        return second ? kTwoPoints : kOnePoint;
    if (!second)
        return kNone;
    p1 = p2;
    return kOnePoint;
}

} // namespace

int Esg_inter_l2l(const Line* a, const Line* b, Point* p) {
    const auto l = directed(*a);
    if (!l)
        return 0;
    const auto m = directed(*b);
    if (!m)
        return 0;
    const auto found = intersection(ImplicitLine(*l), ImplicitLine(*m));
    *p = found.value_or(kOrigin);
    return found ? 1 : 0;
}

int Esg_inter_i2i(const Line* a, const Line* b, Point* p) {
    if (Esg_inter_l2l(a, b, p) == 0)
        return 0;
    return isOnSegment(*b, *p, kOnSegment) && isOnSegment(*a, *p, kOnSegment) ? 1 : 0;
}

int Esg_inter_l2c(const Line* l, const Circle* c, Point* p1, Point* p2) {
    const auto line = directed(*l);
    if (!line)
        return kNone;
    const Point& u = line->unit;
    const double dx = c->cx - line->start.x;
    const double dy = c->cy - line->start.y;
    const double h = u.x * dy - u.y * dx;
    const double t = u.y * dy + u.x * dx;
    const double square = c->r * c->r - h * h;
    const double tolerance = touchTolerance(c->r);
    if (square <= -tolerance) {
        *p1 = *p2 = kOrigin;
        return kNone;
    }
    if (square < tolerance) {
        *p1 = moved(line->start, u, t);
        *p2 = kOrigin;
        return kOnePoint;
    }
    const double s = std::sqrt(square);
    *p1 = moved(line->start, u, t - s);
    *p2 = moved(line->start, u, t + s);
    return kTwoPoints;
}

int Esg_inter_i2c(const Line* l, const Circle* c, Point* p1, Point* p2) {
    return keepOnSegment(*l, Esg_inter_l2c(l, c, p1, p2), *p1, *p2);
}

int Esg_inter_l2a(const Line* l, const Arcs* a, Point* p1, Point* p2) {
    const Circle circle{a->cx, a->cy, a->r};
    const int found = Esg_inter_l2c(l, &circle, p1, p2);
    if (found == kNone)
        return kNone;
    if (isInSweep(*a, *p1)) {
        if (found == kOnePoint || isInSweep(*a, *p2))
            return found;
        *p2 = kOrigin;
        return kOnePoint;
    }
    *p1 = std::exchange(*p2, kOrigin);
    if (found == kTwoPoints && isInSweep(*a, *p1))
        return kOnePoint;
    *p1 = kOrigin;
    return kNone;
}

int Esg_inter_i2a(const Line* l, const Arcs* a, Point* p1, Point* p2) {
    return keepOnSegment(*l, Esg_inter_l2a(l, a, p1, p2), *p1, *p2);
}
