#include "near_points.h"

#include <cmath>

namespace {

constexpr double kPi = 3.141592653589793;
constexpr Point kOrigin{0.0, 0.0};

TEST(Basics, AngleSnapsNearTheVerticalAndKeepsSmallNegativeAngles) {
    const std::tuple<Point, int, double> cases[] = {
        {{0.05, 5}, 0, 90.0},
        {{0.05, -5}, 0, 270.0},
        {{0.05, 0.05}, 1, 0.0},
        {{-0.1, 0.1}, 1, 0.0},
        {{-0.1, -9}, 0, 270.0},
        {{0.05, 0.101}, 0, 90.0},
        {{-0.101, 0}, 0, 180.0},
        {{-10, 0}, 0, 180.0},
        {{0.2, 0}, 0, 0.0},
        {{3, 3}, 0, 45.0},
        {{3, -3}, 0, 315.0},
        {{10, -1e-7}, 0, -1e-8 * 180 / kPi},
        {{10, -0.00095}, 0, -0.00095 * 18 / kPi},
        {{10, -0.0011}, 0, 360 - 0.0011 * 18 / kPi},
    };
    for (const auto& [to, code, expectedAngle] : cases) {
        double angle = 5.0;
        EXPECT_EQ(Esg_get_angle(&kOrigin, &to, &angle), code);
        EXPECT_NEAR(angle, expectedAngle, 1e-9) << to.x << ' ' << to.y;
    }
}

TEST(Basics, UnitVectorsOfAxisParallelLinesAndLengthsAreExact) {
    // The nearest numbers to cosine and sine of the angles, which C libraries miss by some bits.
    const std::pair<Line, Point> cases[] = {{{0, 0, 0, -5}, {-1.8369701987210297e-16, -1}},
                                            {{0, 0, 0, 5}, {6.123233995736766e-17, 1}},
                                            {{5, 0, 0, 0}, {-1, 1.2246467991473532e-16}},
                                            {{0, 0, 5, 0}, {1, 0}}};
    for (const auto& [line, expected] : cases) {
        Point unit{};
        ASSERT_EQ(Esg_line_vectle(&line, &unit), 0);
        EXPECT_EQ(unit.x, expected.x);
        EXPECT_EQ(unit.y, expected.y);
    }
    const Line slope{1, 1, -2, -3};
    Point unit{};
    ASSERT_EQ(Esg_line_vectle(&slope, &unit), 0);
    expectPoint(unit, {-0.6, -0.8});
    double length = 0.0;
    ASSERT_EQ(Esg_line_length(&slope, &length), 0);
    EXPECT_EQ(length, 5.0);
}

TEST(Basics, DegenerateLinesLeaveOutputsUntouchedOrFallBack) {
    const Line line{3, 4, 3, 4};
    const Point p{7, 8};
    Point unit = kUntouched;
    Point foot = kUntouched;
    double length = 5.0;
    int side = 9;
    EXPECT_EQ(Esg_line_vectle(&line, &unit), 1);
    EXPECT_EQ(Esg_line_length(&line, &length), 1);
    Esg_judge_pside(&line, &p, &side);
    Esg_project_p2l(&p, &line, &foot);
    EXPECT_EQ(unit.x, kUntouched.x);
    EXPECT_EQ(length, 5.0);
    EXPECT_EQ(side, 0);
    expectPoint(foot, p);
    Line parallel{5, 6, 7, 8};
    EXPECT_EQ(Esg_parallel_line(&line, &p, 0.0, &parallel), 1);
    EXPECT_EQ(parallel.x1, 5.0);
    Esg_mirror(&line, 1, &p, &unit);
    expectPoint(unit, p);
}

TEST(Basics, SideToleranceAppliesToTheCrossProduct) {
    const std::tuple<Line, Point, int> cases[] = {
        {{0, 0, 1000, 0}, {500, 0.00005}, 0}, {{0, 0, 1000, 0}, {500, 0.00011}, 1},
        {{0, 0, 1, 0}, {0.5, 0.2}, 1},        {{0, 0, 1, 0}, {0.5, 0.1}, 0},
        {{0, 0, 1, 0}, {0.5, -0.11}, -1},     {{0, 5, 0, 0}, {2, 1}, 1},
    };
    for (const auto& [line, p, expectedSide] : cases) {
        int side = 9;
        Esg_judge_pside(&line, &p, &side);
        EXPECT_EQ(side, expectedSide) << p.x << ' ' << p.y;
    }
}

TEST(Basics, SegmentExtendsHalfTheToleranceBeyondItsEnds) {
    const Line segment{0, 0, 10, 0};
    const std::pair<Point, int> cases[] = {{{0, 0}, 1},    {{10, 0}, 1},  {{10.2, 0}, 1}, {{10.25, 0}, 0},
                                           {{-0.3, 0}, 0}, {{5, 1.5}, 1}, {{5, 1.7}, 0}};
    for (const auto& [p, on] : cases)
        EXPECT_EQ(Esg_check_onPnt(&segment, &p, 0.5), on) << p.x << ' ' << p.y;
}

TEST(Basics, ParallelLineGoesToThePickedSideAndRightOfPointsOnTheLine) {
    const Line line{0, 0, 10, 0};
    const std::tuple<Point, double, int, double> cases[] = {
        {{5, 1}, 2, 0, 2}, {{5, -1}, 2, 0, -2}, {{5, 0}, 2, 0, -2}, {{5, 1}, -2, 0, -2}, {{5, 1}, 0, 2, 9}};
    for (const auto& [side, dist, code, y] : cases) {
        Line out{0, 9, 10, 9};
        EXPECT_EQ(Esg_parallel_line(&line, &side, dist, &out), code);
        expectPoint({out.x1, out.y1}, {0, y});
        expectPoint({out.x2, out.y2}, {10, y});
    }
}

TEST(Basics, ArraysGiveTheSameBitsAsSinglePointsAlsoInPlace) {
    std::vector<Point> points(103);
    for (int i = 0; i < 103; ++i)
        points[static_cast<std::size_t>(i)] = {std::sin(i) * 1e4, std::cos(i * 7) * 1e-3};
    const Line axis{3, -1, 8, 9};
    const Point centre{12, -5};
    std::vector<Point> mirrored = points;
    std::vector<Point> rotated(points.size(), kUntouched);
    Esg_mirror(&axis, 103, mirrored.data(), mirrored.data());
    Esg_rotate(33.0, &centre, 102, points.data(), rotated.data());
    for (std::size_t i = 0; i < 102; ++i) {
        Point one{};
        Esg_mirror(&axis, 1, &points[i], &one);
        EXPECT_TRUE(mirrored[i].x == one.x && mirrored[i].y == one.y);
        Esg_rotate(33.0, &centre, 1, &points[i], &one);
        EXPECT_TRUE(rotated[i].x == one.x && rotated[i].y == one.y);
    }
    EXPECT_EQ(rotated[102].x, kUntouched.x);
    Esg_rotate(33.0, &centre, -1, points.data(), nullptr);
    Esg_mirror(&axis, 0, points.data(), nullptr);
    const Point northEast{13, -3};
    Point turned{};
    Esg_rotate(90.0, &centre, 1, &northEast, &turned);
    expectPoint(turned, {10, -4});
}

} // namespace
