#include "sample_settings.h"

#include <zucomn/frame.h>
#include <zucomn/tables.h>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <zuhost/texts.h>

namespace {

using nlohmann::json;

json expected() {
    std::ifstream stream(std::string(ZU_SAMPLES) + "/expected/settings.json");
    return json::parse(stream);
}

std::wstring wide(const std::string& text) {
    return zuhost::fromUtf8(text);
}
std::string narrow(const CString& text) {
    return zuhost::toUtf8(zuhost::viewOf(text));
}

class Settings : public testing::Test {
protected:
    SampleSettings settings;
    json wanted = expected();
};

TEST_F(Settings, ReadsLineWeights) {
    const json& weights = wanted["line weights"];
    EXPECT_EQ(gblComn_lineWeight, weights["route"].get<int>());
    EXPECT_EQ(gblComn_ductLineWeight, weights["duct"].get<int>());
    EXPECT_EQ(gblComn_kikiLineWeight, weights["equipment"].get<int>());
    EXPECT_EQ(gblComn_SlenderLineWeight, weights["extra fine"].get<int>());
}

TEST_F(Settings, OptionsFallBackToTheOlderKeys) {
    for (const auto& [key, result] : wanted["readEnvConfig (result, value)"].items()) {
        CString value = L"before";
        EXPECT_EQ(ZuComn_readEnvConfig(value, wide(key).c_str()), result[0].get<int>()) << key;
        EXPECT_EQ(narrow(value), result[1].get<std::string>()) << key;
        CString keyAndValue = zuhost::textOf(wide(key));
        EXPECT_EQ(ZuComn_readEnvConfig(keyAndValue, keyAndValue), result[0].get<int>())
            << "its own key: " << key;
        EXPECT_EQ(keyAndValue, value) << "its own key: " << key;
    }
    CString value = L"before";
    EXPECT_EQ(ZuComn_readEnvConfig(value, nullptr), 0);
    EXPECT_EQ(value, L"");
}

TEST_F(Settings, MissingValuesLeaveTheOutputUntouched) {
    for (const auto& [key, result] :
         wanted["readConfig 環境設定 (result, value or null when unchanged)"].items()) {
        CString value = L"before";
        wchar_t buffer[512] = L"before";
        EXPECT_EQ(ZuComn_readConfig(value, L"ignored", L"環境設定", wide(key).c_str()), result[0].get<int>())
            << key;
        EXPECT_EQ(narrow(value), result[1].is_null() ? "before" : result[1].get<std::string>()) << key;
        EXPECT_EQ(ZuComn_readConfig(buffer, L"ignored", L"環境設定", wide(key).c_str()), result[0].get<int>())
            << key;
        EXPECT_EQ(narrow(buffer), result[1].is_null() ? "" : result[1].get<std::string>()) << key;
    }
}

TEST_F(Settings, ComposesTheOlderSeparator) {
    settings.folder().write("system/ZuConfig.ini", "");
    CString value;
    EXPECT_EQ(ZuComn_readEnvConfig(value, L"属性値区切り記号"), 0);
    EXPECT_EQ(value, L"/,1");
    const std::wstring master = settings.system("master.ini");
    WritePrivateProfileStringW(L"属性値記入", L"区切り記号", nullptr, master.c_str());
    EXPECT_EQ(ZuComn_readEnvConfig(value, L"属性値区切り記号"), 0);
    EXPECT_EQ(value, L",,1");
    WritePrivateProfileStringW(L"ｵﾌﾟｼｮﾝ", L"EXATTRIBUTE", nullptr, master.c_str());
    EXPECT_EQ(ZuComn_readEnvConfig(value, L"属性値区切り記号"), -1);
    EXPECT_EQ(value, L"");
}

TEST_F(Settings, WritesAndTruncatesValues) {
    const CString longValue(L'長', 600);
    EXPECT_NE(ZuComn_writeConfig(L"環境設定", L"長い値", longValue, L"ignored"), 0);
    EXPECT_EQ(ZuComn_readConfig(L"", L"環境設定", L"長い値"), longValue.Left(511));
    EXPECT_EQ(ZuComn_writeConfig(L"環境設定", L"長い値", L"850㎥", L"ignored"), 0);
    EXPECT_EQ(ZuComn_writeConfig(L"環境設定", L"長い値", L"a\n[b]", L"ignored"), 0);
    EXPECT_EQ(ZuComn_writeConfig(L"環境設定", L"k\rl", L"a", L"ignored"), 0);
    EXPECT_EQ(ZuComn_readConfig(L"", L"環境設定", L"長い値"), longValue.Left(511));
}

TEST_F(Settings, ReadsTablesOfTheSampleSystem) {
    const std::pair<const char*, const char*> tables[] = {{"system/属性IDタイトル.csv", "titles"},
                                                          {"system/属性IDパラメータ.csv", "parameters"},
                                                          {"parts/fitting.csv", "fitting.csv"}};
    for (const auto& [name, key] : tables) {
        CPtrArray records;
        ASSERT_EQ(ZuComn_ReadConfigFile(settings.folder().wide(name).c_str(), records, 0, nullptr, nullptr),
                  0);
        json read = json::array();
        for (int i = 0; i < records.GetSize(); ++i) {
            const auto* record = static_cast<CStringArray*>(static_cast<CObject*>(records[i]));
            json fields = json::array();
            for (int k = 0; k < record->GetSize(); ++k)
                fields.push_back(narrow(record->GetAt(k)));
            read.push_back(fields);
        }
        ZuComn_RemoveAllFree(records);
        EXPECT_EQ(read, wanted[key]) << name;
        EXPECT_TRUE(records.IsEmpty());
    }
}

TEST(SettingsWithoutFiles, ReadAsMissing) {
    ZuComn_SetIniFile(L"/nowhere/master.ini");
    CString value = L"before";
    EXPECT_FALSE(ZuComn_GetSystemPath(value));
    EXPECT_EQ(value, L"");
    EXPECT_EQ(gblComn_lineWeight, 0);
    EXPECT_EQ(ZuComn_GetEnv(L"/nowhere/x.ini", L"A", L"k"), L"");
    EXPECT_EQ(ZuComn_writeConfig(L"環境設定", L"k", L"v", L"ignored"), 0) << "not into the root folder";
}

} // namespace
