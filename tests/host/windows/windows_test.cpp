#include "afxcmn.h"
#include "afxext.h"
#include "temporary_folder.h"
#include "zuhost/desktop.h"
#include <zuhost/windows/widgets.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTest>
#include <QToolTip>

#include <gtest/gtest.h>

#include <clocale>
#include <cstring>

namespace {

/// The calls and messages received, in order.
std::vector<std::wstring> received;

class Sheet : public CView {
    DECLARE_DYNCREATE(Sheet)

public:
    CListBox list;
    CListCtrl lines;
    CEdit edit;
    CButton button;
    static inline bool fails = false;

protected:
    void OnDraw(CDC* dc) override { dc->FillSolidRect(CRect(110, 0, 120, 9), RGB(1, 2, 3)); }
    void OnInitialUpdate() override { received.emplace_back(L"initial update"); }
    void PostNcDestroy() override {
        received.emplace_back(L"view end");
        CView::PostNcDestroy();
    }
    BOOL PreTranslateMessage(MSG* message) override {
        if (message->wParam != VK_F2)
            return FALSE;
        received.emplace_back(L"F2");
        return TRUE;
    }
    int OnCreate(LPCREATESTRUCT create) {
        if (fails || CView::OnCreate(create) == -1)
            return -1;
        const DWORD style = WS_CHILD | WS_VISIBLE;
        list.Create(style | LBS_NOTIFY, CRect(0, 0, 100, 100), this, 1);
        lines.Create(style | LVS_REPORT, CRect(0, 100, 100, 200), this, 2);
        edit.Create(style, CRect(0, 200, 100, 220), this, 3);
        button.Create(L"押す", style, CRect(0, 220, 60, 243), this, 4);
        return 0;
    }
    void OnDestroy() {
        received.emplace_back(L"view destroyed");
        CView::OnDestroy();
    }
    void onButton() { received.emplace_back(L"button"); }
    void onSelection() { received.push_back(L"row " + std::to_wstring(list.GetCurSel())); }
    void onEdited() { received.emplace_back(L"edited"); }
    void onLine(NMHDR* header, LRESULT* /*result*/) {
        const auto& change = *reinterpret_cast<const NMLISTVIEW*>(header);
        received.push_back((change.uNewState != 0 ? L"+" : L"-") + std::to_wstring(change.iItem));
    }
    void OnLButtonDown(UINT flags, CPoint point) {
        received.push_back(std::to_wstring(point.x) + L"," + std::to_wstring(point.y));
        CView::OnLButtonDown(flags, point);
    }
    DECLARE_MESSAGE_MAP()
};

IMPLEMENT_DYNCREATE(Sheet, CView)

BEGIN_MESSAGE_MAP(Sheet, CView)
ON_WM_CREATE()
ON_WM_DESTROY()
ON_WM_LBUTTONDOWN()
ON_BN_CLICKED(4, onButton)
ON_LBN_SELCHANGE(1, onSelection)
ON_EN_CHANGE(3, onEdited)
ON_NOTIFY(LVN_ITEMCHANGED, 2, onLine)
END_MESSAGE_MAP()

class SplitFrame : public CFrameWnd {
public:
    CSplitterWnd splitter;

protected:
    BOOL OnCreateClient(LPCREATESTRUCT /*create*/, CCreateContext* context) override {
        return splitter.CreateStatic(this, 1, 2) != FALSE &&
                       splitter.CreateView(0, 0, RUNTIME_CLASS(Sheet), CSize(150, 300), context) != FALSE &&
                       splitter.CreateView(0, 1, RUNTIME_CLASS(Sheet), CSize(200, 300), context) != FALSE
                   ? TRUE
                   : FALSE;
    }
    void PostNcDestroy() override {
        received.emplace_back(L"frame end");
        CFrameWnd::PostNcDestroy();
    }
};

class Windows : public ::testing::Test {
protected:
    Windows() : frame_(*new SplitFrame) {
        Sheet::fails = false;
        EXPECT_TRUE(frame_.Create(nullptr, L"図面", WS_OVERLAPPEDWINDOW, CRect(0, 0, 600, 400)));
        frame_.ShowWindow(SW_SHOW);
        zuhost::processPendingEvents();
        received.clear();
    }
    ~Windows() override {
        if (!isDestroyed_)
            frame_.DestroyWindow();
    }

    Sheet& left() { return *static_cast<Sheet*>(frame_.splitter.GetPane(0, 0)); }

    SplitFrame& frame_;
    bool isDestroyed_ = false;
};

using Received = std::vector<std::wstring>;

TEST_F(Windows, SplitFramesDestroyTheirViewsWithThemselves) {
    EXPECT_EQ(frame_.splitter.GetParent(), &frame_);
    EXPECT_EQ(left().GetParentFrame(), &frame_);
    EXPECT_EQ(left().GetDlgItem(4), &left().button);
    EXPECT_EQ(zuhost::widgetOf(left())->width(), 150);
    EXPECT_THROW(static_cast<void>(frame_.splitter.GetPane(0, 2)), CInvalidArgException*);
    EXPECT_FALSE(frame_.splitter.CreateView(0, 1, RUNTIME_CLASS(Sheet), CSize(1, 1), nullptr));
    frame_.InitialUpdateFrame(nullptr, TRUE);
    isDestroyed_ = true;
    zuhost::widgetOf(frame_)->close();
    EXPECT_EQ(received, (Received{L"initial update", L"initial update", L"view destroyed", L"view destroyed",
                                  L"view end", L"view end", L"frame end"}));
}

TEST_F(Windows, FrameCreationFailsWithAView) {
    Sheet::fails = true;
    auto* const frame = new SplitFrame;
    EXPECT_FALSE(frame->Create(nullptr, L"x"));
    EXPECT_EQ(received.back(), L"frame end");
}

TEST_F(Windows, EventsReachMessageMaps) {
    Sheet& view = left();
    QTest::mouseClick(zuhost::widgetOf(view), Qt::LeftButton, Qt::NoModifier, QPoint(120, 30));
    QTest::mouseClick(zuhost::widgetOf(view.button), Qt::LeftButton);
    QTest::keyClicks(zuhost::widgetOf(view.edit), "a");
    QTest::keyClick(zuhost::widgetOf(view.edit), Qt::Key_F2);
    for (const wchar_t* text : {L"い", L"ろ", L"は"})
        view.list.AddString(text);
    EXPECT_EQ(view.list.SetCurSel(0), 0);
    QTest::keyClick(zuhost::widgetOf(view.list), Qt::Key_Down);
    EXPECT_EQ(view.list.DeleteString(0), 2);
    EXPECT_EQ(view.list.GetCurSel(), 0);
    EXPECT_EQ(view.list.DeleteString(0), 1);
    EXPECT_EQ(view.list.GetCurSel(), LB_ERR) << "the selected row was deleted";
    EXPECT_EQ(received, (Received{L"120,30", L"button", L"edited", L"F2", L"row 1"}));
    EXPECT_EQ(zuhost::widgetOf(view)->grab().toImage().pixelColor(112, 2), QColor(1, 2, 3));
}

TEST_F(Windows, SetSelLimitsTheSelectionToTheText) {
    CEdit& edit = left().edit;
    edit.SetWindowText(L"abcd");
    const auto* const line = static_cast<QLineEdit*>(zuhost::widgetOf(edit));
    const std::tuple<int, int, const char*> cases[] = {{0, -1, "abcd"}, {2, -1, "cd"}, {1, 3, "bc"},
                                                       {-1, 0, ""},     {3, 9, "d"},   {9, 12, ""}};
    for (const auto& [start, end, selected] : cases) {
        edit.SetSel(start, end);
        EXPECT_EQ(line->selectedText(), selected) << start << " to " << end;
    }
}

TEST_F(Windows, ListControlsNotifyEveryChangeOfState) {
    CListCtrl& lines = left().lines;
    EXPECT_EQ(lines.InsertColumn(0, L"名称", LVCFMT_LEFT, 150), 0);
    EXPECT_EQ(lines.InsertColumn(1, L"画層", LVCFMT_LEFT, 150), 1);
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(lines.InsertItem(i, std::to_wstring(i).c_str()), i);
    EXPECT_TRUE(lines.SetItemText(1, 1, L"機器"));
    EXPECT_TRUE(lines.GetItemText(1, 1) == L"機器");
    EXPECT_FALSE(lines.SetItemText(1, 2, L"x"));
    EXPECT_TRUE(lines.SetItemData(2, 77));
    EXPECT_EQ(lines.GetItemData(2), 77U);
    lines.SetItemState(1, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    QTest::keyClick(zuhost::widgetOf(lines), Qt::Key_Down);
    lines.SetItemState(-1, LVIS_SELECTED, LVIS_SELECTED);
    EXPECT_EQ(received, (Received{L"+1", L"-1", L"+2", L"+0", L"+1"}));
    EXPECT_EQ(lines.GetSelectedCount(), 3U);
    EXPECT_EQ(lines.GetNextItem(0, LVNI_SELECTED), 1);
    EXPECT_EQ(lines.GetNextItem(-1, LVNI_FOCUSED), 2);
    EXPECT_TRUE(lines.DeleteItem(0));
    EXPECT_TRUE(lines.GetItemText(0, 0) == L"1");
    EXPECT_FALSE(lines.DeleteItem(2));
}

TEST_F(Windows, AdjacentSelectedLinesMergeIntoOneRange) {
    CListCtrl& lines = left().lines;
    lines.InsertColumn(0, L"名称", LVCFMT_LEFT, 150);
    for (int i = 0; i < 5; ++i)
        lines.InsertItem(i, L"");
    for (const int line : {0, 2, 1, 1, 4})
        lines.SetItemState(line, LVIS_SELECTED, LVIS_SELECTED);
    const auto* const view = static_cast<QAbstractItemView*>(zuhost::widgetOf(lines));
    EXPECT_EQ(view->selectionModel()->selection().size(), 2) << "0 to 2, and 4";
    lines.SetItemState(1, 0, LVIS_SELECTED);
    EXPECT_EQ(received, (Received{L"+0", L"+2", L"+1", L"+4", L"-1"}));
}

/// An owner-drawn list with a tool tip for each row.
class OwnerDrawnList : public CListBox {
public:
    void DrawItem(LPDRAWITEMSTRUCT draw) override {
        CDC& dc = *CDC::FromHandle(draw->hDC);
        dc.FillSolidRect(draw->rcItem, draw->itemID == 0 ? RGB(200, 0, 0) : RGB(0, 0, 200));
    }
    void MeasureItem(LPMEASUREITEMSTRUCT measure) override { measure->itemHeight = 30; }

protected:
    std::intptr_t OnToolHitTest(CPoint point, TOOLINFO* tool) const override {
        BOOL outside = FALSE;
        const UINT row = ItemFromPoint(point, outside);
        if (outside)
            return -1;
        GetItemRect(static_cast<int>(row), &tool->rect);
        tool->lpszText = static_cast<wchar_t*>(std::calloc(2, sizeof(wchar_t)));
        tool->lpszText[0] = row == 0 ? L'a' : L'b';
        return static_cast<std::intptr_t>(row);
    }
};

TEST_F(Windows, ListBoxesDrawTheirRowsAndShowToolTips) {
    OwnerDrawnList list;
    list.Create(WS_CHILD | WS_VISIBLE | LBS_OWNERDRAWFIXED, CRect(0, 0, 120, 200), &left(), 9);
    list.AddString(L"1");
    list.AddString(L"2");
    zuhost::processPendingEvents();
    CRect second;
    EXPECT_EQ(list.GetItemRect(1, &second), 0);
    EXPECT_EQ(second.top, 30);
    EXPECT_EQ(list.GetItemRect(2, &second), LB_ERR);
    const QImage picture = zuhost::clientWidgetOf(list)->grab().toImage();
    EXPECT_EQ(picture.pixelColor(10, 10), QColor(200, 0, 0));
    EXPECT_EQ(picture.pixelColor(10, 40), QColor(0, 0, 200));
    QHelpEvent help(QEvent::ToolTip, QPoint(10, 40),
                    zuhost::clientWidgetOf(list)->mapToGlobal(QPoint(10, 40)));
    QApplication::sendEvent(zuhost::clientWidgetOf(list), &help);
    EXPECT_EQ(QToolTip::text(), "b");
}

TEST_F(Windows, ComboBoxesSelectByKeyAndFindTexts) {
    CComboBox box;
    box.Create(CBS_DROPDOWNLIST | WS_CHILD | WS_VISIBLE, CRect(10, 20, 210, 44), &left(), 7);
    for (const wchar_t* text : {L"Supply", L"還気", L"排気"})
        EXPECT_GE(box.AddString(text), 0);
    EXPECT_EQ(box.GetCurSel(), CB_ERR);
    EXPECT_EQ(box.SetCurSel(0), 0);
    QTest::keyClick(zuhost::widgetOf(box), Qt::Key_Down);
    EXPECT_EQ(box.GetCurSel(), 1);
    CString text;
    EXPECT_EQ(box.GetLBText(1, text), 2);
    EXPECT_TRUE(text == L"還気");
    EXPECT_EQ(box.FindStringExact(2, L"supply"), 0);
    EXPECT_EQ(box.FindStringExact(-1, L"supp"), CB_ERR);
    EXPECT_EQ(box.FindString(-1, L"supp"), 0);
    EXPECT_EQ(box.GetLBText(3, text), CB_ERR);
    EXPECT_EQ(box.InsertString(9, L"x"), CB_ERR);
    EXPECT_EQ(box.DeleteString(1), 2);
    EXPECT_EQ(box.GetCurSel(), CB_ERR) << "the selected item was deleted";
    EXPECT_EQ(box.SetCurSel(5), CB_ERR);
    isDestroyed_ = true;
    frame_.DestroyWindow();
    EXPECT_EQ(box.GetSafeHwnd(), nullptr);
    EXPECT_EQ(box.GetCount(), CB_ERR);
    EXPECT_FALSE(box.DestroyWindow());
}

TEST_F(Windows, DesktopRunsUntilNoWindowIsShown) {
    QMetaObject::invokeMethod(zuhost::widgetOf(frame_), "hide", Qt::QueuedConnection);
    zuhost::runDesktop();
    EXPECT_FALSE(frame_.IsWindowVisible());
    frame_.ShowWindow(SW_SHOW);
    QMetaObject::invokeMethod(zuhost::widgetOf(frame_), "close", Qt::QueuedConnection);
    zuhost::runDesktop();
    isDestroyed_ = true;
    EXPECT_EQ(received.back(), L"frame end");
}

TEST_F(Windows, DesktopKeepsTheDecimalPoint) {
    ASSERT_NE(QCoreApplication::instance(), nullptr);
    EXPECT_STREQ(std::setlocale(LC_NUMERIC, nullptr), "C");
    EXPECT_EQ(std::strtod("1.5", nullptr), 1.5);
}

} // namespace
