#include "dbelipse.h"
#include "geplane.h"
#include "sample_drawing.h"
#include "test_curves.h"

#include <cmath>
#include <numbers>

namespace {

using CurveCuts = SampleDrawing;

Curve heavy(const std::vector<Vertex>& vertices, bool closed = false) {
    AcGePoint3dArray points;
    AcGeDoubleArray bulges;
    for (const Vertex& vertex : vertices) {
        points.append({vertex.point.x, vertex.point.y, 0.0});
        bulges.append(vertex.bulge);
    }
    return std::make_unique<AcDb2dPolyline>(AcDb::k2dSimplePoly, points, 2.0, closed, 0.0, 0.0, &bulges);
}

AcGePoint3d pointAt(const AcDbCurve& curve, double distance) {
    AcGePoint3d point;
    EXPECT_EQ(curve.getPointAtDist(distance, point), Acad::eOk) << distance;
    return point;
}

std::vector<Curve> owned(const AcDbVoidPtrArray& curves) {
    std::vector<Curve> all;
    for (void* const curve : curves)
        all.emplace_back(static_cast<AcDbCurve*>(curve));
    return all;
}

struct Named {
    const char* name;
    Curve curve;
};

std::vector<Named> allCurves() {
    std::vector<Named> all;
    const auto add = [&](const char* name, Curve curve) { all.push_back({name, std::move(curve)}); };
    const std::vector<Vertex> bent{{{0, 0}, 0.4}, {{3, 0}}, {{3, 4}, -1.7}, {{0, 6}}};
    add("line", std::make_unique<AcDbLine>(AcGePoint3d(1, 2, 3), AcGePoint3d(3, 5, 9)));
    add("circle", std::make_unique<AcDbCircle>(AcGePoint3d(1, 2, 3), AcGeVector3d(1, 2, 2), 2.0));
    add("arc", std::make_unique<AcDbArc>(AcGePoint3d(1, 1, 0), 2.0, 1.5 * kPi, 0.5 * kPi));
    add("ellipse", std::make_unique<AcDbEllipse>(AcGePoint3d(1, 1, 0), kUp, AcGeVector3d(0, 4, 0), 0.5));
    add("elliptical arc",
        std::make_unique<AcDbEllipse>(AcGePoint3d(1, 1, 0), kUp, AcGeVector3d(4, 0, 0), 0.5, 1.0, 3.0));
    add("polyline", polyline(bent));
    add("closed polyline", polyline(bent, true));
    add("2d polyline", heavy(bent));
    add("closed 2d polyline", heavy(bent, true));
    add("3d polyline", polyline3d({{0, 0, 0}, {2, 0, 0}, {2, 2, 0}, {2, 2, 1}}, true));
    return all;
}

} // namespace

TEST_F(CurveCuts, PartsAreTheCurveInOrder) {
    for (const auto& [name, curve] : allCurves()) {
        SCOPED_TRACE(name);
        curve->setColorIndex(3);
        double first = 0.0;
        double last = 0.0;
        curve->getStartParam(first);
        curve->getEndParam(last);
        AcGeDoubleArray params;
        for (const double t : {0.0, 0.2, 0.55})
            params.append(std::lerp(first, last, t));
        AcDbVoidPtrArray found;
        ASSERT_EQ(curve->getSplitCurves(params, found), Acad::eOk);
        const std::vector<Curve> parts = owned(found);
        ASSERT_EQ(parts.size(), 3U);
        double before = 0.0;
        for (const Curve& part : parts) {
            const double length = lengthOf(*part);
            for (int i = 0; i <= 8; ++i)
                EXPECT_TRUE(
                    pointAt(*part, length * i / 8.0)
                        .isEqualTo(pointAt(*curve, std::min(before + length * i / 8.0, lengthOf(*curve))),
                                   AcGeTol().setEqualPoint(1e-6)))
                    << i;
            before += length;
            EXPECT_EQ(part->colorIndex(), 3);
        }
        EXPECT_NEAR(before, lengthOf(*curve), 1e-6);
    }
}

TEST_F(CurveCuts, RefuseParametersThatDoNotAscendOrAreNotOnTheCurve) {
    const AcDbLine line({0, 0, 0}, {10, 0, 0});
    const AcDbCircle circle({0, 0, 0}, kUp, 1);
    AcDbVoidPtrArray found;
    for (const auto& [a, b] : {std::pair{4.0, 2.0}, std::pair{3.0, 3.0}, std::pair{3.0, 11.0},
                               std::pair{-1.0, 3.0}, std::pair{3.0, std::nan("")}}) {
        AcGeDoubleArray params;
        params.append(a);
        params.append(b);
        EXPECT_EQ(line.getSplitCurves(params, found), Acad::eInvalidInput) << a << ' ' << b;
    }
    EXPECT_EQ(circle.getSplitCurves(AcGeDoubleArray(), found), Acad::eInvalidInput);
    AcGePoint3dArray points;
    points.append({1, 1, 0});
    EXPECT_EQ(line.getSplitCurves(points, found), Acad::eInvalidInput);
    EXPECT_TRUE(found.isEmpty());
    points[0] = {0, 1, 0};
    ASSERT_EQ(circle.getSplitCurves(points, found), Acad::eOk);
    const std::vector<Curve> parts = owned(found);
    ASSERT_EQ(parts.size(), 1U);
    EXPECT_NEAR(lengthOf(*parts[0]), 2 * kPi, 1e-12);
    EXPECT_TRUE(pointAt(*parts[0], 0).isEqualTo({0, 1, 0}));
}

TEST_F(CurveCuts, ReversedCurvesRunTheOtherWay) {
    for (const auto& [name, curve] : allCurves()) {
        SCOPED_TRACE(name);
        const bool isRound = curve->isKindOf(AcDbCircle::desc()) || curve->isKindOf(AcDbArc::desc()) ||
                             curve->isKindOf(AcDbEllipse::desc());
        const double length = lengthOf(*curve);
        std::vector<AcGePoint3d> points;
        for (int i = 0; i <= 20; ++i)
            points.push_back(pointAt(*curve, length * i / 20.0));
        ASSERT_EQ(curve->reverseCurve(), isRound ? Acad::eNotApplicable : Acad::eOk);
        for (int i = 0; i <= 20; ++i)
            EXPECT_TRUE(pointAt(*curve, length * i / 20.0)
                            .isEqualTo(points[static_cast<std::size_t>(isRound ? i : 20 - i)],
                                       AcGeTol().setEqualPoint(1e-6)) ||
                        (curve->isClosed() && i % 20 == 0))
                << i;
    }
    auto wide = polyline({{{0, 0}}, {{1, 0}}, {{1, 1}}});
    wide->setWidthsAt(0, 1, 2);
    wide->setElevation(5);
    AcGePoint3d third;
    EXPECT_EQ(wide->getPointAt(2, third), Acad::eOk);
    EXPECT_EQ(third, AcGePoint3d(1, 1, 5)) << "although the numbers set before have moved the records";
    wide->reverseCurve();
    double start = 0.0;
    double end = 0.0;
    EXPECT_EQ(wide->getWidthsAt(1, start, end), Acad::eOk);
    EXPECT_EQ(start, 2);
    EXPECT_EQ(end, 1);
}

TEST_F(CurveCuts, ParallelsLieToTheRight) {
    struct Case {
        const char* name;
        Curve curve;
        double distance;
        Acad::ErrorStatus status;
        double length = 0.0;
        AcGePoint3d start;
    };
    const std::vector<Vertex> square{{{0, 0}}, {{4, 0}}, {{4, 4}}, {{0, 4}}};
    std::vector<Case> cases;
    const auto add = [&](const char* name, Curve curve, double distance, double length,
                         const AcGePoint3d& start) {
        cases.push_back({name, std::move(curve), distance, Acad::eOk, length, start});
    };
    const auto refuse = [&](const char* name, Curve curve, double distance, Acad::ErrorStatus status) {
        cases.push_back({name, std::move(curve), distance, status, 0.0, {}});
    };
    add("line", std::make_unique<AcDbLine>(AcGePoint3d(0, 0, 1), AcGePoint3d(5, 0, 1)), 2, 5, {0, -2, 1});
    add("circle", std::make_unique<AcDbCircle>(AcGePoint3d(1, 1, 0), kUp, 2), 1, 6 * kPi, {4, 1, 0});
    add("arc", std::make_unique<AcDbArc>(AcGePoint3d(0, 0, 0), 2, 0, kPi), -1, kPi, {1, 0, 0});
    add("square outwards", polyline(square, true), 1, 24, {-1, -1, 0});
    add("square inwards", polyline(square, true), -1, 8, {1, 1, 0});
    add("2d polyline", heavy(square), 1, 5 + 6 + 5, {0, -1, 2});
    add("slot", polyline({{{0, 0}}, {{4, 0}, 1.0}, {{4, 2}}, {{0, 2}, 1.0}}, true), 1, 8 + 4 * kPi,
        {0, -1, 0});
    add("repeated vertex", polyline({{{0, 0}}, {{3, 0}}, {{3, 0}}, {{3, 3}}}), 1, 8, {0, -1, 0});
    refuse("no radius", std::make_unique<AcDbCircle>(AcGePoint3d(1, 1, 0), kUp, 2), -2, Acad::eInvalidInput);
    refuse("no direction", std::make_unique<AcDbLine>(AcGePoint3d(), AcGePoint3d(0, 0, 1)), 1,
           Acad::eDegenerateGeometry);
    refuse("ellipse", std::make_unique<AcDbEllipse>(AcGePoint3d(), kUp, AcGeVector3d(4, 0, 0), 0.5), 1,
           Acad::eNotImplementedYet);
    refuse("square without inside", polyline(square, true), -2.5, Acad::eNotImplementedYet);
    refuse("lost arc", polyline({{{0, 0}}, {{4, 0}, 1.0}, {{4, 2}}}), -1.5, Acad::eNotImplementedYet);
    refuse("corner at an arc", polyline({{{0, 0}, 0.5}, {{4, 0}}, {{4, 4}}}), 1, Acad::eNotImplementedYet);
    refuse("narrow neck",
           polyline({{{0, 0}}, {{9, 0}}, {{9, 9}}, {{5, 9}}, {{5, 1}}, {{4, 1}}, {{4, 9}}, {{0, 9}}}, true),
           -0.7, Acad::eNotImplementedYet);
    refuse("no segments", polyline({{{0, 0}}}), 1, Acad::eDegenerateGeometry);
    refuse("not a number", polyline(square), std::nan(""), Acad::eInvalidInput);
    for (const auto& [name, curve, distance, status, length, start] : cases) {
        SCOPED_TRACE(name);
        AcDbVoidPtrArray found;
        ASSERT_EQ(curve->getOffsetCurves(distance, found), status);
        const std::vector<Curve> parallels = owned(found);
        ASSERT_EQ(parallels.size(), status == Acad::eOk ? 1U : 0U);
        if (status != Acad::eOk)
            continue;
        EXPECT_NEAR(lengthOf(*parallels[0]), length, 1e-9);
        EXPECT_TRUE(pointAt(*parallels[0], 0).isEqualTo(start));
    }
}

TEST_F(CurveCuts, PlanesHoldTheWholeEntity) {
    for (const auto& [name, curve] : allCurves()) {
        SCOPED_TRACE(name);
        AcGePlane plane;
        AcDb::Planarity planarity{};
        if (curve->isKindOf(AcDb3dPolyline::desc())) {
            EXPECT_EQ(curve->getPlane(plane, planarity), Acad::eNonPlanarEntity);
            EXPECT_EQ(planarity, AcDb::kNonPlanar);
            EXPECT_FALSE(curve->isPlanar());
            continue;
        }
        ASSERT_EQ(curve->getPlane(plane, planarity), Acad::eOk);
        EXPECT_EQ(planarity, curve->isKindOf(AcDbLine::desc()) ? AcDb::kLinear : AcDb::kPlanar);
        for (int i = 0; i <= 10; ++i)
            EXPECT_NEAR(plane.distanceTo(pointAt(*curve, lengthOf(*curve) * i / 10.0)), 0.0, 1e-9);
    }
    AcGePlane plane;
    AcDb::Planarity planarity{};
    EXPECT_EQ(polyline3d({{0, 0, 0}, {0, 1, 0}, {0, 1, 3}})->getPlane(plane, planarity), Acad::eOk);
    EXPECT_TRUE(plane.normal().isParallelTo({1, 0, 0}));
    EXPECT_EQ(polyline3d({{0, 0, 0}, {0, 0, 1}, {0, 0, 3}})->getPlane(plane, planarity), Acad::eOk);
    EXPECT_EQ(planarity, AcDb::kLinear);
    EXPECT_TRUE(plane.normal().isPerpendicularTo(kUp));
    EXPECT_EQ(AcDbPoint().getPlane(plane, planarity), Acad::eNotImplementedYet);
}
