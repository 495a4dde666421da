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
} // namespace zu

class CEntView;
class CEntView_ZU;
class CAttView_ZU;

// The attribute window: a frame with the entities whose attributes are edited on the left and their
// attributes on the right. Frames are made with new and Create, views by their frame; all delete themselves
// with their windows. The classes with _ZU behave as those without.

/// Shows attributes as a property list (control 3002) with the categories "共通" and "一般" and keeps the
/// values that the user picks; what becomes of them is others' business.
///
/// Items stand in the category "共通" when every entity shown has them, else in "一般", ordered by attribute
/// id; strings without an id and an id's second occurrence in one record are left out. An item can be edited
/// when the parameter table marks its id so, others are greyed. It offers the texts of the parameter table
/// for its id, an item whose value begins with "E" those of all kinds but "A" and "P", one that begins with
/// "A" or "P" those of all kinds but "E"; "S501" offers all. An empty text among them, or none at all, lets
/// the user type a value. The tables are read when the first view is made, missing ones with each later view;
/// without settings or tables the list has neither names nor choices.
class ZUCOMN_API CAttView : public CView {
    DECLARE_DYNCREATE(CAttView)

public:
    /// Shows an entity's attributes. `keys` (may be null) receives the keys of the items, in the order shown.
    void AddListView(AcDbObjectId entity, CStringArray* keys);
    /// Shows the attributes of several entities; a value that is not the same on all that have the item is
    /// "*各種*". Entities without attributes are passed over.
    void AddListView(const AcArray<AcDbObjectId>& entities, CStringArray* keys);
    /// Shows the attribute file of a part, see CAttributeData::ReadData.
    void AddGrid(const wchar_t* partFile, CStringArray* keys);

    /// Appends key (the attribute id and "|") and value of the selected row. 0, or -1 with nothing appended
    /// when no row is selected, or one without key or value.
    int GetAttSel(CStringArray& keys, CStringArray& values);
    /// Appends key and value of every item, in the order shown.
    void GetAttAll(CStringArray& keys, CStringArray& values);
    /// Sets the value of the item with the key, given without "|"; nothing happens when there is none.
    void SetValue(const wchar_t* key, const wchar_t* value);
    /// Orders items by attribute id: letters first, then the number. Below, at or above 0.
    static int SortCompare(const CPropertyItem& left, const CPropertyItem& right);

    [[nodiscard]] zu::AttributePane& pane() { return *m_pane; }

protected:
    CAttView();
    ~CAttView() override;

    void OnDraw(CDC* dc) override;
    int OnCreate(LPCREATESTRUCT create);
    void OnSize(UINT type, int width, int height);
    DECLARE_MESSAGE_MAP()

private:
    std::unique_ptr<zu::AttributePane> m_pane;
};

class ZUCOMN_API CAttView_ZU : public CAttView {
    DECLARE_DYNCREATE(CAttView_ZU)

protected:
    CAttView_ZU();
    ~CAttView_ZU() override;
};

/// Several entities under one title in the entity view.
struct CEntityGroup {
    /// A line of the group: the texts of its columns (the first is what the line shows) and its entity.
    struct Row {
        std::shared_ptr<CStringArray> columns;
        AcDbObjectId entity;
    };
    CString title;
    std::vector<Row> rows;
};

/// Lists entities in groups: a line for each group, its rows beneath it (control 3003), and above them the
/// button "修正／一括修正" (control 3001), which writes the values of the attribute view to the selected
/// entities.
///
/// The lines of a group fold away with its own; only the first group is unfolded at first. The attribute view
/// shows the entities of all selected lines at once, a group's line standing for all of its rows.
class ZUCOMN_API CEntView : public CView {
    DECLARE_DYNCREATE(CEntView)

public:
    /// Takes the groups to show; AddListView then shows them.
    void SetGroups(std::vector<CEntityGroup> groups);
    /// Shows entities: block references with the same block form a group, titled with the block's name and
    /// their number, other entities one by the name of their class; each row shows the handle and the layer.
    /// Entities that can't be opened are left out.
    void SetEntities(const AcArray<AcDbObjectId>& entities);

    /// Fills the list from the groups. Throws the framework's invalid-argument exception for a row without a
    /// column.
    void AddListView();
    /// Fills the attribute view anew from the selected lines.
    void Synchronise();
    /// The entities of the selected lines, each once, in the order of the list.
    [[nodiscard]] AcArray<AcDbObjectId> GetSelectedEntities() const;
    /// Writes the attribute view's values to the selected entities, one undo step, and shows what they have
    /// now. See CAView::OnUpdateAttributes.
    void OnUpdateAttributes();

    /// The n-th field, counted from 1, of a "|"-separated text. Empty for n below 1; the text behind the last
    /// "|" when fewer than n fields end in "|".
    static CString GetAttDetails(const CString& text, int n);
    /// True when the fourth field of the text begins with "1".
    static bool IsUpdateEnable(const CString& text);
    /// Column 1 of the first record (CStringArray) whose columns 0 and 2 equal the texts, case ignored.
    /// False, with `code` untouched, when there is none.
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

class ZUCOMN_API CEntView_ZU : public CEntView {
    DECLARE_DYNCREATE(CEntView_ZU)

protected:
    CEntView_ZU();
    ~CEntView_ZU() override;
};

/// The attribute window. Ctrl+Z and Ctrl+Y run the host's undo and redo commands and show what the entities
/// have then; while a value is edited they are the editor's.
class ZUCOMN_API CAttFrameWnd : public CFrameWnd {
    DECLARE_DYNCREATE(CAttFrameWnd)

public:
    CAttFrameWnd();
    ~CAttFrameWnd() override;

    [[nodiscard]] CEntView* GetLeftPane() const;
    [[nodiscard]] CAttView* GetRightPane() const;

    BOOL PreTranslateMessage(MSG* message) override;

protected:
    BOOL OnCreateClient(LPCREATESTRUCT create, CCreateContext* context) override;
    [[nodiscard]] virtual const CRuntimeClass* leftClass() const;
    [[nodiscard]] virtual const CRuntimeClass* rightClass() const;

    CSplitterWnd m_splitter;
};

class ZUCOMN_API CAttFrameWnd_ZU : public CAttFrameWnd {
    DECLARE_DYNCREATE(CAttFrameWnd_ZU)

public:
    CAttFrameWnd_ZU();
    ~CAttFrameWnd_ZU() override;

    [[nodiscard]] CEntView_ZU* GetLeftPane() const;
    [[nodiscard]] CAttView_ZU* GetRightPane() const;

protected:
    [[nodiscard]] const CRuntimeClass* leftClass() const override;
    [[nodiscard]] const CRuntimeClass* rightClass() const override;
};

/// Edits the attributes of one or several entities in a property list (control 3002): each value that the
/// user changes is written to all of them at once.
class ZUCOMN_API CAView : public CView {
    DECLARE_DYNCREATE(CAView)

public:
    /// As CAttView; the entities become the ones to write to.
    void AddListView(AcDbObjectId entity, CStringArray* keys);
    void AddListView(const AcArray<AcDbObjectId>& entities, CStringArray* keys);
    /// As CAttView; there is then no entity to write to.
    void AddGrid(const wchar_t* partFile, CStringArray* keys);
    int GetAttSel(CStringArray& keys, CStringArray& values);
    void GetAttAll(CStringArray& keys, CStringArray& values);
    void SetValue(const wchar_t* key, const wchar_t* value);
    static int SortCompare(const CPropertyItem& left, const CPropertyItem& right);

    /// As CEntView.
    static CString GetAttDetails(const CString& text, int n);
    static bool GetAttIDCode(CString& code, const CPtrArray& table, const CString& first,
                             const CString& third);
    static bool IsUpdateEnable(const CString& text);

    /// Opens the choices of the selected item when it has any; a value picked that differs is written. 1.
    long OnSelChangeList(WPARAM wParam, LPARAM lParam);
    /// Writes the values of the list to the "ZU_ATTR" record of every entity, as one undo step, and sends
    /// "ZU_ATTREDIT_SEC3D" to the host. Passed over are entities that can't be opened or are on locked layers
    /// (the user is told of each), items that an entity lacks or that may not be edited, the value "*各種*".
    /// Nothing is written when settings or parameter table can't be read. How many of the changed entities
    /// have a mounting height, the value "S401", that is no number is told on the command line: section
    /// drawings can't place those.
    void OnUpdateAttributes();
    /// Nonzero when the entity's layer is locked; the user is then told its name.
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
};
