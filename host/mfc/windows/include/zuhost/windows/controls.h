#pragma once

#include "wnd.h"

#include <zuhost/platform/export.h>

/// A push button, check box, radio button or group box, by its style. Radio buttons of one parent form a
/// group.
class ZUHOST_API CButton : public CWnd {
    DECLARE_DYNCREATE(CButton)

public:
    BOOL Create(const wchar_t* caption, DWORD style, const RECT& rectangle, CWnd* parent, UINT id);
    /// BST_UNCHECKED, BST_CHECKED or BST_INDETERMINATE.
    [[nodiscard]] int GetCheck() const;
    void SetCheck(int check);

protected:
    [[nodiscard]] QWidget* makeWidget(QWidget* parent, DWORD style) override;
};

/// A text that the user can't edit.
class ZUHOST_API CStatic : public CWnd {
    DECLARE_DYNCREATE(CStatic)

public:
    BOOL Create(const wchar_t* text, DWORD style, const RECT& rectangle, CWnd* parent, UINT id = 0xFFFF);

protected:
    [[nodiscard]] QWidget* makeWidget(QWidget* parent, DWORD style) override;
};

/// A single-line text field. The parents handle Enter and Escape in PreTranslateMessage.
class ZUHOST_API CEdit : public CWnd {
    DECLARE_DYNCREATE(CEdit)

public:
    BOOL Create(DWORD style, const RECT& rectangle, CWnd* parent, UINT id);
    /// (0, -1) selects all, (-1, 0) nothing.
    void SetSel(int start, int end, BOOL noScroll = FALSE);
    void GetSel(int& start, int& end) const;
    /// Returns the start in the low word, the end in the high one.
    [[nodiscard]] DWORD GetSel() const;
    /// Replaces the selection, or inserts at the cursor.
    void ReplaceSel(const wchar_t* text, BOOL canUndo = FALSE);
    /// 0 allows 32767 characters.
    void SetLimitText(UINT count);
    void LimitText(int count = 0) { SetLimitText(static_cast<UINT>(std::max(count, 0))); }
    [[nodiscard]] UINT GetLimitText() const;
    /// Whether the user has edited the text since it was set.
    [[nodiscard]] BOOL GetModify() const;
    void SetModify(BOOL modified = TRUE);
    [[nodiscard]] BOOL CanUndo() const;
    BOOL Undo();
    void Clear();
    void Copy();
    void Cut();
    void Paste();
    BOOL SetReadOnly(BOOL readOnly = TRUE);
    /// Sets a text that the field shows while it is empty.
    BOOL SetCueBanner(const wchar_t* text);

protected:
    [[nodiscard]] QWidget* makeWidget(QWidget* parent, DWORD style) override;
    void OnKillFocus(CWnd* newFocus);
    DECLARE_MESSAGE_MAP()
};

/// A list of texts with at most one selected, or several with LBS_MULTIPLESEL or LBS_EXTENDEDSEL. With
/// LBS_OWNERDRAWFIXED the class draws the rows itself. The parent is notified of changes by the user only.
class ZUHOST_API CListBox : public CWnd {
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
    /// The buffer has room for GetTextLen characters and the final zero.
    int GetText(int index, wchar_t* text) const;
    [[nodiscard]] int GetTextLen(int index) const;
    /// Selects the first item after `after` that begins with the text; LB_ERR when there is none.
    int SelectString(int after, const wchar_t* text);

    /// Returns whether the item is selected, as 1 or 0; LB_ERR when there is no such item.
    [[nodiscard]] int GetSel(int index) const;
    // For lists that allow several; LB_ERR for others. Index -1 sets all items.
    int SetSel(int index, BOOL select = TRUE);
    [[nodiscard]] int GetSelCount() const;
    int GetSelItems(int most, int* indices) const;
    /// Returns the first item after `after`, wrapping at the end, that equals the text, ignoring case; LB_ERR
    /// when there is none. FindString matches items that begin with the text, ignoring the case of ASCII
    /// letters only.
    [[nodiscard]] int FindStringExact(int after, const wchar_t* text) const;
    [[nodiscard]] int FindString(int after, const wchar_t* text) const;
    [[nodiscard]] std::uintptr_t GetItemData(int index) const;
    int SetItemData(int index, std::uintptr_t data);
    [[nodiscard]] void* GetItemDataPtr(int index) const {
        return reinterpret_cast<void*>(GetItemData(index)); // NOLINT(performance-no-int-to-ptr)
    }
    int SetItemDataPtr(int index, void* data) {
        return SetItemData(index, reinterpret_cast<std::uintptr_t>(data));
    }
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
    [[nodiscard]] bool isMultiple() const;

    struct Rows;
    std::unique_ptr<Rows> rows_;
};

/// A drop-down list of texts. With CBS_DROPDOWN a text can also be typed in. With CBS_OWNERDRAWFIXED the
/// class draws the rows of the open list itself.
class ZUHOST_API CComboBox : public CWnd {
    DECLARE_DYNCREATE(CComboBox)

public:
    BOOL Create(DWORD style, const RECT& rectangle, CWnd* parent, UINT id);

    [[nodiscard]] int GetCount() const;
    /// Returns the length of the item's text in characters; CB_ERR when there is no such item.
    [[nodiscard]] int GetLBTextLen(int index) const;
    int GetLBText(int index, CString& text) const;
    /// The buffer has room for GetLBTextLen characters and the final zero.
    int GetLBText(int index, wchar_t* text) const;
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
    /// Selects the first item after `after` that begins with the text; CB_ERR when there is none.
    int SelectString(int after, const wchar_t* text);
    [[nodiscard]] DWORD_PTR GetItemData(int index) const;
    int SetItemData(int index, DWORD_PTR data);
    [[nodiscard]] void* GetItemDataPtr(int index) const {
        return reinterpret_cast<void*>(GetItemData(index)); // NOLINT(performance-no-int-to-ptr)
    }
    int SetItemDataPtr(int index, void* data) {
        return SetItemData(index, reinterpret_cast<DWORD_PTR>(data));
    }
    [[nodiscard]] int GetCurSel() const;
    int SetCurSel(int index);
    void ShowDropDown(BOOL show = TRUE);
    [[nodiscard]] BOOL GetDroppedState() const;
    /// Selects in the text field of CBS_DROPDOWN; (0, -1) selects all.
    void SetEditSel(int start, int end);
    /// Returns the start in the low word, the end in the high one; CB_ERR without a text field.
    [[nodiscard]] DWORD GetEditSel() const;
    /// 0 allows 32767 characters.
    BOOL LimitText(int count);
    /// Sets the least width of the open list in pixels; it is never narrower than the box.
    int SetDroppedWidth(UINT width);

    virtual void DrawItem(LPDRAWITEMSTRUCT draw);
    virtual void MeasureItem(LPMEASUREITEMSTRUCT measure);

protected:
    [[nodiscard]] QWidget* makeWidget(QWidget* parent, DWORD style) override;
    void OnKillFocus(CWnd* newFocus);
    DECLARE_MESSAGE_MAP()
};
