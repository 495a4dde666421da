#include "plane.h"

#include <algorithm>

using namespace zu::plane;

// Both loops compute x and y by the same operations, so that the compiler handles a point as one vector.
// No point depends on another: working in place is as fast.

void Esg_mirror(const Line* axis, int count, const Point* src, Point* dst) {
    if (count <= 0)
        return;
    const auto line = directed(*axis);
    if (!line) {
        if (src != dst)
            std::copy_n(src, count, dst);
        return;
    }
    const Point n{-line->unit.y, line->unit.x};
    const double k = n.x * line->start.x + n.y * line->start.y;
    const double shiftX = 2.0 * k * n.x;
    const double shiftY = 2.0 * k * n.y;
    const double cross = 2.0 * n.x * n.y;
    const double square = n.x * n.x - n.y * n.y;
    const double minusCross = -cross;
    for (int i = 0; i < count; ++i) {
        const double x = src[i].x;
        const double y = src[i].y;
        dst[i] = {shiftX - (square * x + cross * y), shiftY + (square * y + minusCross * x)};
    }
}

void Esg_rotate(double angle, const Point* centre, int count, const Point* src, Point* dst) {
    const auto [c, s] = unitAt(toRadians(angle));
    const double minusS = -s;
    const auto [cx, cy] = *centre;
    for (int i = 0; i < count; ++i) {
        const double x = src[i].x - cx;
        const double y = src[i].y - cy;
        dst[i] = {c * x + minusS * y + cx, c * y + s * x + cy};
    }
}
