#pragma once

#include "export.h"

#include <afxwin.h>

#include <memory>
#include <set>
#include <vector>

namespace zu {
class ChoiceBox;
}

// The property list of the attribute windows: collapsible categories of items with a name and a value. The
// manager holds the items; the control displays them and edits values in place.

/// An item of the property list.
struct CPropertyItem {
    CString key;  ///< The attribute id and "|"; empty for items that only inform.
    CString name; ///< Display name.
    CString value;
    std::vector<CString> choices; ///< Values offered in the drop-down list.
    bool editable = false;        ///< Items that cannot be edited are greyed.
    bool freeText = false;        ///< The user may type values other than the choices.
    int type = 0;                 ///< kChoiceItem when the item has choices, else 0.
    bool changed = false;         ///< The value is not the one that the item was added with.
    CString original;             ///< The value that the item was added with; set by the manager.

    static constexpr int kChoiceItem = 9;
};

/// The categories and items of a property list. Item indexes run from 0 through all categories in display
/// order. An index out of range throws the framework's invalid-argument exception, except where stated.
class ZUCOMN_API CMyAdaptablePropertyItemManager {
public:
    /// A row of the list: a notice, the heading of a category, or one of its items.
    struct Row {
        int category = 0; ///< -1 for a notice.
        int item = -1;    ///< -1 for a heading; the index of a notice.
    };

    CMyAdaptablePropertyItemManager();
    ~CMyAdaptablePropertyItemManager();
    CMyAdaptablePropertyItemManager(const CMyAdaptablePropertyItemManager&) = delete;
    CMyAdaptablePropertyItemManager& operator=(const CMyAdaptablePropertyItemManager&) = delete;

    /// Removes all notices, categories and items. Collapsed categories are remembered by name for later
    /// additions, and the filter stays.
    void Clear();
    /// Appends a line of text above the categories.
    void AddNotice(const CString& text);
    /// Returns a notice.
    [[nodiscard]] const CString& GetNotice(int notice) const;
    /// Appends a category and returns its index.
    int AddCategory(const CString& name);
    /// Appends an item to the last category; throws when there is none.
    void AddItem(const CPropertyItem& item);

    /// Returns the name of a category.
    [[nodiscard]] const CString& GetCategoryName(int category) const;
    /// Returns true when the items of a category are visible.
    [[nodiscard]] bool IsExpanded(int category) const;
    /// Expands or collapses a category.
    void SetExpanded(int category, bool expanded);

    /// Returns the number of items in all categories.
    [[nodiscard]] int GetItemCount() const;
    /// Returns an item; valid until the items change.
    [[nodiscard]] const CPropertyItem& GetItem(int item) const;
    /// Returns the index of the first item with the key; -1 when there is none.
    [[nodiscard]] int FindItem(const CString& key) const;
    /// Sets an item's value. Returns false when there is no such item, it already has the value, or the value
    /// contains "|" or a line end, which no record can hold.
    bool SetValue(int item, const CString& value);
    /// Restores the value that the item was added with. Returns false when there is no such item or it is not
    /// changed.
    bool RestoreValue(int item);

    /// Hides the items whose name and value do not contain the text, ignoring case, and expands all
    /// categories while the text is not empty.
    void SetFilter(const CString& text);
    /// Returns how many items with a key a filter would show.
    [[nodiscard]] int CountMatches(const CString& text) const;

    /// Returns the visible rows: the notices, the headings of categories with visible items, and the items of
    /// expanded ones.
    [[nodiscard]] const std::vector<Row>& GetRows() const;

private:
    struct Category {
        CString name;
        int firstItem = 0;
    };
    [[nodiscard]] static bool matches(const CPropertyItem& item, const CString& text);
    void appendRow(int category, int item);
    void rebuildRows();

    std::vector<CString> m_notices;
    CString m_filter;
    std::vector<Category> m_categories;
    std::vector<CPropertyItem> m_items;
    std::vector<Row> m_rows;
    std::set<CString> m_collapsed;
};

/// Notification code, sent to the parent by WM_COMMAND, after the user changed a value.
inline constexpr UINT PLN_VALUECHANGED = 0x0600;

/// Owner-drawn list box that displays a manager's rows: names and values with a divider between them that the
/// user drags (its position is saved in the user's profile), collapsible headings, editing in place.
///
/// Keys: Up and Down move the selection, also from an open editor. Left, Right, Space and Enter collapse and
/// expand a heading. Enter, F2 or typing starts editing. In an editor, Enter and Tab accept the value, Tab
/// and Shift+Tab continue with the next or previous editable value, Escape cancels; F4 or Alt+Down opens the
/// choices, among which the current value is always listed, marked and selected. A changed item is bold with
/// a coloured edge; Escape on it restores the value that it had. Truncated texts have tool tips.
class ZUCOMN_API CPropertyListCtrl : public CListBox {
    DECLARE_DYNCREATE(CPropertyListCtrl)

public:
    CPropertyListCtrl();
    ~CPropertyListCtrl() override;
    /// Creates the control with LBS_OWNERDRAWFIXED among the styles, and restores the position of the
    /// divider.
    BOOL Create(DWORD style, const RECT& rectangle, CWnd* parent, UINT id);

    /// Sets the manager and refreshes the list. The caller keeps ownership; the manager must outlive the
    /// control's window. Null empties the list.
    void SetManager(CMyAdaptablePropertyItemManager* manager);
    /// Reloads the manager's rows. Keeps the selection and cancels an open editor.
    void Refresh();

    /// Returns the index of the selected item; -1 when nothing or a heading is selected.
    [[nodiscard]] int GetSelectedItem() const;
    /// Selects the row of an item; does nothing when the item is not visible.
    void SelectItem(int item);

    /// Opens the editor on the selected item. Returns false when the item cannot be edited, or when another
    /// editor cannot be closed.
    bool BeginEdit();
    /// Closes the editor. With `accept`, a changed value is stored in the manager and the parent is notified
    /// by PLN_VALUECHANGED; a value that contains "|" or a line end shows a message and leaves the editor
    /// open. Returns true when no editor is open afterwards.
    bool EndEdit(bool accept);
    /// Returns true while an editor is open.
    [[nodiscard]] bool IsEditing() const;

    void DrawItem(LPDRAWITEMSTRUCT draw) override;
    void MeasureItem(LPMEASUREITEMSTRUCT measure) override;
    BOOL PreTranslateMessage(MSG* message) override;

    /// Returns the position of the divider in pixels from the left edge.
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

    // Posted messages: accepting a value destroys the combo box that sends the notification, and the list
    // closes before the combo box reports the picked item.
    static constexpr UINT kPicked = WM_APP;
    static constexpr UINT kClosedUp = WM_APP + 1;

    [[nodiscard]] const Row* rowAt(int index) const;
    [[nodiscard]] const CPropertyItem* itemAt(int index) const;
    [[nodiscard]] bool isHeading(int index) const;
    [[nodiscard]] bool isOnDivider(CPoint point) const;
    [[nodiscard]] CRect valueCell(int index) const;
    void drawNotice(CDC& dc, const CRect& row, const CString& notice, bool selected) const;
    void drawHeading(CDC& dc, const CRect& row, const Row& heading, bool selected) const;
    void drawProperty(CDC& dc, const CRect& row, const CPropertyItem& item, bool selected) const;
    void setDivider(int position);
    void setExpanded(int index, bool expanded);
    void placeEditor();
    void openEditor(int index, const CPropertyItem& item);
    void closeEditor();
    bool restoreValue();
    [[nodiscard]] CString editedText() const;
    bool onEditorKey(UINT key);
    bool moveSelection(int step);
    void editNeighbour(int step);
    [[nodiscard]] CWnd* editor();

    CMyAdaptablePropertyItemManager* m_manager = nullptr;
    std::unique_ptr<zu::ChoiceBox> m_choices;
    CEdit m_text;
    CFont m_headingFont;
    int m_editedItem = -1;
    int m_divider = 0; ///< Pixels from the left; 0 until the user moves it.
    bool m_isDragging = false;
    bool m_isClosing = false;
    bool m_isDropped = false;
};
