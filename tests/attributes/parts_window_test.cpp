#include "attributes/attribute_tables.h"
#include "attributes/views/attribute_pane.h"
#include "sample_settings.h"

#include <acdocman.h>
#include <zucomn/frame.h>
#include <zucomn/parts_list_views.h>
#include <zuhost/desktop.h>
#include <zuhost/input.h>
#include <zuhost/message_box.h>
#include <zuhost/texts.h>
#include <zuhost/windows/widgets.h>

#include <QComboBox>
#include <QLineEdit>
#include <QTest>
#include <QWidget>

#include <gtest/gtest.h>

namespace {

constexpr int kModify = 3001;
constexpr int kConfirm = 3006;
constexpr int kBack = 3007;
constexpr const char* kTwoParts = "S401|2700|E||1|1|S501|A|||4|1|S401|2400|A||1|1|S602||P||7|1|";

class PartsWindow : public ::testing::Test {
protected:
    PartsWindow() : frame_(*new CUPAttFrameWnd) {
        setenv("XDG_CONFIG_HOME", settings_.folder().path().c_str(), 1);
        ZuComn_SetResource();
        EXPECT_TRUE(frame_.Create(nullptr, L"部品", WS_OVERLAPPEDWINDOW, CRect(0, 0, 640, 480)));
        frame_.ShowWindow(SW_SHOW);
        zuhost::widgetOf(frame_)->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(zuhost::widgetOf(frame_)));
        left().SetCommands(L"ZU_CONFIRMED", L"ZU_BACK");
    }
    ~PartsWindow() override {
        frame_.DestroyWindow();
        zuhost::clearPendingInput();
    }

    CUPEntView& left() { return *frame_.GetLeftPane(); }
    CPropertyListCtrl& properties() { return frame_.GetRightPane()->pane().list(); }
    CListCtrl& list() { return *static_cast<CListCtrl*>(left().GetDlgItem(3003)); }

    void open(std::string_view name, std::string_view bytes) {
        settings_.folder().write(name, bytes);
        ASSERT_EQ(left().ReadCSVFile(zuhost::textOf(settings_.folder().wide(name))), 0);
    }
    [[nodiscard]] std::string saved(std::string_view name) const {
        return TemporaryFolder::read(settings_.folder().file(name));
    }
    [[nodiscard]] std::wstring line(int index) {
        return std::wstring(zuhost::viewOf(left().GetLines()[index]));
    }

    /// Returns all texts of the list, with the lines of parts in brackets.
    std::wstring listed() {
        std::wstring texts;
        for (int i = 0; i < list().GetItemCount(); ++i) {
            const std::wstring name(zuhost::viewOf(list().GetItemText(i, 0)));
            texts += list().GetItemIndent(i) == 0
                         ? L"[" + name + L"]"
                         : name + L"=" + std::wstring(zuhost::viewOf(list().GetItemText(i, 1))) + L" ";
        }
        return texts;
    }
    std::wstring shown() {
        CStringArray keys;
        CStringArray values;
        frame_.GetRightPane()->GetAttAll(keys, values);
        std::wstring texts;
        for (int i = 0; i < keys.GetSize(); ++i)
            texts += std::wstring(zuhost::viewOf(keys[i])) + std::wstring(zuhost::viewOf(values[i])) + L" ";
        return texts;
    }

    void clickLine(int index, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        CRect place;
        ASSERT_TRUE(list().GetItemRect(index, &place));
        QTest::mouseClick(zuhost::clientWidgetOf(list()), Qt::LeftButton, modifiers,
                          QPoint(60, (place.top + place.bottom) / 2));
        zuhost::processPendingEvents();
    }
    void press(int button) {
        QTest::mouseClick(zuhost::widgetOf(*left().GetDlgItem(button)), Qt::LeftButton);
        zuhost::processPendingEvents();
    }
    QWidget* editor() {
        if (auto* const box = zuhost::clientWidgetOf(properties())->findChild<QComboBox*>())
            return box;
        return zuhost::clientWidgetOf(properties())->findChild<QLineEdit*>();
    }
    /// Opens the editor on the item of a row; row 0 is the first heading.
    void beginEdit(int row) {
        properties().SetFocus();
        properties().SetCurSel(row);
        QTest::keyClick(zuhost::widgetOf(properties()), Qt::Key_F2);
        ASSERT_TRUE(properties().IsEditing());
    }
    void choose(int row, int down) {
        beginEdit(row);
        static_cast<QComboBox*>(editor())->setCurrentIndex(down);
        QTest::keyClick(editor(), Qt::Key_Return);
    }

    SampleSettings settings_;
    CUPAttFrameWnd& frame_;
};

TEST_F(PartsWindow, LaysOutItsControls) {
    const std::tuple<int, const wchar_t*, QRect> buttons[] = {{kModify, L"属性修正", {0, 0, 60, 23}},
                                                              {kConfirm, L"属性確定", {0, 24, 60, 23}},
                                                              {kBack, L"戻る", {0, 47, 60, 23}}};
    for (const auto& [id, expectedCaption, place] : buttons) {
        CString caption;
        left().GetDlgItem(id)->GetWindowText(caption);
        EXPECT_EQ(caption, expectedCaption);
        EXPECT_EQ(zuhost::widgetOf(*left().GetDlgItem(id))->geometry(), place);
    }
    frame_.MoveWindow(0, 0, 500, 300);
    zuhost::processPendingEvents();
    const QRect pane = zuhost::widgetOf(left())->rect();
    EXPECT_EQ(zuhost::widgetOf(list())->geometry(), QRect(0, 70, pane.width(), pane.height() - 70));
    EXPECT_EQ(properties().GetDlgCtrlID(), 3002);
}

TEST_F(PartsWindow, ShowsSelectedPartsAndLines) {
    open("parts.txt", kTwoParts);
    EXPECT_EQ(listed(), L"[要素 1]取付高=2700 用途=A [要素 2]");
    EXPECT_EQ(shown(), L"S401|2700 S501|A ");
    clickLine(2);
    EXPECT_EQ(shown(), L"S501|A ");
    clickLine(3);
    EXPECT_EQ(shown(), L"S401|2400 S602| ");
    clickLine(0, Qt::ControlModifier);
    EXPECT_EQ(shown(), L"S401|*各種* S501|A S602| ");
    left().SSDel(0);
    left().SelectChild(3);
    left().SSAdd(0);
    left().SSDel(4);
    left().DataDisp();
    EXPECT_EQ(listed(), L"[要素 1]取付高=2700 用途=A [要素 2]取付高=2400 保温= ");
    EXPECT_EQ(shown(), L"S401|2700 S501|A S602| ");

    CString found = L"x";
    EXPECT_EQ(left().GetAtAtt(L"S602|", found), 0);
    EXPECT_EQ(found, L"S602||P||7|1|");
    EXPECT_EQ(left().SetAtAtt(L"S602|", L"有"), 0);
    EXPECT_EQ(line(3), L"S602|有|P||7|1|");
    EXPECT_EQ(left().SetAtAtt(L"S602|", L"a|b"), -1);
    EXPECT_EQ(left().GetAtAtt(L"S9|", found), -1);
}

TEST_F(PartsWindow, ButtonsCopyValuesAndSave) {
    open("parts.txt", kTwoParts);
    clickLine(3);
    choose(1, 0);
    EXPECT_EQ(line(2), L"S401|2400|A||1|1|") << "written only by the button";
    press(kModify);
    EXPECT_EQ(line(2), L"S401|2700|A||1|1|") << saved("parts.txt");
    EXPECT_EQ(line(0), L"S401|2700|E||1|1|");
    EXPECT_EQ(saved("parts.txt"), kTwoParts);
    EXPECT_EQ(zuhost::pendingInput(), L"");

    choose(2, 2); // the current, empty value is the first choice
    press(kConfirm);
    EXPECT_EQ(saved("parts.txt"), "S401|2700|E||1|1|S501|A|||4|1|S401|2700|A||1|1|S602|\x96\xB3|P||7|1|");
    EXPECT_EQ(zuhost::pendingInput(), L"ZU_CONFIRMED\n");
    EXPECT_TRUE(frame_.IsWindowVisible());
    settings_.folder().write("parts.txt", "");
    press(kBack);
    EXPECT_NE(saved("parts.txt"), "");
    EXPECT_EQ(zuhost::pendingInput(), L"ZU_CONFIRMED\nZU_BACK\n");
    EXPECT_TRUE(frame_.IsWindowVisible());
}

TEST_F(PartsWindow, DoesNotSaveWhileAValueIsRejected) {
    open("parts.txt", "S701|");
    beginEdit(1);
    QTest::keyClicks(editor(), "a|b");
    const zuhost::MessageBoxObserver observer;
    press(kConfirm);
    EXPECT_FALSE(observer.boxes().empty());
    EXPECT_TRUE(properties().IsEditing());
    EXPECT_EQ(saved("parts.txt"), "S701|");
    EXPECT_EQ(zuhost::pendingInput(), L"");
    properties().EndEdit(false);
}

TEST_F(PartsWindow, OnlyConfirmSavesRouteAttributes) {
    open("RootAttr.dat", "S401|2700|E|");
    left().SetAtAtt(L"S401|", L"2400");
    press(kBack);
    EXPECT_EQ(saved("RootAttr.dat"), "S401|2700|E|");
    EXPECT_EQ(zuhost::pendingInput(), L"ZU_BACK\n");
    EXPECT_FALSE(frame_.IsWindowVisible());

    frame_.ShowWindow(SW_SHOW);
    auto* const other = new CUPAttFrameWnd;
    EXPECT_EQ(other->GetLeftPane(), nullptr);
    ASSERT_TRUE(other->Create(nullptr, L"部品"));
    other->GetLeftPane()->SetFilePath(L"parts.txt");
    EXPECT_FALSE(other->GetLeftPane()->IsRouteAttributeMode());
    EXPECT_TRUE(left().IsRouteAttributeMode()) << "a window's own mode";
    other->DestroyWindow();
    press(kConfirm);
    EXPECT_EQ(saved("RootAttr.dat"), "S401|2400|E||||\r\n");
    EXPECT_FALSE(frame_.IsWindowVisible());
}

TEST_F(PartsWindow, EscapeClosesTheEditorThenHidesTheFrame) {
    open("parts.txt", kTwoParts);
    left().SetAtAtt(L"S501|", L"E");
    beginEdit(1);
    QTest::keyClick(editor(), Qt::Key_Escape);
    EXPECT_FALSE(properties().IsEditing());
    EXPECT_TRUE(frame_.IsWindowVisible());
    QTest::keyClick(zuhost::widgetOf(properties()), Qt::Key_Escape);
    EXPECT_FALSE(frame_.IsWindowVisible());
    EXPECT_EQ(saved("parts.txt"), kTwoParts);
}

TEST_F(PartsWindow, FailedSaveShowsAMessageAndKeepsTheLines) {
    open("parts.txt", "S401|2700");
    left().SetAtAtt(L"S401|", L"𠮷");
    const zuhost::MessageBoxObserver observer;
    left().SaveCSVFile();
    ASSERT_EQ(observer.boxes().size(), 1U);
    EXPECT_EQ(observer.boxes()[0].text,
              std::wstring(zuhost::viewOf(left().GetFilePath())) + L" に保存できません。確認してください。");
    EXPECT_EQ(observer.boxes()[0].style & 0xF0U, static_cast<UINT>(MB_ICONSTOP));
    EXPECT_EQ(saved("parts.txt"), "S401|2700");
    EXPECT_EQ(line(0), L"S401|𠮷|||||");
    press(kConfirm);
    press(kBack);
    EXPECT_EQ(observer.boxes().size(), 3U);
    EXPECT_EQ(zuhost::pendingInput(), L"") << "no command without a saved file";
    EXPECT_TRUE(frame_.IsWindowVisible());

    EXPECT_EQ(left().ReadCSVFile(L"missing\\parts.txt"), -1);
    EXPECT_EQ(line(0), L"S401|𠮷|||||") << "a failed read keeps the lines";
    left().SetFilePath(L"");
    left().SaveCSVFile();
    EXPECT_EQ(observer.boxes().size(), 3U);
}

} // namespace
