#include "attribute_window_fixture.h"

#include <zucomn/model/attributes.h>
#include <zuhost/message_box.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>

#include <algorithm>

namespace {

TEST_F(FrameTest, ButtonWritesChangesAsOneUndoStep) {
    frame_.GetLeftPane()->SetEntities(drawing_.find({kDuct, kSecondDuct}));
    click(properties(), 1, true);
    auto* const box = qobject_cast<QComboBox*>(editor(properties()));
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(box->currentText(), "300");
    QTest::keyClick(box, Qt::Key_F4);
    QTest::keyClick(box->view(), Qt::Key_Down);
    QTest::keyClick(box->view(), Qt::Key_Return);
    zuhost::processPendingEvents();
    EXPECT_FALSE(properties().IsEditing());
    EXPECT_EQ(shown(L"S302|"), L"400");
    EXPECT_EQ(drawing_.value(kDuct, L"S302"), L"300");

    pressButton();
    EXPECT_EQ(drawing_.value(kDuct, L"S302"), L"400");
    EXPECT_EQ(drawing_.value(kSecondDuct, L"S302"), L"400");
    QTest::keyClick(zuhost::widgetOf(lines()), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(shown(L"S302|"), L"300");
    EXPECT_EQ(drawing_.value(kDuct, L"S302"), L"300");
    EXPECT_EQ(drawing_.value(kSecondDuct, L"S302"), L"300");
    QTest::keyClick(zuhost::widgetOf(lines()), Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(drawing_.value(kSecondDuct, L"S302"), L"400");
}

TEST_F(FrameTest, DoesNotWriteValuesOfThePreviousSelection) {
    frame_.GetLeftPane()->SetEntities(drawing_.find({kDuct, kPipe}));
    const std::wstring height = drawing_.value(kPipe, L"S401");
    frame_.GetRightPane()->SetValue(L"S401", L"1");
    lines().SetItemState(-1, 0, LVIS_SELECTED);
    lines().SetItemState(lines().GetItemCount() - 1, LVIS_SELECTED, LVIS_SELECTED);
    frame_.GetLeftPane()->OnUpdateAttributes();
    EXPECT_EQ(drawing_.value(kPipe, L"S401"), height);
    EXPECT_EQ(shown(L"S401|"), height);
}

TEST_F(FrameTest, KeysCollapseHeadingsAndMoveTheEditor) {
    frame_.GetLeftPane()->SetEntities(drawing_.find({kDuct}));
    CPropertyListCtrl& list = properties();
    list.SetFocus();
    click(list, 0, false);
    EXPECT_EQ(list.GetSelectedItem(), -1);
    const int rows = list.GetCount();
    QTest::keyClick(zuhost::widgetOf(list), Qt::Key_Left);
    EXPECT_EQ(list.GetCount(), rows - 6) << "the attributes; the facts stay";
    QTest::keyClick(zuhost::widgetOf(list), Qt::Key_Space);
    EXPECT_EQ(list.GetCount(), rows);

    // The size item has choices; the next item has none and accepts any text.
    QTest::keyClick(zuhost::widgetOf(list), Qt::Key_Down);
    QTest::keyClick(zuhost::widgetOf(list), Qt::Key_F2);
    QTest::keyClick(editor(list), Qt::Key_Escape);
    EXPECT_FALSE(list.IsEditing());
    QTest::keyClick(zuhost::widgetOf(list), Qt::Key_F2);
    QTest::keyClick(editor(list), Qt::Key_Tab);
    EXPECT_TRUE(list.IsEditing());
    QTest::keyClick(editor(list), Qt::Key_Return);
    CStringArray keys;
    CStringArray values;
    EXPECT_EQ(frame_.GetRightPane()->GetAttSel(keys, values), 0);
    EXPECT_EQ(text(keys[0]), L"S304|");
}

TEST_F(FrameTest, TypingReplacesTheValueAndRejectsTheSeparator) {
    frame_.GetLeftPane()->SetEntities(drawing_.find({kDuct}));
    CPropertyListCtrl& list = properties();
    list.SetFocus();
    list.SelectItem(1);
    QTest::keyClicks(zuhost::widgetOf(list), "9");
    QTest::keyClicks(editor(list), "0|");
    {
        const zuhost::MessageBoxObserver observer;
        QTest::keyClick(editor(list), Qt::Key_Return);
        ASSERT_EQ(observer.boxes().size(), 1U);
        EXPECT_EQ(observer.boxes()[0].text, L"縦棒 | は値に使用できません。");
        EXPECT_EQ(observer.boxes()[0].style & 0xF0U, MB_ICONSTOP);
    }
    ASSERT_TRUE(list.IsEditing());
    QTest::keyClick(editor(list), Qt::Key_Backspace);
    QInputMethodEvent composed;
    composed.setCommitString("段");
    QApplication::sendEvent(editor(list), &composed);
    QTest::keyClick(editor(list), Qt::Key_Down);
    EXPECT_FALSE(list.IsEditing());
    EXPECT_EQ(shown(L"S304|"), L"90段");
    EXPECT_EQ(list.GetSelectedItem(), 2);

    // A change that is not applied yet is marked; Escape takes it back.
    const CMyAdaptablePropertyItemManager& items = frame_.GetRightPane()->pane().manager();
    QTest::keyClick(zuhost::widgetOf(list), Qt::Key_Up);
    EXPECT_TRUE(items.GetItem(1).changed);
    QTest::keyClick(zuhost::widgetOf(list), Qt::Key_Escape);
    EXPECT_EQ(shown(L"S304|"), L"0");
    EXPECT_FALSE(items.GetItem(1).changed);

    QTest::keyClick(zuhost::widgetOf(list), Qt::Key_F2);
    QApplication::clipboard()->setText("a\nb");
    QTest::keyClick(editor(list), Qt::Key_V, Qt::ControlModifier);
    const zuhost::MessageBoxObserver observer;
    QTest::keyClick(editor(list), Qt::Key_Return);
    frame_.GetRightPane()->SetValue(L"S401", L"1\n2");
    frame_.GetRightPane()->SetValue(L"S401", L"1|2");
    EXPECT_EQ(shown(L"S304|").find(L'\n'), std::wstring::npos);
    EXPECT_EQ(shown(L"S401|"), L"2700");
    list.EndEdit(false);
}

TEST_F(FrameTest, TheCurrentValueIsOfferedFirstAndStaysInSight) {
    AcArray<AcDbObjectId> entities = drawing_.find({kDuct});
    CStringArray record;
    ASSERT_EQ(ApiComn_extractAttributesArrayID(entities[0], L"ZU_ATTR", record), 0);
    ASSERT_EQ(CAttributeData::SetAtAtt(&record, L"S302|", L"315"), 0);
    ASSERT_EQ(ApiComn_appendAttributesArray(entities[0], L"ZU_ATTR", record), 0);
    frame_.GetLeftPane()->SetEntities(entities);
    for (const wchar_t* const current : {L"315", L"*各種*"}) {
        click(properties(), 1, true);
        auto* const box = qobject_cast<QComboBox*>(editor(properties()));
        ASSERT_NE(box, nullptr);
        EXPECT_EQ(box->currentText().toStdWString(), current);
        EXPECT_EQ(box->itemText(0).toStdWString(), current);
        EXPECT_EQ(box->count(), 5);
        QTest::keyClick(box, Qt::Key_F4);
        QTest::keyClick(box->view(), Qt::Key_Return);
        zuhost::processPendingEvents();
        EXPECT_EQ(shown(L"S302|"), current);
        EXPECT_FALSE(frame_.GetRightPane()->pane().manager().GetItem(0).changed);
        frame_.GetLeftPane()->SetEntities(drawing_.find({kDuct, kSecondDuct}));
    }
}

TEST_F(FrameTest, WritesOnlyWhatTheUserChanged) {
    frame_.GetLeftPane()->SetEntities(drawing_.find({kDuct}));
    frame_.GetRightPane()->SetValue(L"S401", L"2400");
    const zucomn::AttributeValue elsewhere[] = {{L"S501", L"還気"}};
    const AcArray<AcDbObjectId> duct = drawing_.find({kDuct});
    zucomn::editAttributes({duct.asArrayPtr(), 1}, elsewhere);
    frame_.GetLeftPane()->OnUpdateAttributes();
    EXPECT_EQ(drawing_.value(kDuct, L"S401"), L"2400");
    EXPECT_EQ(drawing_.value(kDuct, L"S501"), L"還気");
}

TEST_F(FrameTest, OnlyEditableItemsOpenAnEditor) {
    frame_.GetLeftPane()->SetEntities(drawing_.find({kDuct}));
    const std::vector<CMyAdaptablePropertyItemManager::Row> rows =
        frame_.GetRightPane()->pane().manager().GetRows();
    for (int row = 1; row < properties().GetCount(); ++row) {
        click(properties(), row, true);
        if (rows[static_cast<std::size_t>(row)].item < 0)
            continue;
        const CPropertyItem& item =
            frame_.GetRightPane()->pane().manager().GetItem(rows[static_cast<std::size_t>(row)].item);
        EXPECT_EQ(properties().IsEditing(), item.editable) << row;
        EXPECT_EQ(item.editable, item.key != L"S402|" && !item.key.IsEmpty());
        properties().EndEdit(false);
    }
}

TEST_F(FrameTest, SetsValuesByKeyAndShowsParts) {
    CAttView& view = *frame_.GetRightPane();
    CStringArray keys;
    view.AddListView(drawing_.find(kDuct), &keys);
    EXPECT_EQ(text(keys[0]), L"S302|");
    view.SetValue(L"S302", L"150");
    view.SetValue(L"S999", L"1");
    EXPECT_EQ(shown(L"S302|"), L"150");
    CStringArray selected;
    EXPECT_EQ(view.GetAttSel(selected, selected), -1);
    EXPECT_TRUE(selected.IsEmpty());
    keys.RemoveAll();
    view.AddGrid(zuhost::textOf(settings_.folder().wide("parts/fitting-01.dxf")), &keys);
    EXPECT_GT(keys.GetSize(), 2);
    settings_.folder().write("parts/pipe.csv", "S303|25a|P|||1|\n");
    view.AddGrid(zuhost::textOf(settings_.folder().wide("parts/pipe.csv")), nullptr);
    click(properties(), 1, true);
    ASSERT_TRUE(properties().EndEdit(true));
    EXPECT_EQ(shown(L"S303|"), L"25a") << "the choice 25A was not selected";
    view.AddGrid(L"missing.dxf", nullptr);
    EXPECT_EQ(view.pane().manager().GetItemCount(), 0);
}

/// A view that writes changes immediately, in a frame of its own.
class AViewTest : public AttributeWindow {
protected:
    AViewTest() : frame_(*new CFrameWnd) {
        CCreateContext context{RUNTIME_CLASS(CAView), nullptr};
        EXPECT_TRUE(frame_.Create(nullptr, L"属性", WS_OVERLAPPEDWINDOW, CRect(0, 0, 400, 300), nullptr,
                                  nullptr, 0, &context));
        show(frame_);
        view_ = static_cast<CAView*>(frame_.GetDlgItem(static_cast<int>(AFX_IDW_PANE_FIRST)));
        list_ = static_cast<CPropertyListCtrl*>(view_->GetDlgItem(3002));
    }
    ~AViewTest() override { frame_.DestroyWindow(); }

    CFrameWnd& frame_;
    CAView* view_ = nullptr;
    CPropertyListCtrl* list_ = nullptr;
};

TEST_F(AViewTest, WritesAChosenValueToUnlockedEntities) {
    view_->AddListView(drawing_.find({kDuct, kPipe, kLockedAirHandler}), nullptr);
    CStringArray keys;
    CStringArray values;
    view_->GetAttAll(keys, values);
    ASSERT_EQ(text(keys[0]), L"S401|");
    EXPECT_EQ(text(values[0]), L"*各種*");
    const std::wstring size = drawing_.value(kPipe, L"S302");
    const std::wstring use = drawing_.value(kDuct, L"S501");
    const std::wstring locked = drawing_.value(kLockedAirHandler, L"S401");

    click(*list_, 2, false); // below the notice of the locked layer and the heading
    ASSERT_TRUE(list_->IsEditing());
    QTest::keyClick(editor(*list_), Qt::Key_Down, Qt::AltModifier);
    auto* const box = qobject_cast<QComboBox*>(editor(*list_));
    const zuhost::MessageBoxObserver observer;
    QTest::keyClick(box->view(), Qt::Key_End);
    QTest::keyClick(box->view(), Qt::Key_Return);
    zuhost::processPendingEvents();
    ASSERT_EQ(observer.boxes().size(), 1U);
    EXPECT_EQ(observer.boxes()[0].text, L"画層 機器-固定 がﾛｯｸされています、確認してください。");
    EXPECT_EQ(observer.boxes()[0].style & 0xF0U, MB_ICONSTOP);
    EXPECT_EQ(drawing_.value(kDuct, L"S401"), L"2400");
    EXPECT_EQ(drawing_.value(kPipe, L"S401"), L"2400");
    EXPECT_EQ(drawing_.value(kLockedAirHandler, L"S401"), locked);
    EXPECT_EQ(drawing_.value(kPipe, L"S302"), size);
    EXPECT_EQ(drawing_.value(kDuct, L"S501"), use);
    EXPECT_NE(zuhost::pendingInput().find(L"ZU_ATTREDIT_SEC3D"), std::wstring::npos);
}

TEST_F(AViewTest, KeepsChangedValuesOfAPart) {
    view_->AddListView(drawing_.find(kDuct), nullptr);
    const std::wstring height = drawing_.value(kDuct, L"S401");
    view_->AddGrid(zuhost::textOf(settings_.folder().wide("parts/fitting-01.dxf")), nullptr);
    view_->SetValue(L"S401", L"1");
    view_->OnUpdateAttributes();
    CStringArray keys;
    CStringArray values;
    view_->GetAttAll(keys, values);
    ASSERT_FALSE(keys.IsEmpty());
    const auto* const place = std::find(keys.GetData(), keys.GetData() + keys.GetSize(), L"S401|");
    EXPECT_EQ(text(values[static_cast<int>(place - keys.GetData())]), L"1");
    EXPECT_EQ(drawing_.value(kDuct, L"S401"), height);
}

} // namespace
