#include "attributes/views/attribute_pane.h"
#include "attributes/views/entity_list.h"
#include "sample_settings.h"

#include <acdocman.h>
#include <arxutil.h>
#include <dbapserv.h>
#include <dbobjptr.h>
#include <zucomn/attributes.h>
#include <zucomn/frame.h>
#include <zucomn/model/attributes.h>
#include <zucomn/views.h>
#include <zuhost/desktop.h>
#include <zuhost/input.h>
#include <zuhost/message_box.h>
#include <zuhost/texts.h>
#include <zuhost/windows/widgets.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QHelpEvent>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QSplitter>
#include <QTest>
#include <QToolBar>
#include <QToolTip>
#include <QWidget>

#include <gtest/gtest.h>

#include <algorithm>

namespace {

std::wstring text(const CString& value) {
    return static_cast<const wchar_t*>(value);
}

/// Loads the office-floor sample as the working database.
class OfficeFloor {
public:
    OfficeFloor() {
        const std::string path = std::string(ZU_SAMPLES) + "/drawings/office-floor.dxf";
        EXPECT_EQ(database_.dxfIn(zuhost::fromUtf8(path).c_str()), Acad::eOk);
        acdbHostApplicationServices()->setWorkingDatabase(&database_);
    }
    ~OfficeFloor() {
        zuhost::clearPendingInput();
        acdbHostApplicationServices()->setWorkingDatabase(nullptr);
    }

    AcDbObjectId find(Adesk::UInt64 handle) {
        AcDbObjectId id;
        EXPECT_EQ(database_.getAcDbObjectId(id, false, AcDbHandle(handle)), Acad::eOk);
        return id;
    }
    AcArray<AcDbObjectId> find(std::initializer_list<Adesk::UInt64> handles) {
        AcArray<AcDbObjectId> ids;
        for (const Adesk::UInt64 handle : handles)
            ids.append(find(handle));
        return ids;
    }
    std::wstring value(Adesk::UInt64 handle, const wchar_t* key) {
        return text(CAttributeData().GetValueAttID(find(handle), key));
    }

private:
    AcDbDatabase database_{false, true};
};

// Handles in the drawing: two straight ducts, a pipe, and an air handler on a locked layer.
constexpr Adesk::UInt64 kDuct = 0x110;
constexpr Adesk::UInt64 kSecondDuct = 0x114;
constexpr Adesk::UInt64 kPipe = 0x168;
constexpr Adesk::UInt64 kLockedAirHandler = 0x10C;

class AttributeWindow : public ::testing::Test {
protected:
    AttributeWindow() {
        setenv("XDG_CONFIG_HOME", settings_.folder().path().c_str(), 1);
        ZuComn_SetResource();
    }

    void show(CFrameWnd& frame) {
        frame.ShowWindow(SW_SHOW);
        zuhost::widgetOf(frame)->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(zuhost::widgetOf(frame)));
        zuhost::processPendingEvents();
    }

    /// Clicks a row of the property list; row 0 is the first heading.
    static void click(CPropertyListCtrl& list, int row, bool onValue) {
        CRect place;
        ASSERT_EQ(list.GetItemRect(row, &place), 0);
        const int x = onValue ? list.GetDivider() + 20 : list.GetDivider() - 20;
        QTest::mouseClick(zuhost::clientWidgetOf(list), Qt::LeftButton, Qt::NoModifier,
                          QPoint(x, (place.top + place.bottom) / 2));
    }

    static QWidget* editor(const CPropertyListCtrl& list) {
        if (auto* const box = zuhost::clientWidgetOf(list)->findChild<QComboBox*>())
            return box;
        return zuhost::clientWidgetOf(list)->findChild<QLineEdit*>();
    }

    SampleSettings settings_;
    OfficeFloor drawing_;
};

/// The attribute window with its entity view.
class FrameTest : public AttributeWindow {
protected:
    FrameTest() : frame_(*new CAttFrameWnd) {
        EXPECT_TRUE(frame_.Create(nullptr, L"属性", WS_OVERLAPPEDWINDOW, CRect(0, 0, 640, 480)));
        show(frame_);
    }
    ~FrameTest() override { frame_.DestroyWindow(); }

    CPropertyListCtrl& properties() { return frame_.GetRightPane()->pane().list(); }
    CListCtrl& lines() { return *static_cast<CListCtrl*>(frame_.GetLeftPane()->GetDlgItem(3003)); }

    std::vector<std::wstring> listedLines() {
        std::vector<std::wstring> shown;
        shown.reserve(static_cast<std::size_t>(lines().GetItemCount()));
        for (int i = 0; i < lines().GetItemCount(); ++i)
            shown.push_back(std::wstring(static_cast<std::size_t>(lines().GetItemIndent(i)), L' ') +
                            text(lines().GetItemText(i, 0)));
        return shown;
    }

    std::wstring shown(const wchar_t* key) {
        CStringArray keys;
        CStringArray values;
        frame_.GetRightPane()->GetAttAll(keys, values);
        for (int i = 0; i < keys.GetSize(); ++i)
            if (keys[i] == key)
                return text(values[i]);
        return L"(none)";
    }

    void pressButton() {
        QTest::mouseClick(zuhost::widgetOf(*frame_.GetLeftPane()->GetDlgItem(3001)), Qt::LeftButton);
    }

    CAttFrameWnd& frame_;
};

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
