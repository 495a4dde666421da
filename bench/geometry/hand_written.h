#pragma once

#include <zucomn/geometry.h>

// The operations written out straight, each in one function, as a measure for the library's own. Every value
// is computed once, no step is shared between functions.
namespace hand {

int lineLine(const Line& a, const Line& b, Point& p);
int lineCircle(const Line& l, const Circle& c, Point& p1, Point& p2);
int circleCircle(const Circle& a, const Circle& b, int& n, Point& p1, Point& p2);
int tangentLines(const Circle& a, const Circle& b, Line* out, int& n);
int tangentArcs(const Line& a, const Line& b, double r, Circle* out);
int fillet(const Point& pick, const Line& a, const Line& b, double r, Arcs& arc, Line& outA, Line& outB);
void rotate(double angle, const Point& centre, int count, const Point* src, Point* dst);
void mirror(const Line& axis, int count, const Point* src, Point* dst);

} // namespace hand
