#pragma once

#include "attributes/views/attribute_pane.h"
#include "sample_settings.h"

#include <afxcmn.h>
#include <arxutil.h>
#include <dbapserv.h>
#include <zucomn/attributes.h>
#include <zucomn/frame.h>
#include <zucomn/views.h>
#include <zuhost/desktop.h>
#include <zuhost/input.h>
#include <zuhost/texts.h>
#include <zuhost/windows/widgets.h>

#include <QComboBox>
#include <QLineEdit>
#include <QTest>
#include <QWidget>

#include <gtest/gtest.h>

inline std::wstring text(const CString& value) {
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
inline constexpr Adesk::UInt64 kDuct = 0x110;
inline constexpr Adesk::UInt64 kSecondDuct = 0x114;
inline constexpr Adesk::UInt64 kPipe = 0x168;
inline constexpr Adesk::UInt64 kLockedAirHandler = 0x10C;

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
