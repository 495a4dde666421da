#include "afxcmn.h"
#include "afxext.h"
#include "zuhost/desktop.h"
#include <zuhost/windows/widgets.h>

#include <QApplication>
#include <QFocusEvent>
#include <QTest>

#include <gtest/gtest.h>

// Windows that are destroyed while they or their parents handle a message.

namespace {

/// Deletes its control when it receives a given notification.
class Owner : public CWnd {
public:
    std::unique_ptr<CWnd> control;
    std::vector<UINT> received;
    UINT deletesAt = 0;

protected:
    BOOL OnCommand(WPARAM wParam, LPARAM /*lParam*/) override { return receive(HIWORD(wParam)); }
    BOOL OnNotify(WPARAM /*wParam*/, LPARAM lParam, LRESULT* /*result*/) override {
        return receive(objectOf<const NMHDR>(lParam)->code);
    }
    void OnDestroy() {
        CWnd::OnDestroy();
        control.reset();
        EXPECT_FALSE(DestroyWindow());
    }
    DECLARE_MESSAGE_MAP()

private:
    BOOL receive(UINT code) {
        received.push_back(code);
        if (code == deletesAt)
            control.reset();
        return TRUE;
    }
};

BEGIN_MESSAGE_MAP(Owner, CWnd)
ON_WM_DESTROY()
END_MESSAGE_MAP()

class WindowDestruction : public ::testing::Test {
protected:
    static constexpr DWORD kChild = WS_CHILD | WS_VISIBLE;

    WindowDestruction() {
        top_.Create(nullptr, L"", WS_VISIBLE, CRect(0, 0, 300, 200), nullptr, 0);
        owner_.Create(nullptr, L"", kChild, CRect(0, 0, 300, 200), &top_, 1);
    }
    ~WindowDestruction() override { zuhost::processPendingEvents(); }

    template <typename Control>
    Control& add(DWORD style, UINT deletesAt) {
        auto control = std::make_unique<Control>();
        Control& added = *control;
        added.Create(kChild | style, CRect(0, 0, 100, 24), &owner_, 2);
        owner_.control = std::move(control);
        owner_.deletesAt = deletesAt;
        return added;
    }

    using Codes = std::vector<UINT>;

    CWnd top_;
    Owner owner_;
};

TEST_F(WindowDestruction, ParentsMayDeleteTheControlThatNotifiesThem) {
    auto& box = add<CComboBox>(CBS_DROPDOWNLIST, CBN_SELENDOK);
    box.AddString(L"1");
    box.AddString(L"2");
    QTest::keyClick(zuhost::widgetOf(box), Qt::Key_Down);
    EXPECT_EQ(owner_.received, Codes{CBN_SELENDOK});
    EXPECT_EQ(owner_.GetDlgItem(2), nullptr);

    auto& edit = add<CEdit>(0, EN_KILLFOCUS);
    QFocusEvent lost(QEvent::FocusOut, Qt::MouseFocusReason);
    QApplication::sendEvent(zuhost::widgetOf(edit), &lost);
    EXPECT_EQ(owner_.control, nullptr);

    owner_.received.clear();
    auto& lines = add<CListCtrl>(LVS_REPORT, LVN_ITEMCHANGED);
    lines.InsertColumn(0, L"", LVCFMT_LEFT, 50);
    for (int i = 0; i < 3; ++i)
        lines.InsertItem(i, L"");
    QTest::keyClick(zuhost::widgetOf(lines), Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(owner_.received, Codes{LVN_ITEMCHANGED});
}

/// Deletes itself in a handler of Escape or of a size, and on Return in PreTranslateMessage.
class SelfDeletingEdit : public CEdit {
public:
    static inline int deleted = 0;
    ~SelfDeletingEdit() override { ++deleted; }

protected:
    BOOL PreTranslateMessage(MSG* message) override {
        if (message->wParam == VK_RETURN)
            delete this;
        return FALSE;
    }
    void OnKeyDown(UINT key, UINT repeat, UINT flags) {
        CEdit::OnKeyDown(key, repeat, flags);
        if (key == VK_ESCAPE)
            delete this;
    }
    void OnSize(UINT type, int width, int height) {
        CEdit::OnSize(type, width, height);
        if (width == 1)
            delete this;
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(SelfDeletingEdit, CEdit)
ON_WM_KEYDOWN()
ON_WM_SIZE()
END_MESSAGE_MAP()

TEST_F(WindowDestruction, HandlersMayDeleteTheirWindow) {
    const auto make = [this]() -> CWnd& {
        auto* const edit = new SelfDeletingEdit;
        edit->Create(kChild, CRect(0, 0, 100, 24), &owner_, 3);
        return *edit;
    };
    SelfDeletingEdit::deleted = 0;
    QTest::keyClick(zuhost::widgetOf(make()), Qt::Key_Escape);
    QTest::keyClick(zuhost::widgetOf(make()), Qt::Key_Return);
    make().MoveWindow(0, 0, 1, 24);
    EXPECT_EQ(SelfDeletingEdit::deleted, 3);
}

TEST_F(WindowDestruction, WindowsMayDeleteTheirControlsWhenDestroyed) {
    auto& lines = add<CListCtrl>(LVS_REPORT, 0);
    lines.InsertItem(0, L"");
    EXPECT_TRUE(top_.DestroyWindow());
    EXPECT_EQ(owner_.control, nullptr);
    EXPECT_FALSE(owner_.DestroyWindow());
}

TEST_F(WindowDestruction, WindowsCanBeCreatedAgainOnlyAfterDestruction) {
    CEdit edit;
    EXPECT_TRUE(edit.Create(kChild, CRect(0, 0, 9, 9), &top_, 4));
    EXPECT_FALSE(edit.Create(kChild, CRect(0, 0, 9, 9), &top_, 5));
    EXPECT_EQ(edit.GetDlgCtrlID(), 4);
    EXPECT_TRUE(edit.DestroyWindow());
    EXPECT_TRUE(edit.Create(kChild, CRect(0, 0, 9, 9), &top_, 5));
    EXPECT_TRUE(edit.DestroyWindow());
}

TEST_F(WindowDestruction, ListsWithoutAWindowFindNothing) {
    auto& lines = add<CListCtrl>(LVS_REPORT, 0);
    lines.InsertItem(0, L"");
    EXPECT_TRUE(lines.DestroyWindow());
    EXPECT_EQ(lines.GetNextItem(-1, LVNI_SELECTED), -1);
    EXPECT_EQ(lines.GetSelectedCount(), 0U);
}

} // namespace
