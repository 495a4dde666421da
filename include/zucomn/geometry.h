#pragma once

#include "export.h"

// Geometry of the drawing plane: points, lines, circles and arcs, and the operations that lay out fittings,
// offsets and fillets with them. Needs the standard library only.
//
// Lengths are in drawing units (millimetres), angles in degrees, counter-clockwise from the +x axis. "Left"
// of a line is its counter-clockwise side, seen along its direction. A line is degenerate when its start and
// end are exactly equal. All tolerances are absolute.
//
// Pointers must not be null. Results go through the output pointers; outputs must not be inputs, except where
// stated. On failure an output keeps what it held, except where stated. The functions keep no state, allocate
// nothing, throw nothing and may run in any thread. Coordinates that are not finite, or so large or so close
// that squares overflow or underflow, give undefined coordinates or a failure code, nothing worse.

/// A point, or a unit vector where stated.
struct Point {
    double x;
    double y;
};

/// A line from start to end; the operation says whether it stands for the segment or the infinite line.
struct Line {
    double x1;
    double y1;
    double x2;
    double y2;
};

struct Circle {
    double cx;
    double cy;
    double r;
};

/// An arc that runs counter-clockwise from `sang` to `eang`, through 0 degrees when `sang` is the larger.
struct Arcs {
    double cx;
    double cy;
    double r;
    double sang;
    double eang;
};

// ---- Angles, lengths, sides ----

/// Direction from one point to another. 0, or 1 with the angle 0.0 when the points are within 0.1 of each
/// other on both axes. A direction whose x part is at most 0.1 is exactly 90 or 270; any other is in [0,
/// 360), except that one less than 0.0001 radians below the +x axis stays slightly negative.
ZUCOMN_API int Esg_get_angle(const Point* from, const Point* to, double* angle);

/// Distance from start to end. 0, or 1 for a degenerate line.
ZUCOMN_API int Esg_line_length(const Line* line, double* length);

/// Unit vector from start to end, built from the line's angle. 0, or 1 for a degenerate line.
ZUCOMN_API int Esg_line_vectle(const Line* line, Point* unit);

/// Side of the infinite line on which a point lies: 1 left, -1 right, 0 on the line, or when the line is
/// degenerate. "On" is a band of 0.1 on the cross product of the line's whole vector and the point's offset,
/// so the distance that counts as on the line is 0.1 / length.
ZUCOMN_API void Esg_judge_pside(const Line* line, const Point* p, int* side);

/// 1 when a point lies on the segment, else 0: the way over the point is less than `tol` longer than the
/// segment. So the segment reaches tol / 2 past its ends; the ends themselves are on it.
ZUCOMN_API int Esg_check_onPnt(const Line* segment, const Point* p, double tol);

/// Foot of the perpendicular from a point to the infinite line; the point itself when the line is degenerate.
ZUCOMN_API void Esg_project_p2l(const Point* p, const Line* line, Point* foot);

// ---- Whole arrays, and parallels ----

/// Mirrors `count` points across the infinite line; copies them when it is degenerate. `dst` is `src` itself
/// or doesn't overlap it. A count of 0 or less does nothing.
ZUCOMN_API void Esg_mirror(const Line* axis, int count, const Point* src, Point* dst);

/// Rotates `count` points about a centre, counter-clockwise for a positive angle. `dst` is `src` itself or
/// doesn't overlap it. A count of 0 or less does nothing.
ZUCOMN_API void Esg_rotate(double angle, const Point* centre, int count, const Point* src, Point* dst);

/// Copy of a line, moved by `dist` to the side of `side_pt`; to the right when that point is on the line by
/// Esg_judge_pside. A negative distance moves to the other side. 0, or 1 for a degenerate line, 2 when the
/// distance is exactly 0.0, 3 when the line has no direction, 4 when it has no length.
ZUCOMN_API int Esg_parallel_line(const Line* line, const Point* side_pt, double dist, Line* out);

// ---- Intersections ----
// "l" in a name takes the line as infinite, "i" as the segment, by Esg_check_onPnt with tolerance 0.5.

/// 1 when two lines intersect. 0 with p = (0, 0) when they are parallel, that is when the cross product of
/// their whole vectors is at most 0.1; 0 with p untouched when one is degenerate.
ZUCOMN_API int Esg_inter_l2l(const Line* a, const Line* b, Point* p);

/// 1 when the intersection of the infinite lines lies on both segments, else 0; p as by Esg_inter_l2l.
ZUCOMN_API int Esg_inter_i2i(const Line* a, const Line* b, Point* p);

/// Line and circle: 1 for two points, p1 first along the line's direction; 2 for one, the line touching, with
/// p2 = (0, 0); 0 for none, with both (0, 0), or untouched when the line is degenerate. The line touches when
/// r^2 less the squared distance of the centre is within 0.0001 r^2 of 0 (0.000015 r^2 for r below 1);
/// nothing meets a circle of radius 0.
ZUCOMN_API int Esg_inter_l2c(const Line* l, const Circle* c, Point* p1, Point* p2);

/// The same, counting the points on the segment: 1 both, 2 one, moved to p1 if need be, 0 none. What p2 (on
/// 2) and both points (on 0) hold is what Esg_inter_l2c has left there.
ZUCOMN_API int Esg_inter_i2c(const Line* l, const Circle* c, Point* p1, Point* p2);

/// Line and arc: as Esg_inter_l2c, keeping the points on the arc: 1 both, 2 one, in p1, with p2 = (0, 0); 0
/// none, with both (0, 0), or untouched when the line is degenerate. The arc's ends are inside, with no
/// tolerance on the angle. Angles of the arc of 360 or more are reduced by 360 once, so that an arc
/// from 0 to 360 is the point at 0 only.
ZUCOMN_API int Esg_inter_l2a(const Line* l, const Arcs* a, Point* p1, Point* p2);

/// The same, counting the points on the segment, with outputs as by Esg_inter_i2c.
ZUCOMN_API int Esg_inter_i2a(const Line* l, const Arcs* a, Point* p1, Point* p2);

/// Two circles: 0 with n = 2 points, or n = 1 and p1 = p2 when they touch; otherwise n = 0, the points
/// untouched: 1 for the same centre and radii within 0.01, 2 for the same centre, 3 when they don't meet.
/// p1 has the smaller x; with centres at exactly the same y, the smaller y.
///
/// The points lie on both circles within 1e-15 of the sum of coordinates, distance and radii, in every
/// direction. With h half the chord and t the angle of the centres' line with the x axis, the circles touch
/// when 4 h^2 is within 0.00001 sin(t)^2 of 0, so the tolerance shrinks to rounding near the x axis: circles
/// touch there when the gap is within about 4e-16 of their size. With centres at exactly the same y they
/// don't meet when h^2 is below -0.00001, and touch when it is not above 0.
ZUCOMN_API int Esg_inter_c2c(const Circle* a, const Circle* b, int* n, Point* p1, Point* p2);

// ---- Tangents and fillets ----
// Circles that touch two lines, and fillets, take angles by Esg_get_angle: a direction whose x part is at
// most 0.1 counts as vertical, and what is built on it is off by as much. Directions within 1e-6 of the x
// axis are off by up to 2e-8 radians, as those of Esg_line_vectle.

/// The circles of radius r that touch two infinite lines, one in each of the four angles, into the array
/// `out` of four. A centre counts when its distance from b fits r within 0.5, so with a small r (below about
/// 0.5, and more as the lines come near a right angle) circles that miss both lines by less than that may
/// stand in for right ones. Their number is not returned and entries that are not needed stay untouched: fill
/// the array before, with a radius of 0 for example. 0, or 1 and 2 when a or b is degenerate, 3 for r <= 0, 4
/// for parallel lines, 5 when a line's ends are within 0.1, 6 for equal or opposite directions, 7 when two
/// perpendiculars don't meet, 8 when a centre falls on its line. On 7 and 8 the circles found before have
/// been written.
ZUCOMN_API int Esg_tangentArc_l2l(const Line* a, const Line* b, double r, Circle* out);

/// The lines that touch two circles, each from a to b, into the array `out` of four: first the outer ones,
/// left and right of the direction from a to b; then, when the circles don't meet, the inner ones, leaving a
/// on the left and on the right. Their ends have the precision of Esg_inter_c2c in every direction, near the
/// vertical too. n is 2 or 4. 0, or 1 when the centres are within 0.1, the radii add up to
/// less than 0.01 or one circle lies inside the other.
ZUCOMN_API int Esg_tangentLine_c2c(const Circle* a, const Circle* b, Line* out, int* n);

/// Rounds the corner of two infinite lines in which the pick lies: the arc of radius r, and the lines trimmed
/// to where they meet it. They start there and end at the line's start when that lies beyond, seen from the
/// corner (within 0.01 degrees), else at the line's end, wherever that lies. A negative r isn't refused: it
/// gives an arc with that r in the opposite corner. A pick on one of the lines, by Esg_judge_pside, chooses
/// the wider corner beside it.
///
/// The arc's ends and the trimmed lines lie on the lines, except that a line within 1e-6 radians of the x
/// axis is missed by up to 2e-8 of the distance from its start (0.02 at 1e6). The centre is as far from both
/// lines as r says within 1e-12 r for radii up to 1e4, and 1e-10 r up to 1e6. It is not where the corner and
/// an arc's end differ by at most 0.1 in x, so that the line counts as vertical: the centre is then off by up
/// to 0.1 for corners of up to 90 degrees, and by up to 0.05 / cos(g / 2)^2 for a corner of g degrees above
/// (0.2 at 120, 6.6 at 170), whatever the radius; by up to several r when the end is within 1 of the corner.
///
/// 0, or 1 and 2 when a or b is degenerate or the pick's foot on it is the corner; 3 when r is exactly 0.0 or
/// the foot on a is within 0.1 of the corner; 4 for parallel lines or the same with b; 5 and 7 when the arc
/// would meet a or b within 0.1 of the corner; 6 and 8 when the normal there has no direction; 9 when the
/// normals don't meet; 10 and 11 when the arc's end on a or b is within 0.1 of its centre; 12 and 13 when a
/// or b has no direction; 14 and 15 when the tangent points have none from the corner; 16 and 17 when the arc
/// meets a or b within 0.1 of its start. On 16 the arc has been written, on 17 the arc and out_a.
ZUCOMN_API int Esg_fillet_l2l(const Point* pick, const Line* a, const Line* b, double r, Arcs* arc,
                              Line* out_a, Line* out_b);
