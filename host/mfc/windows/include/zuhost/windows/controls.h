#pragma once

#include "wnd.h"

class CButton : public CWnd {
    DECLARE_DYNCREATE(CButton)

public:
    BOOL Create(const wchar_t* caption, DWORD style, const RECT& rectangle, CWnd* parent, UINT id);

protected:
    [[nodiscard]] QWidget* makeWidget(QWidget* parent, DWORD style) override;
};

/// A line of text to edit. Enter and Escape are left to the parents' PreTranslateMessage.
class CEdit : public CWnd {
    DECLARE_DYNCREATE(CEdit)

public:
    BOOL Create(DWORD style, const RECT& rectangle, CWnd* parent, UINT id);
    /// (0, -1) selects all, (-1, 0) nothing.
    void SetSel(int start, int end, BOOL noScroll = FALSE);
    BOOL SetReadOnly(BOOL readOnly = TRUE);

protected:
    [[nodiscard]] QWidget* makeWidget(QWidget* parent, DWORD style) override;
    void OnKillFocus(CWnd* winner);
    DECLARE_MESSAGE_MAP()
};

/// A list of texts, of which one is selected. With LBS_OWNERDRAWFIXED the class draws the rows itself. Only
/// what the user does is told to the parent.
class CListBox : public CWnd {
    DECLARE_DYNCREATE(CListBox)

public:
    CListBox();
    ~CListBox() override;
    BOOL Create(DWORD style, const RECT& rectangle, CWnd* parent, UINT id);

    [[nodiscard]] int GetCount() const;
    int AddString(const wchar_t* text);
    /// Index of the new item; LB_ERR for an index beyond the end, -1 appends.
    int InsertString(int index, const wchar_t* text);
    /// How many items are left; LB_ERR for one that is not there. Without the selected one none is selected.
    int DeleteString(UINT index);
    void ResetContent();
    int GetText(int index, CString& text) const;
    /// The first item behind `after` (going round at the end) that equals the text, case ignored; LB_ERR when
    /// there is none. FindString takes items that begin with it, the case of ASCII letters ignored.
    [[nodiscard]] int FindStringExact(int after, const wchar_t* text) const;
    [[nodiscard]] int FindString(int after, const wchar_t* text) const;
    [[nodiscard]] std::uintptr_t GetItemData(int index) const;
    int SetItemData(int index, std::uintptr_t data);
    [[nodiscard]] int GetCurSel() const;
    /// -1 selects nothing.
    int SetCurSel(int index);
    [[nodiscard]] int GetTopIndex() const;
    int SetTopIndex(int index);
    int GetItemRect(int index, RECT* rectangle) const;
    [[nodiscard]] UINT ItemFromPoint(CPoint point, BOOL& outside) const;
    int SetItemHeight(int index, UINT height);
    [[nodiscard]] int GetItemHeight(int index) const;

    virtual void DrawItem(LPDRAWITEMSTRUCT draw);
    virtual void MeasureItem(LPMEASUREITEMSTRUCT measure);

protected:
    [[nodiscard]] QWidget* makeWidget(QWidget* parent, DWORD style) override;

private:
    struct Rows;
    std::unique_ptr<Rows> rows_;
};

/// A list to choose a text from, which may be typed in with CBS_DROPDOWN. Texts are searched for without
/// regard to case.
class CComboBox : public CWnd {
    DECLARE_DYNCREATE(CComboBox)

public:
    BOOL Create(DWORD style, const RECT& rectangle, CWnd* parent, UINT id);

    [[nodiscard]] int GetCount() const;
    /// Characters of the item's text; CB_ERR for an item that is not there.
    [[nodiscard]] int GetLBTextLen(int index) const;
    int GetLBText(int index, CString& text) const;
    /// Index of the new item.
    int AddString(const wchar_t* text);
    int InsertString(int index, const wchar_t* text);
    /// How many items are left; CB_ERR for one that is not there. Without the selected one none is selected.
    int DeleteString(UINT index);
    void ResetContent();
    /// The first item behind `after` (going round at the end) that equals the text; CB_ERR when there is
    /// none. FindString takes items that begin with it, the case of ASCII letters ignored.
    [[nodiscard]] int FindStringExact(int after, const wchar_t* text) const;
    [[nodiscard]] int FindString(int after, const wchar_t* text) const;
    [[nodiscard]] int GetCurSel() const;
    int SetCurSel(int index);
    void ShowDropDown(BOOL show = TRUE);
    [[nodiscard]] BOOL GetDroppedState() const;
    /// (0, -1) selects all of the text that may be typed in.
    void SetEditSel(int start, int end);

protected:
    [[nodiscard]] QWidget* makeWidget(QWidget* parent, DWORD style) override;
    void OnKillFocus(CWnd* winner);
    DECLARE_MESSAGE_MAP()
};
