#include "environment.h"
#include "temporary_folder.h"

#include <zucomn/frame.h>
#include <zucomn/model/library.h>
#include <zucomn/settings.h>

#include <afx.h>
#include <afxdllx.h>
#include <dbapserv.h>
#include <rxdlinkr.h>
#include <zuhost/command_line.h>
#include <zuhost/language.h>
#include <zuhost/message_box.h>
#include <zuhost/paths.h>
#include <zuhost/texts.h>

#include <gtest/gtest.h>

namespace {

/// Sets the language of the environment and of the library's texts for a scope.
class Language {
public:
    explicit Language(const char* locale) {
        setVariable("LC_ALL", locale);
        ZuComn_SetResource();
    }
    ~Language() {
        setVariable("LC_ALL", "C.UTF-8");
        ZuComn_SetResource();
    }
};

/// A language module beside the library, for a language that the product lacks. Tests run concurrently, so
/// each uses a different language.
class LanguageModule {
public:
    LanguageModule(const char* languageId, const std::string& texts) {
        namespace fs = std::filesystem;
        wchar_t library[4096];
        GetModuleFileNameW(ZuComn_GetResource(), library, 4096);
        folder_ = fs::path(zuhost::systemPath(library)).parent_path() / languageId;
        fs::create_directory(folder_);
        std::ofstream(folder_ / "ZuComn.strings") << texts;
    }
    ~LanguageModule() { std::filesystem::remove_all(folder_); }
    LanguageModule(const LanguageModule&) = delete;
    LanguageModule& operator=(const LanguageModule&) = delete;

private:
    std::filesystem::path folder_;
};

struct LayerName {
    unsigned textId;
    const CString& name;
};

const LayerName kLayers[] = {
    {101, ZUCONECT_LAYER},   {102, ZULENGTH_LAYER},   {103, ZUHIDE_LAYER},      {104, ZUPRIMARY_LAYER},
    {105, STANDPIPE_LAYER},  {106, ZUSHELTER_LAYER},  {107, ZUBASIS_LAYER},     {108, ZUSERVICESPACE_LAYER},
    {109, ZUSNAP_LAYER},     {110, ZUARRANGE_LAYER},  {111, ZUSUBHIDE_LAYER},   {112, ZUCENTERLINE_LAYER},
    {113, ZUANNO_LAYER},     {114, ZUANNOSIZE_LAYER}, {115, ZUANNOFL_LAYER},    {116, ZUANNOVARIOUS_LAYER},
    {117, ZUUNDRAW_LAYER},   {118, ZUSLENDER_LAYER},  {119, ZUSLOPE_LAYER},     {120, ZUBOXSLOPE_LAYER},
    {121, ZULIGHTING_LAYER}, {122, ZUAUXLINE_LAYER},  {123, ZUTABLE_TEXTLAYER}, {124, ZUTABLE_LAYER},
    {125, ZUNOTE_LAYER},     {126, ZUDIM_LAYER},      {127, ZUDIMTEXT_LAYER},   {128, ZUHIDEMARK_LAYER},
    {129, ZUMSECTION_LAYER}, {130, ZUMAINTE_LAYER},   {131, ZUOTHERS_LAYER},    {132, DXF_STANDPIPE_LAYER},
    {210, ZURTSIGN_LAYER},
};

std::vector<CString> layerNames() {
    std::vector<CString> names;
    for (const LayerName& layer : kLayers)
        names.push_back(layer.name);
    return names;
}

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
    double point = 0;
    double vector = 0;
    ZuComn_setTolerance(0.0, -1.0);
    ZuComn_getTolerance(&point, &vector);
    EXPECT_EQ(point, 0.0);
    EXPECT_EQ(vector, 0.1);
    ZuComn_getTolerance(nullptr, nullptr);
    ZUCONECT_LAYER = L"other";
    zucomn::resetLibrary();
    ZuComn_getTolerance(&point, &vector);
    EXPECT_EQ(point, 0.1);
    EXPECT_EQ(ZuComn_GetGlobalScale(), 1.0);
    EXPECT_EQ(ZUCONECT_LAYER, L"_ZU_CONNECT");
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
    EXPECT_EQ(ZuComn_GetResourceLanguage(), 1033);
    CString text;
    EXPECT_EQ(ZuComn_LoadString(nullptr, 134, text), 1);
    EXPECT_EQ(text, L"環境設定");
    EXPECT_EQ(ZuComn_LoadString(ZuComn_GetResource(), 134, text), 0) << "searches only the given module";
    EXPECT_EQ(text, L"");
    wchar_t buffer[5] = L"old";
    EXPECT_EQ(ZuComn_LoadString(ZuComn_GetResource(), 151, buffer, 4), 3);
    EXPECT_STREQ(buffer, L"ope");
    EXPECT_EQ(ZuComn_LoadString(ZuComn_GetResource(), 151, buffer, 0), 0);
    EXPECT_STREQ(buffer, L"ope") << "no room, nothing written";
    EXPECT_EQ(ZuComn_LoadString(ZuComn_GetResource(), 134, buffer, 4), 0);
    EXPECT_STREQ(buffer, L"");
    EXPECT_EQ(AfxGetResourceHandle(), nullptr) << "the framework's resource handle is restored";
}

TEST(Frame, LayerNamesComeFromTheLanguageModule) {
    const std::vector<CString> builtIn = layerNames();
    const auto isMissing = [](const LayerName& layer) { return layer.textId == 103 || layer.textId == 110; };
    std::string texts = "103 = \"\"\n";
    for (const LayerName& layer : kLayers)
        if (!isMissing(layer))
            texts += std::to_string(layer.textId) + " = \"calque " + std::to_string(layer.textId) + "\"\n";
    const LanguageModule module("1036", texts);
    {
        const Language french("fr_FR.UTF-8");
        for (std::size_t i = 0; i < builtIn.size(); ++i) {
            const std::wstring own = L"calque " + std::to_wstring(kLayers[i].textId);
            EXPECT_EQ(kLayers[i].name, isMissing(kLayers[i]) ? builtIn[i] : zuhost::textOf(own))
                << kLayers[i].textId;
        }
        const HINSTANCE loaded = ZuComn_GetResource();
        EXPECT_TRUE(acrxDynamicLinker->loadModule(L"ZuComn.arx", false));
        EXPECT_TRUE(acrxDynamicLinker->isAppMDIAware(L"ZuComn"));
        EXPECT_TRUE(acrxDynamicLinker->unloadModule(L"ZuComn.arx"));
        EXPECT_NE(ZuComn_GetResource(), loaded) << "freed with the library";
        EXPECT_EQ(ZUCONECT_LAYER, L"calque 101") << "names keep their last values";
    }
    EXPECT_EQ(layerNames(), builtIn) << "the library's own texts are the built-in names";
}

TEST(Frame, LanguageModulesMayRenameSectionsAndKeys) {
    const TemporaryFolder folder;
    folder.write("m.ini", "[entorno]\r\ngrueso=70\r\n" +
                              *zuhost::TextCodec::forCodePage(932)->encode(L"機器線幅") + "=50\r\n");
    const LanguageModule module("3082", "134 = \"entorno\"\n144 = \"grueso\"\n");
    const Language spanish("es_ES.UTF-8");
    ZuComn_SetIniFile(zuhost::textOf(folder.wide("m.ini")));
    EXPECT_EQ(gblComn_lineWeight, 70);
    EXPECT_EQ(gblComn_kikiLineWeight, 50) << "falls back to the built-in name when the module lacks it";
    zucomn::resetLibrary();
}

TEST(Frame, MissingLanguageModuleIsReportedOnce) {
    const zuhost::CommandLineObserver observer;
    const Language german("de_DE.UTF-8");
    const std::wstring& printed = observer.text();
    EXPECT_TRUE(printed.starts_with(L"Resource dll load failed.\n path = ")) << "once, before anything else";
    EXPECT_TRUE(printed.ends_with(L"\\1031\\ZuComn.dll\n"));
    EXPECT_EQ(fileMessage(1, 2).substr(0, 5), L"ファイルの");
    const std::size_t length = printed.size();
    zuhost::setUserLanguage(1033);
    ZuComn_SetResource();
    zuhost::setUserLanguage(0);
    EXPECT_EQ(fileMessage(1, 2).substr(0, 9), L"File open");
    EXPECT_EQ(observer.text().size(), length) << "a program may choose a language that has texts";
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

} // namespace
