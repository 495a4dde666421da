#include "near_points.h"

#include <cmath>

namespace {

constexpr Line kXAxis{0, 0, 10, 0};
constexpr Line kYAxis{0, 0, 0, 10};

TEST(TangentArcs, CirclesInTheOrderOfTheTouchingPoints) {
    const double h = std::sqrt(3.0);
    const struct {
        Line a, b;
        double r;
        Point centres[4];
    } cases[] = {
        {kXAxis, kYAxis, 1, {{1, 1}, {1, -1}, {-1, 1}, {-1, -1}}},
        {kXAxis, {0, 0, 5, 5 * h}, 1, {{h, 1}, {-h, -1}, {1 / h, -1}, {-1 / h, 1}}},
        {kXAxis, {0, 0, -5, -5 * h}, 1, {{h, 1}, {-h, -1}, {1 / h, -1}, {-1 / h, 1}}},
        {{0, 0, 5, 5 * h}, {0, 0, -5, 0}, 1, {{-1 / h, 1}, {1 / h, -1}, {h, 1}, {-h, -1}}},
        // At small radii, centres at a third or at three times the distance are also within 0.5.
        {kXAxis,
         {0, 0, 5, 5 * h},
         0.26,
         {{0.26 * h, 0.26}, {-0.26 * h, -0.26}, {0.26 / h, 0.26 / 3}, {0.26 / h, -0.26}}},
        {kXAxis,
         {0, 0, 5, 5 * h},
         0.24,
         {{0.24 * h, 0.24}, {0.24 * h, -0.72}, {-0.24 * h, 0.72}, {-0.24 * h, -0.24}}},
    };
    for (const auto& c : cases) {
        Circle out[4] = {};
        ASSERT_EQ(Esg_tangentArc_l2l(&c.a, &c.b, c.r, out), 0);
        for (int i = 0; i < 4; ++i) {
            expectPoint({out[i].cx, out[i].cy}, c.centres[i]);
            EXPECT_EQ(out[i].r, c.r);
        }
    }
}

TEST(TangentArcs, FailuresLeaveTheCirclesUntouched) {
    const std::tuple<Line, Line, double, int> cases[] = {
        {{1, 1, 1, 1}, {2, 2, 2, 2}, 0, 1},
        {kXAxis, {2, 2, 2, 2}, 0, 2},
        {kXAxis, kXAxis, 0, 3},
        {kXAxis, kXAxis, 1, 4},
        {{0, 0, 0.09, 0}, kYAxis, 1, 5},
        {{0, 0, 0.05, 1000}, {0, 0, 0, 1000}, 1, 6},
        {{0, 0, 0.05, 1000}, {0, 1000, 0, 0}, 1, 6},
        {{0, 0, 2e20, 0}, {1e20, -1e20, 1e20, 1e20}, 1, 7},
        {{0, 2e20, 4e20, 2e20}, {2e20, 0, 2e20, 4e20}, 1, 7},
        {{0, 0, 2e20, 0}, {1e20, -1e20, 1e20, 1e20}, 1e19, 7},
        {{0, 1e5, 10, 1e5}, {1e5, 0, 1e5, 10}, 1e-15, 8},
    };
    for (const auto& [a, b, r, code] : cases) {
        Circle out[4] = {{7, 7, 7}};
        EXPECT_EQ(Esg_tangentArc_l2l(&a, &b, r, out), code);
        EXPECT_EQ(out[0].cx, 7.0);
    }
}

TEST(TangentLines, OuterThenInner) {
    const double x = 0.8;
    const double y = 2 * std::sin(std::acos(0.4));
    const struct {
        const char* name;
        Circle a, b;
        int code, count;
        Line lines[4];
    } cases[] = {
        {"apart",
         {0, 0, 2},
         {10, 0, 2},
         0,
         4,
         {{0, 2, 10, 2}, {0, -2, 10, -2}, {x, y, 10 - x, -y}, {x, -y, 10 - x, y}}},
        {"meeting", {0, 0, 2}, {3, 0, 2}, 0, 2, {{0, 2, 3, 2}, {0, -2, 3, -2}}},
        {"touching", {0, 0, 2}, {4, 0, 2}, 0, 2, {{0, 2, 4, 2}, {0, -2, 4, -2}}},
        {"a point",
         {0, 0, 5},
         {10, 0, 0},
         0,
         4,
         {{2.5, 7.5 / std::sqrt(3.0), 10, 0},
          {2.5, -7.5 / std::sqrt(3.0), 10, 0},
          {2.5, 7.5 / std::sqrt(3.0), 10, 0},
          {2.5, -7.5 / std::sqrt(3.0), 10, 0}}},
        {"touching inside", {0, 0, 5}, {2, 0, 3}, 0, 2, {{5, 0, 5, 0}, {5, 0, 5, 0}}},
        {"nested", {0, 0, 5}, {1, 0, 3}, 1, 9, {}},
        {"nested the other way", {0, 0, 3}, {1, 0, 5}, 1, 9, {}},
        {"near centres", {0, 0, 5}, {0.1, 0.1, 5}, 1, 9, {}},
        {"same centre", {1, 1, 5}, {1, 1, 3}, 1, 9, {}},
        {"least radii",
         {0, 0, 0.005},
         {10, 0, 0.006},
         0,
         4,
         {{-5e-7, 0.005, 9.9999994, 0.006},
          {-5e-7, -0.005, 9.9999994, -0.006},
          {5.5e-6, 0.005, 9.9999934, -0.006},
          {5.5e-6, -0.005, 9.9999934, 0.006}}},
        {"no radii", {0, 0, 0.004}, {10, 0, 0.005}, 1, 9, {}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        Line out[4] = {};
        int n = 9;
        EXPECT_EQ(Esg_tangentLine_c2c(&c.a, &c.b, out, &n), c.code);
        EXPECT_EQ(n, c.count);
        for (int i = 0; i < 4; ++i) {
            expectPoint({out[i].x1, out[i].y1}, {c.lines[i].x1, c.lines[i].y1}, 1e-7);
            expectPoint({out[i].x2, out[i].y2}, {c.lines[i].x2, c.lines[i].y2}, 1e-7);
        }
    }
}

TEST(Fillets, ThePickChoosesTheCorner) {
    const std::tuple<Point, Point, double, double> cases[] = {{{3, 3}, {1, 1}, 180, 270},
                                                              {{-3, 3}, {-1, 1}, 270, 0},
                                                              {{-3, -3}, {-1, -1}, 0, 90},
                                                              {{3, -3}, {1, -1}, 90, 180}};
    for (const auto& [pick, centre, first, last] : cases) {
        const Line a{-10, 0, 10, 0};
        const Line b{0, 10, 0, -10};
        Arcs arc{};
        Line outA{};
        Line outB{};
        ASSERT_EQ(Esg_fillet_l2l(&pick, &a, &b, 1.0, &arc, &outA, &outB), 0);
        expectPoint({arc.cx, arc.cy}, centre);
        expectPoint({arc.sang, arc.eang}, {first, last});
        expectPoint({outA.x1, outA.y1}, {centre.x, 0});
        expectPoint({outB.x1, outB.y1}, {0, centre.y});
        expectPoint({outA.x2, outA.y2}, {centre.x * 10, 0});
        expectPoint({outB.x2, outB.y2}, {0, centre.y * 10});
    }
}

TEST(Fillets, APickOnOneOfTheLinesChoosesTheWiderCorner) {
    const double h = std::sqrt(3.0);
    const Line slope{-5, -5 * h, 5, 5 * h};
    const Point pick{100, 0};
    Arcs arc{};
    Line outX{};
    Line outSlope{};
    ASSERT_EQ(Esg_fillet_l2l(&pick, &kXAxis, &slope, 1.0, &arc, &outX, &outSlope), 0);
    expectPoint({arc.cx, arc.cy}, {1 / h, -1});
    ASSERT_EQ(Esg_fillet_l2l(&pick, &slope, &kXAxis, 1.0, &arc, &outSlope, &outX), 0);
    expectPoint({arc.cx, arc.cy}, {1 / h, -1});
    expectPoint({outX.x2, outX.y2}, {10, 0});
    expectPoint({outSlope.x2, outSlope.y2}, {-5, -5 * h});
}

TEST(Fillets, ATrimmedLineEndsAtItsStartWhenThatLiesInTheRaysDirectionWithinAHundredthDegree) {
    // Beyond the arc the line spans less than 0.1 in x and counts as vertical; before the arc it does not.
    const struct { double slope, endY; } cases[] = {{1.7e-4, 1500}, {1.8e-4, -1000}};
    for (const auto& c : cases) {
        const Line a{1500 * c.slope, 1500, -1000 * c.slope, -1000};
        const Point pick{3000, 3000};
        Arcs arc{};
        Line outA{};
        Line outB{};
        ASSERT_EQ(Esg_fillet_l2l(&pick, &a, &kXAxis, 1000.0, &arc, &outA, &outB), 0);
        expectPoint({outA.x2, outA.y2}, {c.endY * c.slope, c.endY});
    }
}

TEST(Fillets, ResultsNameTheFailedStepAndLaterOutputsStayUntouched) {
    const std::tuple<const char*, Point, Line, Line, double, int, bool, bool> cases[] = {
        {"degenerate a", {3, 3}, {1, 1, 1, 1}, kYAxis, 1, 1, false, false},
        {"degenerate b", {3, 3}, kXAxis, {1, 1, 1, 1}, 1, 2, false, false},
        {"no radius", {3, 3}, kXAxis, kYAxis, 0, 3, false, false},
        {"parallel", {3, 3}, kXAxis, kXAxis, 1, 4, false, false},
        {"pick on b", {0, 3}, kXAxis, kYAxis, 1, 1, false, false},
        {"pick on a", {0, 3}, kYAxis, kXAxis, 1, 2, false, false},
        {"pick near b", {0.05, 3}, kXAxis, kYAxis, 1, 3, false, false},
        {"pick near a", {3, 0.05}, kXAxis, kYAxis, 1, 4, false, false},
        {"tiny radius", {3, 3}, kXAxis, kYAxis, 0.05, 5, false, false},
        {"far from 0", {3e20, 3e20}, {0, 2e20, 4e20, 2e20}, {2e20, 0, 2e20, 4e20}, 2e19, 6, false, false},
        {"tiny radius at b", {3, 1}, kXAxis, {0, 0, 9, 9}, 0.05, 7, false, false},
        {"b far from 0", {3e20, 1e20}, {0, 0, 4e20, 0}, {2e20, -2e20, 2e20, 2e20}, 2e19, 8, false, false},
        {"nearly parallel", {5e5, 1.25}, {0, 0, 1e6, 0}, {0, 0, 1e6, 5}, 1, 9, false, false},
        {"centre near a", {3, 0.25}, kXAxis, {0, 0, 10, 1.7}, 0.05, 10, false, false},
        {"centre near b", {3, 1}, kXAxis, {0, 0, 9, 9}, 0.12, 11, false, false},
        {"a starts where it meets the arc", {3, 3}, {1, 0, 10, 0}, kYAxis, 1, 16, true, false},
        {"b starts where it meets the arc", {3, 3}, kXAxis, {0, 1, 0, 10}, 1, 17, true, true},
    };
    for (const auto& [name, pick, a, b, r, code, expectedArc, lineA] : cases) {
        SCOPED_TRACE(name);
        Arcs arc{7, 7, 7, 7, 7};
        Line outA{7, 7, 7, 7};
        Line outB{7, 7, 7, 7};
        EXPECT_EQ(Esg_fillet_l2l(&pick, &a, &b, r, &arc, &outA, &outB), code);
        EXPECT_EQ(arc.cx != 7.0, expectedArc);
        EXPECT_EQ(outA.x1 != 7.0, lineA);
        EXPECT_EQ(outB.x1, 7.0);
    }
}

} // namespace
