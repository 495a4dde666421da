#include "dbidmap.h"
#include "dboiter.h"
#include "dxf_records.h"
#include "sample_drawing.h"
#include <zuhost/drawing_files.h>
#include <zuhost/members.h>
#include <zuhost/names.h>

namespace {

/// Returns a drawing of a version without handles, owners and class markers.
std::string oldDrawing() {
    return dxfRecords(
        "0 SECTION|2 HEADER|9 $ACADVER|1 AC1009|0 ENDSEC|0 SECTION|2 TABLES|0 TABLE|2 LAYER|70 2|0 LAYER|2 "
        "0|70 0|62 7|6 CONTINUOUS|0 LAYER|2 WALLS|70 4|62 -3|6 CONTINUOUS|0 ENDTAB|0 ENDSEC|0 SECTION|2 "
        "BLOCKS|0 BLOCK|8 0|2 TREE|70 0|10 1.5|20 2.5|30 0.0|0 CIRCLE|8 WALLS|10 0.0|20 0.0|30 0.0|40 1.0|0 "
        "ENDBLK|8 0|0 ENDSEC|0 SECTION|2 ENTITIES|0 INSERT|8 WALLS|66 1|2 Tree|10 5.0|20 6.0|30 0.0|0 "
        "ATTRIB|8 0|10 0.0|20 0.0|30 0.0|40 1.0|1 oak|2 KIND|70 0|0 SEQEND|8 0|0 POLYLINE|8 0|66 1|10 0.0|20 "
        "0.0|30 0.0|0 VERTEX|8 0|10 0.0|20 0.0|30 0.0|0 VERTEX|8 0|10 5.0|20 0.0|30 0.0|0 SEQEND|8 0|0 "
        "LINE|8 0|10 0.0|20 0.0|30 0.0|11 1.0|21 1.0|31 0.0|0 ENDSEC|0 EOF");
}

class OldDrawing : public SampleDrawing {
protected:
    OldDrawing() : SampleDrawing() { drawing = readBytes(oldDrawing()); }
};

} // namespace

TEST_F(OldDrawing, BlocksAreFoundWithoutRecords) {
    const AcDbObjectId tree = blockId(*drawing, L"tree");
    const AcDbObjectPointer<AcDbBlockTableRecord> block(tree);
    ASSERT_EQ(block.openStatus(), Acad::eOk);
    EXPECT_EQ(zuhost::recordName(*block), L"TREE");
    EXPECT_EQ(block->origin().x, 1.5);
    ASSERT_EQ(zuhost::entityIds(*block).size(), 1U);
    const AcDbObjectPointer<AcDbCircle> circle(zuhost::entityIds(*block).front());
    ASSERT_EQ(circle.openStatus(), Acad::eOk);
    EXPECT_EQ(circle->radius(), 1.0);
    const AcDbObjectPointer<AcDbLayerTableRecord> layer(circle->layerId());
    EXPECT_TRUE(layer->isLocked());
    EXPECT_TRUE(layer->isOff());
    EXPECT_EQ(layer->colorIndex(), 3);
    AcCmColor parts;
    parts.setRGB(1, 2, 3);
    EXPECT_EQ(AcDbObjectPointer<AcDbLayerTableRecord>(layer->objectId())->setColor(parts),
              Acad::eNotApplicable);
}

TEST_F(OldDrawing, LayersHaveNoWeights) {
    const auto layers = [&] {
        return std::make_unique<AcDbLayerTablePointer>(drawing.get(), AcDb::kForWrite);
    };
    auto added = std::make_unique<AcDbLayerTableRecord>();
    added->setName(L"PIPES");
    EXPECT_EQ(added->setLineWeight(AcDb::kLnWt050), Acad::eOk) << "in no drawing yet";
    EXPECT_EQ(added->setIsPlottable(false), Acad::eOk);
    EXPECT_EQ(added->setColorIndex(5), Acad::eOk);
    ASSERT_EQ((*layers())->add(added.get()), Acad::eOk);
    AcDbLayerTableRecord& layer = *added.release();
    EXPECT_EQ(layer.setLineWeight(AcDb::kLnWt050), Acad::eNotApplicable);
    EXPECT_EQ(layer.setIsPlottable(false), Acad::eNotApplicable);
    EXPECT_EQ(layer.lineWeight(), AcDb::kLnWtByLwDefault);
    EXPECT_TRUE(layer.isPlottable());
    EXPECT_EQ(layer.colorIndex(), 5);
    layer.close();
}

TEST_F(OldDrawing, ModelSpaceHoldsTheEntities) {
    const AcDbObjectPointer<AcDbBlockTableRecord> space(blockId(*drawing, ACDB_MODEL_SPACE));
    ASSERT_EQ(space.openStatus(), Acad::eOk);
    const auto ids = zuhost::entityIds(*space);
    ASSERT_EQ(ids.size(), 3U);
    const AcDbObjectPointer<AcDbBlockReference> insert(ids[0]);
    EXPECT_EQ(insert->blockTableRecord(), blockId(*drawing, L"TREE"));
    EXPECT_EQ(insert->position().y, 6.0);
}

TEST_F(OldDrawing, ReadingChangesNothing) {
    for (const AcDbObjectId id : {drawing->blockTableId(), drawing->layerTableId(), drawing->regAppTableId(),
                                  drawing->linetypeTableId(), drawing->textStyleTableId()}) {
        const AcDbObjectPointer<AcDbSymbolTable> table(id);
        ASSERT_EQ(table.openStatus(), Acad::eOk);
        EXPECT_LT(zuhost::recordIds(*table).size(), 4U);
    }
    blockId(*drawing, ACDB_MODEL_SPACE);
    EXPECT_TRUE(drawing->groupDictionaryId().isNull());
    EXPECT_TRUE(zuhost::dxfOutBytes(*drawing, false) == oldDrawing());
}

TEST_F(OldDrawing, ErasingAnEntityDropsItsSubentities) {
    std::vector<AcDbObjectId> ids;
    {
        const AcDbObjectPointer<AcDbBlockTableRecord> space(blockId(*drawing, ACDB_MODEL_SPACE));
        ASSERT_EQ(space.openStatus(), Acad::eOk);
        ids = zuhost::entityIds(*space);
    }
    ASSERT_EQ(ids.size(), 3U);
    erase(ids[0]);
    erase(ids[1]);
    const std::string saved = zuhost::dxfOutBytes(*drawing, false);
    for (const char* removed : {"ATTRIB", "SEQEND", "VERTEX", "INSERT"})
        EXPECT_EQ(saved.find(removed), std::string::npos) << removed;
    EXPECT_NE(saved.find("LINE"), std::string::npos);
}

TEST_F(OldDrawing, NewEntitiesAreWrittenInTheOldForm) {
    add(*drawing, new AcDbBlockReference({1, 1, 0}, blockId(*drawing, L"TREE")));
    const std::string saved = zuhost::dxfOutBytes(*drawing, false);
    EXPECT_EQ(saved.find("AcDb"), std::string::npos);
    EXPECT_EQ(saved.find("330\n"), std::string::npos);
    const auto again = readBytes(saved);
    const AcDbObjectPointer<AcDbBlockTableRecord> space(blockId(*again, ACDB_MODEL_SPACE));
    ASSERT_EQ(zuhost::entityIds(*space).size(), 4U);
    const AcDbObjectPointer<AcDbBlockReference> added(zuhost::entityIds(*space).back());
    ASSERT_EQ(added.openStatus(), Acad::eOk);
    EXPECT_EQ(zuhost::blockName(*added), L"TREE");
}

TEST_F(OldDrawing, CopiesKeepTheirPartsInTheOldForm) {
    AcDbObjectPointer<AcDbBlockTableRecord> old(blockId(*drawing, ACDB_MODEL_SPACE));
    ASSERT_EQ(old.openStatus(), Acad::eOk);
    const std::vector<AcDbObjectId> ids = zuhost::entityIds(*old);
    old.close();
    AcDbObjectIdArray cloned;
    for (const AcDbObjectId id : {ids[0], ids[1]}) {
        AcDbEntity* copy = nullptr;
        ASSERT_EQ(AcDbEntityPointer(id)->getTransformedCopy(AcGeMatrix3d::scaling(2.0), copy), Acad::eOk);
        cloned.append(add(*drawing, copy));
    }
    AcDbIdMapping mapping;
    ASSERT_EQ(drawing->deepCloneObjects(cloned, {}, mapping), Acad::eOk);
    AcDbVoidPtrArray exploded;
    ASSERT_EQ(AcDbEntityPointer(cloned[0])->explode(exploded), Acad::eOk);
    ASSERT_EQ(exploded.length(), 1);
    const std::unique_ptr<AcDbEntity> circle(static_cast<AcDbEntity*>(exploded[0]));
    EXPECT_EQ(AcDbCircle::cast(circle.get())->radius(), 2.0);

    const std::string saved = zuhost::dxfOutBytes(*drawing, false);
    EXPECT_EQ(saved.find("AcDb"), std::string::npos);
    const auto again = readBytes(saved);
    EXPECT_TRUE(zuhost::warnings(*again).empty());
    const AcDbObjectPointer<AcDbBlockTableRecord> space(blockId(*again, ACDB_MODEL_SPACE));
    ASSERT_EQ(space.openStatus(), Acad::eOk);
    const std::vector<AcDbObjectId> read = zuhost::entityIds(*space);
    ASSERT_EQ(read.size(), 7U);
    for (const std::size_t polyline : {4U, 6U}) {
        AcGePoint3d end;
        ASSERT_EQ(AcDbObjectPointer<AcDb2dPolyline>(read[polyline])->getEndPoint(end), Acad::eOk);
        EXPECT_EQ(end, AcGePoint3d(10, 0, 0));
    }
    const std::unique_ptr<AcDbObjectIterator> attributes(
        AcDbObjectPointer<AcDbBlockReference>(read[5])->attributeIterator());
    EXPECT_EQ(AcDbObjectPointer<AcDbText>(attributes->objectId())->height(), 2.0);
}
