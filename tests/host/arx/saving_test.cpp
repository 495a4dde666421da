#include "sample_drawing.h"

#include <temporary_folder.h>

#include <chrono>

namespace {

class Saving : public SampleDrawing {
protected:
    /// Looks at everything there is.
    static std::size_t visitAll(AcDbDatabase& database) {
        std::size_t visited = 0;
        for (const AcDbObjectId table :
             {database.blockTableId(), database.layerTableId(), database.linetypeTableId(),
              database.textStyleTableId(), database.regAppTableId()}) {
            const AcDbObjectPointer<AcDbSymbolTable> opened(table);
            for (const AcDbObjectId record : opened->recordIds()) {
                const AcDbObjectPointer<AcDbSymbolTableRecord> entry(record, AcDb::kForWrite);
                EXPECT_FALSE(entry->name().empty());
                if (const auto* block = AcDbBlockTableRecord::cast(entry.object()))
                    visited += visitBlock(*block);
                ++visited;
            }
        }
        return visited;
    }
    static std::size_t visitBlock(const AcDbBlockTableRecord& block) {
        EXPECT_EQ(block.origin(), block.origin());
        const auto ids = block.entityIds();
        for (const AcDbObjectId entity : ids) {
            const AcDbObjectPointer<AcDbEntity> opened(entity, AcDb::kForWrite);
            EXPECT_FALSE(opened->layerId().isNull());
            acutRelRb(opened->xData());
        }
        return ids.size();
    }
};

} // namespace

TEST_F(Saving, LookingChangesNothing) {
    for (const ACHAR* name : {L"office-floor.dxf", L"office-floor-932.dxf"}) {
        const auto database = read(samplePath(name));
        EXPECT_GT(visitAll(*database), 200U);
        const std::wstring path = samplePath(name);
        EXPECT_TRUE(database->dxfOutBytes(false) ==
                    TemporaryFolder::read(std::string(path.begin(), path.end())));
    }
}

TEST_F(Saving, OldFileStaysWhenSavingFails) {
    const TemporaryFolder folder;
    const std::wstring path = folder.wide("copy.dxf");
    ASSERT_EQ(drawing->dxfOut(path.c_str()), Acad::eOk);
    EXPECT_EQ(drawing->dxfOut(folder.wide("missing/copy.dxf").c_str()), Acad::eFilerError);
    EXPECT_FALSE(drawing->lastErrorText().empty());
    EXPECT_TRUE(read(path)->dxfOutBytes(false) == drawing->dxfOutBytes(false));
    ASSERT_EQ(drawing->dxfOut(path.c_str(), true), Acad::eOk);
    EXPECT_TRUE(read(path)->isBinary());
}

TEST_F(Saving, NewDrawingIsFilledSavedAndRead) {
    AcDbDatabase made;
    add(made, new AcDbText({0, 0, 0}, L"図面", 2.5));
    AcDbDictionary* groups = nullptr;
    ASSERT_EQ(made.getGroupDictionary(groups, AcDb::kForWrite), Acad::eOk);
    auto* const group = new AcDbGroup(L"first");
    AcDbObjectId added;
    EXPECT_EQ(groups->setAt(L"*", group, added), Acad::eOk);
    EXPECT_EQ(group->getName(), L"*A1");
    group->close();
    groups->close();
    const auto again = readBytes(made.dxfOutBytes(true));
    EXPECT_TRUE(again->isBinary());
    EXPECT_GT(visitAll(*again), 5U);
    EXPECT_EQ(AcDbObjectPointer<AcDbGroup>(idIn(*again, added.handle().value()))->description(), L"first");
}

TEST_F(Saving, CodePageCharactersSurvive) {
    const auto database = read(samplePath(L"office-floor-932.dxf"));
    const AcDbObjectId text = add(*database, new AcDbText({0, 0, 0}, L"表能ソ 850㎥ é", 100.0));
    const auto again = readBytes(database->dxfOutBytes(false));
    EXPECT_EQ(AcDbObjectPointer<AcDbText>(idIn(*again, text.handle().value()))->textString(),
              L"表能ソ 850㎥ é");
}

TEST_F(Saving, AccessToManyReferencesIsCheap) {
    const AcDbObjectId block = blockId(*drawing, L"RT-D200");
    std::vector<AcDbObjectId> ids;
    drawing->disableUndoRecording(true);
    {
        const AcDbObjectPointer<AcDbBlockTableRecord> space(blockId(*drawing, ACDB_MODEL_SPACE),
                                                            AcDb::kForWrite);
        for (int i = 0; i < 20'000; ++i) {
            auto* const insert = new AcDbBlockReference({i * 1.0, 0, 0}, block);
            AcDbObjectId added;
            ASSERT_EQ(space->appendAcDbEntity(added, insert), Acad::eOk);
            insert->close();
            ids.push_back(added);
        }
    }
    const auto started = std::chrono::steady_clock::now();
    double sum = 0.0;
    constexpr int kRounds = 5;
    for (int round = 0; round < kRounds; ++round)
        for (const AcDbObjectId insert : ids) {
            const AcDbObjectPointer<AcDbBlockReference> opened(insert);
            sum += opened->position().x + opened->blockTransform().entry[0][0];
            EXPECT_EQ(opened->blockTableRecord(), block);
        }
    const std::chrono::duration<double, std::nano> spent = std::chrono::steady_clock::now() - started;
    const double perOpening = spent.count() / (static_cast<double>(ids.size()) * kRounds);
    RecordProperty("nanosecondsPerOpening", static_cast<int>(perOpening));
    EXPECT_DOUBLE_EQ(sum, kRounds * (20'000.0 * 19'999.0 / 2.0 + 20'000.0));
    // Far above what it takes, also under sanitizers; work that grows with the drawing would take more.
    EXPECT_LT(perOpening, 50'000.0);
}
