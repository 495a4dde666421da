#include "plane.h"

using namespace zu::plane;

int Esg_get_angle(const Point* from, const Point* to, double* angle) {
    const auto found = angleInDegrees(*from, *to);
    *angle = found.value_or(0.0);
    return found ? 0 : 1;
}

int Esg_line_length(const Line* line, double* length) {
    if (isDegenerate(*line))
        return 1;
    *length = zu::plane::length(*line);
    return 0;
}

int Esg_line_vectle(const Line* line, Point* unit) {
    const auto directedLine = directed(*line);
    if (!directedLine)
        return 1;
    *unit = directedLine->unit;
    return 0;
}

void Esg_judge_pside(const Line* line, const Point* p, int* side) {
    const auto directedLine = directed(*line);
    *side = directedLine ? sideOf(*directedLine, *p) : 0;
}

int Esg_check_onPnt(const Line* segment, const Point* p, double tol) {
    return isOnSegment(*segment, *p, tol) ? 1 : 0;
}

void Esg_project_p2l(const Point* p, const Line* line, Point* foot) {
    const auto directedLine = directed(*line);
    *foot = directedLine ? footOn(*directedLine, *p) : *p;
}

int Esg_parallel_line(const Line* line, const Point* side_pt, double dist, Line* out) {
    // Results 3 and 4 cannot occur: only a degenerate line has no direction or length.
    const auto base = directed(*line);
    if (!base)
        return 1;
    if (dist == 0.0)
        return 2;
    const Point left{-base->unit.y, base->unit.x};
    const Point from = moved(base->start, left, sideOf(*base, *side_pt) > 0 ? dist : -dist);
    *out = between(from, moved(from, base->unit, base->length));
    return 0;
}
