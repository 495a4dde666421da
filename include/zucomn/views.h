#pragma once

#include "property_list.h"

#include <acarray.h>
#include <afxext.h>
#include <dbid.h>

#include <memory>
#include <vector>

namespace zu {
class AttributePane;
class EntityList;
class PaneSplitter;
} // namespace zu

class CEntView;
class CEntView_ZU;
class CAttView_ZU;

// The attribute window: a frame with a list of entities on the left and the attributes of the selected ones
// on the right. Create frames with new and Create; a frame creates its views. Frames and views delete
// themselves with their windows. The _ZU classes behave like those without the suffix.

/// Shows attributes as a property list (control 3002) in which the user edits values. The view does not write
/// them back; see CEntView::OnUpdateAttributes.
///
/// Items that all shown entities have are in the category "共通", the others in "一般", sorted by attribute
/// id. Strings without an id and repeated ids of one record are skipped.
///
/// An item is editable when the parameter table marks its id so; others are greyed. The table also lists the
/// texts that an item offers: all of its id, except that an item whose value begins with "E" is not offered
/// texts of kind "A" or "P", and one whose value begins with "A" or "P" none of kind "E". "S501" is offered
/// all kinds. The user may type any value when an offered text is empty or none is offered.
///
/// The title and parameter tables are read when the first view is created, and again for each later view
/// while they are missing. A line at the top says what is missing. Items without a title have the label of
/// their record, else their id as name; without the parameter table there are no choices, and the records'
/// own marks make items editable.
///
/// Items are greyed when all shown entities are on locked layers; a line at the top says how many are.
class ZUCOMN_API CAttView : public CView {
    DECLARE_DYNCREATE(CAttView)

public:
    /// Shows an entity's attributes and appends the keys of the items to `keys`, which may be null, in
    /// display order.
    void AddListView(AcDbObjectId entity, CStringArray* keys);
    /// Shows the attributes of several entities; values that differ among them are shown as "*各種*".
    /// Entities without attributes are skipped.
    void AddListView(const AcArray<AcDbObjectId>& entities, CStringArray* keys);
    /// Shows the attribute file of a part, see CAttributeData::ReadData; an empty list when there is none.
    void AddGrid(const wchar_t* partFile, CStringArray* keys);

    /// Appends the key (the attribute id and "|") and the value of the selected row. Returns 0, or -1 with
    /// nothing appended when no row is selected or its key or value is empty.
    int GetAttSel(CStringArray& keys, CStringArray& values);
    /// Appends the keys and values of all items in display order.
    void GetAttAll(CStringArray& keys, CStringArray& values);
    /// Sets the value of the item with the key, given without "|"; does nothing when there is none or the
    /// value contains "|" or a line end.
    void SetValue(const wchar_t* key, const wchar_t* value);
    /// Compares items by attribute id, whose digits compare as numbers. Returns a value below, equal to or
    /// above 0.
    static int SortCompare(const CPropertyItem& left, const CPropertyItem& right);

    /// Returns the pane that implements the view; for the library's own use.
    [[nodiscard]] zu::AttributePane& pane() { return *m_pane; }

protected:
    CAttView();
    ~CAttView() override;

    void OnDraw(CDC* dc) override;
    int OnCreate(LPCREATESTRUCT create);
    void OnSize(UINT type, int width, int height);
    DECLARE_MESSAGE_MAP()

private:
    void showPendingSelection() const;

    std::unique_ptr<zu::AttributePane> m_pane;
};

/// Behaves as CAttView.
class ZUCOMN_API CAttView_ZU : public CAttView {
    DECLARE_DYNCREATE(CAttView_ZU)

protected:
    CAttView_ZU();
    ~CAttView_ZU() override;
};

/// A group of entities under one title in the entity view.
struct CEntityGroup {
    /// A row of the group: the texts of its columns, of which there is at least one, and its entity.
    struct Row {
        std::shared_ptr<CStringArray> columns;
        AcDbObjectId entity;
        bool locked = false; ///< On a locked layer: greyed, with a lock.
    };
    CString title;
    std::vector<Row> rows;
};

/// A list of entities in groups (control 3003): one line per group with a line per row below it. The button
/// "修正／一括修正" (control 3001) above the list writes the values of the attribute view to the selected
/// entities.
///
/// Groups collapse and expand; initially only the first is expanded. The attribute view shows the entities of
/// all selected lines together; the line of a group stands for all of its rows.
class ZUCOMN_API CEntView : public CView {
    DECLARE_DYNCREATE(CEntView)

public:
    /// Sets the groups to show and empties the list; call AddListView to fill it.
    void SetGroups(std::vector<CEntityGroup> groups);
    /// Shows entities in groups: block references by block, other entities by class. The title is that name
    /// with the number of rows; each row shows mark and part name of the attribute record, layer and handle.
    /// Entities that cannot be opened are skipped.
    void SetEntities(const AcArray<AcDbObjectId>& entities);

    /// Fills the list from the groups and selects the first one. Throws the framework's invalid-argument
    /// exception for a row without columns.
    void AddListView();
    /// Refills the attribute view from the selected lines.
    void Synchronise();
    /// Refills the attribute view now if a change of the selection is still to be shown. The functions of the
    /// attribute view that read values call it.
    void CompleteUpdate();
    /// Returns the entities of the selected rows in list order, each row once.
    [[nodiscard]] AcArray<AcDbObjectId> GetSelectedEntities() const;
    /// Writes the attribute view's changed values to the selected entities, see CAView::OnUpdateAttributes,
    /// and refreshes the attribute view. Without message boxes, the frame's status line says how many
    /// entities were changed and skipped. Does nothing when the edited value cannot be accepted.
    void OnUpdateAttributes();

    /// Shows only the groups and rows that contain the text, ignoring case, or all when none does or the text
    /// is empty. Returns how many rows contain it.
    std::size_t Filter(const CString& text);
    /// Selects the rows of the entities and no others, expanding their groups. Does nothing when none is in
    /// the list.
    void Select(const AcArray<AcDbObjectId>& entities);
    /// Selects every line.
    void SelectAll();
    /// Gives the list the keyboard.
    void FocusList();

    /// Returns field n, counted from 1, of a "|"-separated text: empty for n < 1, the text after the last "|"
    /// when fewer than n fields end in "|".
    static CString GetAttDetails(const CString& text, int n);
    /// Returns true when the fourth field of the text begins with "1".
    static bool IsUpdateEnable(const CString& text);
    /// Copies column 1 of the first record (CStringArray) whose columns 0 and 2 equal `first` and `third`,
    /// ignoring case. Returns false with `code` untouched when there is none.
    static bool GetAttIDCode(CString& code, const CPtrArray& table, const CString& first,
                             const CString& third);

protected:
    CEntView();
    ~CEntView() override;

    void OnDraw(CDC* dc) override;
    int OnCreate(LPCREATESTRUCT create);
    void OnSize(UINT type, int width, int height);
    void OnItemchanged(NMHDR* header, LRESULT* result);
    LRESULT OnSynchronise(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP()

private:
    CButton m_button;
    std::unique_ptr<zu::EntityList> m_list;
    bool m_synchronises = false;
};

/// Behaves as CEntView.
class ZUCOMN_API CEntView_ZU : public CEntView {
    DECLARE_DYNCREATE(CEntView_ZU)

protected:
    CEntView_ZU();
    ~CEntView_ZU() override;
};

/// The frame of the attribute window, with a search box above the panes and a status line below them. The
/// text in the search box filters each list in which it occurs. The width of the left pane is saved in the
/// user's profile.
///
/// Ctrl+F goes to the search box, where Escape empties it, and Enter and Down go to the list. Ctrl+Enter
/// writes the changed values. Ctrl+Z and Ctrl+Y run the host's undo and redo commands and refresh the
/// attribute view; an open editor and the search box handle these keys themselves.
class ZUCOMN_API CAttFrameWnd : public CFrameWnd {
    DECLARE_DYNCREATE(CAttFrameWnd)

public:
    CAttFrameWnd();
    ~CAttFrameWnd() override;

    /// The views of the frame; null before it is created.
    /// @{
    [[nodiscard]] CEntView* GetLeftPane() const;
    [[nodiscard]] CAttView* GetRightPane() const;
    /// @}

    /// The text of the status line.
    /// @{
    void SetStatus(const CString& text);
    [[nodiscard]] CString GetStatus() const;
    /// @}
    /// Sets the width of the left pane unless the user has changed it.
    void SetPaneWidth(int width);
    /// Called after the attribute view has been filled with the selected entities. Does nothing; for windows
    /// that show the selection elsewhere too.
    virtual void OnSelection(const AcArray<AcDbObjectId>& /*entities*/) {}

    BOOL PreTranslateMessage(MSG* message) override;

protected:
    BOOL OnCreateClient(LPCREATESTRUCT create, CCreateContext* context) override;
    void OnSearch();
    void OnDestroy();
    DECLARE_MESSAGE_MAP()

    /// The classes of the views that the frame creates.
    /// @{
    [[nodiscard]] virtual const CRuntimeClass* leftClass() const;
    [[nodiscard]] virtual const CRuntimeClass* rightClass() const;
    /// @}
    /// Returns the window of a pane; null before it is created.
    [[nodiscard]] CWnd* paneAt(int column) const;

    std::unique_ptr<zu::PaneSplitter> m_splitter;

private:
    bool createBars();
    bool onSearchKey(UINT key);
    bool runsCommand(UINT key);

    CReBar m_bar;
    CEdit m_search;
    CStatusBar m_status;
};

/// Behaves as CAttFrameWnd, with the _ZU views.
class ZUCOMN_API CAttFrameWnd_ZU : public CAttFrameWnd {
    DECLARE_DYNCREATE(CAttFrameWnd_ZU)

public:
    CAttFrameWnd_ZU();
    ~CAttFrameWnd_ZU() override;

    /// The views of the frame; null before it is created.
    /// @{
    [[nodiscard]] CEntView_ZU* GetLeftPane() const;
    [[nodiscard]] CAttView_ZU* GetRightPane() const;
    /// @}

protected:
    [[nodiscard]] const CRuntimeClass* leftClass() const override;
    [[nodiscard]] const CRuntimeClass* rightClass() const override;
};

/// A property list (control 3002) that edits the attributes of one or several entities: each value that the
/// user changes is written to all of them immediately.
class ZUCOMN_API CAView : public CView {
    DECLARE_DYNCREATE(CAView)

public:
    /// Shows the attributes as CAttView does; OnUpdateAttributes then writes to these entities.
    /// @{
    void AddListView(AcDbObjectId entity, CStringArray* keys);
    void AddListView(const AcArray<AcDbObjectId>& entities, CStringArray* keys);
    /// @}
    /// Shows a part as CAttView does; OnUpdateAttributes then writes to no entity.
    void AddGrid(const wchar_t* partFile, CStringArray* keys);
    /// These functions work as those of CAttView.
    /// @{
    int GetAttSel(CStringArray& keys, CStringArray& values);
    void GetAttAll(CStringArray& keys, CStringArray& values);
    void SetValue(const wchar_t* key, const wchar_t* value);
    static int SortCompare(const CPropertyItem& left, const CPropertyItem& right);
    /// @}

    /// These functions work as those of CEntView.
    /// @{
    static CString GetAttDetails(const CString& text, int n);
    static bool GetAttIDCode(CString& code, const CPtrArray& table, const CString& first,
                             const CString& third);
    static bool IsUpdateEnable(const CString& text);
    /// @}

    /// Opens the editor of the selected item when the item offers choices. Returns 1.
    long OnSelChangeList(WPARAM wParam, LPARAM lParam);
    /// Accepts an edit in progress, writes the changed values of the list to the "ZU_ATTR" records of all
    /// entities as one undo step, then sends the command "ZU_ATTREDIT_SEC3D" to the host, which updates
    /// dependent section drawings. Does nothing when the edited value cannot be accepted.
    ///
    /// Skips entities that cannot be opened or are on a locked layer (a message box names the layer), items
    /// that an entity lacks or that are not editable, and the value "*各種*". Writes nothing when the
    /// settings or the parameter table cannot be read. Reports on the command line how many changed entities
    /// have a mounting height ("S401") that is not a number, because section drawings cannot place them.
    void OnUpdateAttributes();
    /// Returns nonzero when the entity's layer is locked, after a message box with the layer's name; else 0.
    static int layerLockState(AcDbObjectId entity);

protected:
    CAView();
    ~CAView() override;

    void OnDraw(CDC* dc) override;
    int OnCreate(LPCREATESTRUCT create);
    void OnSize(UINT type, int width, int height);
    void OnSelected();
    DECLARE_MESSAGE_MAP()

private:
    std::unique_ptr<zu::AttributePane> m_pane;
    AcArray<AcDbObjectId> m_entities;
    bool m_isUpdating = false;
};
