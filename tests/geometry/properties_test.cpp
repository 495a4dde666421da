#include "near_points.h"

#include <cmath>
#include <numbers>
#include <random>

namespace {

/// Generates random input away from the vertical, where angles snap.
class Properties : public testing::Test {
protected:
    static constexpr int kRounds = 2000;

    double number(double low, double high) { return std::uniform_real_distribution(low, high)(random_); }
    Point point() { return {number(-500, 500), number(-500, 500)}; }
    Line line() { return {number(-500, 0), number(-500, 500), number(1, 500), number(-500, 500)}; }

    static double distance(const Point& a, const Point& b) { return std::hypot(a.x - b.x, a.y - b.y); }
    static double distance(const Line& l, const Point& p) {
        Point foot{};
        Esg_project_p2l(&p, &l, &foot);
        return distance(foot, p);
    }

private:
    std::mt19937 random_{20240607};
};

TEST_F(Properties, IntersectionsLieOnBothInputs) {
    for (int i = 0; i < kRounds; ++i) {
        const Line l = line();
        const Line m = line();
        const Circle c{number(-200, 200), number(-200, 200), number(50, 300)};
        Point p{};
        Point q{};
        if (Esg_inter_l2l(&l, &m, &p) == 1) {
            const double tolerance = 1e-8 * (1 + std::hypot(p.x, p.y));
            EXPECT_LT(distance(l, p), tolerance);
            EXPECT_LT(distance(m, p), tolerance);
        }
        if (Esg_inter_l2c(&l, &c, &p, &q) == 1) {
            EXPECT_NEAR(distance(p, {c.cx, c.cy}), c.r, 1e-8);
            EXPECT_LT(distance(l, q), 1e-8);
        }
    }
}

TEST_F(Properties, MirrorTwiceIsTheIdentity) {
    for (int i = 0; i < kRounds; ++i) {
        const Line axis = line();
        const Point p = point();
        Point q{};
        Esg_mirror(&axis, 1, &p, &q);
        EXPECT_NEAR(distance(axis, p), distance(axis, q), 1e-9);
        Esg_mirror(&axis, 1, &q, &q);
        expectPoint(q, p);
    }
}

// Circles in every direction, or 1e-16 to 1e-2 degrees off an axis, moved by up to 1e8.
TEST_F(Properties, CirclePairsMeetAndTangentsTouchInAnyDirectionAndPlace) {
    constexpr double kEpsilon = std::numeric_limits<double>::epsilon();
    const auto decades = [&](double low, double high) { return std::pow(10.0, number(low, high)); };
    for (int i = 0; i < 20 * kRounds; ++i) {
        const double span = decades(0, 5);
        const double turn = i % 2 != 0 ? number(0, 360) : 90 * std::floor(number(0, 4)) + decades(-16, -2);
        const double t = turn * std::numbers::pi / 180;
        const double offset = decades(0, 8);
        const Circle c{number(-offset, offset), number(-offset, offset), span * decades(-2, 1)};
        const Circle d{c.cx + span * std::cos(t), c.cy + span * std::sin(t), span * decades(-2, 1)};
        // The distance of the rounded centres.
        const long double distance =
            std::hypot(static_cast<long double>(d.cx) - c.cx, static_cast<long double>(d.cy) - c.cy);
        const double tolerance = 2 * kEpsilon * (std::abs(c.cx) + std::abs(c.cy) + span + c.r + d.r);
        const auto offCircle = [](const Circle& circle, const Point& p) {
            return std::abs(static_cast<double>(std::hypot(static_cast<long double>(p.x) - circle.cx,
                                                           static_cast<long double>(p.y) - circle.cy) -
                                                circle.r));
        };
        const double slack = 1e-4 * span;
        const bool nested = distance < std::abs(c.r - d.r) - slack;
        const bool apart = distance > c.r + d.r + slack;
        const bool meet = distance > std::abs(c.r - d.r) + slack && distance < c.r + d.r - slack;
        int n = 0;
        Point p{};
        Point q{};
        const int code = Esg_inter_c2c(&c, &d, &n, &p, &q);
        if (!nested && !apart && !meet)
            continue;
        ASSERT_EQ(code, meet ? 0 : 3);
        ASSERT_EQ(n, meet ? 2 : 0);
        if (meet) {
            for (const Circle& circle : {c, d})
                ASSERT_LT(std::max(offCircle(circle, p), offCircle(circle, q)), tolerance);
            ASSERT_TRUE(c.cy == d.cy ? p.y < q.y : p.x <= q.x);
        }
        Line out[4] = {};
        ASSERT_EQ(Esg_tangentLine_c2c(&c, &d, out, &n), nested ? 1 : 0);
        if (nested)
            continue;
        ASSERT_EQ(n, apart ? 4 : 2);
        for (int k = 0; k < n; ++k) {
            const Line& l = out[k];
            const Point ends[] = {{l.x1, l.y1}, {l.x2, l.y2}};
            ASSERT_LT(std::max(offCircle(c, ends[0]), offCircle(d, ends[1])), tolerance);
            // The line meets both radii at right angles.
            for (int j = 0; j < 2; ++j) {
                const Circle& circle = j == 0 ? c : d;
                const double along =
                    (l.x2 - l.x1) * (ends[j].x - circle.cx) + (l.y2 - l.y1) * (ends[j].y - circle.cy);
                ASSERT_LT(std::abs(along), 4 * tolerance * (circle.r + std::hypot(l.x2 - l.x1, l.y2 - l.y1)));
            }
        }
    }
}

TEST_F(Properties, FilletsTouchBothLinesInThePickedCornerWhateverTheOrderOfLinesAndEnds) {
    for (int i = 0; i < kRounds; ++i) {
        // Directions well off the axes, the pick well inside the corner, its feet on either half of the
        // lines.
        const double first = number(10, 80) + 90 * std::floor(number(0, 4));
        const double opening = number(20, 160);
        const double second = first + opening;
        const double offAxis = std::fmod(second, 90.0);
        const double toPick = opening * number(0.1, 0.9);
        const bool footAtCorner = std::abs(toPick - 90) < 2 || std::abs(opening - toPick - 90) < 2;
        if (offAxis < 10 || offAxis > 80 || footAtCorner)
            continue;
        const Point corner = point();
        const auto at = [&](double degrees, double distance) -> Point {
            const double t = degrees * std::numbers::pi / 180;
            return {corner.x + distance * std::cos(t), corner.y + distance * std::sin(t)};
        };
        const double r = number(50, 100);
        const Point pick = at(first + toPick, 300);
        const double angles[] = {i % 2 != 0 ? second : first, i % 2 != 0 ? first : second};
        const auto lineAt = [&](double degrees, double distance) -> Line {
            return {at(degrees, -distance).x, at(degrees, -distance).y, at(degrees, distance).x,
                    at(degrees, distance).y};
        };
        const Line a = lineAt(angles[0], i % 4 >= 2 ? 900 : -900);
        const Line b = lineAt(angles[1], i % 8 >= 4 ? 900 : -900);
        Arcs arc{};
        Line out[2] = {};
        ASSERT_EQ(Esg_fillet_l2l(&pick, &a, &b, r, &arc, &out[0], &out[1]), 0);
        const double half = opening * std::numbers::pi / 360;
        expectPoint({arc.cx, arc.cy}, at(first + opening / 2, r / std::sin(half)), 1e-6);
        for (int k = 0; k < 2; ++k) {
            expectPoint({out[k].x1, out[k].y1}, at(angles[k], r / std::tan(half)), 1e-6);
            expectPoint({out[k].x2, out[k].y2}, at(angles[k], 900), 1e-6);
        }
        EXPECT_NEAR(std::fmod(arc.eang - arc.sang + 360, 360), 180 - opening, 1e-6);
    }
}

TEST_F(Properties, ExtremeNumbersGiveOnlyDocumentedCodes) {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    const double specials[] = {0,      1,      -3,        1e15,       -1e15,       1e308,
                               1e-170, 5e-324, kInfinity, -kInfinity, std::nan("")};
    const auto any = [&] { return specials[static_cast<std::size_t>(number(0, 10.999))]; };
    for (int i = 0; i < 20 * kRounds; ++i) {
        const Line l{any(), any(), any(), any()};
        const Line m{any(), any(), any(), any()};
        const Circle c{any(), any(), any()};
        const Circle d{any(), any(), any()};
        const Arcs arc{any(), any(), any(), any(), any()};
        const auto within = [](int code, int most) { return code >= 0 && code <= most; };
        Point p{any(), any()};
        Point q{any(), any()};
        Line lines[4] = {};
        Circle circles[4] = {};
        Arcs round{};
        int n = 0;
        EXPECT_TRUE(within(Esg_fillet_l2l(&p, &l, &m, any(), &round, &lines[0], &lines[1]), 17));
        EXPECT_TRUE(within(Esg_parallel_line(&l, &p, any(), &lines[0]), 2));
        EXPECT_TRUE(within(Esg_tangentArc_l2l(&l, &m, any(), circles), 8));
        EXPECT_TRUE(within(Esg_tangentLine_c2c(&c, &d, lines, &n), 1) && (n == 0 || n == 2 || n == 4));
        EXPECT_TRUE(within(Esg_inter_c2c(&c, &d, &n, &p, &q), 3) && within(n, 2));
        EXPECT_TRUE(within(Esg_inter_i2i(&l, &m, &p), 1));
        EXPECT_TRUE(within(Esg_inter_i2c(&l, &c, &p, &q), 2));
        EXPECT_TRUE(within(Esg_inter_i2a(&l, &arc, &p, &q), 2));
        Esg_mirror(&l, 1, &p, &q);
        Esg_rotate(any(), &p, 1, &p, &q);
    }
}

} // namespace
