#include "hand_written.h"

#include <cmath>
#include <limits>

namespace hand {

namespace {

constexpr double kPi = 3.141592653589793;
constexpr double kRounding = 2.0 * std::numeric_limits<double>::epsilon();

/// Unit vector and length of a non-degenerate line.
void unitOf(double x1, double y1, double x2, double y2, double& ux, double& uy, double& length) {
    length = std::sqrt((x2 - x1) * (x2 - x1) + (y2 - y1) * (y2 - y1));
    double a;
    if (y1 == y2)
        a = x1 > x2 ? kPi : 0.0;
    else if (x1 == x2)
        a = y1 > y2 ? 3.0 * kPi / 2.0 : kPi / 2.0;
    else {
        a = std::acos((x2 - x1) / length);
        if (y1 > y2)
            a = 2.0 * kPi - a;
    }
    ux = std::cos(a);
    uy = std::sin(a);
}

bool angleOf(double x1, double y1, double x2, double y2, double& degrees) {
    const double dx = x2 - x1;
    const double dy = y2 - y1;
    if (std::fabs(dx) <= 0.1 && std::fabs(dy) <= 0.1)
        return false;
    double a;
    if (std::fabs(dx) > 0.1) {
        a = std::atan2(dy, dx);
        if (a < -0.0001)
            a += 2.0 * kPi;
    } else
        a = dy > 0.0 ? kPi / 2.0 : 3.0 * kPi / 2.0;
    degrees = a * 180.0 / kPi;
    return true;
}

int side(double x1, double y1, double dx, double dy, double px, double py) {
    const double c = (py - y1) * dx - (px - x1) * dy;
    return c > 0.1 ? 1 : c < -0.1 ? -1 : 0;
}

bool cross(double x1, double y1, double dx1, double dy1, double x2, double y2, double dx2, double dy2,
           double& x, double& y) {
    const double c1 = -dy1 * x1 + dx1 * y1;
    const double c2 = -dy2 * x2 + dx2 * y2;
    const double det = -dy1 * dx2 - -dy2 * dx1;
    if (std::fabs(det) <= 0.1)
        return false;
    x = (c1 * dx2 - c2 * dx1) / det;
    y = (-dy1 * c2 - -dy2 * c1) / det;
    return true;
}

} // namespace

int lineLine(const Line& a, const Line& b, Point& p) {
    if ((a.x1 == a.x2 && a.y1 == a.y2) || (b.x1 == b.x2 && b.y1 == b.y2))
        return 0;
    double ux, uy, ul, vx, vy, vl;
    unitOf(a.x1, a.y1, a.x2, a.y2, ux, uy, ul);
    unitOf(b.x1, b.y1, b.x2, b.y2, vx, vy, vl);
    if (cross(a.x1, a.y1, ux * ul, uy * ul, b.x1, b.y1, vx * vl, vy * vl, p.x, p.y))
        return 1;
    p.x = p.y = 0.0;
    return 0;
}

int lineCircle(const Line& l, const Circle& c, Point& p1, Point& p2) {
    if (l.x1 == l.x2 && l.y1 == l.y2)
        return 0;
    double ux, uy, ul;
    unitOf(l.x1, l.y1, l.x2, l.y2, ux, uy, ul);
    const double dx = c.cx - l.x1;
    const double dy = c.cy - l.y1;
    const double h = ux * dy - uy * dx;
    const double t = uy * dy + ux * dx;
    const double d = c.r * c.r - h * h;
    const double e = c.r >= 1.0 ? c.r * 0.001 * c.r * 0.1 : c.r * 0.0015 * c.r * 0.01;
    p1 = p2 = {0.0, 0.0};
    if (d <= -e)
        return 0;
    if (d < e) {
        p1 = {l.x1 + t * ux, l.y1 + t * uy};
        return 2;
    }
    const double s = std::sqrt(d);
    p1 = {l.x1 + (t - s) * ux, l.y1 + (t - s) * uy};
    p2 = {l.x1 + (t + s) * ux, l.y1 + (t + s) * uy};
    return 1;
}

int circleCircle(const Circle& a, const Circle& b, int& n, Point& p1, Point& p2) {
    n = 0;
    if (a.cy == b.cy && a.cx == b.cx)
        return std::fabs(a.r - b.r) < 0.01 ? 1 : 2;
    const double dx = b.cx - a.cx;
    const double dy = b.cy - a.cy;
    const double d = std::sqrt(dx * dx + dy * dy);
    const double ux = dx / d;
    const double uy = dy / d;
    const double sum = std::fabs(a.r) + std::fabs(b.r);
    const double ratio = (std::fabs(a.r) - std::fabs(b.r)) / d;
    const double foot = (d + ratio * sum) / 2.0;
    const double gap = sum - d;
    const double square = gap * (sum + d) * ((1.0 - ratio) * (1.0 + ratio)) / 4.0;
    const bool level = a.cy == b.cy;
    const bool touch =
        std::fabs(gap) <= kRounding * (sum + d) || std::fabs(1.0 - std::fabs(ratio)) <= kRounding;
    const double low = level ? -0.00001 : -0.00001 * uy * uy;
    const double scaled = level ? square : 4.0 * square;
    if ((level || !touch) && scaled < low)
        return 3;
    if (level ? square <= 0.0 : touch || scaled < -low) {
        p1 = p2 = {a.cx + foot * ux, a.cy + foot * uy};
        n = 1;
        return 0;
    }
    const double s = level ? -std::copysign(std::sqrt(square), ux) : std::copysign(std::sqrt(square), uy);
    p1 = {a.cx + (foot * ux - s * uy), a.cy + (foot * uy + s * ux)};
    p2 = {a.cx + (foot * ux + s * uy), a.cy + (foot * uy - s * ux)};
    n = 2;
    return 0;
}

int tangentLines(const Circle& a, const Circle& b, Line* out, int& n) {
    const double dx = b.cx - a.cx;
    const double dy = b.cy - a.cy;
    if (a.r + b.r < 0.01 || (std::fabs(dx) <= 0.1 && std::fabs(dy) <= 0.1))
        return 1;
    const double d = std::sqrt(dx * dx + dy * dy);
    const double ux = dx / d;
    const double uy = dy / d;
    const double outer = (a.r - b.r) / d;
    if (!(std::fabs(outer) <= 1.0 + kRounding))
        return 1;
    n = 2;
    int meet;
    Point p1, p2;
    const double inner = (a.r + b.r) / d;
    if (circleCircle(a, b, meet, p1, p2) != 0 && std::fabs(inner) <= 1.0)
        n = 4;
    for (int i = 0; i < n; i += 2) {
        const double c = i == 0 ? outer : inner;
        const double s = std::sqrt(std::fmax(0.0, (1.0 - c) * (1.0 + c)));
        const double r = i == 0 ? b.r : -b.r;
        const double lx = c * ux - s * uy;
        const double ly = c * uy + s * ux;
        const double rx = c * ux + s * uy;
        const double ry = c * uy - s * ux;
        out[i] = {a.cx + a.r * lx, a.cy + a.r * ly, b.cx + r * lx, b.cy + r * ly};
        out[i + 1] = {a.cx + a.r * rx, a.cy + a.r * ry, b.cx + r * rx, b.cy + r * ry};
    }
    return 0;
}

int tangentArcs(const Line& a, const Line& b, double r, Circle* out) {
    Point p;
    double alpha, beta;
    if (lineLine(a, b, p) == 0 || !angleOf(a.x1, a.y1, a.x2, a.y2, alpha) ||
        !angleOf(b.x1, b.y1, b.x2, b.y2, beta))
        return 1;
    double delta = std::fabs(alpha - beta);
    if (delta > 180.0)
        delta -= 180.0;
    const double reach[2] = {r / std::tan(delta / 2.0 * kPi / 180.0),
                             r / std::tan((180.0 - delta) / 2.0 * kPi / 180.0)};
    double x[2][4], y[2][4], nx[2][4], ny[2][4];
    for (int k = 0; k < 2; ++k) {
        const double angle = k == 0 ? alpha : beta;
        const double c[2] = {std::cos(angle * kPi / 180.0), std::cos((angle + 180.0) * kPi / 180.0)};
        const double s[2] = {std::sin(angle * kPi / 180.0), std::sin((angle + 180.0) * kPi / 180.0)};
        const double nc = std::cos((angle + 90.0) * kPi / 180.0);
        const double ns = std::sin((angle + 90.0) * kPi / 180.0);
        for (int i = 0; i < 4; ++i) {
            x[k][i] = p.x + reach[i / 2] * c[i % 2];
            y[k][i] = p.y + reach[i / 2] * s[i % 2];
            double ux, uy, l;
            unitOf(x[k][i], y[k][i], x[k][i] + 1000.0 * nc, y[k][i] + 1000.0 * ns, ux, uy, l);
            nx[k][i] = ux * l;
            ny[k][i] = uy * l;
        }
    }
    int count = 0;
    for (int i = 0; i < 4; ++i)
        for (int j = i / 2 * 2; j < i / 2 * 2 + 2; ++j) {
            double cx, cy;
            if (!cross(x[0][i], y[0][i], nx[0][i], ny[0][i], x[1][j], y[1][j], nx[1][j], ny[1][j], cx, cy))
                return 7;
            const double d = std::sqrt((cx - x[1][j]) * (cx - x[1][j]) + (cy - y[1][j]) * (cy - y[1][j]));
            if (std::fabs(d - r) < 0.5) {
                out[count] = {cx, cy, r};
                if (++count == 4)
                    return 0;
            }
        }
    return 0;
}

int fillet(const Point& pick, const Line& a, const Line& b, double r, Arcs& arc, Line& outA, Line& outB) {
    double ux, uy, ul, vx, vy, vl, px, py;
    unitOf(a.x1, a.y1, a.x2, a.y2, ux, uy, ul);
    unitOf(b.x1, b.y1, b.x2, b.y2, vx, vy, vl);
    if (!cross(a.x1, a.y1, ux * ul, uy * ul, b.x1, b.y1, vx * vl, vy * vl, px, py))
        return 4;
    const double ca = (pick.y - a.y1) * ux - (pick.x - a.x1) * uy;
    const double cb = (pick.y - b.y1) * vx - (pick.x - b.x1) * vy;
    const double fax = pick.x + uy * ca, fay = pick.y - ux * ca;
    const double fbx = pick.x + vy * cb, fby = pick.y - vx * cb;
    double sx, sy, sl, tx, ty, tl, alpha, beta;
    unitOf(px, py, fax, fay, sx, sy, sl);
    unitOf(px, py, fbx, fby, tx, ty, tl);
    if (!angleOf(px, py, fax, fay, alpha))
        return 3;
    if (!angleOf(px, py, fbx, fby, beta))
        return 4;
    const bool turnA =
        side(px, py, tx * tl, ty * tl, pick.x, pick.y) != side(px, py, tx * tl, ty * tl, fax, fay);
    const bool turnB =
        side(px, py, sx * sl, sy * sl, pick.x, pick.y) != side(px, py, sx * sl, sy * sl, fbx, fby);
    if (turnA) {
        alpha = alpha + 180.0 >= 360.0 ? alpha + 180.0 - 360.0 : alpha + 180.0;
        sx = -sx;
        sy = -sy;
    }
    if (turnB) {
        beta = beta + 180.0 >= 360.0 ? beta + 180.0 - 360.0 : beta + 180.0;
        tx = -tx;
        ty = -ty;
    }
    double g = std::fabs(alpha - beta);
    if (g > 180.0)
        g = 360.0 - g;
    const double t = r / std::tan(g / 2.0 * kPi / 180.0);
    const double ax = px + t * sx, ay = py + t * sy;
    const double bx = px + t * tx, by = py + t * ty;
    double da, db, nax, nay, nal, nbx, nby, nbl, cx, cy;
    if (!angleOf(px, py, ax, ay, da))
        return 5;
    if (!angleOf(px, py, bx, by, db))
        return 7;
    const double na = (da + 90.0) * kPi / 180.0;
    const double nb = (db + 90.0) * kPi / 180.0;
    unitOf(ax, ay, ax + 100.0 * std::cos(na), ay + 100.0 * std::sin(na), nax, nay, nal);
    unitOf(bx, by, bx + 100.0 * std::cos(nb), by + 100.0 * std::sin(nb), nbx, nby, nbl);
    if (!cross(ax, ay, nax * nal, nay * nal, bx, by, nbx * nbl, nby * nbl, cx, cy))
        return 9;
    double ga, gb;
    if (!angleOf(cx, cy, ax, ay, ga))
        return 10;
    if (!angleOf(cx, cy, bx, by, gb))
        return 11;
    const bool straight = ga > gb ? 360.0 - ga + gb <= 180.0 : gb - ga < 180.0;
    arc = {cx, cy, r, straight ? ga : gb, straight ? gb : ga};
    double ea, eb;
    if (!angleOf(ax, ay, a.x1, a.y1, ea))
        return 16;
    const bool startA = std::fabs(ea - da) < 0.01;
    outA = {ax, ay, startA ? a.x1 : a.x2, startA ? a.y1 : a.y2};
    if (!angleOf(bx, by, b.x1, b.y1, eb))
        return 17;
    const bool startB = std::fabs(eb - db) < 0.01;
    outB = {bx, by, startB ? b.x1 : b.x2, startB ? b.y1 : b.y2};
    return 0;
}

void rotate(double angle, const Point& centre, int count, const Point* src, Point* dst) {
    const double c = std::cos(angle * kPi / 180.0);
    const double s = std::sin(angle * kPi / 180.0);
    const double cx = centre.x, cy = centre.y;
    for (int i = 0; i < count; ++i) {
        const double x = src[i].x, y = src[i].y;
        dst[i].x = c * (x - cx) - s * (y - cy) + cx;
        dst[i].y = c * (y - cy) + s * (x - cx) + cy;
    }
}

void mirror(const Line& axis, int count, const Point* src, Point* dst) {
    double ux, uy, l;
    unitOf(axis.x1, axis.y1, axis.x2, axis.y2, ux, uy, l);
    const double nx = -uy, ny = ux;
    const double k = nx * axis.x1 + ny * axis.y1;
    for (int i = 0; i < count; ++i) {
        const double x = src[i].x, y = src[i].y;
        dst[i].x = 2.0 * k * nx - (2.0 * nx * ny * y + (nx * nx - ny * ny) * x);
        dst[i].y = (nx * nx - ny * ny) * y - 2.0 * nx * ny * x + 2.0 * k * ny;
    }
}

} // namespace hand
