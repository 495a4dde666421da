#include "dbapserv.h"
#include "dbxrecrd.h"
#include "sample_drawing.h"

#include <zuhost/drawing_files.h>

namespace {

/// Objects that are in no database yet.
class NewObjects : public SampleDrawing {};

} // namespace

TEST_F(NewObjects, NewBlocksAreFilledBeforeTheyAreAdded) {
    auto record = std::make_unique<AcDbBlockTableRecord>();
    EXPECT_EQ(record->setOrigin({1, 2, 3}), Acad::eOk);
    EXPECT_EQ(record->origin(), AcGePoint3d(1, 2, 3));
    EXPECT_EQ(record->setComments(L"新しい"), Acad::eOk);
    record->setName(L"NEW");
    EXPECT_EQ(record->appendAcDbEntity(std::make_unique<AcDbLine>().get()), Acad::eNotInDatabase);
    AcDbObjectId added;
    ASSERT_EQ(AcDbBlockTablePointer(drawing.get(), AcDb::kForWrite)->add(added, record.get()), Acad::eOk);
    record.release()->close();
    const auto saved = reopened();
    const AcDbBlockTableRecordPointer read(L"new", saved.get());
    EXPECT_EQ(read->origin(), AcGePoint3d(1, 2, 3));
    const ACHAR* comments = nullptr;
    read->comments(comments);
    EXPECT_STREQ(comments, L"新しい");
}

TEST_F(NewObjects, ContainersAndSmartPointersDeleteAnObjectOnce) {
    AcDbObjectId id;
    AcDbObjectPointer<AcDbXrecord> outlives;
    AcDbObjectPointer<AcDb2dVertex> vertex;
    outlives.create();
    vertex.create();
    {
        AcDbDictionaryPointer dictionary;
        dictionary.create();
        AcDbObjectPointer<AcDbXrecord> ends;
        ends.create();
        EXPECT_EQ(dictionary->setAt(L"ENDS", ends, id), Acad::eOk);
        EXPECT_EQ(ends.close(), Acad::eOk);
        EXPECT_TRUE(dictionary->has(L"ENDS"));
        EXPECT_EQ(dictionary->setAt(L"OUTLIVES", outlives, id), Acad::eOk);
        AcDbDictionary other;
        EXPECT_EQ(other.setAt(L"OUTLIVES", outlives, id), Acad::eInvalidInput) << "owned already";
        EXPECT_EQ(drawing->addAcDbObject(id, outlives), Acad::eAlreadyInDb);
        AcDbObjectPointer<AcDb2dPolyline> polyline;
        polyline.create();
        EXPECT_EQ(polyline->appendVertex(vertex), Acad::eOk);
        const AcDbObjectPointer<AcDbBlockTableRecord> space(blockId(*drawing, ACDB_MODEL_SPACE),
                                                            AcDb::kForWrite);
        EXPECT_EQ(space->appendAcDbEntity(vertex), Acad::eAlreadyInDb);
    }
    AcDbXrecord* released = nullptr;
    EXPECT_EQ(outlives.release(released), Acad::eOk) << "the dictionary has left it to the pointer";
    const AcDbDictionaryPointer root(drawing->namedObjectsDictionaryId(), AcDb::kForWrite);
    AcDbDictionaryPointer dictionary;
    dictionary.create();
    ASSERT_EQ(dictionary->setAt(L"RECORD", released, id), Acad::eOk);
    ASSERT_EQ(outlives.acquire(released), Acad::eOk);
    ASSERT_EQ(root->setAt(L"ADDED", dictionary, id), Acad::eOk);
    EXPECT_TRUE(outlives->isWriteEnabled()) << "stays open for its pointer";
    EXPECT_EQ(outlives.close(), Acad::eOk);
    EXPECT_EQ(dictionary->getAt(L"RECORD", id), Acad::eOk);
}

TEST_F(NewObjects, NewEntitiesTakeExtendedData) {
    acdbHostApplicationServices()->setWorkingDatabase(drawing.get());
    const auto chainOf = [](const ACHAR* application) {
        resbuf* const name = acutNewRb(1001);
        acutNewString(application, name->resval.rstring);
        resbuf* const text = acutNewRb(1000);
        acutNewString(L"表能\\", text->resval.rstring);
        name->rbnext = text;
        return name;
    };
    auto line = std::make_unique<AcDbLine>(AcGePoint3d(0, 0, 0), AcGePoint3d(1, 0, 0));
    resbuf* chain = chainOf(L"UNKNOWN");
    EXPECT_EQ(line->setXData(chain), Acad::eRegappIdNotFound) << "the working database decides";
    acutRelRb(chain);
    EXPECT_EQ(line->xData(), nullptr);
    chain = chainOf(L"ZU_ATTR");
    EXPECT_EQ(line->setXData(chain), Acad::eOk);
    acutRelRb(chain);
    AcDbDatabase other; // has not registered the application
    const AcDbObjectId added = add(other, line.release());
    resbuf* const read = AcDbEntityPointer(added)->xData(L"ZU_ATTR");
    ASSERT_NE(read, nullptr);
    EXPECT_STREQ(read->rbnext->resval.rstring, L"表能\\");
    acutRelRb(read);
    EXPECT_TRUE(AcDbRegAppTablePointer(&other)->has(L"ZU_ATTR")) << "registered with the entity";
}

TEST_F(NewObjects, VariablesOfTheDrawingAreSaved) {
    AcDbDatabase made;
    EXPECT_EQ(made.setClayer(made.regAppTableId()), Acad::eNotThatKindOfClass);
    EXPECT_EQ(made.setClayer(drawing->clayer()), Acad::eWrongDatabase);
    EXPECT_EQ(made.setLtscale(0.0), Acad::eInvalidInput);
    EXPECT_EQ(made.setLtscale(2.5), Acad::eOk);
    EXPECT_EQ(made.setInsunits(AcDb::kUnitsMillimeters), Acad::eOk);
    EXPECT_EQ(made.setInsbase({1, 2, 3}), Acad::eOk);
    const auto saved = readBytes(zuhost::dxfOutBytes(made, false));
    EXPECT_EQ(saved->ltscale(), 2.5);
    EXPECT_EQ(saved->insunits(), AcDb::kUnitsMillimeters);
    EXPECT_EQ(saved->insbase(), AcGePoint3d(1, 2, 3));
    EXPECT_FALSE(saved->clayer().isNull());
}
