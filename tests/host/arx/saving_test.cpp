#include "sample_drawing.h"

#include <temporary_folder.h>
#include <zuhost/drawing_files.h>
#include <zuhost/members.h>
#include <zuhost/names.h>

namespace {

class Saving : public SampleDrawing {
protected:
    /// Opens every record and entity for write without changing it; returns their number.
    static std::size_t visitAll(AcDbDatabase& database) {
        std::size_t visited = 0;
        for (const AcDbObjectId table :
             {database.blockTableId(), database.layerTableId(), database.linetypeTableId(),
              database.textStyleTableId(), database.regAppTableId()}) {
            const AcDbObjectPointer<AcDbSymbolTable> opened(table);
            for (const AcDbObjectId record : zuhost::recordIds(*opened)) {
                const AcDbObjectPointer<AcDbSymbolTableRecord> entry(record, AcDb::kForWrite);
                EXPECT_FALSE(zuhost::recordName(*entry).empty());
                if (const auto* block = AcDbBlockTableRecord::cast(entry.object()))
                    visited += visitBlock(*block);
                ++visited;
            }
        }
        return visited;
    }
    static std::size_t visitBlock(const AcDbBlockTableRecord& block) {
        EXPECT_EQ(block.origin(), block.origin());
        const auto ids = zuhost::entityIds(block);
        for (const AcDbObjectId entity : ids) {
            const AcDbObjectPointer<AcDbEntity> opened(entity, AcDb::kForWrite, false, true);
            EXPECT_FALSE(opened->layerId().isNull());
            acutRelRb(opened->xData());
        }
        return ids.size();
    }
};

} // namespace

TEST_F(Saving, OpeningChangesNothing) {
    for (const ACHAR* name : {L"office-floor.dxf", L"office-floor-932.dxf"}) {
        const auto database = read(samplePath(name));
        EXPECT_GT(visitAll(*database), 200U);
        const std::wstring path = samplePath(name);
        EXPECT_TRUE(zuhost::dxfOutBytes(*database, false) ==
                    TemporaryFolder::read(std::string(path.begin(), path.end())));
    }
}

TEST_F(Saving, BytesOfAnUneditedDrawingAreSharedAndOutliveIt) {
    std::string large;
    while (large.size() < 300'000)
        large += "999\ncomment\n";
    large += zuhost::dxfOutBytes(*drawing, false);
    auto copy = readBytes(large);
    const auto unedited = zuhost::dxfOutShared(*copy);
    ASSERT_TRUE(unedited);
    EXPECT_EQ(unedited.get(), zuhost::dxfOutShared(*copy).get()) << "no copy";
    EXPECT_EQ(AcDbEntityPointer(idIn(*copy, kDuct), AcDb::kForWrite)->erase(), Acad::eOk);
    const auto edited = zuhost::dxfOutShared(*copy);
    ASSERT_TRUE(edited);
    EXPECT_TRUE(*edited == zuhost::dxfOutBytes(*copy, false));
    copy.reset();
    EXPECT_TRUE(*unedited == large);
    EXPECT_TRUE(*edited != large);
}

TEST_F(Saving, FailedSavingKeepsTheOldFile) {
    const TemporaryFolder folder;
    const std::wstring path = folder.wide("copy.dxf");
    ASSERT_EQ(drawing->dxfOut(path.c_str()), Acad::eOk);
    EXPECT_EQ(drawing->dxfOut(folder.wide("missing/copy.dxf").c_str()), Acad::eFilerError);
    EXPECT_FALSE(zuhost::lastErrorText(*drawing).empty());
    EXPECT_TRUE(zuhost::dxfOutBytes(*read(path), false) == zuhost::dxfOutBytes(*drawing, false));
    ASSERT_EQ(zuhost::dxfOut(*drawing, path.c_str(), true), Acad::eOk);
    EXPECT_TRUE(zuhost::isBinary(*read(path)));
}

TEST_F(Saving, EditsOfAnotherProgramAreNotReplaced) {
    const TemporaryFolder folder;
    const std::wstring path = folder.wide("plan.dxf");
    ASSERT_EQ(drawing->dxfOut(path.c_str()), Acad::eOk);
    std::error_code noLinks; // not every system lets users make them
    std::filesystem::create_symlink("plan.dxf", folder.file("link.dxf"), noLinks);
    const char* const link = noLinks ? "plan.dxf" : "link.dxf";
    std::filesystem::create_hard_link(folder.file("plan.dxf"), folder.file("same.dxf"));
    const auto second = read(path);
    const auto first = read(folder.wide(link));
    EXPECT_EQ(first->dxfOut(path.c_str()), Acad::eOk);
    EXPECT_EQ(first->dxfOut(folder.wide(link).c_str()), Acad::eOk) << "its own save is no change";
    std::filesystem::create_directory(folder.path() / "sub");
    for (const char* name : {"plan.dxf", link, noLinks ? "sub/../plan.dxf" : "sub/../link.dxf", "PLAN.DXF"}) {
        EXPECT_EQ(second->dxfOut(folder.wide(name).c_str()), Acad::eFileAccessErr) << name;
        EXPECT_NE(zuhost::lastErrorText(*second).find(L"changed"), std::wstring::npos);
    }
    EXPECT_EQ(second->dxfOut(folder.wide("same.dxf").c_str()), Acad::eOk) << "unchanged under this name";
    EXPECT_EQ(second->dxfOut(folder.wide("other.dxf").c_str()), Acad::eOk);
    EXPECT_EQ(second->dxfOut(folder.wide("other.dxf").c_str()), Acad::eOk) << "other files are replaced";
    zuhost::allowReplacingChangedFile(*second);
    EXPECT_EQ(second->dxfOut(path.c_str()), Acad::eOk);
    EXPECT_EQ(second->dxfOut(path.c_str()), Acad::eOk);
    EXPECT_EQ(first->dxfOut(path.c_str()), Acad::eFileAccessErr);
    std::filesystem::last_write_time(folder.file("plan.dxf"), {});
    EXPECT_EQ(second->dxfOut(path.c_str()), Acad::eFileAccessErr) << "changed in place";
    std::filesystem::remove(folder.file("plan.dxf"));
    EXPECT_EQ(second->dxfOut(path.c_str()), Acad::eFileAccessErr) << "removed";
}

TEST_F(Saving, WhatAnErasedEntityOwnsGoesWithIt) {
    std::string bytes = zuhost::dxfOutBytes(*drawing, false);
    const std::string duct = "INSERT\n  5\n114\n";
    ASSERT_NE(bytes.find(duct), std::string::npos);
    bytes.insert(bytes.find(duct) + duct.size(), "102\n{ACAD_XDICTIONARY\n360\nF01\n102\n}\n");
    bytes.insert(bytes.rfind("  0\nENDSEC\n"),
                 "0\nXRECORD\n5\nF02\n330\nF01\n100\nAcDbXrecord\n1\ndeep\n"
                 "0\nDICTIONARY\n5\nF01\n330\n114\n100\nAcDbDictionary\n3\nA\n360\nF02\n3\nB\n360\nF03\n"
                 "0\nXRECORD\n5\nF03\n330\nC\n100\nAcDbXrecord\n1\nof another owner\n"
                 "0\nXRECORD\n5\nF04\n330\n114\n100\nAcDbXrecord\n1\nonly claims an owner\n");
    const auto isThere = [](const AcDbDatabase& database, Adesk::UInt64 handle) {
        AcDbObjectId found;
        return database.getAcDbObjectId(found, false, AcDbHandle(handle)) == Acad::eOk;
    };
    const auto edited = readBytes(bytes);
    erase(idIn(*edited, kDuct));
    const auto saved = readBytes(zuhost::dxfOutBytes(*edited, false));
    for (const Adesk::UInt64 gone : {kDuct, Adesk::UInt64{0xF01}, Adesk::UInt64{0xF02}})
        EXPECT_FALSE(isThere(*saved, gone)) << gone;
    for (const Adesk::UInt64 kept : {0xF03U, 0xF04U})
        EXPECT_TRUE(isThere(*saved, kept)) << kept;
    erase(idIn(*edited, kDuct), false);
    EXPECT_TRUE(isThere(*readBytes(zuhost::dxfOutBytes(*edited, false)), 0xF02));
}

TEST_F(Saving, AttributesOfErasedReferencesLeaveTheirGroups) {
    std::string bytes = zuhost::dxfOutBytes(*drawing, false);
    const std::size_t duct = bytes.find("INSERT\n  5\n114\n");
    bytes.insert(bytes.find("  0\nINSERT", duct),
                 "0\nATTRIB\n5\nF01\n330\n114\n8\n0\n0\nSEQEND\n5\nF02\n330\n114\n8\n0\n");
    const auto edited = readBytes(bytes);
    EXPECT_EQ(AcDbObjectPointer<AcDbGroup>(idIn(*edited, kFurniture), AcDb::kForWrite)
                  ->append(idIn(*edited, 0xF01)),
              Acad::eOk);
    erase(idIn(*edited, kDuct));
    const auto saved = readBytes(zuhost::dxfOutBytes(*edited, false));
    const AcDbObjectPointer<AcDbGroup> group(idIn(*saved, kFurniture));
    EXPECT_EQ(group->numEntities(), 3U);
    EXPECT_TRUE(zuhost::surplusEntries(*group).empty());
}

TEST_F(Saving, DatabaseWithoutADrawingIsRejected) {
    AcDbDatabase empty(false);
    AcDbObjectId id;
    AcDbGroup group;
    EXPECT_EQ(empty.addAcDbObject(id, &group), Acad::eNoDatabase);
    EXPECT_EQ(empty.dxfOut(L"nothing.dxf"), Acad::eNoDatabase);
    EXPECT_TRUE(zuhost::dxfOutBytes(empty, false).empty());
}

TEST_F(Saving, ObjectsWithoutAnOwnerAreKept) {
    auto* const group = new AcDbGroup(L"lone");
    AcDbObjectId added;
    ASSERT_EQ(drawing->addAcDbObject(added, group), Acad::eOk);
    EXPECT_EQ(group->append(id(kDuct)), Acad::eOk);
    EXPECT_EQ(drawing->addAcDbObject(added, group), Acad::eAlreadyInDb);
    group->close();
    const auto again = reopened();
    const AcDbObjectPointer<AcDbGroup> kept(idIn(*again, added.handle().value()));
    ASSERT_EQ(kept.openStatus(), Acad::eOk);
    EXPECT_EQ(kept->numEntities(), 1U);
}

TEST_F(Saving, NewDrawingsAreSavedAndReadBack) {
    AcDbDatabase made;
    add(made, new AcDbText({0, 0, 0}, L"図面", AcDbObjectId::kNull, 2.5));
    AcDbDictionary* groups = nullptr;
    ASSERT_EQ(made.getGroupDictionary(groups, AcDb::kForWrite), Acad::eOk);
    auto* const group = new AcDbGroup(L"first");
    AcDbObjectId added;
    EXPECT_EQ(groups->setAt(L"*", group, added), Acad::eOk);
    EXPECT_EQ(zuhost::groupName(*group), L"*A1");
    group->close();
    groups->close();
    const auto again = readBytes(zuhost::dxfOutBytes(made, true));
    EXPECT_TRUE(zuhost::isBinary(*again));
    EXPECT_GT(visitAll(*again), 5U);
    EXPECT_STREQ(AcDbObjectPointer<AcDbGroup>(idIn(*again, added.handle().value()))->description(), L"first");
}

TEST_F(Saving, CharactersOutsideTheCodePageSurvive) {
    const auto database = read(samplePath(L"office-floor-932.dxf"));
    const AcDbObjectId text =
        add(*database, new AcDbText({0, 0, 0}, L"表能ソ 850㎥ é", AcDbObjectId::kNull, 100.0));
    const auto again = readBytes(zuhost::dxfOutBytes(*database, false));
    EXPECT_EQ(textOf(idIn(*again, text.handle().value())), L"表能ソ 850㎥ é");
}

// An opening that searches the drawing would take minutes.
TEST_F(Saving, AccessToManyReferences) {
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
    double sum = 0.0;
    constexpr int kRounds = 5;
    for (int round = 0; round < kRounds; ++round)
        for (const AcDbObjectId insert : ids) {
            const AcDbObjectPointer<AcDbBlockReference> opened(insert);
            sum += opened->position().x + opened->blockTransform().entry[0][0];
            EXPECT_EQ(opened->blockTableRecord(), block);
        }
    EXPECT_DOUBLE_EQ(sum, kRounds * (20'000.0 * 19'999.0 / 2.0 + 20'000.0));
}
