#include "afxcmn.h"
#include "afxwin.h"
#include "zuhost/desktop.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <set>

namespace {

class Panel : public CWnd {
public:
    Panel() {
        zuhost::ensureDesktop();
        Create(nullptr, L"panel", WS_OVERLAPPEDWINDOW, CRect(0, 0, 300, 200), nullptr, 1);
    }
    ~Panel() override { CWnd::DestroyWindow(); }

    int selections = 0;

protected:
    afx_msg void onSelection() { ++selections; }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(Panel, CWnd)
ON_LBN_SELCHANGE(5, onSelection)
ON_CBN_SELCHANGE(5, onSelection)
END_MESSAGE_MAP()

class Random {
public:
    int below(int end) { return std::uniform_int_distribution<>(0, end - 1)(engine_); }
    std::wstring word() {
        std::wstring text;
        for (int i = 0; i <= below(3); ++i)
            text += L"aAbB\u30C0"[below(5)];
        return text;
    }

private:
    std::mt19937 engine_{41}; // NOLINT(cert-msc32-c,cert-msc51-cpp): repeatable
};

struct Row {
    std::wstring text;
    std::uintptr_t data = 0;
};

bool isEqualIgnoringCase(const std::wstring& left, const std::wstring& right) {
    return CString(left.c_str()).CompareNoCase(right.c_str()) == 0;
}

/// Returns the first row after `after`, wrapping at the end, that equals the text, or begins with it.
int findRow(const std::vector<Row>& rows, int after, const std::wstring& text, bool whole) {
    const int count = static_cast<int>(rows.size());
    const int first = after < 0 || after >= count ? 0 : after + 1;
    for (int i = 0; i < count; ++i) {
        const std::wstring& row = rows[static_cast<std::size_t>((first + i) % count)].text;
        if (isEqualIgnoringCase(whole ? row : row.substr(0, text.size()), text))
            return (first + i) % count;
    }
    return -1;
}

/// Inserts, deletes, selects and finds in a list beside a model of it. List boxes and combo boxes have the
/// same functions, but for the names of two.
template <typename List, typename TextAt>
void compareWithModel(List& list, Panel& panel, TextAt textAt) {
    Random random;
    std::vector<Row> rows;
    int selected = -1;
    for (int step = 0; step < 800; ++step) {
        SCOPED_TRACE(step);
        const int count = static_cast<int>(rows.size());
        const int index = random.below(count + 2) - 1; // also -1 and one past the end
        const bool isRow = index >= 0 && index < count;
        const std::wstring text = random.word();
        switch (random.below(8)) {
        case 0:
            EXPECT_EQ(list.AddString(text.c_str()), count);
            rows.push_back({text});
            break;
        case 1: {
            const int place = index < 0 ? count : index;
            EXPECT_EQ(list.InsertString(index, text.c_str()), place);
            rows.insert(rows.begin() + place, {text});
            selected += selected >= place ? 1 : 0;
            break;
        }
        case 2:
            EXPECT_EQ(list.DeleteString(static_cast<UINT>(index)), isRow ? count - 1 : -1);
            if (isRow) {
                rows.erase(rows.begin() + index);
                selected = selected == index ? -1 : selected - (selected > index ? 1 : 0);
            }
            break;
        case 3:
            selected = isRow ? index : -1;
            EXPECT_EQ(list.SetCurSel(index), selected);
            break;
        case 4:
            EXPECT_EQ(list.SetItemData(index, static_cast<std::uintptr_t>(step)), isRow ? 0 : -1);
            if (isRow)
                rows[static_cast<std::size_t>(index)].data = static_cast<std::uintptr_t>(step);
            break;
        case 5:
            EXPECT_EQ(list.FindString(index, text.c_str()), findRow(rows, index, text, false));
            EXPECT_EQ(list.FindStringExact(index, text.c_str()), findRow(rows, index, text, true));
            break;
        case 6: {
            const int found = findRow(rows, index, text, false);
            EXPECT_EQ(list.SelectString(index, text.c_str()), found);
            selected = found >= 0 ? found : selected;
            break;
        }
        default:
            EXPECT_EQ(list.FindString(-1, L""), -1) << "an empty text is in no row";
            EXPECT_EQ(list.InsertString(count + 1, L"past the end"), -1);
            if (count > 60) {
                list.ResetContent();
                rows.clear();
                selected = -1;
            }
        }
        ASSERT_EQ(list.GetCount(), static_cast<int>(rows.size()));
        ASSERT_EQ(list.GetCurSel(), selected);
        for (int i = 0; i < list.GetCount(); ++i) {
            ASSERT_EQ(textAt(i), rows[static_cast<std::size_t>(i)].text);
            ASSERT_EQ(list.GetItemData(i), rows[static_cast<std::size_t>(i)].data);
        }
    }
    EXPECT_EQ(panel.selections, 0) << "only the user's changes are notified";
    EXPECT_EQ(list.GetItemData(-1), static_cast<std::uintptr_t>(-1));
}

TEST(ListModels, ListBoxesDoWhatTheModelDoes) {
    Panel panel;
    CListBox list;
    ASSERT_TRUE(list.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 100, 100), &panel, 5));
    compareWithModel(list, panel, [&list](int index) {
        CString text;
        EXPECT_EQ(list.GetText(index, text), list.GetTextLen(index));
        wchar_t buffer[10];
        EXPECT_EQ(list.GetText(index, buffer), text.GetLength());
        EXPECT_EQ(text, buffer);
        return std::wstring(text.GetString());
    });
}

TEST(ListModels, ComboBoxesDoWhatTheModelDoes) {
    for (const DWORD style : {CBS_DROPDOWNLIST, CBS_DROPDOWN}) {
        Panel panel;
        CComboBox list;
        ASSERT_TRUE(list.Create(WS_CHILD | WS_VISIBLE | style, CRect(0, 0, 100, 100), &panel, 5));
        compareWithModel(list, panel, [&list](int index) {
            CString text;
            EXPECT_EQ(list.GetLBText(index, text), list.GetLBTextLen(index));
            return std::wstring(text.GetString());
        });
    }
}

TEST(ListModels, SortedListsKeepTheirOrderWhateverIsAdded) {
    Panel panel;
    CListBox list;
    CComboBox box;
    ASSERT_TRUE(list.Create(WS_CHILD | LBS_SORT, CRect(0, 0, 100, 100), &panel, 5));
    ASSERT_TRUE(box.Create(WS_CHILD | CBS_DROPDOWNLIST | CBS_SORT, CRect(0, 0, 100, 100), &panel, 6));
    Random random;
    std::multiset<std::wstring> words;
    for (int i = 0; i < 100; ++i) {
        const std::wstring word = random.word();
        words.insert(word);
        const int inList = list.AddString(word.c_str());
        const int inBox = box.AddString(word.c_str());
        CString text;
        list.GetText(inList, text);
        EXPECT_EQ(text, word.c_str());
        box.GetLBText(inBox, text);
        EXPECT_EQ(text, word.c_str());
    }
    for (int i = 0; i < 100; ++i) {
        CString before;
        CString text;
        list.GetText(i, text);
        words.erase(words.find(text.GetString()));
        if (i > 0) {
            list.GetText(i - 1, before);
            EXPECT_LE(before.CompareNoCase(text), 0);
        }
        box.GetLBText(i, before);
        EXPECT_EQ(before.CompareNoCase(text), 0) << "the same order in both";
    }
    EXPECT_TRUE(words.empty());
}

TEST(ListModels, ReportsKeepTheSelectionWithTheirLines) {
    Panel panel;
    CListCtrl list;
    ASSERT_TRUE(list.Create(WS_CHILD | LVS_REPORT, CRect(0, 0, 200, 100), &panel, 5));
    ASSERT_EQ(list.InsertColumn(0, L"Part"), 0);
    ASSERT_EQ(list.InsertColumn(9, L"Size", LVCFMT_RIGHT, 50), 1);
    struct Line {
        std::uintptr_t data;
        bool selected;
    };
    Random random;
    std::vector<Line> lines;
    for (int step = 0; step < 600; ++step) {
        SCOPED_TRACE(step);
        const int count = static_cast<int>(lines.size());
        const int index = random.below(count + 2) - 1;
        const bool isLine = index >= 0 && index < count;
        switch (random.below(6)) {
        case 0:
        case 1: {
            LVITEM item{};
            item.mask = LVIF_TEXT | LVIF_PARAM;
            item.iItem = std::max(index, 0) + random.below(2) * 1000; // beyond the end appends
            item.pszText = L"part";
            item.lParam = step;
            const int place = std::min(item.iItem, count);
            EXPECT_EQ(list.InsertItem(&item), place);
            EXPECT_TRUE(list.SetItemText(place, 1, std::to_wstring(step).c_str()));
            lines.insert(lines.begin() + place, {static_cast<std::uintptr_t>(step), false});
            break;
        }
        case 2:
            EXPECT_EQ(list.DeleteItem(index), isLine ? TRUE : FALSE);
            if (isLine)
                lines.erase(lines.begin() + index);
            break;
        case 3:
            if (isLine) {
                const bool select = random.below(3) != 0;
                EXPECT_TRUE(list.SetItemState(index, select ? LVIS_SELECTED : 0U, LVIS_SELECTED));
                lines[static_cast<std::size_t>(index)].selected = select;
            }
            break;
        case 4:
            if (random.below(4) == 0) {
                const auto byLastDigit = [](LPARAM left, LPARAM right, LPARAM ten) -> int {
                    return static_cast<int>(left % ten - right % ten);
                };
                EXPECT_TRUE(list.SortItems(byLastDigit, 10));
                std::stable_sort(lines.begin(), lines.end(),
                                 [](const Line& a, const Line& b) { return a.data % 10 < b.data % 10; });
            }
            break;
        default:
            if (random.below(10) == 0) {
                const bool select = random.below(2) == 0;
                EXPECT_TRUE(list.SetItemState(-1, select ? LVIS_SELECTED : 0U, LVIS_SELECTED));
                for (Line& line : lines)
                    line.selected = select;
            } else if (count > 50) {
                EXPECT_TRUE(list.DeleteAllItems());
                lines.clear();
            }
        }
        ASSERT_EQ(list.GetItemCount(), static_cast<int>(lines.size()));
        std::vector<int> expected;
        for (int i = 0; i < list.GetItemCount(); ++i) {
            const Line& line = lines[static_cast<std::size_t>(i)];
            ASSERT_EQ(list.GetItemData(i), line.data);
            ASSERT_EQ(list.GetItemText(i, 1), std::to_wstring(line.data).c_str());
            ASSERT_EQ(list.GetItemState(i, LVIS_SELECTED) != 0, line.selected) << i;
            if (line.selected)
                expected.push_back(i);
        }
        std::vector<int> selected;
        for (POSITION place = list.GetFirstSelectedItemPosition(); place != nullptr;)
            selected.push_back(list.GetNextSelectedItem(place));
        ASSERT_EQ(selected, expected);
        ASSERT_EQ(list.GetSelectedCount(), expected.size());
    }
}

TEST(ListModels, CallsWithoutARowOrAWindowFail) {
    Panel panel;
    CListCtrl report;
    ASSERT_TRUE(report.Create(WS_CHILD | LVS_REPORT, CRect(0, 0, 200, 100), &panel, 5));
    CListBox list;
    ASSERT_TRUE(list.Create(WS_CHILD, CRect(0, 0, 100, 100), &panel, 6));
    list.AddString(L"one");
    report.InsertItem(0, L"one");
    EXPECT_EQ(report.InsertItem(static_cast<const LVITEM*>(nullptr)), -1);
    EXPECT_EQ(report.InsertItem(-1, L"x"), -1);
    EXPECT_FALSE(report.SetItem(nullptr));
    EXPECT_EQ(report.InsertColumn(0, static_cast<const LVCOLUMN*>(nullptr)), -1);
    EXPECT_FALSE(report.GetColumn(0, nullptr));
    EXPECT_EQ(report.FindItem(nullptr), -1);
    EXPECT_FALSE(report.SortItems(nullptr, 0));
    EXPECT_FALSE(report.GetItemRect(0, nullptr));
    EXPECT_FALSE(report.SetItemText(0, 7, L"no such column"));
    EXPECT_EQ(report.GetItemText(5, 0), L"");
    POSITION none = nullptr;
    EXPECT_EQ(report.GetNextSelectedItem(none), -1);
    EXPECT_EQ(list.GetItemRect(0, nullptr), LB_ERR);
    EXPECT_EQ(list.GetText(0, static_cast<wchar_t*>(nullptr)), LB_ERR);
    EXPECT_EQ(list.GetSelCount(), LB_ERR) << "not of several selections";
    EXPECT_EQ(list.SetSel(0), LB_ERR);
    list.DestroyWindow();
    report.DestroyWindow();
    CListBox never;
    for (CListBox* const gone : {&list, &never}) {
        EXPECT_EQ(gone->GetCount(), LB_ERR);
        EXPECT_EQ(gone->AddString(L"x"), LB_ERR);
        EXPECT_EQ(gone->DeleteString(0), LB_ERR);
        EXPECT_EQ(gone->SetCurSel(0), LB_ERR);
        EXPECT_EQ(gone->FindString(-1, L"one"), LB_ERR);
        gone->ResetContent();
    }
    EXPECT_EQ(report.InsertItem(0, L"x"), -1);
    EXPECT_EQ(report.GetSelectedCount(), 0U);
    EXPECT_FALSE(report.EnsureVisible(0, FALSE));
}

TEST(ListModels, TextFieldsSelectAndReplace) {
    Panel panel;
    CEdit edit;
    ASSERT_TRUE(edit.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 100, 20), &panel, 5));
    const struct {
        int start, end;
        const wchar_t* by;
        const wchar_t* text;
    } cases[] = {
        {0, -1, L"x", L"x"},
        {1, 3, L"", L"adef"},
        {-1, 0, L"x", L"abcdefx"},
        {2, 2, L"-", L"ab-cdef"},
        {4, 99, L"Z", L"abcdZ"},
        {99, 99, L"!", L"abcdef!"},
        {0, 0, L"\u30C0", L"\u30C0abcdef"},
    };
    for (const auto& c : cases) {
        edit.SetWindowText(L"abcdef");
        edit.SetSel(c.start, c.end);
        edit.ReplaceSel(c.by);
        CString text;
        edit.GetWindowText(text);
        EXPECT_EQ(text, c.text) << c.start << ' ' << c.end;
    }
    edit.SetWindowText(L"abcdef");
    edit.SetSel(1, 3);
    int start = 0;
    int end = 0;
    edit.GetSel(start, end);
    EXPECT_EQ(start * 10 + end, 13);
    EXPECT_EQ(edit.GetSel(), DWORD{0x00030001});
    edit.SetLimitText(3);
    EXPECT_EQ(edit.GetLimitText(), 3U);
    edit.SetLimitText(0);
    EXPECT_EQ(edit.GetLimitText(), 32767U);
    EXPECT_FALSE(edit.GetModify());
    edit.SetModify();
    EXPECT_TRUE(edit.GetModify());
    edit.DestroyWindow();
    edit.SetSel(0, -1);
    edit.ReplaceSel(L"x");
    EXPECT_EQ(edit.GetLimitText(), 0U);
    EXPECT_FALSE(edit.Undo());
}

} // namespace
