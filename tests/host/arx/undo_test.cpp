#include "sample_drawing.h"
#include <zuhost/drawing_files.h>
#include <zuhost/undo.h>

namespace {

class Undo : public SampleDrawing {
protected:
    [[nodiscard]] Adesk::UInt16 color(Adesk::UInt64 handle) const {
        return AcDbObjectPointer<AcDbEntity>(id(handle))->colorIndex();
    }
    void setColor(Adesk::UInt64 handle, Adesk::UInt16 index) const {
        EXPECT_EQ(AcDbObjectPointer<AcDbEntity>(id(handle), AcDb::kForWrite)->setColorIndex(index),
                  Acad::eOk);
    }
    [[nodiscard]] std::string saved() const { return zuhost::dxfOutBytes(*drawing, false); }
};

} // namespace

TEST_F(Undo, ChangesAfterAnUndoFormANewStep) {
    drawing->startUndoRecord();
    setColor(kDuct, 1);
    ASSERT_EQ(drawing->undo(), Acad::eOk);
    setColor(kDuct, 2); // without startUndoRecord
    EXPECT_EQ(zuhost::redo(*drawing), Acad::eUndoOperationNotAvailable);
    EXPECT_EQ(drawing->undo(), Acad::eOk);
    EXPECT_EQ(color(kDuct), 256);
}

TEST_F(Undo, ObjectsOpenDuringTwoStepsAreRestoredToEach) {
    drawing->startUndoRecord();
    AcDbObjectPointer<AcDbEntity> duct(id(kDuct), AcDb::kForWrite);
    duct->setColorIndex(1);
    drawing->startUndoRecord();
    duct->setColorIndex(2);
    duct.close();
    EXPECT_EQ(drawing->undo(), Acad::eOk);
    EXPECT_EQ(color(kDuct), 1);
    EXPECT_EQ(drawing->undo(), Acad::eOk);
    EXPECT_EQ(color(kDuct), 256);
}

TEST_F(Undo, UndoRestoresTheSavedBytes) {
    const std::string original = saved();
    drawing->startUndoRecord();
    add(*drawing, new AcDbLine({0, 0, 0}, {1, 1, 0}));
    {
        const AcDbObjectPointer<AcDbDictionary> groups(drawing->groupDictionaryId(), AcDb::kForWrite);
        auto* const group = new AcDbGroup;
        AcDbObjectId added;
        groups->setAt(L"*", group, added);
        group->append(id(kDuct));
        group->close();
    }
    erase(id(kFurniture));
    erase(id(kAirHandler));
    EXPECT_EQ(AcDbObjectPointer<AcDbGroup>(id(kSingle), AcDb::kForWrite)->clear(), Acad::eOk);
    acdbRegApp(drawing.get(), L"MY_APP");
    const std::string edited = saved();
    ASSERT_TRUE(edited != original);
    ASSERT_EQ(drawing->undo(), Acad::eOk);
    EXPECT_TRUE(saved() == original);
    ASSERT_EQ(zuhost::redo(*drawing), Acad::eOk);
    EXPECT_TRUE(saved() == edited);
}

TEST_F(Undo, NewBlocksAreUndoneWithTheirEntities) {
    const std::string original = saved();
    drawing->startUndoRecord();
    AcDbBlockTable* blocks = nullptr;
    ASSERT_EQ(drawing->getBlockTable(blocks, AcDb::kForWrite), Acad::eOk);
    auto* const block = new AcDbBlockTableRecord;
    block->setName(L"NEW");
    blocks->add(block);
    blocks->close();
    auto* const point = new AcDbPoint;
    block->appendAcDbEntity(point);
    point->close();
    block->close();
    ASSERT_EQ(drawing->undo(), Acad::eOk);
    EXPECT_TRUE(blockId(*drawing, L"NEW").isNull());
    EXPECT_TRUE(saved() == original);
    ASSERT_EQ(zuhost::redo(*drawing), Acad::eOk);
    EXPECT_FALSE(blockId(*reopened(), L"NEW").isNull());
}

TEST_F(Undo, ErasedGroupDictionaryIsCreatedAgain) {
    erase(drawing->groupDictionaryId());
    EXPECT_TRUE(drawing->groupDictionaryId().isNull());
    AcDbDictionary* groups = nullptr;
    ASSERT_EQ(drawing->getGroupDictionary(groups, AcDb::kForWrite), Acad::eOk);
    EXPECT_EQ(groups->numEntries(), 0U);
    groups->close();
}

TEST_F(Undo, RecordingCanBeSuspended) {
    drawing->startUndoRecord();
    drawing->disableUndoRecording(true);
    EXPECT_FALSE(drawing->undoRecording());
    setColor(kDuct, 1);
    drawing->disableUndoRecording(false);
    EXPECT_EQ(drawing->undo(), Acad::eUndoOperationNotAvailable);
    EXPECT_EQ(color(kDuct), 1);
}
