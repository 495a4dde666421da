#pragma once

#include "export.h"

// Plane geometry: points, lines, circles and arcs, and the operations that lay out fittings, offsets and
// fillets with them. Needs the standard library only.
//
// Lengths are in drawing units (millimetres), angles in degrees, counter-clockwise from the +x axis. "Left"
// of a line is its counter-clockwise side, seen along its direction. A line is degenerate when its start and
// end are exactly equal. All tolerances are absolute.
//
// Pointers must not be null. Outputs must not alias inputs and are untouched on failure, unless stated
// otherwise. The functions are pure: they keep no state, allocate nothing, throw nothing and may run in any
// thread. Coordinates that are not finite, or whose squares overflow or underflow, give undefined coordinates
// or a failure code, but no undefined behaviour.

/// A point, or a unit vector where stated.
struct Point {
    double x;
    double y;
};

/// A line from start to end. Each operation states whether it treats it as a segment or as the infinite line.
struct Line {
    double x1;
    double y1;
    double x2;
    double y2;
};

/// A circle by centre and radius.
struct Circle {
    double cx;
    double cy;
    double r;
};

/// A counter-clockwise arc from `sang` to `eang`; it passes 0 degrees when `sang` is larger than `eang`.
struct Arcs {
    double cx;
    double cy;
    double r;
    double sang;
    double eang;
};

// ---- Angles, lengths, sides ----

/// Computes the direction from one point to another. Returns 0, or 1 with the angle 0.0 when the points are
/// within 0.1 of each other on both axes. A direction whose x component is at most 0.1 is exactly 90 or 270.
/// All others are in [0, 360), except that one less than 0.0001 radians below the +x axis stays slightly
/// negative.
ZUCOMN_API int Esg_get_angle(const Point* from, const Point* to, double* angle);

/// Computes the distance from start to end. Returns 0, or 1 for a degenerate line.
ZUCOMN_API int Esg_line_length(const Line* line, double* length);

/// Computes the unit vector from start to end from the line's angle. Returns 0, or 1 for a degenerate line.
ZUCOMN_API int Esg_line_vectle(const Line* line, Point* unit);

/// Determines the side of the infinite line on which a point lies: 1 left, -1 right, 0 on the line or for a
/// degenerate line. A point is on the line when the cross product of the line's vector (not normalised) and
/// the point's offset is within 0.1, that is, within a distance of 0.1 / length.
ZUCOMN_API void Esg_judge_pside(const Line* line, const Point* p, int* side);

/// Returns 1 when a point lies on the segment, else 0. The point lies on it when the path from start to end
/// through the point is less than `tol` longer than the segment, so the segment extends by tol / 2 beyond its
/// ends. The ends themselves always lie on it.
ZUCOMN_API int Esg_check_onPnt(const Line* segment, const Point* p, double tol);

/// Computes the foot of the perpendicular from a point to the infinite line; the point itself for a
/// degenerate line.
ZUCOMN_API void Esg_project_p2l(const Point* p, const Line* line, Point* foot);

// ---- Arrays of points, parallels ----

/// Mirrors `count` points across the infinite line; copies them when it is degenerate. `dst` equals `src` or
/// does not overlap it. Does nothing for a count of 0 or less.
ZUCOMN_API void Esg_mirror(const Line* axis, int count, const Point* src, Point* dst);

/// Rotates `count` points about a centre, counter-clockwise for a positive angle. `dst` equals `src` or does
/// not overlap it. Does nothing for a count of 0 or less.
ZUCOMN_API void Esg_rotate(double angle, const Point* centre, int count, const Point* src, Point* dst);

/// Computes a copy of a line, moved by `dist` to the side of `side_pt`, or to the right when that point is on
/// the line by Esg_judge_pside. A negative distance moves to the other side. Returns 0 on success, 1 for a
/// degenerate line, 2 when the distance is exactly 0.0, 3 when the line has no direction, 4 when it has no
/// length.
ZUCOMN_API int Esg_parallel_line(const Line* line, const Point* side_pt, double dist, Line* out);

// ---- Intersections ----
// "l" in a name stands for the infinite line, "i" for the segment by Esg_check_onPnt with tolerance 0.5.

/// Intersects two lines. Returns 1 with the intersection in p; 0 with p = (0, 0) for parallel lines, that is
/// when the cross product of their vectors (not normalised) is within 0.1; 0 with p untouched when a line is
/// degenerate.
ZUCOMN_API int Esg_inter_l2l(const Line* a, const Line* b, Point* p);

/// Intersects two segments. Returns 1 when the intersection of their lines lies on both, else 0. p is as set
/// by Esg_inter_l2l.
ZUCOMN_API int Esg_inter_i2i(const Line* a, const Line* b, Point* p);

/// Intersects a line and a circle. Returns 1 for two points, p1 first along the line's direction; 2 for one
/// point, when the line touches the circle, with p2 = (0, 0); 0 for none, with both (0, 0), or untouched for
/// a degenerate line. The line touches when r^2 minus the squared distance of the centre is within 0.0001 r^2
/// of 0 (0.000015 r^2 for r below 1). A circle of radius 0 has no intersections.
ZUCOMN_API int Esg_inter_l2c(const Line* l, const Circle* c, Point* p1, Point* p2);

/// Intersects a segment and a circle: works as Esg_inter_l2c and keeps the points on the segment. Returns 1
/// for both, 2 for one, which is moved to p1, 0 for none. p2 (on 2) or both points (on 0) keep the values of
/// Esg_inter_l2c.
ZUCOMN_API int Esg_inter_i2c(const Line* l, const Circle* c, Point* p1, Point* p2);

/// Intersects a line and an arc: works as Esg_inter_l2c and keeps the points on the arc. Returns 1 for both,
/// 2 for one, in p1, with p2 = (0, 0), 0 for none, with both (0, 0), or untouched for a degenerate line. The
/// arc includes its ends; angles are compared without tolerance. Arc angles of 360 or more are reduced by 360
/// once, so that an arc from 0 to 360 is only the point at 0.
ZUCOMN_API int Esg_inter_l2a(const Line* l, const Arcs* a, Point* p1, Point* p2);

/// Intersects a segment and an arc: works as Esg_inter_l2a and keeps the points on the segment, see
/// Esg_inter_i2c.
ZUCOMN_API int Esg_inter_i2a(const Line* l, const Arcs* a, Point* p1, Point* p2);

/// Intersects two circles. Returns 0 with n = 2 points, or with n = 1 and p1 = p2 when the circles touch.
/// Otherwise n is 0 and the points are untouched: returns 1 for the same centre and radii within 0.01, 2 for
/// the same centre, 3 when the circles do not meet. p1 has the smaller x; for centres at exactly the same y,
/// the smaller y.
///
/// The points lie on both circles within 1e-15 of the sum of coordinates, distance and radii, in every
/// direction. Let h be half the chord and t the angle between the centre line and the x axis. The circles
/// touch when 4 h^2 is within 0.00001 sin(t)^2 of 0, so the tolerance shrinks to the rounding error near the
/// x axis: there circles touch when the gap is within about 4e-16 of their size. With centres at exactly the
/// same y they do not meet when h^2 is below -0.00001, and touch when it is at most 0.
ZUCOMN_API int Esg_inter_c2c(const Circle* a, const Circle* b, int* n, Point* p1, Point* p2);

// ---- Tangents and fillets ----
// Esg_tangentArc_l2l and Esg_fillet_l2l use the angles of Esg_get_angle: a direction whose x component is at
// most 0.1 counts as vertical, and results built on it have an error of that size. Directions within 1e-6 of
// the x axis have an error of up to 2e-8 radians, as in Esg_line_vectle.

/// Computes the circles of radius r that touch two infinite lines, one in each of the four angles between
/// them. `out` has four elements; elements without a circle stay untouched and the number of circles is not
/// returned, so fill the array first, for example with a radius of 0. A centre is accepted when its distance
/// from b is within 0.5 of r. For small r (below about 0.5, and more as the lines approach a right angle),
/// circles that miss both lines by less than that may therefore replace correct ones.
///
/// Returns 0 on success, 1 or 2 when a or b is degenerate, 3 for r <= 0, 4 for parallel lines, 5 when the
/// ends of a line are within 0.1, 6 for equal or opposite directions, 7 when two perpendiculars do not meet,
/// 8 when a centre falls on its line. On 7 and 8 the circles found before have been written.
ZUCOMN_API int Esg_tangentArc_l2l(const Line* a, const Line* b, double r, Circle* out);

/// Computes the lines that touch two circles, each from a to b. `out` has four elements: first the outer
/// tangents, left and right of the direction from a to b; then, when the circles do not meet, the inner
/// tangents, leaving a on the left and on the right. n is 2 or 4. The ends have the precision of
/// Esg_inter_c2c in every direction, also near the vertical. Returns 0 on success, 1 when the centres are
/// within 0.1, the sum of the radii is below 0.01 or one circle lies inside the other.
ZUCOMN_API int Esg_tangentLine_c2c(const Circle* a, const Circle* b, Line* out, int* n);

/// Rounds the corner of two infinite lines in which the pick point lies: computes the arc of radius r, and
/// the lines trimmed to it. A trimmed line starts where it meets the arc. It ends at the start of the given
/// line if that lies beyond this point, seen from the corner (within 0.01 degrees), else at its end, wherever
/// that is. A negative r is accepted and gives an arc with that r in the opposite corner. A pick point on a
/// line, by Esg_judge_pside, selects the wider of the two corners beside it.
///
/// The ends of the arc and of the trimmed lines lie on the lines, except that a line within 1e-6 radians of
/// the x axis is missed by up to 2e-8 of the distance from its start (0.02 at 1e6). The distance of the
/// centre from both lines equals r within 1e-12 r for radii up to 1e4, and within 1e-10 r up to 1e6. This
/// does not hold when the corner and an end of the arc differ by at most 0.1 in x, so that the line counts as
/// vertical: the error of the centre is then up to 0.1 for corners of up to 90 degrees, and up to 0.05 /
/// cos(g / 2)^2 for a wider corner of g degrees (0.2 at 120, 6.6 at 170), whatever the radius; it is up to
/// several r when the end is within 1 of the corner.
///
/// Returns 0 on success, else:
///
/// - 1, 2: a or b is degenerate, or the foot of the pick point on it is the corner.
/// - 3, 4: r is exactly 0.0 or the foot on a is within 0.1 of the corner; the lines are parallel or the foot
/// on b is
///   within 0.1 of the corner.
/// - 5, 7: the arc would meet a or b within 0.1 of the corner.
/// - 6, 8: the normal of a or b at this point has no direction.
/// - 9: the normals do not meet.
/// - 10, 11: the arc's end on a or b is within 0.1 of its centre.
/// - 12 to 15: not returned; codes 1, 2, 5 and 7 cover lines and tangent points without a direction.
/// - 16, 17: the arc meets a or b within 0.1 of its start. On 16 the arc has been written, on 17 the arc and
/// out_a.
ZUCOMN_API int Esg_fillet_l2l(const Point* pick, const Line* a, const Line* b, double r, Arcs* arc,
                              Line* out_a, Line* out_b);
