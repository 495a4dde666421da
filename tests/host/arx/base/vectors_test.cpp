#include <gearc2d.h>
#include <gearc3d.h>
#include <geline2d.h>
#include <geline3d.h>
#include <gelnsg2d.h>
#include <gelnsg3d.h>
#include <geplane.h>

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <random>

namespace {

constexpr double kPi = std::numbers::pi;

/// Vectors of all directions, sizes and the limits of tolerances.
std::vector<AcGeVector3d> vectors() {
    std::vector<AcGeVector3d> all{{0, 0, 0},       {1, 0, 0},        {0, -1, 0},      {0, 0, 1},
                                  {0, 0, -1},      {1e-11, 0, 0},    {1e-9, 1e-9, 0}, {1e8, 1e8, -1e8},
                                  {0.01, 0.01, 1}, {1.0 / 64, 0, 1}, {-3, 4, 12}};
    std::mt19937 random(23); // NOLINT(cert-msc32-c,cert-msc51-cpp): repeatable
    std::uniform_real_distribution<double> number(-5.0, 5.0);
    for (int i = 0; i < 20; ++i)
        all.emplace_back(number(random), number(random), number(random));
    return all;
}

TEST(Vectors, PerpendicularVectorsMakeRightHandedAxes) {
    for (const AcGeVector3d& z : vectors()) {
        if (z.isZeroLength())
            continue;
        SCOPED_TRACE(testing::Message() << z.x << ' ' << z.y << ' ' << z.z);
        const AcGeVector3d x = z.perpVector();
        EXPECT_TRUE(x.isUnitLength());
        EXPECT_NEAR(x.dotProduct(z.normal()), 0.0, 1e-12);
        AcGePoint3d origin;
        AcGeVector3d axes[3];
        AcGeMatrix3d::planeToWorld(z).getCoordSystem(origin, axes[0], axes[1], axes[2]);
        EXPECT_LT((axes[0] - x).length() + (axes[2] - z.normal()).length(), 1e-12);
        EXPECT_NEAR(AcGeMatrix3d::planeToWorld(z).det(), 1.0, 1e-12);
        EXPECT_TRUE((AcGeMatrix3d::planeToWorld(z) * AcGeMatrix3d::worldToPlane(z))
                        .isEqualTo(AcGeMatrix3d::kIdentity));
    }
}

TEST(Vectors, AnglesHaveTheSignOfTheReference) {
    for (const AcGeVector3d& axis : vectors()) {
        if (axis.isZeroLength())
            continue;
        const AcGeVector3d start = axis.perpVector() * 3.0;
        for (const double angle : {0.0, 1e-6, 0.5, kPi / 2, 3.0, kPi, 4.0, 2 * kPi - 1e-6}) {
            AcGeVector3d turned = start;
            turned.rotateBy(angle, axis);
            EXPECT_NEAR(turned.length(), 3.0, 1e-12);
            EXPECT_NEAR(start.angleTo(turned), std::min(angle, 2 * kPi - angle), 1e-7);
            const double around = start.angleTo(turned, axis);
            EXPECT_NEAR(std::remainder(around - angle, 2 * kPi), 0.0, 1e-9);
            EXPECT_GE(around, 0.0);
            EXPECT_LT(around, 2 * kPi);
            EXPECT_NEAR(std::remainder(start.angleTo(turned, -axis) + angle, 2 * kPi), 0.0, 1e-9);
        }
    }
    EXPECT_EQ(AcGeVector3d().angleTo(AcGeVector3d()), 0.0);
    EXPECT_NEAR(AcGeVector2d(0, -2).angle(), 1.5 * kPi, 1e-12);
    EXPECT_NEAR(AcGeVector2d(0, 1).angleToCCW({1, 0}), 1.5 * kPi, 1e-12);
    EXPECT_EQ(AcGeVector2d(1, -1e-300).angle(), 0.0) << "below a whole turn";
}

TEST(Vectors, DirectionsAreComparedWithinTheTolerance) {
    const AcGeTol loose = AcGeTol().setEqualVector(1e-3);
    const AcGeVector3d x(1, 0, 0);
    const struct {
        AcGeVector3d v;
        bool parallel, codirectional, perpendicular; ///< To the x axis.
        bool looselyParallel, looselyPerpendicular;
    } cases[] = {
        {{5, 0, 0}, true, true, false, true, false},        {{-1e-3, 0, 0}, true, false, false, false, false},
        {{0, 1e6, 0}, false, false, true, false, true},     {{1, 1e-5, 0}, false, false, false, true, false},
        {{1e-5, 0, 1}, false, false, false, false, true},   {{0, 0, 0}, false, false, false, false, false},
        {{1e-11, 0, 0}, false, false, false, false, false}, {{1, 1e-11, 0}, true, true, false, true, false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << c.v.x << ' ' << c.v.y << ' ' << c.v.z);
        EXPECT_EQ(x.isParallelTo(c.v), c.parallel);
        EXPECT_EQ(c.v.isParallelTo(x), c.parallel);
        EXPECT_EQ(x.isCodirectionalTo(c.v), c.codirectional);
        EXPECT_EQ(x.isPerpendicularTo(c.v), c.perpendicular);
        EXPECT_EQ(x.isParallelTo(c.v, loose), c.looselyParallel);
        EXPECT_EQ(x.isPerpendicularTo(c.v, loose), c.looselyPerpendicular);
    }
    AcGeError error = AcGe::kOk;
    EXPECT_FALSE(AcGeVector3d().isParallelTo(x, AcGeTol(), error));
    EXPECT_EQ(error, AcGe::k0This);
    EXPECT_FALSE(x.isPerpendicularTo(AcGeVector3d(), AcGeTol(), error));
    EXPECT_EQ(error, AcGe::k0Arg1);
    EXPECT_FALSE(x.isCodirectionalTo({0, 1, 0}, AcGeTol(), error));
    EXPECT_EQ(error, AcGe::kOk);
}

TEST(Planes, ProjectAlongTheirNormalOrADirection) {
    for (const AcGeVector3d& normal : vectors()) {
        if (normal.isZeroLength(AcGeTol().setEqualVector(1e-8)))
            continue;
        const AcGePlane plane({1, 2, 3}, normal);
        const AcGePoint3d p(-4, 5, 6);
        const AcGePoint3d foot = p.orthoProject(plane);
        EXPECT_TRUE(plane.isOn(foot, AcGeTol().setEqualPoint(1e-9)));
        EXPECT_LT(foot.distanceTo(plane.closestPointTo(p)), 1e-9);
        EXPECT_NEAR(std::abs(plane.signedDistanceTo(p)), foot.distanceTo(p), 1e-9);
        EXPECT_NEAR(plane.signedDistanceTo(p), normal.normal().dotProduct(p - AcGePoint3d(1, 2, 3)), 1e-9);
        double a = 0;
        double b = 0;
        double c = 0;
        double d = 0;
        plane.getCoefficients(a, b, c, d);
        EXPECT_NEAR(a * foot.x + b * foot.y + c * foot.z + d, 0.0, 1e-9);
        const AcGePlane again(a, b, c, d);
        EXPECT_TRUE(again.isCoplanarTo(plane, AcGeTol().setEqualPoint(1e-9)));
        // To the plane's coordinates and back.
        const AcGePoint3d back(plane, foot.convert2d(plane));
        EXPECT_LT(back.distanceTo(foot), 1e-9);
        AcGePoint3d mirrored = p;
        mirrored.mirror(plane);
        EXPECT_LT((mirrored + (p - mirrored) / 2.0).distanceTo(foot), 1e-9);
    }
    EXPECT_EQ(AcGePoint3d(1, 1, 1).project(AcGePlane::kXYPlane, {1, 0, 0}), AcGePoint3d(1, 1, 1))
        << "parallel to the plane";
}

TEST(Planes, MeetInALineOfBoth) {
    std::mt19937 random(29); // NOLINT(cert-msc32-c,cert-msc51-cpp): repeatable
    std::uniform_real_distribution<double> number(-5.0, 5.0);
    const auto plane = [&] {
        return AcGePlane(AcGePoint3d(number(random), number(random), number(random)),
                         AcGeVector3d(number(random), number(random), number(random)));
    };
    for (int i = 0; i < 100; ++i) {
        const AcGePlane a = plane();
        const AcGePlane b = plane();
        AcGeLine3d line;
        ASSERT_TRUE(a.intersectWith(b, line));
        const AcGeTol loose = AcGeTol().setEqualPoint(1e-7).setEqualVector(1e-7);
        for (const double t : {-10.0, 0.0, 10.0}) {
            EXPECT_TRUE(a.isOn(line.evalPoint(t), loose));
            EXPECT_TRUE(b.isOn(line.evalPoint(t), loose));
        }
        const AcGeLine3d across({number(random), number(random), number(random)}, b.normal());
        AcGePoint3d met;
        ASSERT_TRUE(b.intersectWith(across, met));
        EXPECT_TRUE(b.isOn(met, loose));
    }
    AcGeLine3d kept({1, 2, 3}, AcGeVector3d(0, 0, 1));
    EXPECT_FALSE(AcGePlane::kXYPlane.intersectWith(AcGePlane({0, 0, 5}, AcGeVector3d(0, 0, -1)), kept));
    EXPECT_EQ(kept.pointOnLine(), AcGePoint3d(1, 2, 3)) << "unchanged";
    AcGePoint3d point(7, 7, 7);
    EXPECT_FALSE(AcGePlane::kXYPlane.intersectWith(AcGeLine3d({0, 0, 1}, AcGeVector3d(1, 0, 0)), point));
    EXPECT_EQ(point, AcGePoint3d(7, 7, 7));
}

TEST(Lines, KnowTheirPointsAndEachOther) {
    const AcGeLineSeg2d segment({1, 1}, AcGePoint2d(4, 5));
    EXPECT_EQ(segment.length(), 5.0);
    EXPECT_EQ(segment.midPoint(), AcGePoint2d(2.5, 3));
    EXPECT_EQ(segment.closestPointTo({1, 0}), AcGePoint2d(1, 1)) << "not before the start";
    EXPECT_EQ(segment.distanceTo({8, 8}), 5.0);
    double parameter = -1.0;
    EXPECT_TRUE(segment.isOn(AcGePoint2d(2.5, 3), parameter));
    EXPECT_EQ(parameter, 0.5);
    AcGeLine2d whole;
    segment.getLine(whole);
    EXPECT_NEAR(whole.distanceTo({1, 0}), 0.6, 1e-12);
    AcGeLine2d across;
    segment.getPerpLine({1, 1}, across);
    EXPECT_TRUE(across.direction().isPerpendicularTo(whole.direction()));
    AcGePoint2d met;
    EXPECT_FALSE(segment.intersectWith(AcGeLineSeg2d({2, 1}, AcGePoint2d(5, 5)), met)) << "parallel";

    const AcGeLineSeg3d a({0, 0, 0}, AcGePoint3d(2, 0, 0));
    const AcGeLineSeg3d b({8, 0, 0}, AcGePoint3d(6, 0, 0));
    EXPECT_TRUE(a.isColinearTo(b));
    EXPECT_FALSE(a.isColinearTo(AcGeLineSeg3d({0, 1, 0}, AcGePoint3d(2, 1, 0))));
    EXPECT_FALSE(a == b);
    EXPECT_TRUE(AcGeLine3d(a.startPoint(), a.endPoint()) == AcGeLine3d({5, 0, 0}, AcGeVector3d(9, 0, 0)));
    EXPECT_FALSE(AcGeLine3d(a.startPoint(), a.endPoint()) == AcGeLine3d({5, 0, 0}, AcGeVector3d(-9, 0, 0)));
    AcGePoint3dArray samples;
    a.getSamplePoints(5, samples);
    ASSERT_EQ(samples.length(), 5);
    EXPECT_EQ(samples[3], AcGePoint3d(1.5, 0, 0));
    AcGeLine3d(a.startPoint(), a.endPoint()).getSamplePoints(5, samples);
    EXPECT_TRUE(samples.isEmpty()) << "endless";
    EXPECT_TRUE(a.isOn(AcGePlane::kXYPlane));
    EXPECT_FALSE(AcGeLineSeg3d({0, 0, 0}, AcGePoint3d(1, 0, 1)).isOn(AcGePlane::kXYPlane));
}

TEST(Arcs, OfThreePointsRunThroughThem) {
    std::mt19937 random(31); // NOLINT(cert-msc32-c,cert-msc51-cpp): repeatable
    std::uniform_real_distribution<double> number(-5.0, 5.0);
    const auto point = [&] { return AcGePoint3d(number(random), number(random), number(random)); };
    for (int i = 0; i < 100; ++i) {
        const AcGePoint3d start = point();
        const AcGePoint3d through = point();
        const AcGePoint3d end = point();
        const AcGeCircArc3d arc(start, through, end);
        EXPECT_LT(arc.startPoint().distanceTo(start), 1e-8);
        EXPECT_LT(arc.endPoint().distanceTo(end), 1e-8);
        EXPECT_LT(arc.closestPointTo(through).distanceTo(through), 1e-8);
        const double middle = arc.paramOf(through);
        EXPECT_GT(middle, arc.startAng());
        EXPECT_LT(middle, arc.endAng());
        EXPECT_NEAR(arc.length(arc.startAng(), arc.endAng()), arc.radius() * (arc.endAng() - arc.startAng()),
                    1e-9);
        AcGeLine3d tangent;
        ASSERT_TRUE(arc.tangent(arc.evalPoint(middle), tangent, AcGeTol().setEqualPoint(1e-7)));
        EXPECT_NEAR(tangent.direction().dotProduct((arc.evalPoint(middle) - arc.center()).normal()), 0.0,
                    1e-7);
        EXPECT_FALSE(arc.tangent(arc.center(), tangent));
    }
    // Bulges of both signs, as a fraction and as a height.
    for (const double bulge : {0.2, 1.0, 3.0, -0.5, -2.0}) {
        const AcGePoint2d from(1, 2);
        const AcGePoint2d to(5, 5);
        const AcGeCircArc2d arc(from, to, bulge);
        EXPECT_EQ(arc.isClockWise(), bulge < 0.0);
        EXPECT_LT(arc.startPoint().distanceTo(from) + arc.endPoint().distanceTo(to), 1e-9);
        EXPECT_NEAR(arc.radius(), 5.0 * (1 + bulge * bulge) / (4 * std::abs(bulge)), 1e-9);
        EXPECT_NEAR(arc.endAng() - arc.startAng(), 4 * std::atan(std::abs(bulge)), 1e-9);
    }
}

} // namespace
