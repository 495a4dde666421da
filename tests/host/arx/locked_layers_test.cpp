#include "sample_drawing.h"

#include <zuhost/names.h>

namespace {

class LockedLayers : public SampleDrawing {
protected:
    void lock(const ACHAR* layer, bool locked) const {
        const AcDbLayerTableRecordPointer record(layer, drawing.get(), AcDb::kForWrite);
        ASSERT_EQ(record->setIsLocked(locked), Acad::eOk);
    }
    [[nodiscard]] Acad::ErrorStatus opening(Adesk::UInt64 handle, bool onLockedLayer = false) const {
        return AcDbEntityPointer(id(handle), AcDb::kForWrite, false, onLockedLayer).openStatus();
    }
};

} // namespace

TEST_F(LockedLayers, TheirEntitiesOpenForReadOnly) {
    EXPECT_EQ(opening(kAirHandler), Acad::eOnLockedLayer);
    EXPECT_EQ(opening(kDuct), Acad::eOk);
    const AcDbEntityPointer read(id(kAirHandler));
    EXPECT_EQ(read->upgradeOpen(), Acad::eOnLockedLayer);
    EXPECT_TRUE(read->isReadEnabled()) << "still open";
}

TEST_F(LockedLayers, LockingTakesEffectAtOnce) {
    EXPECT_EQ(opening(kDuct), Acad::eOk);
    lock(L"SA-ダクト", true);
    EXPECT_EQ(opening(kDuct), Acad::eOnLockedLayer);
    lock(L"SA-ダクト", false);
    EXPECT_EQ(opening(kDuct), Acad::eOk);
    drawing->startUndoRecord();
    lock(L"SA-ダクト", true);
    drawing->undo();
    EXPECT_EQ(opening(kDuct), Acad::eOk);
    {
        const AcDbEntityPointer open(id(kDuct), AcDb::kForWrite);
        lock(L"SA-ダクト", true);
        EXPECT_EQ(open->erase(), Acad::eOnLockedLayer);
        EXPECT_EQ(open->setLayer(L"0"), Acad::eOk) << "what is open can be changed";
        EXPECT_EQ(open->erase(), Acad::eOk);
    }
}

TEST_F(LockedLayers, ForcedOpeningChangesAndErases) {
    EXPECT_EQ(opening(kAirHandler, true), Acad::eOk);
    AcDbObject* forced = nullptr;
    ASSERT_EQ(acdbForceOpenObjectOnLockedLayer(forced, id(kAirHandler), AcDb::kForWrite), Acad::eOk);
    EXPECT_EQ(forced->erase(), Acad::eOk);
    forced->close();
    EXPECT_EQ(AcDbEntityPointer(id(kAirHandler), AcDb::kForWrite, true).openStatus(), Acad::eOnLockedLayer);
}

TEST_F(LockedLayers, PartsChangeWithTheirEntity) {
    const AcDbObjectPointer<AcDbBlockReference> reference(id(kAirHandler), AcDb::kForWrite, false, true);
    auto* const attribute = new AcDbAttribute({1, 2, 3}, L"", L"TAG");
    ASSERT_EQ(reference->appendAttribute(attribute), Acad::eOk);
    EXPECT_EQ(zuhost::layerName(*attribute), L"機器-固定");
    attribute->close();
    EXPECT_EQ(AcDbEntityPointer(attribute->objectId(), AcDb::kForWrite).openStatus(), Acad::eOnLockedLayer);
    EXPECT_EQ(reference->transformBy(AcGeMatrix3d::translation({10, 0, 0})), Acad::eOk);
    EXPECT_EQ(AcDbObjectPointer<AcDbAttribute>(attribute->objectId())->position(), AcGePoint3d(11, 2, 3));
}

TEST_F(LockedLayers, NewEntitiesAndGroupsTakeNoNotice) {
    drawing->setClayer(AcDbEntityPointer(id(kAirHandler))->layerId());
    const AcDbObjectId added = add(*drawing, new AcDbLine({0, 0, 0}, {1, 0, 0}));
    EXPECT_EQ(zuhost::layerName(*AcDbEntityPointer(added)), L"機器-固定") << "the current layer";
    EXPECT_EQ(AcDbEntityPointer(added, AcDb::kForWrite).openStatus(), Acad::eOnLockedLayer);
    const AcDbObjectPointer<AcDbGroup> group(id(kSupply), AcDb::kForWrite);
    EXPECT_EQ(group->append(added), Acad::eOk);
    EXPECT_TRUE(AcDbEntityPointer(added)->hasPersistentReactor(id(kSupply)));
    EXPECT_EQ(group->remove(added), Acad::eOk);
}
