#include "sample_drawing.h"
#include <zuhost/drawing_files.h>
#include <zuhost/names.h>

namespace {

using OpenClose = SampleDrawing;

constexpr int kNotOpen = -1;

} // namespace

TEST_F(OpenClose, OpenModesExcludeEachOther) {
    const std::tuple<int, AcDb::OpenMode, Acad::ErrorStatus> cases[] = {
        {kNotOpen, AcDb::kForRead, Acad::eOk},
        {kNotOpen, AcDb::kForWrite, Acad::eOk},
        {AcDb::kForRead, AcDb::kForRead, Acad::eOk},
        {AcDb::kForRead, AcDb::kForWrite, Acad::eWasOpenForRead},
        {AcDb::kForWrite, AcDb::kForRead, Acad::eWasOpenForWrite},
        {AcDb::kForWrite, AcDb::kForWrite, Acad::eWasOpenForWrite},
        {AcDb::kForRead, AcDb::kForNotify, Acad::eOk},
    };
    for (const auto& [firstMode, secondMode, expected] : cases) {
        AcDbObjectPointer<AcDbObject> first;
        if (firstMode != kNotOpen) {
            ASSERT_EQ(first.open(id(kDuct), static_cast<AcDb::OpenMode>(firstMode)), Acad::eOk);
        }
        AcDbObject* second = nullptr;
        EXPECT_EQ(acdbOpenAcDbObject(second, id(kDuct), secondMode), expected) << firstMode << secondMode;
        EXPECT_EQ(second != nullptr, expected == Acad::eOk);
        if (second != nullptr)
            second->close();
    }
}

TEST_F(OpenClose, InvalidIdsAndClassesAreRejected) {
    AcDbObject* object = nullptr;
    EXPECT_EQ(acdbOpenAcDbObject(object, AcDbObjectId::kNull, AcDb::kForRead), Acad::eNullObjectId);
    AcDbLine* line = nullptr;
    EXPECT_EQ(acdbOpenObject(line, id(kDuct)), Acad::eNotThatKindOfClass);
    EXPECT_EQ(line, nullptr);
    // The failed call left the object closed.
    const AcDbObjectPointer<AcDbBlockReference> duct(id(kDuct), AcDb::kForWrite);
    EXPECT_EQ(duct.openStatus(), Acad::eOk);
    AcDbObjectId none;
    EXPECT_EQ(drawing->getAcDbObjectId(none, false, AcDbHandle(0xFFFFFF)), Acad::eUnknownHandle);
}

TEST_F(OpenClose, ReadersAreCountedUpToTheirLimit) {
    std::vector<AcDbObject*> readers;
    AcDbObject* object = nullptr;
    while (acdbOpenAcDbObject(object, id(kDuct), AcDb::kForRead) == Acad::eOk && readers.size() < 1000)
        readers.push_back(object);
    EXPECT_EQ(readers.size(), 256U);
    EXPECT_EQ(acdbOpenAcDbObject(object, id(kDuct), AcDb::kForRead), Acad::eAtMaxReaders);
    for (AcDbObject* reader : readers)
        EXPECT_EQ(reader->close(), Acad::eOk);
    EXPECT_EQ(readers.front()->close(), Acad::eNotOpenForRead);
}

TEST_F(OpenClose, OpenModeIsUpgradedAndDowngraded) {
    AcDbObjectPointer<AcDbBlockReference> duct(id(kDuct));
    EXPECT_EQ(duct->setRotation(1.0), Acad::eNotOpenForWrite);
    EXPECT_EQ(duct->erase(), Acad::eNotOpenForWrite);
    EXPECT_EQ(duct->downgradeOpen(), Acad::eNotOpenForWrite);
    {
        const AcDbObjectPointer<AcDbBlockReference> other(id(kDuct));
        EXPECT_EQ(duct->upgradeOpen(), Acad::eWasOpenForRead);
    }
    EXPECT_EQ(duct->upgradeOpen(), Acad::eOk);
    EXPECT_EQ(duct->upgradeOpen(), Acad::eWasOpenForWrite);
    EXPECT_EQ(duct->setRotation(1.0), Acad::eOk);
    EXPECT_EQ(duct->downgradeOpen(), Acad::eOk);
    EXPECT_EQ(duct->setRotation(2.0), Acad::eNotOpenForWrite);
    EXPECT_DOUBLE_EQ(duct->rotation(), 1.0);
    duct.close();
    EXPECT_EQ(drawing->originalFileVersion(), AcDb::kDHL_3200);
}

TEST_F(OpenClose, ErasedObjectsOpenOnRequestOnly) {
    erase(id(kDuct));
    EXPECT_TRUE(id(kDuct).isErased());
    AcDbObject* object = nullptr;
    EXPECT_EQ(acdbOpenAcDbObject(object, id(kDuct), AcDb::kForRead), Acad::eWasErased);
    AcDbObjectPointer<AcDbObject> erased(id(kDuct), AcDb::kForWrite, true);
    ASSERT_EQ(erased.openStatus(), Acad::eOk);
    EXPECT_EQ(erased->erase(), Acad::eWasErased);
    EXPECT_EQ(erased->erase(false), Acad::eOk);
    erased.close();
    EXPECT_EQ(acdbOpenAcDbObject(object, id(kDuct), AcDb::kForRead), Acad::eOk);
    object->close();
}

TEST_F(OpenClose, ClassesAreKnownWithoutOpening) {
    EXPECT_EQ(id(kDuct).objectClass(), AcDbBlockReference::desc());
    EXPECT_EQ(id(kSupply).objectClass(), AcDbGroup::desc());
    EXPECT_EQ(drawing->layerTableId().objectClass(), AcDbLayerTable::desc());
    EXPECT_EQ(AcDbObjectId::kNull.objectClass(), nullptr);
    ACHAR digits[17];
    id(kAirHandler).handle().getIntoAsciiBuffer(digits);
    EXPECT_STREQ(digits, L"10C");
    EXPECT_EQ(AcDbHandle(L"10c").value(), kAirHandler);
}

TEST_F(OpenClose, FailedReadingLeavesTheDrawingUnchanged) {
    EXPECT_EQ(drawing->dxfIn(L"/no/such/folder/drawing.dxf"), Acad::eFileNotFound);
    EXPECT_NE(zuhost::lastErrorText(*drawing).find(L"drawing.dxf"), std::wstring::npos);
    EXPECT_EQ(zuhost::dxfInBytes(*drawing, "  0\nSECTION\n  2\nENTITIES\n  x\nLINE\n", L"bad.dxf"),
              Acad::eBadDxfFile);
    EXPECT_EQ(zuhost::lastErrorText(*drawing).rfind(L"bad.dxf:5: ", 0), 0U);
    EXPECT_EQ(zuhost::dxfInBytes(*drawing, "", L"empty.dxf"), Acad::eBadDxfFile);
    const AcDbObjectPointer<AcDbBlockReference> duct(id(kDuct));
    EXPECT_EQ(zuhost::blockName(*duct), L"RT-D300");
}
