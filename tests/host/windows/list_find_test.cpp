#include "recorded_cases.h"

#include "afxwin.h"

#include <zuhost/text_codec.h>

#include <gtest/gtest.h>

namespace {

/// Compares searches with those recorded for this kind of list. Records of sorted lists are skipped: this
/// host has none.
template <typename List>
void expectRecordedSearches(List& list, const std::string& kind) {
    const nlohmann::json recorded = recordedCases("misc.json");
    for (const nlohmann::json& item : recorded["list_items"])
        list.AddString(zuhost::fromUtf8(item.get<std::string>()).c_str());
    for (const nlohmann::json& c : recorded["list_find"]) {
        if (c[0] != kind || c[1] != "no")
            continue;
        const std::wstring text = zuhost::fromUtf8(c[3].get<std::string>());
        EXPECT_EQ(list.FindStringExact(c[2].get<int>(), text.c_str()), c[4].get<int>()) << c;
        EXPECT_EQ(list.FindString(c[2].get<int>(), text.c_str()), c[5].get<int>()) << c;
    }
}

TEST(Lists, FindAsRecorded) {
    CFrameWnd frame;
    frame.Create(nullptr, L"図面");
    CComboBox combo;
    combo.Create(CBS_DROPDOWNLIST | WS_CHILD, RECT{0, 0, 200, 24}, &frame, 1);
    expectRecordedSearches(combo, "CB");
    CListBox list;
    list.Create(WS_CHILD, RECT{0, 0, 200, 240}, &frame, 2);
    expectRecordedSearches(list, "LB");
}

} // namespace
