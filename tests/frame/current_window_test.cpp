#include <zucomn/frame.h>

#include <afxwin.h>
#include <rxmfcapi.h>
#include <zuhost/main_frame.h>

#include <gtest/gtest.h>

#include <tuple>

namespace {

TEST(Frame, WindowRecords) {
    CWnd first;
    CWnd second;
    ZuComn_SetSendCueCommand(L"ZU_X");
    ZuComn_SetCurrentWindow2(&second, true, 7, 8, 9);
    EXPECT_EQ(close_SendCommand, L"ZU_X");
    EXPECT_EQ(std::tie(close_pLastWnd2, close_bDoHide2, close_Msg2, close_wParam2, close_lParam2),
              std::tuple(&second, true, 7U, 8U, LPARAM{9}));
    ZuComn_SetCurrentWindow(&first, true, 1, 2, 3);
    EXPECT_EQ(close_SendCommand, L"");
    EXPECT_EQ(std::tie(close_pLastWnd, close_bDoHide, close_Msg, close_wParam, close_lParam),
              std::tuple(&first, true, 1U, 2U, LPARAM{3}));
    ZuceComn_ClearCurrentWindow(false);
    EXPECT_EQ(close_pLastWnd, nullptr);
    EXPECT_EQ(close_pLastWnd2, &second);
    ZuceComn_ClearCurrentWindow(true);
    EXPECT_EQ(close_pLastWnd2, nullptr);
    ZuComn_ShowWindow(nullptr, SW_SHOW);
    ZuComn_ShowWindow(&first, SW_SHOW);
}

TEST(Frame, ShowsTheParentFrameOnlyWhenItIsVisible) {
    CFrameWnd frame;
    frame.Create(nullptr, L"frame", WS_VISIBLE);
    CComboBox child;
    child.Create(CBS_DROPDOWNLIST, {0, 0, 50, 20}, &frame, 1);
    ZuComn_ShowWindow(&child, SW_HIDE);
    EXPECT_FALSE(frame.IsWindowVisible());
    ZuComn_ShowWindow(&child, SW_SHOW);
    EXPECT_FALSE(frame.IsWindowVisible());
}

TEST(Frame, ShowsTheWindowItselfInTheHostsMainFrame) {
    CMDIFrameWnd main;
    main.Create(nullptr, L"host", WS_VISIBLE);
    CComboBox child;
    child.Create(WS_VISIBLE | CBS_DROPDOWNLIST, {0, 0, 50, 20}, &main, 1);
    zuhost::setMainFrame(&main);
    ZuComn_ShowWindow(&child, SW_HIDE);
    zuhost::setMainFrame(nullptr);
    EXPECT_TRUE(main.IsWindowVisible());
    EXPECT_FALSE(child.IsWindowVisible());
}

} // namespace
