#include "dxf_records.h"
#include "sample_drawing.h"
#include <zuhost/drawing_files.h>
#include <zuhost/names.h>

#include <array>
#include <numbers>

namespace {

using Entities = SampleDrawing;
constexpr double kQuarter = std::numbers::pi / 2.0;

void expectPoint(const AcGePoint3d& found, const AcGePoint3d& expected) {
    EXPECT_NEAR(found.x, expected.x, 1e-9);
    EXPECT_NEAR(found.y, expected.y, 1e-9);
    EXPECT_NEAR(found.z, expected.z, 1e-9);
}

/// Returns a minimal drawing with the given entities: "code value" records separated by "|".
std::string drawingOf(const std::string& entities) {
    return dxfRecords(
        "0 SECTION|2 HEADER|9 $ACADVER|1 AC1015|0 ENDSEC|0 SECTION|2 TABLES|0 TABLE|2 BLOCK_RECORD|"
        "5 1|100 AcDbSymbolTable|70 1|0 BLOCK_RECORD|5 2|330 1|100 AcDbSymbolTableRecord|"
        "100 AcDbBlockTableRecord|2 *Model_Space|0 ENDTAB|0 ENDSEC|0 SECTION|2 BLOCKS|0 BLOCK|5 3|"
        "330 2|100 AcDbEntity|8 0|100 AcDbBlockBegin|2 *Model_Space|0 ENDBLK|5 4|330 2|"
        "100 AcDbEntity|8 0|100 AcDbBlockEnd|0 ENDSEC|0 SECTION|2 ENTITIES|" +
        entities + "|0 ENDSEC|0 EOF");
}

} // namespace

TEST_F(Entities, MirroredReferencesAreRead) {
    const AcDbObjectPointer<AcDbBlockReference> branch(id(kBranch));
    EXPECT_EQ(zuhost::layerName(*branch), L"SA-ダクト");
    EXPECT_EQ(zuhost::blockName(*branch), L"RBT-D300-200");
    EXPECT_EQ(branch->blockTableRecord(), blockId(*drawing, L"rbt-d300-200"));
    EXPECT_EQ(branch->colorIndex(), 256);
    expectPoint(branch->position(), {9900.05, 5000, 2700});
    EXPECT_DOUBLE_EQ(branch->scaleFactors().sy, -1.0);
    expectPoint(branch->blockTransform() * AcGePoint3d(10, 20, 5), {9910.05, 4980, 2705});
    EXPECT_LT(branch->blockTransform().det(), 0.0);
}

TEST_F(Entities, TransformsCombineScaleRotationAndPlane) {
    // The last: the image of (1, 2, 3), inserted at (100, 0, 0) in the plane.
    const std::tuple<AcGeScale3d, double, const char*, AcGePoint3d> cases[] = {
        {{1, 1, 1}, 0, "", {101, 2, 3}},
        {{2, 3, 4}, 90, "", {94, 2, 12}},
        {{-1, 1, 1}, 0, "", {99, 2, 3}},
        // The x axis of a plane seen from below points backwards.
        {{1, 1, 1}, 0, "|210 0|220 0|230 -1", {-101, 2, -3}},
        {{1, 1, 1}, 90, "|210 0|220 0|230 -1", {-98, 1, -3}},
        {{1, 1, 1}, 0, "|210 0|220 -1|230 0", {101, -3, 2}},
    };
    for (const auto& [scale, rotation, normal, expected] : cases) {
        const auto at = [](double value) { return std::to_string(value); };
        const auto database = readBytes(drawingOf("0 INSERT|5 10|330 2|100 AcDbEntity|8 0|100 "
                                                  "AcDbBlockReference|2 *Model_Space|10 100|20 0|30 0|41 " +
                                                  at(scale.sx) + "|42 " + at(scale.sy) + "|43 " +
                                                  at(scale.sz) + "|50 " + at(rotation) + normal));
        const AcDbObjectPointer<AcDbBlockReference> insert(idIn(*database, 0x10), AcDb::kForWrite);
        ASSERT_EQ(insert.openStatus(), Acad::eOk);
        expectPoint(insert->blockTransform() * AcGePoint3d(1, 2, 3), expected);
        // Positions are in world coordinates for every plane.
        const AcGePoint3d moved(7, 8, 9);
        insert->setPosition(moved);
        expectPoint(insert->position(), moved);
        expectPoint(insert->blockTransform() * AcGePoint3d::kOrigin, moved);
    }
}

TEST_F(Entities, RepeatedReferencesKeepTheirRowsAndColumns) {
    const auto database = readBytes(drawingOf("0 INSERT|5 10|330 2|100 AcDbEntity|8 0|100 AcDbMInsertBlock|"
                                              "2 *Model_Space|10 4|20 5|30 0|70 3|71 2|44 10|45 20"));
    {
        const AcDbObjectPointer<AcDbBlockReference> insert(idIn(*database, 0x10), AcDb::kForWrite);
        EXPECT_EQ(zuhost::blockName(*insert), L"*Model_Space");
        EXPECT_EQ(insert->blockTableRecord(), blockId(*database, ACDB_MODEL_SPACE));
        expectPoint(insert->position(), {4, 5, 0});
        EXPECT_EQ(insert->setPosition({6, 5, 0}), Acad::eOk);
    }
    const std::string saved = zuhost::dxfOutBytes(*database, false);
    EXPECT_NE(saved.find("AcDbMInsertBlock"), std::string::npos);
    EXPECT_NE(saved.find("10\n6"), std::string::npos);
    EXPECT_NE(saved.find("45\n20"), std::string::npos);
}

TEST_F(Entities, PolylinesTakeManyVerticesInLinearTime) {
    constexpr unsigned int kMany = 100000;
    AcDbPolyline polyline;
    polyline.setNormal({0, 0, -1}); // A record after the vertices.
    for (unsigned int i = 0; i < kMany; ++i)
        ASSERT_EQ(polyline.addVertexAt(i, {static_cast<double>(i), 1.0}, i % 2 == 0 ? 0.0 : 0.5), Acad::eOk);
    EXPECT_EQ(polyline.addVertexAt(1, {-1.0, -1.0}, 0.25, 1.0, 2.0), Acad::eOk);
    EXPECT_EQ(polyline.removeVertexAt(0), Acad::eOk);
    EXPECT_EQ(polyline.addVertexAt(2, {-2.0, -2.0}), Acad::eOk);
    ASSERT_EQ(polyline.numVerts(), kMany + 1);
    const auto x = [&polyline](unsigned int index) {
        AcGePoint2d point;
        EXPECT_EQ(polyline.getPointAt(index, point), Acad::eOk);
        return point.x;
    };
    EXPECT_EQ((std::array{x(0), x(1), x(2), x(3), x(kMany)}),
              (std::array{-1.0, 1.0, -2.0, 2.0, kMany - 1.0}));
    double bulge = 0.0;
    polyline.getBulgeAt(0, bulge);
    EXPECT_EQ(bulge, 0.25);
    EXPECT_EQ(polyline.normal(), AcGeVector3d(0, 0, -1));
    EXPECT_EQ(polyline.reset(true, 2), Acad::eOk);
    EXPECT_EQ(polyline.numVerts(), 2U);
}

TEST_F(Entities, NewEntitiesSurviveSaving) {
    auto* const polyline = new AcDbPolyline;
    polyline->addVertexAt(0, {0, 0});
    polyline->addVertexAt(1, {10, 10}, 0.5);
    EXPECT_EQ(polyline->addVertexAt(9, {0, 0}), Acad::eInvalidIndex);
    EXPECT_EQ(polyline->addVertexAt(1, {10, 4}, 1.0), Acad::eOk);
    polyline->setClosed(true);
    const AcDbObjectId line = add(*drawing, new AcDbLine({1, 2, 3}, {4, 5, 6}));
    const AcDbObjectId arc = add(*drawing, new AcDbArc({1, 2, 0}, 5.0, kQuarter, 2 * kQuarter));
    const AcDbObjectId circle = add(*drawing, new AcDbCircle({7, 8, 0}, AcGeVector3d::kZAxis, 2.5));
    const AcDbObjectId point = add(*drawing, new AcDbPoint({0.1, 0.2, 0.3}));
    const AcDbObjectId text =
        add(*drawing, new AcDbText({5, 6, 0}, L"850㎥/h 能力", AcDbObjectId::kNull, 250.0));
    const AcDbObjectId outline = add(*drawing, polyline);
    const AcDbObjectId insert =
        add(*drawing, new AcDbBlockReference({1000, 2000, 0}, blockId(*drawing, L"RT-D200")));

    const auto again = reopened();
    const auto saved = [&again](AcDbObjectId was) { return idIn(*again, was.handle().value()); };
    expectPoint(AcDbObjectPointer<AcDbLine>(saved(line))->endPoint(), {4, 5, 6});
    EXPECT_NEAR(AcDbObjectPointer<AcDbArc>(saved(arc))->startAngle(), kQuarter, 1e-12);
    EXPECT_NEAR(AcDbObjectPointer<AcDbArc>(saved(arc))->endAngle(), 2 * kQuarter, 1e-12);
    EXPECT_DOUBLE_EQ(AcDbObjectPointer<AcDbCircle>(saved(circle))->radius(), 2.5);
    expectPoint(AcDbObjectPointer<AcDbPoint>(saved(point))->position(), {0.1, 0.2, 0.3});
    EXPECT_EQ(textOf(saved(text)), L"850㎥/h 能力");
    const AcDbObjectPointer<AcDbPolyline> read(saved(outline));
    ASSERT_EQ(read->numVerts(), 3U);
    EXPECT_TRUE(read->isClosed());
    AcGePoint2d corner;
    double bulge = 0.0;
    EXPECT_EQ(read->getPointAt(1, corner), Acad::eOk);
    EXPECT_EQ(read->getBulgeAt(1, bulge), Acad::eOk);
    EXPECT_EQ(corner.x, 10.0);
    EXPECT_EQ(corner.y, 4.0);
    EXPECT_EQ(bulge, 1.0);
    EXPECT_EQ(read->getBulgeAt(3, bulge), Acad::eInvalidIndex);
    const AcDbObjectPointer<AcDbBlockReference> placed(saved(insert));
    EXPECT_EQ(zuhost::blockName(*placed), L"RT-D200");
    EXPECT_EQ(zuhost::layerName(*placed), L"0");
    EXPECT_EQ(placed->ownerId(), blockId(*again, ACDB_MODEL_SPACE));
}

TEST_F(Entities, CommonPropertiesAreReadAndSet) {
    const AcDbObjectPointer<AcDbEntity> duct(id(kDuct), AcDb::kForWrite);
    EXPECT_EQ(duct->setLayer(L"no such layer"), Acad::eKeyNotFound);
    EXPECT_EQ(zuhost::layerName(*duct), L"SA-ダクト");
    EXPECT_EQ(duct->setLayer(L"通り芯"), Acad::eOk);
    AcDbObjectId layer;
    AcDbObjectPointer<AcDbLayerTable>(drawing->layerTableId())->getAt(L"通り芯", layer);
    EXPECT_EQ(duct->layerId(), layer);
    EXPECT_EQ(duct->setColorIndex(257), Acad::eInvalidInput);
    EXPECT_EQ(duct->setColorIndex(3), Acad::eOk);
    EXPECT_EQ(duct->colorIndex(), 3);
    AcString linetype;
    EXPECT_EQ(duct->linetype(linetype), Acad::eOk);
    EXPECT_STREQ(linetype, L"ByLayer");
    EXPECT_EQ(duct->lineWeight(), AcDb::kLnWtByLayer);
    EXPECT_TRUE(duct->isVisible());
    EXPECT_FALSE(duct->isInPaperSpace());
}
