#pragma once

#include "export.h"

#include <afxwin.h>

#include <set>
#include <vector>

// The property list of the attribute windows: categories that collapse, below them items with a name and a
// value. The manager holds what is shown, the control shows it and lets the user edit it in place.

/// An item of the property list.
struct CPropertyItem {
    CString key;  ///< The attribute id and "|".
    CString name; ///< What the user sees.
    CString value;
    std::vector<CString> choices; ///< Values that are offered.
    bool editable = false;        ///< Items that aren't are shown greyed.
    bool freeText = false;        ///< Values other than the choices may be typed in.
    int type = 0;                 ///< kChoiceItem when it offers choices.
    bool changed = false;         ///< The user has changed the value since the list was filled.

    static constexpr int kChoiceItem = 9;
};

/// The categories and items of a property list. Items are counted through all categories, in the order shown.
class ZUCOMN_API CMyAdaptablePropertyItemManager {
public:
    /// A line of the list: the heading of a category, or an item of it.
    struct Row {
        int category = 0;
        int item = -1; ///< -1: the heading.
    };

    CMyAdaptablePropertyItemManager();
    ~CMyAdaptablePropertyItemManager();
    CMyAdaptablePropertyItemManager(const CMyAdaptablePropertyItemManager&) = delete;
    CMyAdaptablePropertyItemManager& operator=(const CMyAdaptablePropertyItemManager&) = delete;

    /// Removes categories and items. A category of the same name that comes again is collapsed if it was.
    void Clear();
    /// Index of the new category.
    int AddCategory(const CString& name);
    /// Adds an item at the end of the last category.
    void AddItem(const CPropertyItem& item);

    [[nodiscard]] const CString& GetCategoryName(int category) const;
    [[nodiscard]] bool IsExpanded(int category) const;
    void SetExpanded(int category, bool expanded);

    [[nodiscard]] int GetItemCount() const;
    [[nodiscard]] const CPropertyItem& GetItem(int item) const;
    /// Index of the item with the key; -1 when there is none.
    [[nodiscard]] int FindItem(const CString& key) const;
    /// False when there is no such item or it has the value already.
    bool SetValue(int item, const CString& value);

    /// What is shown: the headings of categories with items, and the items of those that are expanded.
    [[nodiscard]] const std::vector<Row>& GetRows() const;

private:
    struct Category {
        CString name;
        int firstItem = 0;
    };
    void layOut();

    std::vector<Category> m_categories;
    std::vector<CPropertyItem> m_items;
    std::vector<Row> m_rows;
    std::set<CString> m_collapsed;
};

/// Told to the parent with WM_COMMAND when the user has changed a value.
inline constexpr UINT PLN_VALUECHANGED = 0x0600;

/// The list box that shows a manager's rows: names and values with a bar between them that the user drags
/// (its place is remembered), headings that collapse, editing in place.
///
/// Keys: up and down move, also out of an editor; left and right, space and Enter collapse and expand a
/// heading; Enter, F2 or typing edits a value; Enter and Tab take what was edited, Tab and Shift+Tab go on to
/// the next or previous value, Escape gives it up; F4 or Alt+Down opens the choices. Texts that are cut off
/// have tool tips.
class ZUCOMN_API CPropertyListCtrl : public CListBox {
    DECLARE_DYNCREATE(CPropertyListCtrl)

public:
    CPropertyListCtrl();
    ~CPropertyListCtrl() override;
    BOOL Create(DWORD style, const RECT& rectangle, CWnd* parent, UINT id);

    /// The manager stays the caller's and outlives the control's window.
    void SetManager(CMyAdaptablePropertyItemManager* manager);
    /// Shows the manager's rows as they are now; the selected item stays selected, an open editor is given
    /// up.
    void Refresh();

    /// The selected item; -1 when none is, or a heading.
    [[nodiscard]] int GetSelectedItem() const;
    void SelectItem(int item);

    /// Opens the editor on the selected item. False when it can't be edited.
    bool BeginEdit();
    /// Closes the editor. Accepted values that differ are put into the manager and told to the parent; a
    /// value with "|" is refused with a message, and the editor stays open. True when no editor is open
    /// afterwards.
    bool EndEdit(bool accept);
    [[nodiscard]] bool IsEditing() const;

    void DrawItem(LPDRAWITEMSTRUCT draw) override;
    void MeasureItem(LPMEASUREITEMSTRUCT measure) override;
    BOOL PreTranslateMessage(MSG* message) override;

    /// Where the values begin, from the left.
    [[nodiscard]] int GetDivider() const;

protected:
    std::intptr_t OnToolHitTest(CPoint point, TOOLINFO* tool) const override;
    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override;

    void OnSize(UINT type, int width, int height);
    void OnKeyDown(UINT key, UINT repeat, UINT flags);
    void OnChar(UINT character, UINT repeat, UINT flags);
    void OnMouseMove(UINT flags, CPoint point);
    void OnLButtonDown(UINT flags, CPoint point);
    void OnLButtonUp(UINT flags, CPoint point);
    void OnLButtonDblClk(UINT flags, CPoint point);
    LRESULT OnPicked(WPARAM wParam, LPARAM lParam);
    LRESULT OnClosedUp(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP()

private:
    using Row = CMyAdaptablePropertyItemManager::Row;

    [[nodiscard]] const Row* rowAt(int index) const;
    [[nodiscard]] const CPropertyItem* itemAt(int index) const;
    [[nodiscard]] bool isOnDivider(CPoint point) const;
    [[nodiscard]] CRect valueCell(int index) const;
    void drawHeading(CDC& dc, const CRect& row, const Row& heading, bool selected) const;
    void drawProperty(CDC& dc, const CRect& row, const CPropertyItem& item, bool selected) const;
    void setDivider(int place);
    void setExpanded(int index, bool expanded);
    void placeEditor();
    void openEditor(int index, const CPropertyItem& item);
    void closeEditor();
    [[nodiscard]] CString editedText() const;
    bool onEditorKey(UINT key);
    bool moveSelection(int step);
    void editNeighbour(int step);
    [[nodiscard]] CWnd* editor();

    CMyAdaptablePropertyItemManager* m_manager = nullptr;
    CComboBox m_choices;
    CEdit m_text;
    CFont m_headingFont;
    int m_editedItem = -1;
    int m_divider = 0; ///< 0: not set by the user.
    bool m_isDragging = false;
    bool m_isClosing = false;
    bool m_isDropped = false;
};
