#include "afxwin.h"
#include "zuhost/desktop.h"

#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>

#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>

namespace {

class Windows : public ::testing::Test {
protected:
    Windows() {
        frame_.Create(nullptr, L"図面");
        const RECT rectangle{10, 20, 210, 44};
        box_.Create(CBS_DROPDOWNLIST | WS_CHILD | WS_VISIBLE, rectangle, &frame_, 7);
    }

    void press(int key) const {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
        QApplication::sendEvent(box_.widget(), &event);
    }

    CFrameWnd frame_;
    CComboBox box_;
};

TEST_F(Windows, ComboBoxFollowsKeys) {
    for (const wchar_t* text : {L"Supply", L"還気", L"排気"})
        EXPECT_GE(box_.AddString(text), 0);
    EXPECT_EQ(box_.SetCurSel(0), 0);
    press(Qt::Key_Down);
    EXPECT_EQ(box_.GetCurSel(), 1);
    CString text;
    EXPECT_EQ(box_.GetLBText(1, text), 2);
    EXPECT_TRUE(text == L"還気");
    EXPECT_EQ(box_.FindStringExact(2, L"supply"), 0);
    EXPECT_EQ(box_.FindStringExact(-1, L"supp"), CB_ERR);
    EXPECT_EQ(box_.GetLBText(3, text), CB_ERR);
    EXPECT_EQ(box_.InsertString(9, L"x"), CB_ERR);
    EXPECT_EQ(box_.DeleteString(0), 2);
    EXPECT_EQ(box_.SetCurSel(5), CB_ERR);
}

TEST_F(Windows, OwnersAndWidgetsGoInEitherOrder) {
    EXPECT_EQ(box_.GetParent(), &frame_);
    EXPECT_EQ(box_.GetParentFrame(), &frame_);
    EXPECT_EQ(CWnd::fromWidget(box_.widget()), &box_);
    EXPECT_EQ(box_.widget()->geometry(), QRect(10, 20, 200, 24));
    EXPECT_TRUE(frame_.DestroyWindow());
    EXPECT_EQ(box_.GetSafeHwnd(), nullptr);
    EXPECT_EQ(box_.GetCount(), CB_ERR);
    EXPECT_FALSE(box_.DestroyWindow());
}

TEST_F(Windows, DesktopKeepsTheDecimalPoint) {
    ASSERT_NE(QCoreApplication::instance(), nullptr);
    EXPECT_STREQ(std::setlocale(LC_NUMERIC, nullptr), "C");
    EXPECT_EQ(std::strtod("1.5", nullptr), 1.5);
}

} // namespace
