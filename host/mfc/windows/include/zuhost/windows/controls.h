#pragma once

#include "wnd.h"

class CButton : public CWnd {
    DECLARE_DYNCREATE(CButton)

public:
    BOOL Create(const wchar_t* caption, DWORD style, const RECT& rectangle, CWnd* parent, UINT id);

protected:
    [[nodiscard]] QWidget* makeWidget(QWidget* parent, DWORD style) override;
};

/// A single-line text field. The parents handle Enter and Escape in PreTranslateMessage.
class CEdit : public CWnd {
    DECLARE_DYNCREATE(CEdit)

public:
    BOOL Create(DWORD style, const RECT& rectangle, CWnd* parent, UINT id);
    /// (0, -1) selects all, (-1, 0) nothing.
    void SetSel(int start, int end, BOOL noScroll = FALSE);
    BOOL SetReadOnly(BOOL readOnly = TRUE);
    /// Sets a text that the field shows while it is empty.
    BOOL SetCueBanner(const wchar_t* text);

protected:
    [[nodiscard]] QWidget* makeWidget(QWidget* parent, DWORD style) override;
    void OnKillFocus(CWnd* newFocus);
    DECLARE_MESSAGE_MAP()
};

/// A list of texts with at most one selected. With LBS_OWNERDRAWFIXED the class draws the rows itself. The
/// parent is notified of changes by the user only.
class CListBox : public CWnd {
    DECLARE_DYNCREATE(CListBox)

public:
    CListBox();
    ~CListBox() override;
    BOOL Create(DWORD style, const RECT& rectangle, CWnd* parent, UINT id);

    [[nodiscard]] int GetCount() const;
    int AddString(const wchar_t* text);
    /// Returns the index of the new item; LB_ERR for an index past the end. Index -1 appends.
    int InsertString(int index, const wchar_t* text);
    /// Returns the number of items left; LB_ERR when there is no such item. Deleting the selected item leaves
    /// none selected.
    int DeleteString(UINT index);
    void ResetContent();
    int GetText(int index, CString& text) const;
    /// Returns the first item after `after`, wrapping at the end, that equals the text, ignoring case; LB_ERR
    /// when there is none. FindString matches items that begin with the text, ignoring the case of ASCII
    /// letters only.
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

/// A drop-down list of texts. With CBS_DROPDOWN a text can also be typed in. With CBS_OWNERDRAWFIXED the
/// class draws the rows of the open list itself.
class CComboBox : public CWnd {
    DECLARE_DYNCREATE(CComboBox)

public:
    BOOL Create(DWORD style, const RECT& rectangle, CWnd* parent, UINT id);

    [[nodiscard]] int GetCount() const;
    /// Returns the length of the item's text in characters; CB_ERR when there is no such item.
    [[nodiscard]] int GetLBTextLen(int index) const;
    int GetLBText(int index, CString& text) const;
    /// Returns the index of the new item.
    int AddString(const wchar_t* text);
    /// Returns the index of the new item; CB_ERR for an index past the end. Index -1 appends.
    int InsertString(int index, const wchar_t* text);
    /// Returns the number of items left; CB_ERR when there is no such item. Deleting the selected item leaves
    /// none selected.
    int DeleteString(UINT index);
    void ResetContent();
    /// Returns the first item after `after`, wrapping at the end, that equals the text, ignoring case; CB_ERR
    /// when there is none. FindString matches items that begin with the text, ignoring the case of ASCII
    /// letters only.
    [[nodiscard]] int FindStringExact(int after, const wchar_t* text) const;
    [[nodiscard]] int FindString(int after, const wchar_t* text) const;
    [[nodiscard]] int GetCurSel() const;
    int SetCurSel(int index);
    void ShowDropDown(BOOL show = TRUE);
    [[nodiscard]] BOOL GetDroppedState() const;
    /// Selects in the text field of CBS_DROPDOWN; (0, -1) selects all.
    void SetEditSel(int start, int end);
    /// Sets the least width of the open list in pixels; it is never narrower than the box.
    int SetDroppedWidth(UINT width);

    virtual void DrawItem(LPDRAWITEMSTRUCT draw);
    virtual void MeasureItem(LPMEASUREITEMSTRUCT measure);

protected:
    [[nodiscard]] QWidget* makeWidget(QWidget* parent, DWORD style) override;
    void OnKillFocus(CWnd* newFocus);
    DECLARE_MESSAGE_MAP()
};
