#include "dbelipse.h"
#include "dboiter.h"
#include "gearc3d.h"
#include "geplane.h"
#include "sample_drawing.h"

#include <zuhost/members.h>

namespace {

using EntityGeometry = SampleDrawing;
constexpr int kSamples = 200;
const AcGeVector3d kUp(0, 0, 1);

AcGePoint3dArray corners() {
    AcGePoint3dArray points;
    for (const AcGePoint3d& p : {AcGePoint3d(0, 0, 2), AcGePoint3d(4, 0, 2), AcGePoint3d(4, 3, 7)})
        points.append(p);
    return points;
}

AcDbPolyline* outline() {
    auto* const polyline = new AcDbPolyline;
    polyline->addVertexAt(0, {0, 0}, 0.5);
    polyline->addVertexAt(1, {4, 1}, -2.0);
    polyline->addVertexAt(2, {2, 6});
    polyline->setElevation(3.0);
    polyline->setClosed(true);
    polyline->setNormal({0.2, -0.3, 0.9});
    return polyline;
}

std::vector<std::unique_ptr<AcDbCurve>> curves() {
    std::vector<std::unique_ptr<AcDbCurve>> all;
    AcGePoint3dArray points = corners();
    AcGeDoubleArray bulges;
    bulges.append(0.7);
    all.emplace_back(new AcDbLine({1, 2, 3}, {4, 6, 3}));
    all.emplace_back(new AcDbCircle({1, 2, 3}, {0, 1, 1}, 5.0));
    all.emplace_back(new AcDbArc({1, 2, 0}, 5.0, 5.5, 1.0));
    all.emplace_back(new AcDbArc({1, 2, 0}, -kUp, 2.0, 0.5, 2.5));
    all.emplace_back(new AcDbEllipse({1, 2, 3}, kUp, {3, 4, 0}, 0.4, 0.5, 4.0));
    all.emplace_back(outline());
    all.emplace_back(new AcDb3dPolyline(AcDb::k3dSimplePoly, points));
    all.emplace_back(new AcDb2dPolyline(AcDb::k2dSimplePoly, points, 2.0, false, 0, 0, &bulges));
    return all;
}

double lengthOf(const AcDbCurve& curve) {
    double end = 0.0;
    double length = 0.0;
    EXPECT_EQ(curve.getEndParam(end), Acad::eOk);
    EXPECT_EQ(curve.getDistAtParam(end, length), Acad::eOk);
    return length;
}

std::vector<AcGePoint3d> samplesOf(const AcDbCurve& curve) {
    std::vector<AcGePoint3d> points(kSamples + 1);
    const double length = lengthOf(curve);
    for (int i = 0; i <= kSamples; ++i)
        EXPECT_EQ(curve.getPointAtDist(length * i / kSamples, points[static_cast<std::size_t>(i)]),
                  Acad::eOk);
    return points;
}

} // namespace

TEST_F(EntityGeometry, TransformedCurvesRunThroughTransformedPoints) {
    const AcGeMatrix3d tilt = AcGeMatrix3d::rotation(1.1, {1, 2, 3}, {4, 5, 6});
    const AcGeMatrix3d matrices[] = {
        AcGeMatrix3d::translation({10, -20, 30}),
        AcGeMatrix3d::rotation(2.0, kUp, {3, 3, 0}),
        AcGeMatrix3d::scaling(2.5, {1, 1, 1}),
        AcGeMatrix3d::mirroring(AcGePlane({1, 0, 0}, AcGeVector3d(1, 2, 0))),
        AcGeMatrix3d::mirroring(AcGePlane({0, 0, 1}, kUp)),
        tilt,
        AcGeMatrix3d::mirroring(AcGePoint3d(1, 2, 3)) * tilt * AcGeMatrix3d::scaling(0.5),
    };
    for (std::size_t m = 0; m < std::size(matrices); ++m) {
        for (const auto& curve : curves()) {
            SCOPED_TRACE(m);
            SCOPED_TRACE(
                std::string(curve->isA()->name(), curve->isA()->name() + wcslen(curve->isA()->name())));
            const std::vector<AcGePoint3d> before = samplesOf(*curve);
            const double length = lengthOf(*curve);
            ASSERT_EQ(curve->transformBy(matrices[m]), Acad::eOk);
            EXPECT_NEAR(lengthOf(*curve), length * matrices[m].scale(), 1e-6);
            for (const AcGePoint3d& point : before) {
                AcGePoint3d nearest;
                ASSERT_EQ(curve->getClosestPointTo(matrices[m] * point, nearest), Acad::eOk);
                ASSERT_LT(nearest.distanceTo(matrices[m] * point), 1e-6);
            }
            AcDbExtents box;
            ASSERT_EQ(curve->getGeomExtents(box), Acad::eOk);
            AcDbExtents sampled;
            for (const AcGePoint3d& point : samplesOf(*curve))
                sampled.addPoint(point);
            // Samples miss corners by up to half of their distance.
            const double step = lengthOf(*curve) / kSamples;
            EXPECT_LT(box.minPoint().distanceTo(sampled.minPoint()), step) << "no larger than needed";
            EXPECT_LT(box.maxPoint().distanceTo(sampled.maxPoint()), step);
            for (unsigned int axis = 0; axis < 3; ++axis) {
                EXPECT_LE(box.minPoint()[axis], sampled.minPoint()[axis] + 1e-9);
                EXPECT_GE(box.maxPoint()[axis], sampled.maxPoint()[axis] - 1e-9);
            }
        }
    }
}

TEST_F(EntityGeometry, CurvesRefuseWhatIsNotOnThem) {
    for (const auto& curve : curves()) {
        double param = 0.0;
        AcGePoint3d point;
        EXPECT_EQ(curve->getParamAtPoint({500, 0, 0}, param), Acad::eInvalidInput);
        EXPECT_EQ(curve->getPointAtDist(lengthOf(*curve) + 1.0, point), Acad::eInvalidInput);
        EXPECT_EQ(curve->getPointAtDist(-1.0, point), Acad::eInvalidInput);
        EXPECT_EQ(curve->getPointAtParam(1e9, point), Acad::eInvalidInput);
        EXPECT_EQ(curve->getPointAtParam(std::numeric_limits<double>::quiet_NaN(), point),
                  Acad::eInvalidInput);
    }
    AcDbPolyline empty;
    AcDbExtents box;
    AcGePoint3d point;
    EXPECT_EQ(empty.getStartPoint(point), Acad::eDegenerateGeometry);
    EXPECT_EQ(empty.getGeomExtents(box), Acad::eInvalidExtents);
    const AcGeMatrix3d squeeze = AcGeScale3d(1, 2, 1);
    AcDbCircle circle({0, 0, 0}, kUp, 5.0);
    EXPECT_EQ(circle.transformBy(squeeze), Acad::eCannotScaleNonUniformly);
    EXPECT_EQ(circle.radius(), 5.0);
    AcDbEllipse ellipse({0, 0, 0}, kUp, {5, 0, 0}, 1.0);
    EXPECT_EQ(ellipse.transformBy(squeeze), Acad::eOk);
    EXPECT_NEAR(ellipse.majorAxis().length(), 10.0, 1e-9);
    EXPECT_NEAR(ellipse.radiusRatio(), 0.5, 1e-12);
}

TEST_F(EntityGeometry, CurvesMeetInTheOrderOfTheFirst) {
    AcDbPolyline zigzag;
    const AcGePoint2d places[] = {{0, -1}, {2, 1}, {4, -1}, {6, 1}};
    for (unsigned int i = 0; i < 4; ++i)
        zigzag.addVertexAt(i, places[i]);
    const AcDbLine axis({10, 0, 0}, {0, 0, 0});
    AcGePoint3dArray points;
    EXPECT_EQ(axis.intersectWith(&zigzag, AcDb::kOnBothOperands, points), Acad::eOk);
    ASSERT_EQ(points.length(), 3);
    EXPECT_NEAR(points[0].x, 5.0, 1e-9);
    EXPECT_NEAR(points[2].x, 1.0, 1e-9);
    points.removeAll();
    const AcDbLine throughVertex({2, -5, 0}, {2, 5, 0});
    EXPECT_EQ(zigzag.intersectWith(&throughVertex, AcDb::kOnBothOperands, points), Acad::eOk);
    EXPECT_EQ(points.length(), 1) << "where two segments join";
    points.removeAll();
    const AcDbArc arc({0, 0, 0}, 5.0, 0.0, 0.1);
    const AcDbLine above({-9, 3, 7}, {-8, 3, 7});
    EXPECT_EQ(arc.intersectWith(&above, AcDb::kExtendBoth, points), Acad::eOk);
    EXPECT_EQ(points.length(), 0);
    EXPECT_EQ(arc.intersectWith(&above, AcDb::kExtendBoth, AcGePlane::kXYPlane, points), Acad::eOk);
    EXPECT_EQ(points.length(), 2);
    const AcDbText text;
    EXPECT_EQ(arc.intersectWith(&text, AcDb::kExtendBoth, points), Acad::eNotImplementedYet);
    EXPECT_EQ(arc.intersectWith(nullptr, AcDb::kExtendBoth, points), Acad::eNullObjectPointer);
}

TEST_F(EntityGeometry, AttributesAndVerticesAreSavedAfterTheirOwners) {
    const AcDbObjectId blockReference = id(kBranch);
    {
        const AcDbObjectPointer<AcDbBlockReference> reference(blockReference, AcDb::kForWrite);
        EXPECT_EQ(reference->appendAttribute(nullptr), Acad::eNullObjectPointer);
        for (const ACHAR* tag : {L"A", L"B"}) {
            auto* const attribute = new AcDbAttribute({0, 0, 0}, L"値", tag);
            EXPECT_EQ(reference->appendAttribute(attribute), Acad::eOk);
            EXPECT_EQ(reference->appendAttribute(attribute), Acad::eAlreadyInDb);
            EXPECT_EQ(attribute->ownerId(), blockReference);
            attribute->close();
        }
    }
    AcGePoint3dArray points = corners();
    auto* const pending = new AcDb3dPolyline(AcDb::k3dSimplePoly, points);
    const AcDbObjectId polyline = add(*drawing, pending);
    const std::size_t entities =
        zuhost::entityIds(*AcDbObjectPointer<AcDbBlockTableRecord>(blockId(*drawing, ACDB_MODEL_SPACE)))
            .size();

    const auto again = reopened();
    EXPECT_TRUE(zuhost::warnings(*again).empty());
    EXPECT_EQ(
        zuhost::entityIds(*AcDbObjectPointer<AcDbBlockTableRecord>(blockId(*again, ACDB_MODEL_SPACE))).size(),
        entities);
    const auto countParts = [](AcDbObjectIterator* parts) {
        int count = 0;
        for (; !parts->done(); parts->step())
            ++count;
        delete parts;
        return count;
    };
    const AcDbObjectPointer<AcDbBlockReference> reference(idIn(*again, kBranch), AcDb::kForWrite);
    EXPECT_EQ(countParts(reference->attributeIterator()), 2);
    const AcDbObjectPointer<AcDb3dPolyline> saved(idIn(*again, polyline.handle().value()));
    EXPECT_EQ(countParts(saved->vertexIterator()), 3);
    EXPECT_NEAR(lengthOf(*saved), 4.0 + std::sqrt(34.0), 1e-9);
    AcDb3dPolylineVertex* vertex = nullptr;
    EXPECT_EQ(saved->openVertex(vertex, idIn(*again, kBranch), AcDb::kForRead), Acad::eWasOpenForWrite);
    // A moved reference takes its attributes along.
    EXPECT_EQ(reference->transformBy(AcGeMatrix3d::translation({100, 0, 0})), Acad::eOk);
    const std::unique_ptr<AcDbObjectIterator> parts(reference->attributeIterator());
    const AcDbObjectPointer<AcDbAttribute> first(parts->objectId());
    EXPECT_EQ(first->position(), AcGePoint3d(100, 0, 0));
    EXPECT_EQ(textOf(first->objectId()), L"値");
}
