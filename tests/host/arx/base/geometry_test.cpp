#include <gearc2d.h>
#include <gearc3d.h>
#include <geline2d.h>
#include <geline3d.h>
#include <gelnsg2d.h>
#include <gelnsg3d.h>
#include <geplane.h>

#include <gtest/gtest.h>

namespace {

constexpr double kPi = std::numbers::pi;
const AcGeVector3d kUp(0, 0, 1);

/// Circles of radius 5 and 2, and the quarter of the first in which x and y are positive.
const AcGeCircArc3d kCircle({0, 0, 0}, kUp, 5.0);
const AcGeCircArc3d kQuarter({0, 0, 0}, kUp, AcGeVector3d(1, 0, 0), 5.0, 0.0, kPi / 2);

template <typename Curve>
int crossings(const AcGeCircArc3d& arc, const Curve& other, AcGePoint3d (&found)[2]) {
    int count = -1;
    const bool meets = arc.intersectWith(other, count, found[0], found[1]);
    EXPECT_EQ(meets, count > 0);
    for (int i = 0; i < count; ++i) {
        EXPECT_TRUE(arc.isOn(found[i]));
        EXPECT_TRUE(other.isOn(found[i]));
    }
    return count;
}

} // namespace

TEST(Geometry, MatricesComposeAndInvert) {
    const AcGePoint3d p(3, -2, 5);
    const AcGeMatrix3d turn = AcGeMatrix3d::rotation(0.7, AcGeVector3d(1, 2, 3), AcGePoint3d(1, 1, 1));
    const AcGeMatrix3d grow = AcGeScale3d(2, -3, 4);
    const AcGeMatrix3d move = AcGeMatrix3d::translation({10, 20, 30});
    const AcGeMatrix3d all = move * turn * grow;
    EXPECT_LT((all * p).distanceTo(move * (turn * (grow * p))), 1e-9);
    EXPECT_LT((all.inverse() * (all * p)).distanceTo(p), 1e-9);
    EXPECT_NEAR(all.det(), -24, 1e-9);
    EXPECT_TRUE(turn.isUniScaledOrtho());
    EXPECT_TRUE(grow.isScaledOrtho());
    EXPECT_FALSE(grow.isUniScaledOrtho());
    EXPECT_FALSE((grow * turn).isScaledOrtho());
    const AcGePlane plane({1, 0, 0}, AcGeVector3d(1, 0, 0));
    EXPECT_LT((AcGeMatrix3d::mirroring(plane) * AcGePoint3d(3, 4, 5)).distanceTo({-1, 4, 5}), 1e-12);
    EXPECT_LT((AcGeMatrix3d::planeToWorld({0, 0, -1}) * AcGePoint3d(1, 2, 3)).distanceTo({-1, 2, -3}), 1e-12);
    const AcGeMatrix3d flat = AcGeMatrix3d::projection(plane, {1, 1, 0});
    EXPECT_LT((flat * AcGePoint3d(3, 4, 5)).distanceTo({1, 2, 5}), 1e-12);
    EXPECT_LT(AcGePoint3d(3, 4, 5).project(plane, {1, 1, 0}).distanceTo({1, 2, 5}), 1e-12);
    AcGeMatrix3d inverse;
    EXPECT_TRUE(flat.isSingular());
    EXPECT_FALSE(flat.inverse(inverse, 1e-10));
    EXPECT_EQ(flat.inverse(), AcGeMatrix3d::kIdentity);
    EXPECT_FALSE(AcGeMatrix3d::scaling(1e-6).isSingular()) << "small is not singular";
}

TEST(Geometry, LinesMeetWithinTheirEnds) {
    const AcGeLineSeg3d segment({0, 0, 0}, AcGePoint3d(10, 0, 0));
    const struct {
        AcGePoint3d start, end;
        bool meets;
    } cases[] = {
        {{4, -1, 0}, {4, 1, 0}, true},  {{4, 0, 0}, {4, 1, 0}, true},     {{4, 1, 0}, {4, 2, 0}, false},
        {{10, 0, 0}, {20, 7, 0}, true}, {{11, -1, 0}, {11, 1, 0}, false}, {{4, -1, 1}, {4, 1, 1}, false},
        {{2, 0, 0}, {5, 0, 0}, false},  {{4, 0, -1}, {4, 0, 1}, true},    {{4, 0, 0}, {4, 0, 0}, false},
    };
    for (const auto& [start, end, meets] : cases) {
        AcGePoint3d point(-1, -1, -1);
        EXPECT_EQ(segment.intersectWith(AcGeLineSeg3d(start, end), point), meets)
            << start.x << ' ' << start.y;
        EXPECT_LT(point.distanceTo(meets ? AcGePoint3d(start.x, 0, 0) : AcGePoint3d(-1, -1, -1)), 1e-12);
    }
    // Far from the origin coordinates are rounded to more than the tolerance.
    const AcGeLineSeg2d remote({3.1e7, 1.7e7}, AcGePoint2d(3.1e7 + 333.3, 1.7e7 + 77.7));
    const AcGeLineSeg2d across({3.1e7 + 100.1, 1.7e7 - 50}, AcGePoint2d(3.1e7 + 90.3, 1.7e7 + 100));
    AcGePoint2d met;
    EXPECT_TRUE(remote.intersectWith(across, met));
    EXPECT_EQ(segment.closestPointTo({12, 3, 4}), AcGePoint3d(10, 0, 0));
    EXPECT_EQ(AcGeLine3d(segment.startPoint(), segment.endPoint()).closestPointTo({12, 3, 4}),
              AcGePoint3d(12, 0, 0));
    EXPECT_TRUE(AcGeLineSeg3d({1, 1, 1}, AcGePoint3d(1, 1, 1)).isOn(AcGePoint3d(1, 1, 1)));
}

TEST(Geometry, ArcsMeetLinesArcsAndPlanes) {
    AcGePoint3d found[2];
    const auto line = [](const AcGePoint3d& p, const AcGeVector3d& v) { return AcGeLine3d(p, v); };
    EXPECT_EQ(crossings(kCircle, line({0, 3, 0}, {1, 0, 0}), found), 2);
    EXPECT_LT(found[0].distanceTo({-4, 3, 0}), 1e-12) << "in the order of the line";
    EXPECT_LT(found[1].distanceTo({4, 3, 0}), 1e-12);
    EXPECT_EQ(crossings(kCircle, line({0, 5, 0}, {1, 0, 0}), found), 1) << "touches";
    EXPECT_EQ(crossings(kCircle, line({0, 5.001, 0}, {1, 0, 0}), found), 0);
    EXPECT_EQ(crossings(kQuarter, line({0, 3, 0}, {1, 0, 0}), found), 1);
    EXPECT_EQ(crossings(kCircle, line({0, 3, 1}, {1, 0, 0}), found), 0) << "above";
    EXPECT_EQ(crossings(kCircle, line({5, 0, 7}, {0, 0, 1}), found), 1) << "pierces the plane";
    EXPECT_EQ(crossings(kCircle, AcGeLineSeg3d({0, 3, 0}, AcGePoint3d(1, 3, 0)), found), 0) << "inside";
    const auto circle = [](const AcGePoint3d& c, const AcGeVector3d& n, double r) {
        return AcGeCircArc3d(c, n, r);
    };
    EXPECT_EQ(crossings(kCircle, circle({8, 0, 0}, -kUp, 5), found), 2);
    EXPECT_EQ(crossings(kQuarter, circle({8, 0, 0}, kUp, 5), found), 1);
    EXPECT_LT(found[0].distanceTo({4, 3, 0}), 1e-12);
    EXPECT_EQ(crossings(kCircle, circle({7, 0, 0}, kUp, 2), found), 1) << "outside touching";
    EXPECT_EQ(crossings(kCircle, circle({3, 0, 0}, kUp, 2), found), 1) << "inside touching";
    EXPECT_EQ(crossings(kCircle, circle({1, 0, 0}, kUp, 2), found), 0);
    EXPECT_EQ(crossings(kCircle, kQuarter, found), 0) << "the same circle";
    EXPECT_EQ(crossings(kCircle, circle({0, 0, 0}, {0, 1, 0}, 5), found), 2) << "across";
    EXPECT_EQ(crossings(kCircle, AcGePlane({3, 0, 0}, AcGeVector3d(1, 0, 0)), found), 2);
}

TEST(Geometry, ArcsKnowTheirParameters) {
    // Starts at 270 degrees, ends at 90, through the x axis.
    const AcGeCircArc3d arc({0, 0, 0}, kUp, AcGeVector3d(1, 0, 0), 2.0, 1.5 * kPi, 0.5 * kPi);
    EXPECT_NEAR(arc.paramOf({3, 0, 0}), 2 * kPi, 1e-12);
    EXPECT_LT(arc.closestPointTo({-1, 1, 0}).distanceTo({0, 2, 0}), 1e-12);
    EXPECT_LT(arc.closestPointTo({-1, -1, 5}).distanceTo({0, -2, 0}), 1e-12);
    EXPECT_NEAR(arc.length(arc.startAng(), arc.endAng()), 2 * kPi, 1e-12);
    EXPECT_FALSE(arc.isClosed());
    EXPECT_TRUE(kCircle.isClosed());
    AcGeCircArc3d moved = arc;
    moved.mirror(AcGePlane({0, 0, 0}, AcGeVector3d(1, 0, 0))).scaleBy(3.0);
    EXPECT_LT(moved.startPoint().distanceTo({0, -6, 0}), 1e-12);
    EXPECT_LT(moved.evalPoint(2 * kPi).distanceTo({-6, 0, 0}), 1e-12);
    EXPECT_NEAR(moved.radius(), 6.0, 1e-12);
    const AcGeCircArc3d through(AcGePoint3d(0, 2, 1), {-2, 0, 1}, AcGePoint3d(0, -2, 1));
    EXPECT_LT(through.center().distanceTo({0, 0, 1}), 1e-12);
    EXPECT_NEAR(through.endAng(), kPi, 1e-12);
    AcGeError error = AcGe::kOk;
    AcGeCircArc3d kept = arc;
    kept.set({0, 0, 0}, {1, 1, 1}, {2, 2, 2}, error);
    EXPECT_NE(error, AcGe::kOk);
    EXPECT_EQ(kept, arc);
    // The bulge of a polyline.
    const AcGeCircArc2d bulged({0, 0}, {2, 0}, -1.0);
    EXPECT_TRUE(bulged.isClockWise());
    EXPECT_TRUE(bulged.isOn(AcGePoint2d(1, 1)));
    EXPECT_FALSE(bulged.isOn(AcGePoint2d(1, -1)));
    EXPECT_LT(bulged.startPoint().distanceTo({0, 0}) + bulged.endPoint().distanceTo({2, 0}), 1e-12);
}
