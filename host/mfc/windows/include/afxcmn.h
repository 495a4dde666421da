#pragma once

#include "afxwin.h"
#include "commctrl.h"

/// A list of lines in columns. Lines may be indented; with LVS_OWNERDRAWFIXED the class draws them itself.
/// Several lines may be selected unless the style has LVS_SINGLESEL. LVN_ITEMCHANGED notifies the parent of
/// every selection or deselection of a line, by the user or by the program.
class CListCtrl : public CWnd {
    DECLARE_DYNCREATE(CListCtrl)

public:
    CListCtrl();
    ~CListCtrl() override;
    BOOL Create(DWORD style, const RECT& rectangle, CWnd* parent, UINT id);

    /// Returns the index of the new column; -1 on failure.
    int InsertColumn(int index, const wchar_t* heading, int format = LVCFMT_LEFT, int width = 100,
                     int subItem = -1);
    [[nodiscard]] int GetColumnCount() const;
    [[nodiscard]] int GetColumnWidth(int column) const;
    /// With LVSCW_AUTOSIZE_USEHEADER as width, the last column takes the space that the others leave.
    BOOL SetColumnWidth(int column, int width);

    /// Returns the index of the new line; -1 on failure.
    int InsertItem(int index, const wchar_t* text);
    int InsertItem(const LVITEM* item);
    BOOL DeleteItem(int index);
    BOOL DeleteAllItems();
    [[nodiscard]] int GetItemCount() const;
    BOOL SetItemText(int index, int subItem, const wchar_t* text);
    [[nodiscard]] CString GetItemText(int index, int subItem) const;
    BOOL SetItemData(int index, std::uintptr_t data);
    [[nodiscard]] std::uintptr_t GetItemData(int index) const;
    [[nodiscard]] int GetItemIndent(int index) const;

    /// Sets the states in `mask` to their values in `state`. LVIS_FOCUSED can only be set. Index -1 selects
    /// or deselects all lines.
    BOOL SetItemState(int index, UINT state, UINT mask);
    [[nodiscard]] UINT GetItemState(int index, UINT mask) const;
    /// Returns the first line after `after` that has all states in `flags`; -1 when there is none.
    [[nodiscard]] int GetNextItem(int after, int flags) const;
    [[nodiscard]] UINT GetSelectedCount() const;
    BOOL EnsureVisible(int index, BOOL partlyWillDo);
    BOOL GetItemRect(int index, RECT* rectangle) const;
    /// Returns the line at the point; -1 when there is none.
    [[nodiscard]] int HitTest(CPoint point) const;

    virtual void DrawItem(LPDRAWITEMSTRUCT draw);
    virtual void MeasureItem(LPMEASUREITEMSTRUCT measure);

protected:
    [[nodiscard]] QWidget* makeWidget(QWidget* parent, DWORD style) override;

private:
    struct Parts;
    std::unique_ptr<Parts> parts_;
};
