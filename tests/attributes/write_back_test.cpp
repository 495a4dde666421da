#include "attributes/model/progress_scope.h"
#include "attributes/model/write_back.h"
#include "frame/resource_ids.h"
#include "test_drawing.h"

#include <acdocman.h>
#include <afxdllx.h>
#include <zucomn/frame.h>
#include <zuhost/command_line.h>
#include <zuhost/input.h>
#include <zuhost/message_box.h>
#include <zuhost/progress.h>

#include <algorithm>
#include <stdexcept>

namespace {

class WriteBack : public ::testing::Test {
protected:
    WriteBack() {
        ZuComn_SetResource();
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

    ~WriteBack() override { zuhost::clearPendingInput(); }

    static std::wstring run(const wchar_t* command) {
        const zuhost::CommandLineObserver printed;
        ApiComn_sendCommand(command, 0, 1, 1);
        return printed.text();
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
    CStringArray record_ = arrayOf({L"S1", L"", L"x", L"1"});
    CPtrArray table_;
};

TEST_F(WriteBack, ChangesUnlockedEntitiesInOneUndoStep) {
    const AcDbObjectId ids[] = {element(L"S1|a|0|"), element(L"S1|b|0|", L"固定"), element(L"S1|c|0|"),
                                AcDbObjectId()};
    const std::vector<zu::ShownItem> items = {{L"S1|", L"新"}};
    const zuhost::MessageBoxObserver observer;

    EXPECT_EQ(zu::writeBack(ids, items, zu::ParameterIndex(table_)).changed, 2);
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

TEST_F(WriteBack, HostUndoRevertsItInOneStep) {
    const AcDbObjectId ids[] = {element(L"S1|a|0|"), element(L"S1|b|0|")};
    const AcDbObjectId other = element(L"S1|c|0|");
    const std::vector<zu::ShownItem> items = {{L"S1|", L"新"}};
    ASSERT_EQ(zu::writeBack(ids, items, zu::ParameterIndex(table_)).changed, 2);
    EXPECT_EQ(zuhost::pendingInput(), L"ZU_ATTREDIT_SEC3D\n");
    zuhost::clearPendingInput();
    TestDrawing::erase(other);
    run(L"U");
    EXPECT_FALSE(other.isErased());
    EXPECT_EQ(attribute(ids[0]), L"S1|新|0|");
    run(L"U");
    EXPECT_EQ(attribute(ids[0]), L"S1|a|0|");
    EXPECT_EQ(attribute(ids[1]), L"S1|b|0|");
    run(L"MREDO 2");
    EXPECT_EQ(attribute(ids[1]), L"S1|新|0|");
    EXPECT_TRUE(other.isErased());
}

TEST_F(WriteBack, ReportsHeightsThatAreNotNumbers) {
    const std::pair<const wchar_t*, bool> cases[] = {
        {L"2700", false}, {L"+300", false},    {L" -1.5e2 ", false}, {L"", false},   {L"FL+300", true},
        {L"2,700", true}, {L"２７００", true}, {L"-", true},         {L"nan", true}, {L"1e999", true}};
    for (const auto& [text, isReported] : cases) {
        const AcDbObjectId id = element(L"S1|a|0|");
        const std::wstring height = L"S401|" + std::wstring(text) + L"|0|";
        TestDrawing::setTexts(id, L"ZU_ATTR", {L"2|A|B|", L"S1|a|0|", height.c_str()});
        const std::vector<zu::ShownItem> items = {{L"S1|", L"新"}};
        const zuhost::CommandLineObserver printed;
        const HINSTANCE before = AfxGetResourceHandle();
        EXPECT_EQ(zu::writeBack({&id, 1}, items, zu::ParameterIndex(table_)).changed, 1);
        EXPECT_EQ(AfxGetResourceHandle(), before);
        EXPECT_EQ(printed.text(), isReported ? L"取付高が数値でない要素: 1\n" : L"")
            << zuhost::toUtf8(height);
    }
}

TEST_F(WriteBack, ProgressAdvancesInPerCentsAndAlwaysEnds) {
    for (const std::size_t steps : {0U, 1U, 3U, 100U, 2500U}) {
        const zuhost::ProgressObserver observer;
        try {
            zu::ProgressScope progress(zu::text::kWritingAttributes, steps);
            for (std::size_t i = 0; i < steps; ++i)
                progress.advance();
            throw std::runtime_error("failure during the job");
        } catch (const std::runtime_error&) {
            ASSERT_EQ(observer.jobs().size(), 1U);
        }
        const auto& job = observer.jobs().front();
        EXPECT_EQ(job.label, L"属性を書き込んでいます...");
        EXPECT_EQ(job.positions.size(), std::min<std::size_t>(steps, 100));
        EXPECT_TRUE(steps == 0 || job.positions.back() == job.last);
        EXPECT_TRUE(job.isOver);
    }
}

} // namespace
