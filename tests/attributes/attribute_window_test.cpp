#include "attribute_window_fixture.h"
#include "attributes/views/entity_list.h"

#include <zucomn/model/attributes.h>
#include <zuhost/message_box.h>

#include <QApplication>
#include <QHelpEvent>
#include <QSplitter>
#include <QToolBar>
#include <QToolTip>

namespace {

using Lines = std::vector<std::wstring>;

TEST_F(FrameTest, GroupsCollapseAndTheSelectionIsShown) {
    frame_.GetLeftPane()->SetEntities(drawing_.find({kDuct, kPipe, kSecondDuct}));
    const std::wstring first = L" 給気-02 矩形ダクト"; // mark and part name of the record
    EXPECT_EQ(listedLines(), (Lines{L"RT-D300 (2)", first, L" 給気-04 矩形ダクト", L"RT-P50 (1)"}));
    EXPECT_EQ(text(lines().GetItemText(1, 2)), L"110");
    EXPECT_EQ(shown(L"S302|"), L"300");

    lines().SetFocus();
    QTest::keyClick(zuhost::widgetOf(lines()), Qt::Key_Down);
    zuhost::processPendingEvents();
    EXPECT_EQ(frame_.GetLeftPane()->GetSelectedEntities().length(), 1);
    QTest::keyClick(zuhost::widgetOf(lines()), Qt::Key_Left);
    QTest::keyClick(zuhost::widgetOf(lines()), Qt::Key_Left);
    EXPECT_EQ(listedLines(), (Lines{L"RT-D300 (2)", L"RT-P50 (1)"}));
    QTest::keyClick(zuhost::widgetOf(lines()), Qt::Key_Down);
    QTest::keyClick(zuhost::widgetOf(lines()), Qt::Key_Right);
    ASSERT_EQ(lines().GetItemCount(), 3);
    EXPECT_EQ(text(lines().GetItemText(2, 2)), L"168");
    lines().SetItemState(-1, LVIS_SELECTED, LVIS_SELECTED);
    zuhost::processPendingEvents();
    EXPECT_EQ(frame_.GetLeftPane()->GetSelectedEntities().length(), 3);
    EXPECT_EQ(shown(L"S501|"), L"*各種*");

    frame_.GetLeftPane()->SetEntities({});
    EXPECT_EQ(listedLines(), Lines{});
    EXPECT_EQ(shown(L"S302|"), L"(none)");
}

TEST_F(FrameTest, RejectsRowsWithoutColumns) {
    std::vector<CEntityGroup> groups(1);
    groups[0].rows.push_back({std::make_shared<CStringArray>(), AcDbObjectId()});
    frame_.GetLeftPane()->SetGroups(std::move(groups));
    EXPECT_THROW(frame_.GetLeftPane()->AddListView(), CInvalidArgException*);
}

TEST_F(FrameTest, ReadsShowTheNewSelectionAtOnce) {
    frame_.GetLeftPane()->SetEntities(drawing_.find({kDuct, kPipe}));
    lines().SetItemState(-1, 0, LVIS_SELECTED);
    lines().SetItemState(lines().GetItemCount() - 1, LVIS_SELECTED, LVIS_SELECTED);
    EXPECT_EQ(shown(L"S401|"), drawing_.value(kPipe, L"S401"));
}

TEST_F(FrameTest, SearchFiltersEntitiesAndItemsAsOneTypes) {
    frame_.GetLeftPane()->SetEntities(drawing_.find({kDuct, kSecondDuct, kPipe}));
    auto* const search = zuhost::widgetOf(frame_)->findChild<QToolBar*>()->findChild<QLineEdit*>();
    ASSERT_NE(search, nullptr);
    lines().SetFocus();
    QTest::keyClick(zuhost::widgetOf(lines()), Qt::Key_F, Qt::ControlModifier);
    EXPECT_TRUE(search->hasFocus());
    QTest::keyClicks(search, "-04");
    zuhost::processPendingEvents();
    EXPECT_EQ(listedLines(), (Lines{L"RT-D300 (2)", L" 給気-04 矩形ダクト"}));
    EXPECT_EQ(frame_.GetLeftPane()->GetSelectedEntities().length(), 1) << "the group's line: its shown rows";
    EXPECT_EQ(shown(L"S302|"), L"300") << "no attribute contains the text: all stay";
    search->setText("ｻｲｽﾞ ではない");
    EXPECT_EQ(text(frame_.GetStatus()), L"「ｻｲｽﾞ ではない」はありません");
    EXPECT_EQ(lines().GetItemCount(), 4);
    search->setText("サイズ");
    EXPECT_EQ(properties().GetCount(), 2) << "the heading and the item";
    EXPECT_EQ(lines().GetItemCount(), 4);
    frame_.GetRightPane()->SetValue(L"S304", L"7");
    QTest::keyClick(search, Qt::Key_Escape);
    zuhost::processPendingEvents();
    EXPECT_GT(properties().GetCount(), 7);
    EXPECT_EQ(shown(L"S304|"), L"7") << "a search keeps changed values";
    QTest::keyClick(search, Qt::Key_Down);
    EXPECT_TRUE(zuhost::widgetOf(lines())->hasFocus());
    QTest::keyClick(zuhost::widgetOf(lines()), Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(frame_.GetLeftPane()->GetSelectedEntities().length(), 3);
    frame_.GetLeftPane()->Select(drawing_.find({kPipe}));
    EXPECT_EQ(shown(L"S401|"), drawing_.value(kPipe, L"S401"));
}

TEST_F(FrameTest, StatusSaysWhatWasChangedAndSkipped) {
    frame_.GetLeftPane()->SetEntities(drawing_.find({kDuct, kSecondDuct, kLockedAirHandler}));
    frame_.GetLeftPane()->SelectAll();
    frame_.GetRightPane()->SetValue(L"S401", L"2500");
    EXPECT_NE(text(frame_.GetStatus()).find(L"3 要素中 1 要素はロック画層"), std::wstring::npos);
    const zuhost::MessageBoxObserver observer;
    QTest::keyClick(zuhost::widgetOf(lines()), Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(text(frame_.GetStatus()), L"2 要素を修正、1 要素は対象外");
    EXPECT_TRUE(observer.boxes().empty());
    EXPECT_EQ(drawing_.value(kSecondDuct, L"S401"), L"2500");
    properties().SetFocus();
    properties().SelectItem(frame_.GetRightPane()->pane().manager().FindItem(L"S304|"));
    QTest::keyClicks(zuhost::widgetOf(properties()), "5");
    QTest::keyClick(editor(properties()), Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(drawing_.value(kDuct, L"S304"), L"5") << "accepted and written";
    pressButton();
    EXPECT_EQ(text(frame_.GetStatus()), L"変更された項目はありません");
}

TEST_F(FrameTest, FactsFollowTheAttributesWithoutKeys) {
    const auto fact = [this](const wchar_t* name) -> std::wstring {
        const CMyAdaptablePropertyItemManager& items = frame_.GetRightPane()->pane().manager();
        for (int i = 0; i < items.GetItemCount(); ++i)
            if (const CPropertyItem& item = items.GetItem(i); item.key.IsEmpty() && item.name == name)
                return item.editable ? L"editable" : text(item.value);
        return L"(none)";
    };
    frame_.GetLeftPane()->SetEntities(drawing_.find({kDuct}));
    EXPECT_EQ(fact(L"種別"), L"ルート");
    EXPECT_EQ(fact(L"画層"), text(lines().GetItemText(1, 1)));
    EXPECT_EQ(fact(L"グループ"), L"*A1");
    EXPECT_EQ(fact(L"高さ"), L"2700");
    EXPECT_NE(fact(L"接続要素"), L"");
    EXPECT_EQ(fact(L"要素数"), L"(none)");
    frame_.GetLeftPane()->SetEntities(drawing_.find({kDuct, kSecondDuct}));
    EXPECT_EQ(fact(L"要素数"), L"2");
    EXPECT_EQ(fact(L"位置"), L"*各種*");
}

TEST_F(FrameTest, TheWidthOfThePaneIsRemembered) {
    auto* const splitter = zuhost::widgetOf(frame_)->findChild<QSplitter*>();
    const QPoint grip(splitter->handle(1)->rect().center());
    QTest::mousePress(splitter->handle(1), Qt::LeftButton, Qt::NoModifier, grip);
    QTest::mouseMove(splitter->handle(1), grip + QPoint(90, 0));
    QTest::mouseRelease(splitter->handle(1), Qt::LeftButton, Qt::NoModifier, grip + QPoint(90, 0));
    const int width = zuhost::widgetOf(*frame_.GetLeftPane())->width();
    EXPECT_GT(width, 200);
    EXPECT_EQ(lines().GetColumnCount(), 3);
    EXPECT_LE(lines().GetColumnWidth(0) + lines().GetColumnWidth(1) + lines().GetColumnWidth(2), width);
    auto* const next = new CAttFrameWnd;
    frame_.SendMessage(WM_DESTROY); // saves the width
    ASSERT_TRUE(next->Create(nullptr, L"属性", WS_OVERLAPPEDWINDOW, CRect(0, 0, 640, 480)));
    next->SetPaneWidth(100);
    show(*next);
    EXPECT_EQ(zuhost::widgetOf(*next->GetLeftPane())->width(), width);
    next->DestroyWindow();
}

TEST_F(FrameTest, LockedElementsAreGrey) {
    frame_.GetLeftPane()->SetEntities(drawing_.find({kLockedAirHandler}));
    const CMyAdaptablePropertyItemManager& items = frame_.GetRightPane()->pane().manager();
    EXPECT_FALSE(items.GetItem(0).editable);
    EXPECT_NE(text(items.GetNotice(0)).find(L"機器-固定"), std::wstring::npos);
    frame_.GetRightPane()->AddListView(drawing_.find({kLockedAirHandler, kDuct}), nullptr);
    EXPECT_TRUE(items.GetItem(0).editable);
    EXPECT_EQ(text(items.GetNotice(0)), L"2 要素中 1 要素はロック画層にあり、修正されません。");
}

TEST_F(FrameTest, SavesTheDividerPosition) {
    frame_.GetLeftPane()->SetEntities(drawing_.find({kDuct}));
    QWidget* const surface = zuhost::clientWidgetOf(properties());
    const int y = 30;
    const int before = properties().GetDivider();
    QTest::mousePress(surface, Qt::LeftButton, Qt::NoModifier, QPoint(before, y));
    QTest::mouseMove(surface, QPoint(before - 60, y));
    QTest::mouseRelease(surface, Qt::LeftButton, Qt::NoModifier, QPoint(before - 60, y));
    EXPECT_EQ(properties().GetDivider(), before - 60);
    EXPECT_FALSE(properties().IsEditing());
    EXPECT_EQ(AfxGetApp()->GetProfileInt(L"PropertyList", L"Divider", 0), static_cast<UINT>(before - 60));
}

TEST_F(FrameTest, TruncatedTextsHaveToolTips) {
    frame_.GetLeftPane()->SetEntities(drawing_.find({kDuct}));
    const QPoint name(25, 30);
    QWidget* const surface = zuhost::clientWidgetOf(properties());
    QHelpEvent help(QEvent::ToolTip, name, surface->mapToGlobal(name));
    QToolTip::hideText();
    QApplication::sendEvent(surface, &help);
    EXPECT_EQ(QToolTip::text(), "");
    frame_.MoveWindow(0, 0, 210, 300);
    zuhost::processPendingEvents();
    QApplication::sendEvent(surface, &help);
    EXPECT_EQ(QToolTip::text(), "サイズ");
}

TEST(AttributeFrames, ZuFrameHasZuViews) {
    auto* const frame = new CAttFrameWnd_ZU;
    EXPECT_TRUE(frame->GetLeftPane() == nullptr && frame->GetRightPane() == nullptr);
    ASSERT_TRUE(frame->Create(nullptr, L"属性"));
    EXPECT_TRUE(frame->GetLeftPane()->IsKindOf(RUNTIME_CLASS(CEntView_ZU)));
    EXPECT_TRUE(frame->GetRightPane()->IsKindOf(RUNTIME_CLASS(CAttView_ZU)));
    EXPECT_TRUE(CEntView::IsUpdateEnable(L"a|b|c|1|"));
    frame->DestroyWindow();
}

TEST(AttributeFrames, UseTheRecordsWithoutSettings) {
    zucomn::resetLibrary();
    OfficeFloor drawing;
    auto* const frame = new CAttFrameWnd;
    ASSERT_TRUE(frame->Create(nullptr, L"属性"));
    const zuhost::MessageBoxObserver observer;
    frame->GetLeftPane()->SetEntities(drawing.find({kDuct}));
    const CMyAdaptablePropertyItemManager& shown = frame->GetRightPane()->pane().manager();
    ASSERT_GT(shown.GetItemCount(), 0);
    EXPECT_EQ(text(shown.GetItem(0).name), L"ｻｲｽﾞ") << "the record's label";
    EXPECT_TRUE(shown.GetItem(0).editable);
    EXPECT_NE(text(shown.GetNotice(0)), L"");
    frame->GetRightPane()->SetValue(L"S302", L"250");
    frame->GetRightPane()->SetValue(L"S402", L"250");
    frame->GetLeftPane()->OnUpdateAttributes();
    EXPECT_EQ(drawing.value(kDuct, L"S302"), L"250");
    EXPECT_NE(drawing.value(kDuct, L"S402"), L"250") << "marked read-only in the record";
    EXPECT_TRUE(observer.boxes().empty());
    frame->DestroyWindow();
}

TEST(AttributeFrames, ReadMissingTablesAgain) {
    zucomn::resetLibrary();
    const SampleSettings settings;
    const std::filesystem::path titles = settings.folder().path() / "system" / "属性IDタイトル.csv";
    std::filesystem::rename(titles, titles.string() + ".old");
    for (const wchar_t* const name : {L"", L"サイズ"}) {
        auto* const frame = new CAttFrameWnd;
        ASSERT_TRUE(frame->Create(nullptr, L"属性"));
        EXPECT_EQ(text(CAttributeData::GetItemName(L"S302")), name);
        frame->DestroyWindow();
        if (*name == L'\0')
            std::filesystem::rename(titles.string() + ".old", titles);
    }
    std::filesystem::remove(titles);
    EXPECT_EQ(text(CAttributeData::GetItemName(L"S302")), L"サイズ") << "loaded tables are kept";
}

} // namespace
