#include "afxcmn.h"
#include "afxwin.h"
#include "zuhost/desktop.h"
#include <zuhost/windows/widgets.h>

#include <QApplication>
#include <QMenu>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <stdexcept>

namespace {

class Panel : public CWnd {
public:
    explicit Panel(DWORD style = WS_OVERLAPPEDWINDOW) {
        zuhost::ensureDesktop();
        created = Create(nullptr, L"panel", style, CRect(0, 0, 200, 100), nullptr, 1);
    }
    ~Panel() override { CWnd::DestroyWindow(); }

    BOOL created = FALSE;
    static inline bool failsToStart = false;
    std::vector<UINT_PTR> timers;
    int commands = 0;

protected:
    afx_msg int OnCreate(LPCREATESTRUCT create) {
        if (failsToStart)
            AfxThrowUserException();
        return CWnd::OnCreate(create);
    }
    afx_msg void OnTimer(UINT_PTR id) {
        timers.push_back(id);
        if (timers.size() == 2)
            KillTimer(id);
    }
    afx_msg void onCommand() { ++commands; }
    afx_msg void onFail() { throw std::runtime_error("no such part"); }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(Panel, CWnd)
ON_WM_CREATE()
ON_WM_TIMER()
ON_COMMAND(7, onCommand)
ON_COMMAND(8, onFail)
END_MESSAGE_MAP()

TEST(Timers, SendMessagesUntilTheyEnd) {
    Panel panel;
    static int called = 0;
    EXPECT_EQ(panel.SetTimer(0, 1, nullptr), 0U);
    EXPECT_EQ(panel.SetTimer(5, 100000, nullptr), 5U);
    EXPECT_EQ(panel.SetTimer(5, 1, nullptr), 5U) << "replaces the slow one";
    EXPECT_EQ(panel.SetTimer(6, 1,
                             [](HWND window, UINT message, UINT_PTR id, DWORD) {
                                 called +=
                                     message == WM_TIMER && id == 6 && CWnd::FromHandle(window) != nullptr
                                         ? 1
                                         : 100;
                             }),
              6U);
    EXPECT_TRUE(QTest::qWaitFor([&] { return panel.timers.size() == 2 && called > 0; }));
    panel.DestroyWindow();
    const int before = called;
    QTest::qWait(20);
    EXPECT_EQ(called, before) << "timers end with their window";
    EXPECT_EQ(panel.timers, (std::vector<UINT_PTR>{5, 5}));
    EXPECT_FALSE(panel.KillTimer(6));
}

/// Triggers an item of the menu that is open next; without a text, closes the menu.
class Choice {
public:
    explicit Choice(const QString& text) {
        timer_.setSingleShot(true);
        QObject::connect(&timer_, &QTimer::timeout, &timer_, [text] { trigger(text); });
        timer_.start(0);
    }

private:
    static void trigger(const QString& text) {
        auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_NE(menu, nullptr);
        for (QAction* const action : menu->actions())
            if (action->text() == text)
                menu->setActiveAction(action);
        QTest::keyClick(menu, text.isEmpty() ? Qt::Key_Escape : Qt::Key_Return);
    }

    QTimer timer_;
};

TEST(Menus, SendTheCommandThatTheUserChooses) {
    Panel panel;
    panel.ShowWindow(SW_SHOW);
    CMenu menu;
    EXPECT_FALSE(menu.AppendMenu(MF_STRING, 7, L"Run")) << "there is no menu yet";
    menu.CreatePopupMenu();
    menu.AppendMenu(MF_STRING, 7, L"Run");
    menu.InsertMenu(7, MF_BYCOMMAND | MF_STRING | MF_GRAYED, 9, L"Grey");
    const Choice sent(QStringLiteral("Run"));
    EXPECT_TRUE(menu.TrackPopupMenu(TPM_LEFTALIGN, 5, 5, &panel));
    EXPECT_EQ(panel.commands, 1);
    const Choice returned(QStringLiteral("Run"));
    EXPECT_EQ(menu.TrackPopupMenu(TPM_RETURNCMD, 5, 5, &panel), 7);
    EXPECT_EQ(panel.commands, 1);
    const Choice none(QString{});
    EXPECT_EQ(menu.TrackPopupMenu(TPM_RETURNCMD, 5, 5, &panel), 0);
    EXPECT_FALSE(menu.TrackPopupMenu(0, 5, 5, nullptr));
}

TEST(Menus, NeverHoldThemselves) {
    CMenu menu;
    menu.CreatePopupMenu();
    EXPECT_FALSE(menu.AppendMenu(MF_POPUP, reinterpret_cast<UINT_PTR>(menu.GetSafeHmenu()), L"self"));
    EXPECT_FALSE(menu.AppendMenu(MF_POPUP, 12345, L"none"));
    EXPECT_FALSE(menu.DeleteMenu(0, MF_BYPOSITION));
    EXPECT_EQ(menu.EnableMenuItem(7, MF_GRAYED), static_cast<UINT>(-1));
    EXPECT_TRUE(menu.DestroyMenu());
    EXPECT_FALSE(menu.DestroyMenu());
    EXPECT_EQ(menu.GetMenuItemCount(), static_cast<UINT>(-1));
}

TEST(WindowHandlers, ExceptionsThatHandlersLetEscapeAreShown) {
    const zuhost::MessageBoxObserver shown;
    Panel panel;
    EXPECT_EQ(panel.SendMessage(WM_COMMAND, 8), 0);
    Panel::failsToStart = true;
    EXPECT_FALSE(Panel().created);
    Panel::failsToStart = false;
    ASSERT_EQ(shown.boxes().size(), 2U);
    EXPECT_EQ(shown.boxes()[0].text, L"no such part");
    EXPECT_EQ(shown.boxes()[1].text, L"The operation was cancelled.");
}

TEST(Controls, ManualButtonsChangeByTheProgramOnly) {
    Panel panel;
    CButton manual;
    CButton automatic;
    manual.Create(L"m", WS_CHILD | WS_VISIBLE | BS_CHECKBOX, CRect(0, 0, 50, 20), &panel, 2);
    automatic.Create(L"a", WS_CHILD | WS_VISIBLE | BS_AUTO3STATE, CRect(0, 20, 50, 40), &panel, 3);
    QTest::keyClick(zuhost::widgetOf(manual), Qt::Key_Space);
    EXPECT_EQ(manual.GetCheck(), BST_UNCHECKED);
    manual.SetCheck(BST_CHECKED);
    EXPECT_EQ(manual.GetCheck(), BST_CHECKED);
    QTest::keyClick(zuhost::widgetOf(automatic), Qt::Key_Space);
    EXPECT_EQ(automatic.GetCheck(), BST_INDETERMINATE);
}

TEST(Controls, AbsentWindowsAndItemsGiveErrors) {
    CListBox list;
    CComboBox box;
    CListCtrl lines;
    CEdit edit;
    CButton button;
    wchar_t text[4] = L"?";
    EXPECT_EQ(list.GetText(0, text), LB_ERR);
    EXPECT_EQ(list.SetSel(0), LB_ERR);
    EXPECT_EQ(list.AddString(L"a"), LB_ERR);
    EXPECT_EQ(box.GetLBText(0, text), CB_ERR);
    EXPECT_EQ(box.AddString(L"a"), CB_ERR);
    EXPECT_EQ(box.GetEditSel(), static_cast<DWORD>(CB_ERR));
    EXPECT_EQ(lines.FindItem(nullptr), -1);
    EXPECT_EQ(lines.GetItemText(0, 0, text, 4), 0);
    EXPECT_EQ(lines.GetFirstSelectedItemPosition(), nullptr);
    EXPECT_FALSE(lines.SortItems(nullptr, 0));
    EXPECT_EQ(edit.GetSel(), 0U);
    EXPECT_FALSE(edit.Undo());
    EXPECT_EQ(button.GetCheck(), BST_UNCHECKED);
    EXPECT_EQ(edit.SetTimer(1, 1, nullptr), 0U);
}

} // namespace
