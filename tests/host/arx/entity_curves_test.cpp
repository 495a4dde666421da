#include "dbelipse.h"
#include "geplane.h"
#include "sample_drawing.h"
#include "test_curves.h"

#include <zuhost/names.h>

#include <cmath>
#include <numbers>
#include <random>

namespace {

using EntityCurves = SampleDrawing;

/// Integrates the length of an arc of an ellipse with the half axes a and b by small chords.
double ellipseLength(double a, double b, double from, double to) {
    constexpr int kSteps = 200'000;
    double sum = 0.0;
    for (int i = 0; i < kSteps; ++i) {
        const double t = from + (to - from) * (i + 0.5) / kSteps;
        sum += std::hypot(a * std::sin(t), b * std::cos(t));
    }
    return sum * (to - from) / kSteps;
}

constexpr double kNoArea = -1.0;
struct Measured {
    const char* name;
    Curve curve;
    double length;
    double area;
};

std::vector<Measured> measuredCurves() {
    std::vector<Measured> all;
    const auto add = [&](const char* name, Curve curve, double length, double area) {
        all.push_back({name, std::move(curve), length, area});
    };
    add("line", std::make_unique<AcDbLine>(AcGePoint3d(1, 2, 3), AcGePoint3d(3, 5, 9)), 7.0, kNoArea);
    add("circle", std::make_unique<AcDbCircle>(AcGePoint3d(1, 2, 3), AcGeVector3d(1, 2, 2), 2.0), 4 * kPi,
        4 * kPi);
    add("half a circle", std::make_unique<AcDbArc>(AcGePoint3d(1, 1, 0), 2.0, 1.5 * kPi, 0.5 * kPi), 2 * kPi,
        2 * kPi);
    add("quarter of a circle", std::make_unique<AcDbArc>(AcGePoint3d(1, 1, 0), -kUp, 2.0, 0.0, 0.5 * kPi),
        kPi, kPi - 2.0);
    add("ellipse", std::make_unique<AcDbEllipse>(AcGePoint3d(1, 1, 0), kUp, AcGeVector3d(0, 4, 0), 0.5),
        ellipseLength(4, 2, 0, 2 * kPi), 8 * kPi);
    add("quarter of an ellipse",
        std::make_unique<AcDbEllipse>(AcGePoint3d(1, 1, 5), kUp, AcGeVector3d(4, 0, 0), 0.5, 0.0, 0.5 * kPi),
        ellipseLength(4, 2, 0, kPi / 2), 2 * kPi - 4.0);
    add("square", polyline({{{0, 0}}, {{3, 0}}, {{3, 3}}, {{0, 3}}}, true, {1, 1, 1}), 12.0, 9.0);
    add("open square", polyline({{{0, 0}}, {{3, 0}}, {{3, 3}}, {{0, 3}}}), 9.0, 9.0);
    add("slot", polyline({{{0, 0}}, {{4, 0}, 1.0}, {{4, 2}}, {{0, 2}, 1.0}}, true), 8.0 + 2 * kPi, 8.0 + kPi);
    add("bite", polyline({{{0, 0}}, {{4, 0}, -1.0}, {{4, 2}}, {{0, 2}}}, true, -kUp), 10.0 + kPi,
        8.0 - kPi / 2);
    add("two halves", polyline({{{0, 0}, 1.0}, {{2, 0}, 1.0}}, true), 2 * kPi, kPi);
    add("repeated vertex", polyline({{{0, 0}}, {{3, 0}}, {{3, 0}}, {{3, 4}}}, true), 12.0, 6.0);
    add("triangle in space", polyline3d({{0, 0, 0}, {0, 3, 0}, {0, 3, 4}}, true), 12.0, 6.0);
    add("twisted", polyline3d({{0, 0, 0}, {2, 0, 0}, {2, 2, 0}, {2, 2, 1}}), 5.0, kNoArea);
    return all;
}

} // namespace

TEST_F(EntityCurves, HaveTheLengthAndAreaOfTheirShape) {
    for (const auto& [name, curve, length, area] : measuredCurves()) {
        SCOPED_TRACE(name);
        EXPECT_NEAR(lengthOf(*curve), length, 1e-7);
        double measured = kNoArea;
        EXPECT_EQ(curve->getArea(measured), area == kNoArea ? Acad::eNotApplicable : Acad::eOk);
        EXPECT_NEAR(measured, area, 1e-9);
    }
}

TEST_F(EntityCurves, ConvertBetweenParametersDistancesAndPoints) {
    for (const auto& [name, curve, length, area] : measuredCurves()) {
        SCOPED_TRACE(name);
        double first = 0.0;
        double last = 0.0;
        ASSERT_EQ(curve->getStartParam(first), Acad::eOk);
        ASSERT_EQ(curve->getEndParam(last), Acad::eOk);
        for (int i = 0; i <= 40; ++i) {
            const double distance = length * i / 40.0;
            double param = -1.0;
            double back = -1.0;
            AcGePoint3d point;
            AcGePoint3d same;
            ASSERT_EQ(curve->getParamAtDist(distance, param), Acad::eOk) << distance;
            EXPECT_GE(param, first - 1e-9);
            EXPECT_LE(param, last + 1e-9);
            ASSERT_EQ(curve->getDistAtParam(param, back), Acad::eOk);
            EXPECT_NEAR(back, distance, 1e-7);
            ASSERT_EQ(curve->getPointAtDist(distance, point), Acad::eOk);
            ASSERT_EQ(curve->getPointAtParam(param, same), Acad::eOk);
            EXPECT_LT(point.distanceTo(same), 1e-9);
            ASSERT_EQ(curve->getParamAtPoint(point, back), Acad::eOk);
            ASSERT_EQ(curve->getPointAtParam(back, same), Acad::eOk);
            EXPECT_LT(point.distanceTo(same), 1e-6) << "another parameter only where the curve meets itself";
        }
        AcGePoint3d start;
        AcGePoint3d end;
        curve->getStartPoint(start);
        curve->getEndPoint(end);
        EXPECT_EQ(curve->isClosed(), start.distanceTo(end) < 1e-9);
    }
}

TEST_F(EntityCurves, DerivativesAreTheSlopesOfThePoints) {
    for (const auto& [name, curve, length, area] : measuredCurves()) {
        SCOPED_TRACE(name);
        double first = 0.0;
        double last = 0.0;
        curve->getStartParam(first);
        curve->getEndParam(last);
        // Not in a vertex, where the slope jumps.
        for (const double part : {0.07, 0.31, 0.53, 0.77, 0.96}) {
            constexpr double kStep = 1e-6;
            const double param = first + (last - first) * part;
            AcGeVector3d slope;
            AcGePoint3d before;
            AcGePoint3d after;
            ASSERT_EQ(curve->getFirstDeriv(param, slope), Acad::eOk);
            curve->getPointAtParam(param - kStep, before);
            curve->getPointAtParam(param + kStep, after);
            EXPECT_LT(((after - before) / (2 * kStep) - slope).length(), 1e-6) << param;
        }
    }
}

TEST_F(EntityCurves, DegenerateCurvesGiveFiniteAnswersOrNone) {
    std::vector<Curve> all;
    all.emplace_back(new AcDbLine({1, 2, 3}, {1, 2, 3}));
    all.emplace_back(new AcDbCircle({1, 2, 3}, kUp, 0.0));
    all.emplace_back(new AcDbArc({1, 2, 3}, 0.0, 1.0, 2.0));
    all.push_back(polyline({{{1, 2}}}));
    all.push_back(polyline({{{1, 2}, 1.0}}, true));
    all.push_back(polyline({{{1, 2}, 5.0}, {{1, 2}, -1.0}}));
    all.push_back(polyline3d({{1, 2, 3}, {1, 2, 3}}));
    all.push_back(polyline3d({}, true));
    for (std::size_t i = 0; i < all.size(); ++i) {
        SCOPED_TRACE(i);
        const AcDbCurve& curve = *all[i];
        AcGePoint3d point(0, 0, 0);
        AcGeVector3d slope;
        AcDbExtents box;
        double value = 0.0;
        const bool isEmpty = curve.getStartPoint(point) != Acad::eOk;
        for (const auto status :
             {curve.getPointAtDist(0.0, point), curve.getClosestPointTo({9, 9, 9}, point)})
            EXPECT_EQ(status, isEmpty ? Acad::eDegenerateGeometry : Acad::eOk);
        if (!isEmpty) {
            EXPECT_LT(std::hypot(point.x - 1, point.y - 2), 1e-12);
        }
        double start = 0.0;
        curve.getStartParam(start);
        if (curve.getFirstDeriv(start, slope) == Acad::eOk) {
            EXPECT_TRUE(std::isfinite(slope.x) && std::isfinite(slope.y) && std::isfinite(slope.z));
        }
        if (curve.getArea(value) == Acad::eOk) {
            EXPECT_EQ(value, 0.0);
        }
        EXPECT_EQ(curve.getGeomExtents(box), isEmpty ? Acad::eInvalidExtents : Acad::eOk);
        AcGePoint3dArray points;
        const AcDbLine through({1, -9, 0}, {1, 9, 0});
        EXPECT_EQ(curve.intersectWith(&through, AcDb::kExtendBoth, points), Acad::eOk);
        for (const AcGePoint3d& found : points)
            EXPECT_LT(found.distanceTo({1, 2, 0}), 1e-6);
    }
}

TEST_F(EntityCurves, ParametersFarFromAWholeTurnEnd) {
    for (const auto& [first, last] : {std::pair{"1e300", "0.0"},
                                      {"1e17", "0.0"},
                                      {"0.0", "-1e300"},
                                      {"-1e300", "1e300"},
                                      {"1e400", "0.0"},
                                      {"0.0", "1e9"}}) {
        SCOPED_TRACE(std::string(first) + " to " + last);
        std::string bytes = zuhost::dxfOutBytes(*drawing, false);
        const std::string section = "\nENTITIES\n";
        bytes.insert(bytes.find(section) + section.size(),
                     "  0\nELLIPSE\n  5\nF01\n100\nAcDbEntity\n  8\n0\n100\nAcDbEllipse\n 10\n0.0\n 20\n0.0\n"
                     " 30\n0.0\n 11\n2.0\n 21\n0.0\n 31\n0.0\n 40\n0.5\n 41\n" +
                         std::string(first) + "\n 42\n" + last + "\n");
        const auto read = readBytes(bytes);
        const AcDbObjectPointer<AcDbEllipse> ellipse(idIn(*read, 0xF01));
        AcDbExtents box;
        if (ellipse->getGeomExtents(box) == Acad::eOk) {
            EXPECT_LE(box.maxPoint().x - box.minPoint().x, 4.0 + 1e-9);
        }
        AcGePoint3d nearest;
        ellipse->getClosestPointTo({5, 0, 0}, nearest);
        double length = 0.0;
        double end = 0.0;
        if (ellipse->getEndParam(end) == Acad::eOk && ellipse->getDistAtParam(end, length) == Acad::eOk) {
            EXPECT_LE(length, ellipseLength(2, 1, 0, 2 * kPi) + 1e-6) << "at most a whole ellipse";
        }
    }
}

TEST_F(EntityCurves, ExplodedPolylinesRunThroughTheSamePoints) {
    const std::vector<Vertex> shape{{{0, 0}, 0.4}, {{5, 0}}, {{5, 5}, -2.0}, {{1, 6}, 1.0}, {{0, 3}}};
    for (const bool closed : {false, true}) {
        for (const AcGeVector3d& normal : {kUp, -kUp, AcGeVector3d(1, -2, 0.5)}) {
            const auto whole = polyline(shape, closed, normal);
            whole->setElevation(2.5);
            whole->setThickness(0.75);
            whole->setColorIndex(3);
            whole->setLayer(L"PIPES");
            AcDbVoidPtrArray exploded;
            ASSERT_EQ(whole->explode(exploded), Acad::eOk);
            std::vector<Curve> parts;
            for (void* const part : exploded)
                parts.emplace_back(AcDbCurve::cast(static_cast<AcDbEntity*>(part)));
            ASSERT_EQ(parts.size(), closed ? 5U : 4U);
            double sum = 0.0;
            for (std::size_t i = 0; i < parts.size(); ++i) {
                SCOPED_TRACE(i);
                const AcDbCurve& part = *parts[i];
                const bool isArc = shape[i].bulge != 0.0;
                EXPECT_EQ(part.isA(), isArc ? AcDbArc::desc() : AcDbLine::desc());
                EXPECT_EQ(part.colorIndex(), 3);
                EXPECT_EQ(zuhost::layerName(part), L"PIPES");
                EXPECT_EQ(isArc ? AcDbArc::cast(&part)->thickness() : AcDbLine::cast(&part)->thickness(),
                          0.75);
                const AcGeVector3d direction =
                    isArc ? AcDbArc::cast(&part)->normal() : AcDbLine::cast(&part)->normal();
                EXPECT_TRUE(direction.isEqualTo(normal.normal())) << "in which it is thick";
                for (int step = 0; step <= 8; ++step) {
                    AcGePoint3d point;
                    ASSERT_EQ(part.getPointAtDist(lengthOf(part) * step / 8.0, point), Acad::eOk);
                    AcGePoint3d expected;
                    const double along =
                        shape[i].bulge < 0.0 ? 8.0 - step : step; // arcs are counter-clockwise
                    ASSERT_EQ(whole->getPointAtDist(sum + lengthOf(part) * along / 8.0, expected), Acad::eOk);
                    EXPECT_LT(point.distanceTo(expected), 1e-9);
                }
                sum += lengthOf(part);
            }
            EXPECT_NEAR(sum, lengthOf(*whole), 1e-9);
        }
    }
    AcDbVoidPtrArray none;
    const AcDbPolyline empty;
    EXPECT_EQ(empty.explode(none), Acad::eOk);
    const AcDbLine line;
    EXPECT_NE(line.explode(none), Acad::eOk);
    EXPECT_TRUE(none.isEmpty());
}

TEST_F(EntityCurves, MeetWhereTheirDistanceChangesSign) {
    std::mt19937 random(20240229); // NOLINT(cert-msc32-c,cert-msc51-cpp): repeatable
    const auto at = [&](double from, double to) {
        return std::uniform_real_distribution<double>(from, to)(random);
    };
    for (int round = 0; round < 40; ++round) {
        SCOPED_TRACE(round);
        std::vector<Vertex> vertices(5);
        for (std::size_t i = 0; i < vertices.size(); ++i)
            vertices[i] = {{at(-9, 9), at(-9, 9)}, i % 2 == 0 ? at(-1.5, 1.5) : 0.0};
        const auto path = polyline(vertices, round % 2 == 0);
        const AcDbCircle circle({at(-3, 3), at(-3, 3), 0}, round % 3 == 0 ? -kUp : kUp, at(2, 8));
        int changes = 0;
        double before = 0.0;
        const double length = lengthOf(*path);
        constexpr int kSteps = 1500;
        for (int i = 0; i <= kSteps; ++i) {
            AcGePoint3d point;
            path->getPointAtDist(length * i / kSteps, point);
            const double now = point.distanceTo(circle.center()) - circle.radius();
            changes += i > 0 && (now > 0.0) != (before > 0.0) ? 1 : 0;
            before = now;
        }
        AcGePoint3dArray points;
        AcGePoint3dArray reverse;
        ASSERT_EQ(path->intersectWith(&circle, AcDb::kOnBothOperands, points), Acad::eOk);
        ASSERT_EQ(circle.intersectWith(path.get(), AcDb::kOnBothOperands, reverse), Acad::eOk);
        EXPECT_EQ(points.length(), changes);
        EXPECT_EQ(reverse.length(), changes);
        double last = -1.0;
        for (const AcGePoint3d& point : points) {
            double param = 0.0;
            EXPECT_EQ(path->getParamAtPoint(point, param), Acad::eOk);
            EXPECT_NEAR(point.distanceTo(circle.center()), circle.radius(), 1e-9);
            EXPECT_GT(param, last) << "in the order of the first curve";
            last = param;
        }
    }
}
