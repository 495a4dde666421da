#include "near_points.h"

#include <span>
#include <type_traits>

namespace {

TEST(Intersections, LinesAndSegments) {
    const std::tuple<Line, Line, int, int, Point> cases[] = {
        {{0, 0, 10, 0}, {5, -5, 5, 5}, 1, 1, {5, 0}},
        {{0, 0, 10, 0}, {10.24, -5, 10.24, 5}, 1, 1, {10.24, 0}},
        {{0, 0, 10, 0}, {10.26, -5, 10.26, 5}, 1, 0, {10.26, 0}},
        {{0, 0, 1, 0}, {0, 0, 1, 0.09}, 0, 0, {0, 0}},
        {{0, 0, 1, 0}, {0, 3, 1, 3.11}, 1, 0, {-3 / 0.11, 0}},
        {{0, 0, 1, 1}, {5, 5, 5, 5}, 0, 0, kUntouched},
        {{5, 5, 5, 5}, {0, 0, 1, 1}, 0, 0, kUntouched},
    };
    for (const auto& [a, b, lines, segments, expectedP] : cases) {
        Point p = kUntouched;
        EXPECT_EQ(Esg_inter_l2l(&a, &b, &p), lines);
        expectPoint(p, expectedP);
        p = kUntouched;
        EXPECT_EQ(Esg_inter_i2i(&a, &b, &p), segments);
        expectPoint(p, expectedP);
    }
}

struct CurveCase {
    const char* name;
    Line line;
    Arcs arc;
    int code;
    Point p1, p2;
};

template <typename Curve>
void check(int (*operation)(const Line*, const Curve*, Point*, Point*), std::span<const CurveCase> cases) {
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        Point p1 = kUntouched;
        Point p2 = kUntouched;
        Curve curve{};
        if constexpr (std::is_same_v<Curve, Arcs>)
            curve = c.arc;
        else
            curve = {c.arc.cx, c.arc.cy, c.arc.r};
        EXPECT_EQ(operation(&c.line, &curve, &p1, &p2), c.code);
        expectPoint(p1, c.p1, 1e-7);
        expectPoint(p2, c.p2, 1e-7);
    }
}

TEST(Intersections, LineAndCircle) {
    const CurveCase cases[] = {
        {"two, along the line", {20, 0, 10, 0}, {0, 0, 5, 0, 0}, 1, {5, 0}, {-5, 0}},
        {"touching from inside", {-1, 9.99975, 1, 9.99975}, {0, 0, 10, 0, 0}, 2, {0, 9.99975}, {0, 0}},
        {"touching from outside", {-1, 10.00025, 1, 10.00025}, {0, 0, 10, 0, 0}, 2, {0, 10.00025}, {0, 0}},
        {"just missing", {-1, 10.0006, 1, 10.0006}, {0, 0, 10, 0, 0}, 0, {0, 0}, {0, 0}},
        {"a circle without a radius", {-1, 0, 1, 0}, {0, 0, 0, 0, 0}, 0, {0, 0}, {0, 0}},
        {"touching radius 1", {-1, 0.99998, 1, 0.99998}, {0, 0, 1, 0, 0}, 2, {0, 0.99998}, {0, 0}},
        {"small radii",
         {-1, 0.49999, 1, 0.49999},
         {0, 0, 0.5, 0, 0},
         1,
         {-0.0031622, 0.49999},
         {0.0031622, 0.49999}},
        {"degenerate", {1, 1, 1, 1}, {0, 0, 5, 0, 0}, 0, kUntouched, kUntouched},
    };
    check(Esg_inter_l2c, cases);
}

TEST(Intersections, LineAndArc) {
    const CurveCase cases[] = {
        {"through 0 degrees", {-20, 0, 20, 0}, {0, 0, 10, 350, 10}, 2, {10, 0}, {0, 0}},
        {"first only", {-20, 0, 20, 0}, {0, 0, 10, 90, 270}, 2, {-10, 0}, {0, 0}},
        {"both, ends inside", {-20, 0, 20, 0}, {0, 0, 10, 0, 180}, 1, {-10, 0}, {10, 0}},
        {"neither", {-20, 0, 20, 0}, {0, 0, 10, 10, 170}, 0, {0, 0}, {0, 0}},
        {"touching outside the sweep", {-1, 10, 1, 10}, {0, 0, 10, 180, 270}, 0, {0, 0}, {0, 0}},
        {"touching in the sweep", {-1, 10, 1, 10}, {0, 0, 10, 0, 90}, 2, {0, 10}, {0, 0}},
        {"the ends are in the sweep", {-20, 0, 20, 0}, {0, 0, 10, 0, 180}, 1, {-10, 0}, {10, 0}},
        {"the ends of a sweep through 0", {-20, 0, 20, 0}, {0, 0, 10, 180, 0}, 1, {-10, 0}, {10, 0}},
        {"0 to 360 is 0 to 0", {-20, 0, 20, 0}, {0, 0, 10, 0, 360}, 2, {10, 0}, {0, 0}},
        {"one full turn is subtracted", {-20, 0, 20, 0}, {0, 0, 10, 530, 550}, 2, {-10, 0}, {0, 0}},
        {"negative angles stay", {-20, 0, 20, 0}, {0, 0, 10, -190, -170}, 0, {0, 0}, {0, 0}},
        {"a tiny arc is at 0", {-1, 0, 1, 0}, {0, 0, 0.05, 90, 270}, 0, {0, 0}, {0, 0}},
    };
    check(Esg_inter_l2a, cases);
}

TEST(Intersections, SegmentsKeepThePointsOnThem) {
    const CurveCase cases[] = {
        {"both", {-20, 0, 20, 0}, {0, 0, 10, 0, 359}, 1, {-10, 0}, {10, 0}},
        {"first, p2 unchanged", {-20, 0, 0, 0}, {0, 0, 10, 0, 359}, 2, {-10, 0}, {10, 0}},
        {"second, moved to p1", {0, 0, 20, 0}, {0, 0, 10, 0, 359}, 2, {10, 0}, {10, 0}},
        {"neither", {-5, 0, 5, 0}, {0, 0, 10, 0, 359}, 0, {-10, 0}, {10, 0}},
        {"touching beyond the end", {1, 10, 3, 10}, {0, 0, 10, 0, 359}, 0, {0, 10}, {0, 0}},
        {"missed", {-5, 20, 5, 20}, {0, 0, 10, 0, 359}, 0, {0, 0}, {0, 0}},
    };
    check(Esg_inter_i2c, cases);
    check(Esg_inter_i2a, cases);
}

TEST(Intersections, CirclePairs) {
    const std::tuple<const char*, Circle, Circle, int, int, Point, Point> cases[] = {
        {"touching on a horizontal", {0, 0, 5}, {10, 0, 5}, 0, 1, {5, 0}, {5, 0}},
        {"touching on a vertical", {0, 0, 5}, {0, 10, 5}, 0, 1, {0, 5}, {0, 5}},
        {"touching on a slope", {1, 2, 5}, {7, 10, 5}, 0, 1, {4, 6}, {4, 6}},
        {"lower point first", {1, 2, 5}, {7, 2, 5}, 0, 2, {4, -2}, {4, 6}},
        {"left point first", {0, 6, 5}, {0, 0, 5}, 0, 2, {-4, 3}, {4, 3}},
        {"barely apart along x", {0, 0, 5}, {10.0000018, 0, 5}, 0, 1, {5.0000009, 0}, {5.0000009, 0}},
        {"apart along x", {0, 0, 5}, {10.0000022, 0, 5}, 3, 0, kUntouched, kUntouched},
        {"barely meeting along x",
         {0, 0, 5},
         {9.9999998, 0, 5},
         0,
         2,
         {4.9999999, -0.001},
         {4.9999999, 0.001}},
        {"barely apart", {0, 0, 5}, {0, 10.00000045, 5}, 0, 1, {0, 5.000000225}, {0, 5.000000225}},
        {"apart", {0, 0, 5}, {0, 10.00000055, 5}, 3, 0, kUntouched, kUntouched},
        {"barely meeting", {0, 0, 5}, {0, 9.9999995, 5}, 0, 1, {0, 4.99999975}, {0, 4.99999975}},
        {"slightly off x",
         {0, 0, 30},
         {30, 1e-9, 20},
         0,
         2,
         {70 / 3.0, 18.8561808316},
         {70 / 3.0, -18.8561808316}},
        {"touching slightly off it", {-0.3, 0, 0.1}, {0, 1e-9, 0.2}, 0, 1, {-0.2, 0}, {-0.2, 0}},
        {"same", {1, 2, 5}, {1, 2, 5.0099}, 1, 0, kUntouched, kUntouched},
        {"concentric", {1, 2, 5}, {1, 2, 5.0101}, 2, 0, kUntouched, kUntouched},
    };
    for (const auto& [name, a, b, code, count, expectedP1, expectedP2] : cases) {
        SCOPED_TRACE(name);
        int n = 9;
        Point p1 = kUntouched;
        Point p2 = kUntouched;
        EXPECT_EQ(Esg_inter_c2c(&a, &b, &n, &p1, &p2), code);
        EXPECT_EQ(n, count);
        expectPoint(p1, expectedP1);
        expectPoint(p2, expectedP2);
    }
}

} // namespace
