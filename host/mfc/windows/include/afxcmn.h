#pragma once

#include "afxwin.h"
#include "commctrl.h"

#include <zuhost/platform/export.h>

/// A list of lines in columns. Lines may be indented; with LVS_OWNERDRAWFIXED the class draws them itself.
/// Several lines may be selected unless the style has LVS_SINGLESEL. LVN_ITEMCHANGED notifies the parent of
/// every selection or deselection of a line, by the user or by the program.
class ZUHOST_API CListCtrl : public CWnd {
    DECLARE_DYNCREATE(CListCtrl)

public:
    CListCtrl();
    ~CListCtrl() override;
    BOOL Create(DWORD style, const RECT& rectangle, CWnd* parent, UINT id);

    /// Returns the index of the new column; -1 on failure.
    int InsertColumn(int index, const wchar_t* heading, int format = LVCFMT_LEFT, int width = 100,
                     int subItem = -1);
    int InsertColumn(int index, const LVCOLUMN* column);
    BOOL DeleteColumn(int index);
    [[nodiscard]] int GetColumnCount() const;
    /// Stores the wanted parts (`mask`) of a column: its text, up to `cchTextMax`, and its width.
    BOOL GetColumn(int index, LVCOLUMN* column) const;
    BOOL SetColumn(int index, const LVCOLUMN* column);
    [[nodiscard]] int GetColumnWidth(int column) const;
    /// With LVSCW_AUTOSIZE_USEHEADER as width, the last column takes the space that the others leave.
    BOOL SetColumnWidth(int column, int width);

    /// Returns the index of the new line; -1 on failure.
    int InsertItem(int index, const wchar_t* text);
    int InsertItem(const LVITEM* item);
    /// Sets the parts in `mask` of a line or of one of its texts.
    BOOL SetItem(const LVITEM* item);
    BOOL DeleteItem(int index);
    BOOL DeleteAllItems();
    [[nodiscard]] int GetItemCount() const;
    BOOL SetItemText(int index, int subItem, const wchar_t* text);
    [[nodiscard]] CString GetItemText(int index, int subItem) const;
    /// Copies the text, truncated to `size` characters with the final zero; returns the number copied.
    int GetItemText(int index, int subItem, wchar_t* text, int size) const;
    /// Returns the first line after `after` with the text or the data; -1 when there is none.
    int FindItem(const LVFINDINFO* wanted, int after = -1) const;
    /// Sorts the lines by their data; the selection stays with the lines.
    BOOL SortItems(PFNLVCOMPARE compare, DWORD_PTR parameter);
    /// Grid lines, full-row selection and check boxes are shown as the desktop has them: nothing changes.
    DWORD SetExtendedStyle(DWORD style);
    [[nodiscard]] DWORD GetExtendedStyle() const;
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
    /// A position for GetNextSelectedItem; null when no line is selected.
    [[nodiscard]] POSITION GetFirstSelectedItemPosition() const;
    /// Returns the selected line and advances the position; null after the last.
    int GetNextSelectedItem(POSITION& position) const;
    /// Returns the line with the focus; -1 when there is none.
    [[nodiscard]] int GetSelectionMark() const { return GetNextItem(-1, LVNI_FOCUSED); }
    int SetSelectionMark(int index);
    [[nodiscard]] int GetTopIndex() const;
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
