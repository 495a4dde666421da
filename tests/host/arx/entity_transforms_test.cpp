#include "dbelipse.h"
#include "dboiter.h"
#include "geplane.h"
#include "sample_drawing.h"

#include <cmath>
#include <numbers>

namespace {

using EntityTransforms = SampleDrawing;

constexpr double kPi = std::numbers::pi;
const AcGeVector3d kUp(0, 0, 1);

/// Matrices that keep angles: moved, turned, scaled, mirrored, and products of these.
std::vector<AcGeMatrix3d> conformal() {
    const AcGeMatrix3d tilt = AcGeMatrix3d::rotation(1.1, {1, 2, 3}, {4, 5, 6});
    const AcGeMatrix3d mirror = AcGeMatrix3d::mirroring(AcGePlane({1, 0, 0}, AcGeVector3d(1, 0, 0)));
    return {AcGeMatrix3d::translation({10, -20, 30}),
            AcGeMatrix3d::rotation(2.0, kUp, {3, 3, 0}),
            AcGeMatrix3d::scaling(2.5, {1, 1, 1}),
            mirror,
            AcGeMatrix3d::mirroring(AcGePlane({0, 0, 2}, kUp)),
            AcGeMatrix3d::mirroring(AcGePlane({1, 0, 0}, AcGeVector3d(1, 2, 0))),
            tilt,
            tilt * mirror * AcGeMatrix3d::scaling(0.5)};
}

AcGeVector3d inPlane(const AcGeVector3d& normal, double angle) {
    return AcGeMatrix3d::planeToWorld(normal) * AcGeVector3d(std::cos(angle), std::sin(angle), 0.0);
}

/// The directions in which the letters of a text run and stand, as long as the text is high.
struct Letters {
    explicit Letters(const AcDbText& text)
        : along(inPlane(text.normal(), text.rotation()) *
                (text.isMirroredInX() ? -text.height() : text.height())),
          up(inPlane(text.normal(), text.rotation() + kPi / 2) *
             (text.isMirroredInY() ? -text.height() : text.height())) {}

    AcGeVector3d along;
    AcGeVector3d up;
};

/// An entity that is thick along its normal.
struct Thick {
    template <typename Entity>
    explicit Thick(Entity* made)
        : entity(made), set([made](double thickness) { return made->setThickness(thickness); }),
          extrusion([made] { return made->normal() * made->thickness(); }) {}

    std::unique_ptr<AcDbEntity> entity;
    std::function<Acad::ErrorStatus(double)> set;
    std::function<AcGeVector3d()> extrusion;
};

std::vector<Thick> thickEntities() {
    AcGePoint3dArray points;
    points.append({0, 0, 2});
    points.append({4, 1, 2});
    auto* const polyline = new AcDbPolyline;
    polyline->addVertexAt(0, {0, 0}, 0.5);
    polyline->addVertexAt(1, {4, 1});
    polyline->setNormal({1, 1, 1});
    std::vector<Thick> all;
    all.emplace_back(new AcDbPoint({1, 2, 3}));
    all.emplace_back(new AcDbLine({1, 2, 3}, {4, 5, 6}));
    all.emplace_back(new AcDbCircle({1, 2, 3}, {1, 0, 1}, 2.0));
    all.emplace_back(new AcDbArc({1, 2, 3}, -kUp, 2.0, 0.5, 2.5));
    all.emplace_back(polyline);
    all.emplace_back(new AcDb2dPolyline(AcDb::k2dSimplePoly, points, 2.0));
    all.emplace_back(new AcDbText({1, 2, 3}, L"P", AcDbObjectId::kNull, 2.5, 0.3));
    return all;
}

} // namespace

TEST_F(EntityTransforms, LettersAreTransformedWithTheirText) {
    for (std::size_t m = 0; m < conformal().size(); ++m) {
        for (const AcGeVector3d& normal : {kUp, -kUp, AcGeVector3d(0.6, 0, 0.8)}) {
            SCOPED_TRACE(m);
            const AcGeMatrix3d matrix = conformal()[m];
            AcDbText text({1, 2, 3}, L"P-1", AcDbObjectId::kNull, 2.5, 0.4);
            text.setNormal(normal);
            text.setHorizontalMode(AcDb::kTextCenter);
            text.setAlignmentPoint({4, 5, 3});
            text.mirrorInX(m % 2 == 0);
            const Letters before(text);
            const AcGePoint3d start = text.position();
            const AcGePoint3d aligned = text.alignmentPoint();
            ASSERT_EQ(text.transformBy(matrix), Acad::eOk);
            const Letters after(text);
            EXPECT_LT((after.along - matrix * before.along).length(), 1e-9);
            EXPECT_LT((after.up - matrix * before.up).length(), 1e-9);
            EXPECT_LT(text.position().distanceTo(matrix * start), 1e-9);
            EXPECT_LT(text.alignmentPoint().distanceTo(matrix * aligned), 1e-9);
            ASSERT_EQ(text.transformBy(matrix.inverse()), Acad::eOk);
            EXPECT_LT((Letters(text).along - before.along).length(), 1e-9) << "and back";
            EXPECT_LT(text.position().distanceTo(start), 1e-9);
        }
    }
}

TEST_F(EntityTransforms, LinesOfTextKeepTheirDirection) {
    for (const AcGeMatrix3d& matrix : conformal()) {
        AcDbMText text;
        text.setLocation({1, 2, 3});
        text.setTextHeight(2.0);
        text.setWidth(40.0);
        text.setRotation(0.7);
        const AcGeVector3d along = text.direction();
        ASSERT_EQ(text.transformBy(matrix), Acad::eOk);
        EXPECT_LT((text.direction() - (matrix * along).normal()).length(), 1e-9);
        EXPECT_LT(text.location().distanceTo(matrix * AcGePoint3d(1, 2, 3)), 1e-9);
        EXPECT_NEAR(text.textHeight(), 2.0 * matrix.scale(), 1e-9);
        EXPECT_NEAR(text.width(), 40.0 * matrix.scale(), 1e-9);
        EXPECT_LT((inPlane(text.normal(), text.rotation()) - text.direction()).length(), 1e-9);
    }
}

TEST_F(EntityTransforms, ThicknessIsTransformedWithTheNormal) {
    for (std::size_t m = 0; m < conformal().size(); ++m) {
        const std::vector<Thick> all = thickEntities();
        for (std::size_t i = 0; i < all.size(); ++i) {
            SCOPED_TRACE(std::to_string(m) + " of " + std::to_string(i));
            ASSERT_EQ(all[i].set(-1.5), Acad::eOk);
            const AcGeVector3d expected = conformal()[m] * all[i].extrusion();
            ASSERT_EQ(all[i].entity->transformBy(conformal()[m]), Acad::eOk);
            EXPECT_LT((all[i].extrusion() - expected).length(), 1e-9);
        }
    }
}

TEST_F(EntityTransforms, WidthsOfPolylinesAreScaled) {
    AcDbPolyline polyline;
    polyline.addVertexAt(0, {0, 0}, 0.0, 0.5, 1.0);
    polyline.addVertexAt(1, {4, 0});
    AcGePoint3dArray points;
    points.append({0, 0, 0});
    points.append({4, 0, 0});
    AcDb2dPolyline old(AcDb::k2dSimplePoly, points, 0.0, false, 0.5, 1.0);
    const AcGeMatrix3d twice = AcGeMatrix3d::scaling(2.0, {1, 1, 0});
    ASSERT_EQ(polyline.transformBy(twice), Acad::eOk);
    ASSERT_EQ(old.transformBy(twice), Acad::eOk);
    double start = 0.0;
    double end = 0.0;
    ASSERT_EQ(polyline.getWidthsAt(0, start, end), Acad::eOk);
    EXPECT_EQ(start, 1.0);
    EXPECT_EQ(end, 2.0);
    EXPECT_EQ(old.defaultStartWidth(), 1.0);
    EXPECT_EQ(old.defaultEndWidth(), 2.0);
    const std::unique_ptr<AcDbObjectIterator> vertices(old.vertexIterator());
    const auto* const first = AcDb2dVertex::cast(vertices->entity());
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(first->startWidth(), 1.0);
    EXPECT_EQ(first->position(), AcGePoint3d(-1, -1, 0));
    ASSERT_EQ(polyline.setConstantWidth(0.25), Acad::eOk);
    ASSERT_EQ(polyline.transformBy(twice), Acad::eOk);
    EXPECT_EQ(polyline.getConstantWidth(start), Acad::eOk);
    EXPECT_EQ(start, 0.5);
}

TEST_F(EntityTransforms, ReferencesPlaceTheirBlockWithTheProduct) {
    const AcGeMatrix3d stretch = AcGeScale3d(2, 3, -4);
    std::vector<AcGeMatrix3d> matrices = conformal();
    matrices.push_back(stretch);
    for (std::size_t m = 0; m < matrices.size(); ++m) {
        for (const double rotation : {0.0, kPi / 2, 0.4}) {
            SCOPED_TRACE(std::to_string(m) + " at " + std::to_string(rotation));
            AcDbBlockReference reference;
            reference.setPosition({1, 2, 3});
            reference.setScaleFactors({1, -2, 3});
            reference.setRotation(rotation);
            const AcGeMatrix3d before = reference.blockTransform();
            const AcGeMatrix3d expected = matrices[m] * before;
            const Acad::ErrorStatus status = reference.transformBy(matrices[m]);
            EXPECT_EQ(status, expected.isScaledOrtho() ? Acad::eOk : Acad::eCannotScaleNonUniformly);
            const AcGeMatrix3d after = reference.blockTransform();
            const AcGeTol tolerance = AcGeTol().setEqualVector(1e-9);
            EXPECT_TRUE(after.isEqualTo(status == Acad::eOk ? expected : before, tolerance));
        }
    }
    AcDbBlockReference reference;
    for (const AcGeMatrix3d& flat : {AcGeMatrix3d::projection(AcGePlane({0, 0, 0}, kUp), kUp),
                                     AcGeMatrix3d(AcGeScale3d(0, 0, 0)), AcGeMatrix3d(AcGeScale3d(1, 0, 1))})
        EXPECT_EQ(reference.transformBy(flat), Acad::eCannotScaleNonUniformly);
    EXPECT_TRUE(reference.blockTransform().isEqualTo(AcGeMatrix3d::kIdentity));
}

TEST_F(EntityTransforms, UnequalScalesAreRefusedWhereTheShapeWouldChangeItsKind) {
    const AcGeMatrix3d stretch = AcGeScale3d(2, 3, 1);
    AcDbCircle circle({1, 2, 3}, kUp, 2.0);
    AcDbArc arc({1, 2, 3}, 2.0, 0.5, 2.5);
    AcDbText text({1, 2, 3}, L"P", AcDbObjectId::kNull, 2.5);
    AcDbMText lines;
    AcDbPolyline polyline;
    polyline.addVertexAt(0, {0, 0}, 0.5);
    polyline.addVertexAt(1, {4, 1});
    AcDbEntity* const refusing[] = {&circle, &arc, &text, &lines, &polyline};
    for (AcDbEntity* const entity : refusing) {
        EXPECT_EQ(entity->transformBy(stretch), Acad::eCannotScaleNonUniformly);
        AcDbEntity* copy = entity;
        EXPECT_EQ(entity->getTransformedCopy(stretch, copy), Acad::eCannotScaleNonUniformly);
        EXPECT_EQ(copy, nullptr);
    }
    EXPECT_EQ(circle.center(), AcGePoint3d(1, 2, 3));
    EXPECT_EQ(arc.radius(), 2.0);
    EXPECT_EQ(arc.endAngle(), 2.5);
    EXPECT_EQ(text.position(), AcGePoint3d(1, 2, 3));
    EXPECT_EQ(text.height(), 2.5);
    AcGePoint2d end;
    polyline.getPointAt(1, end);
    EXPECT_EQ(end, AcGePoint2d(4, 1));
    // Across the plane of a circle the scale does not matter.
    EXPECT_EQ(circle.transformBy(AcGeScale3d(2, 2, 9)), Acad::eOk);
    EXPECT_EQ(circle.radius(), 4.0);
    EXPECT_EQ(circle.center(), AcGePoint3d(2, 4, 27));

    AcDbLine line({1, 2, 3}, {4, 5, 6});
    EXPECT_EQ(line.transformBy(stretch), Acad::eOk);
    EXPECT_EQ(line.endPoint(), AcGePoint3d(8, 15, 6));
    AcDbPoint point({1, 2, 3});
    EXPECT_EQ(point.transformBy(stretch), Acad::eOk);
    EXPECT_EQ(point.position(), AcGePoint3d(2, 6, 3));
}

TEST_F(EntityTransforms, EllipsesStayOnTheTransformedPoints) {
    const AcGeMatrix3d matrices[] = {AcGeScale3d(1, 3, 1), AcGeScale3d(-2, 0.5, 1), AcGeScale3d(0.01, 1, 5),
                                     AcGeMatrix3d::rotation(0.7, {1, 1, 0}) *
                                         AcGeMatrix3d(AcGeScale3d(3, 1, 1))};
    for (std::size_t m = 0; m < std::size(matrices); ++m) {
        for (const double end : {2 * kPi, 2.5}) {
            SCOPED_TRACE(m);
            AcDbEllipse ellipse({1, 2, 3}, kUp, {3, 4, 0}, 0.4, 0.5, end == 2.5 ? 2.5 : 0.5 + 2 * kPi);
            std::vector<AcGePoint3d> points;
            double first = 0.0;
            double last = 0.0;
            ellipse.getStartParam(first);
            ellipse.getEndParam(last);
            for (int i = 0; i <= 16; ++i) {
                AcGePoint3d point;
                ellipse.getPointAtParam(first + (last - first) * i / 16, point);
                points.push_back(matrices[m] * point);
            }
            ASSERT_EQ(ellipse.transformBy(matrices[m]), Acad::eOk);
            EXPECT_TRUE(ellipse.majorAxis().isPerpendicularTo(ellipse.minorAxis()));
            EXPECT_LE(ellipse.radiusRatio(), 1.0);
            for (const AcGePoint3d& point : points) {
                AcGePoint3d nearest;
                ellipse.getClosestPointTo(point, nearest);
                EXPECT_LT(nearest.distanceTo(point), 1e-6);
            }
            AcGePoint3d start;
            ellipse.getStartPoint(start);
            EXPECT_LT(start.distanceTo(points.front()), 1e-9);
            EXPECT_EQ(ellipse.isClosed(), end != 2.5);
        }
    }
    AcDbEllipse ellipse({1, 2, 3}, kUp, {3, 4, 0}, 0.4);
    EXPECT_EQ(ellipse.transformBy(AcGeScale3d(1, 0, 1)), Acad::eCannotScaleNonUniformly);
    EXPECT_EQ(ellipse.center(), AcGePoint3d(1, 2, 3));
}
