#pragma once

#include <zucomn/geometry.h>

namespace zu::plane {

/// How two circles meet; the codes are those of Esg_inter_c2c.
enum class Meeting { Points = 0, SameCircle = 1, Concentric = 2, Apart = 3 };

struct CircleIntersection {
    Meeting meeting;
    int count;
    Point p1;
    Point p2;
};

CircleIntersection intersection(const Circle& a, const Circle& b);

} // namespace zu::plane
