#pragma once

#include <afxwin.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

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
            texts.emplace_back(text.view());
        }
        return texts;
    }

    CComboBox box;
};
