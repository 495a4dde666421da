#include "sample_settings.h"
#include "texts.h"

#include <zucomn/strings.h>
#include <zuhost/file_ops.h>
#include <zuhost/texts.h>

#include <afxwin.h>

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

namespace {

/// Provides a combo box to fill with numbers.
class ComboNumbers : public testing::Test {
protected:
    void SetUp() override { box.Create(CBS_DROPDOWNLIST, {0, 0, 100, 20}, nullptr, 1); }

    void fill(const std::vector<std::wstring>& texts) {
        for (const std::wstring& text : texts)
            box.AddString(text.c_str());
    }
    [[nodiscard]] std::vector<std::wstring> items() const {
        std::vector<std::wstring> texts;
        for (int i = 0; i < box.GetCount(); ++i) {
            CString text;
            box.GetLBText(i, text);
            texts.emplace_back(zuhost::viewOf(text));
        }
        return texts;
    }

    CComboBox box;
};

TEST_F(ComboNumbers, AreSortedAndFormattedAlike) {
    fill({L"1", L"3"});
    EXPECT_EQ(ZuComn_ComboBoxAdd(box, L"2.50", 99), -1);
    EXPECT_EQ(items(), (Texts{L"1", L"2.5", L"3"}));
    EXPECT_EQ(ZuComn_ComboBoxAdd(box, L"3", 99), 2);
    EXPECT_EQ(ZuComn_ComboBoxAdd(box, L"1.0", 99), 0);
    EXPECT_EQ(ZuComn_ComboBoxAdd(box, L"2.5", 99), 1);
    EXPECT_EQ(ZuComn_ComboBoxAdd(box, L"10", 0), 3);
    EXPECT_EQ(items(), (Texts{L"1", L"2", L"3", L"10"}));
    EXPECT_EQ(ZuComn_ComboBoxAdd(box, L"0.25", 100), 0);
    EXPECT_EQ(items().front(), L"0.25");
    EXPECT_EQ(ZuComn_ComboBoxAdd(box, L"2.26", 1), -1);
    EXPECT_EQ(items(), (Texts{L"0.25", L"1", L"2", L"2.3", L"3", L"10"}));
    const SampleSettings settings; // without a configured precision
    settings.folder().write("system/ZuConfig.ini", "");
    WritePrivateProfileStringW(L"ｵﾌﾟｼｮﾝ", L"REALACCURACY", nullptr, settings.system("master.ini").c_str());
    EXPECT_EQ(ZuComn_ComboBoxAdd(box, L"3.7", -1), -1);
    EXPECT_EQ(items(), (Texts{L"0", L"1", L"2", L"2", L"3", L"4", L"10"}));
    // The number of items does not change how often the settings are read.
    const zuhost::file_ops::FailAt never(std::numeric_limits<std::uint64_t>::max());
    const auto readings = [&] {
        const std::uint64_t before = never.count();
        ZuComn_ComboBoxAdd(box, std::to_wstring(1000 + before).c_str(), -1);
        return never.count() - before;
    };
    const std::uint64_t few = readings();
    EXPECT_GT(few, 0U);
    for (int i = 100; i < 150; ++i)
        box.AddString(std::to_wstring(i).c_str());
    EXPECT_EQ(readings(), few);
}

} // namespace
