#include "attributes/model/write_back.h"
#include "test_drawing.h"

#include <zucomn/frame.h>
#include <zuhost/message_box.h>

#include <gtest/gtest.h>

namespace {

class WriteBack : public ::testing::Test {
protected:
    WriteBack() {
        ZuComn_SetResource();
        record_.Add(L"S1");
        record_.Add(L"");
        record_.Add(L"x");
        record_.Add(L"1");
        table_.Add(&record_);
        drawing_.addLayer(L"固定");
        lock(L"固定");
    }

    void lock(const wchar_t* name) const {
        AcDbObjectId id;
        {
            const AcDbObjectPointer<AcDbLayerTable> table(drawing_.database().layerTableId());
            ASSERT_EQ(table->getAt(name, id), Acad::eOk);
        }
        const AcDbObjectPointer<AcDbLayerTableRecord> layer(id, AcDb::kForWrite);
        ASSERT_EQ(layer->setIsLocked(true), Acad::eOk);
    }

    AcDbObjectId element(const wchar_t* attribute, const wchar_t* layer = L"0") const {
        const AcDbObjectId id = drawing_.element(block_, {});
        TestDrawing::setTexts(id, L"ZU_ATTR", {L"1|A|B|", attribute});
        const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForWrite);
        EXPECT_EQ(entity->setLayer(layer), Acad::eOk);
        return id;
    }

    static std::wstring attribute(AcDbObjectId id) {
        CStringArray list;
        EXPECT_EQ(ApiComn_extractAttributesArrayID(id, L"ZU_ATTR", list), 0);
        return list.GetSize() == 2 ? static_cast<const wchar_t*>(list[1]) : L"?";
    }

    TestDrawing drawing_;
    AcDbObjectId block_ = drawing_.block(L"part", {});
    CStringArray record_;
    CPtrArray table_;
};

TEST_F(WriteBack, ChangesAllButLockedEntitiesInOneUndoStep) {
    const AcDbObjectId ids[] = {element(L"S1|a|0|"), element(L"S1|b|0|", L"固定"), element(L"S1|c|0|"),
                                AcDbObjectId()};
    const std::vector<zu::ShownItem> items = {{L"S1|", L"新"}};
    const zuhost::MessageBoxObserver observer;

    EXPECT_EQ(zu::writeBack(ids, items, zu::ParameterIndex(table_)), 2);
    EXPECT_EQ(attribute(ids[0]), L"S1|新|0|");
    EXPECT_EQ(attribute(ids[1]), L"S1|b|0|");
    EXPECT_EQ(attribute(ids[2]), L"S1|新|0|");
    ASSERT_EQ(observer.boxes().size(), 1U);
    EXPECT_EQ(observer.boxes()[0].text, L"画層 固定 がﾛｯｸされています、確認してください。");
    EXPECT_EQ(observer.boxes()[0].style & 0xF0U, static_cast<UINT>(MB_ICONSTOP));

    EXPECT_EQ(drawing_.database().undo(), Acad::eOk);
    EXPECT_EQ(attribute(ids[0]), L"S1|a|0|");
    EXPECT_EQ(attribute(ids[2]), L"S1|c|0|");
}

} // namespace
