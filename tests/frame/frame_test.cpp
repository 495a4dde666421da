#include <zucomn/frame.h>

#include <afxdllx.h>
#include <afxwin.h>
#include <dbapserv.h>
#include <rxdlinkr.h>
#include <zuhost/command_line.h>

#include <gtest/gtest.h>

#include <cstdlib>

namespace {

/// Sets the environment's language for a test and chooses texts by it.
class Language {
public:
    explicit Language(const char* locale) {
        setenv("LC_ALL", locale, 1);
        ZuComn_SetResource();
    }
    ~Language() {
        setenv("LC_ALL", "C.UTF-8", 1);
        ZuComn_SetResource();
    }
};

std::wstring fileMessage(int operation, int cause) {
    const zuhost::MessageBoxObserver observer;
    ZuComn_FileErrorMsg(operation, cause);
    EXPECT_EQ(observer.boxes().size(), 1U);
    EXPECT_EQ(observer.boxes().at(0).style & MB_ICONSTOP, MB_ICONSTOP);
    return observer.boxes().at(0).text;
}

TEST(Frame, ScaleAndTolerances) {
    EXPECT_EQ(ZuComn_GetScale(nullptr), 0);
    ZuComn_SetScale(50.0);
    double scale = 0;
    EXPECT_EQ(ZuComn_GetScale(&scale), 0);
    EXPECT_EQ(scale, 50.0);
    ZuComn_SetScale(1.0);
    double point = 0;
    double vector = 0;
    ZuComn_setTolerance(0.0, -1.0);
    ZuComn_getTolerance(&point, &vector);
    EXPECT_EQ(point, 0.0);
    EXPECT_EQ(vector, 0.1);
    ZuComn_setTolerance(0.1, 0.1);
    ZuComn_getTolerance(nullptr, nullptr);
}

TEST(Frame, WindowRecords) {
    CWnd first;
    CWnd second;
    ZuComn_SetSendCueCommand(L"ZU_X");
    ZuComn_SetCurrentWindow2(&second, true, 7, 8, 9);
    EXPECT_EQ(close_SendCommand, L"ZU_X");
    ZuComn_SetCurrentWindow(&first, true, 1, 2, 3);
    EXPECT_EQ(close_SendCommand, L"");
    EXPECT_EQ(close_pLastWnd, &first);
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

TEST(Frame, TextsFollowTheLanguage) {
    {
        const Language japanese("ja_JP.UTF-8");
        EXPECT_EQ(fileMessage(2, 13), L"ファイルの書込みが次の理由により失敗しました。\n  ...  ディスクフル");
        EXPECT_EQ(fileMessage(9, 99), L"ファイルのが次の理由により失敗しました。\n  ...  未定義のエラー");
    }
    const Language english("en_US.UTF-8");
    EXPECT_EQ(fileMessage(1, 2), L"File open failed for the following reason.\n  ...  file not found");
    EXPECT_EQ(ZUBASIS_LAYER, L"_ZU_基準線") << "layer names are part of the drawings";
    CString text;
    EXPECT_EQ(ZuComn_LoadString(ZuComn_GetResource(), 134, text), 1)
        << "what the module lacks is taken from the library";
    EXPECT_EQ(text, L"環境設定");
    EXPECT_EQ(ZuComn_LoadString(nullptr, 9999, text), 0);
    EXPECT_EQ(text, L"");
    EXPECT_EQ(AfxGetResourceHandle(), nullptr) << "the framework's resource handle is restored";
}

TEST(Frame, MissingLanguageModuleIsToldOnce) {
    const zuhost::CommandLineObserver observer;
    const Language german("de_DE.UTF-8");
    const std::wstring& said = observer.text();
    EXPECT_TRUE(said.starts_with(L"Resource dll load failed.\n path = ")) << "once, before anything else";
    EXPECT_TRUE(said.ends_with(L"\\1031\\ZuComn.dll\n"));
    EXPECT_EQ(fileMessage(1, 2).substr(0, 5), L"ファイルの");
}

TEST(Frame, WorkDatabaseIsTheHostsUnlessSet) {
    AcDbDatabase hosts;
    AcDbDatabase own;
    acdbHostApplicationServices()->setWorkingDatabase(&hosts);
    EXPECT_EQ(ZuComn_getWorkDatabase(), &hosts);
    ZuComn_workDatabase(&own);
    EXPECT_EQ(ZuComn_getWorkDatabase(), &own);
    EXPECT_EQ(ZuComn_GetEnableAnnoScale(), 0);
    EXPECT_EQ(ZuComn_SetCustomVar(L"ZUANNO", L"2x"), 0);
    EXPECT_EQ(ZuComn_GetEnableAnnoScale(), 2);
    ZuComn_workDatabase(nullptr);
    EXPECT_EQ(ZuComn_getWorkDatabase(), &hosts);
}

TEST(Frame, LoadsAndUnloadsThroughTheHost) {
    EXPECT_TRUE(acrxDynamicLinker->loadModule(L"ZuComn.arx", false));
    EXPECT_FALSE(acrxDynamicLinker->isApplicationLocked(L"ZuComn"));
    EXPECT_TRUE(acrxDynamicLinker->isAppMDIAware(L"ZuComn"));
    EXPECT_TRUE(acrxDynamicLinker->unloadModule(L"ZuComn.arx"));
}

} // namespace
