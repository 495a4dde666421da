#pragma once

#include "property_list.h"

#include <afxcmn.h>
#include <afxext.h>
#include <dbid.h>

#include <memory>

class CUPAttView;
class CUPEntView;

namespace zu {
class AttributePane;
}

// The parts-list window: attribute lines held in a text file, edited and saved as a whole. On the left the
// parts that the lines describe with their lines beneath, on the right the values of what is selected there.
//
// A line is laid out as the item strings of an attribute record: six fields that each end in "|", the first
// the attribute id, the second the value. A part ends before the line whose attribute id it already has.

/// The window's frame: two panes, side by side. The Escape key hides it without saving.
class ZUCOMN_API CUPAttFrameWnd : public CFrameWnd {
    DECLARE_DYNCREATE(CUPAttFrameWnd)

public:
    CUPAttFrameWnd();
    ~CUPAttFrameWnd() override;

    /// The panes; null until the frame is created.
    [[nodiscard]] CUPEntView* GetLeftPane() const;
    [[nodiscard]] CUPAttView* GetRightPane() const;

    BOOL PreTranslateMessage(MSG* message) override;
    BOOL DestroyWindow() override;
    /// Destroys the window and all in it.
    BOOL FrameDestroyWindow();

protected:
    BOOL OnCreateClient(LPCREATESTRUCT create, CCreateContext* context) override;

    void OnClose();
    void OnDestroy();
    void OnCancelMode();
    DECLARE_MESSAGE_MAP()

private:
    CSplitterWnd m_splitter;
};

/// The left pane: the list of parts and lines below three buttons. It holds the lines.
///
/// "属性修正" puts the values of the right pane into the lines of what is selected, "属性確定" does that and
/// saves, "戻る" goes back; the last two hand over to the host by a command of its own.
class ZUCOMN_API CUPEntView : public CView {
    DECLARE_DYNCREATE(CUPEntView)

public:
    /// Reads the lines of a file, which is from now on the file in hand, and shows them; sets route-attribute
    /// mode by the path. 0, or -1 with nothing changed when the file can't be read.
    int ReadCSVFile(const wchar_t* path);
    /// The file that the lines are saved to; sets route-attribute mode by the path. An empty path is saved
    /// nowhere.
    void SetFilePath(const wchar_t* path);
    [[nodiscard]] CString GetFilePath() const;
    /// The commands that the host runs after "属性確定" and after "戻る"; empty for none.
    void SetCommands(const wchar_t* confirm, const wchar_t* back);
    /// A number of the caller's own; 0 at start.
    void SetFlag(int flag);
    [[nodiscard]] int GetFlag() const;
    /// True while the library handles route attributes: the last file named or saved lies in a path with
    /// "\RootAttr.dat". There is one such mode for the whole library.
    [[nodiscard]] static bool IsRouteAttributeMode();

    /// Takes the lines over and shows them, the first part selected.
    void AddListView(const CStringArray& lines);
    /// Shows the lines in hand anew.
    void AddListView();
    [[nodiscard]] const CStringArray& GetLines() const;
    /// Fills the right pane with the values of the lines that are selected.
    void DataDisp();

    /// The first selected line that begins with the key (the whole line). 0, or -1 with `out` untouched.
    int GetAtAtt(const wchar_t* key, CString& out) const;
    /// Replaces the value of that line. 0, or -1 when there is none or the value holds "|" or a line end.
    int SetAtAtt(const wchar_t* key, const wchar_t* value);
    /// Brings every line to its full six fields: missing ones are added at the end, empty ones are kept,
    /// those beyond the sixth are left out. Files whose lines stand joined with nothing between are taken
    /// apart again by this number of fields.
    static void SetAtAtt3Space(CStringArray& lines);

    /// Adds a row of the list to the selection or takes it out.
    void SSAdd(int row);
    void SSDel(int row);
    /// Selects the lines beneath a part instead of the part's own row.
    void SelectChild(int row);

    /// The n-th field, counted from 1, of a "|"-separated text; empty for n below 1, the text behind the last
    /// "|" when fewer than n fields end in "|".
    [[nodiscard]] static CString GetAttDetails(const CString& text, int n);
    /// True when the fourth field begins with "1".
    [[nodiscard]] static bool IsUpdateEnable(const CString& text);
    /// Column 1 of the first record whose columns 0 and 2 equal the texts, case ignored. False, with `code`
    /// untouched, when there is none.
    static bool GetAttIDCode(CString& code, const CPtrArray& table, const CString& first,
                             const CString& third);
    /// Nonzero when the entity's layer is locked, after telling the user.
    static int layerLockState(AcDbObjectId entity);

    /// Saves the lines, brought to six fields, as the whole file; with a line end after each in
    /// route-attribute mode, otherwise with nothing between them. When something can't be written, or a
    /// character not be held by the file's encoding, the user is told, and the old file and the lines stay as
    /// they were.
    void SaveCSVFile();
    /// "属性修正": puts the values of the right pane into the selected lines.
    void OnUpdateAttributes();
    /// "属性確定": as above, saves, sends the first command and in route-attribute mode hides the frame.
    void OnUpdateAttributes2();
    /// "戻る": saves unless in route-attribute mode, sends the second command and in route-attribute mode
    /// hides the frame.
    void OnUpdateAttributes3();

protected:
    CUPEntView();
    ~CUPEntView() override;

    void OnDraw(CDC* dc) override;
    int OnCreate(LPCREATESTRUCT create);
    void OnSize(UINT type, int width, int height);
    void OnItemchanged(NMHDR* header, LRESULT* result);
    LRESULT onShowSelection(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP()

private:
    [[nodiscard]] CUPAttView* rightPane() const;
    void showLines();
    bool takeValues();
    void handOver(const CString& command);

    struct Parts;
    std::unique_ptr<Parts> m_parts;
};

/// The right pane: the property list (control 3002) of the attribute window, filled from lines in hand.
class ZUCOMN_API CUPAttView : public CView {
    DECLARE_DYNCREATE(CUPAttView)

public:
    /// Shows the values of all the lines; those of ids that several parts have with different values as
    /// "*各種*". `keys` (may be null) receives the keys of the items, in the order shown.
    void AddListView(const CStringArray& lines, CStringArray* keys);
    /// Appends key (the attribute id and "|") and value of the selected row. 0, or -1 with nothing appended
    /// when no row is selected, or one without key or value.
    int GetAttSel(CStringArray& keys, CStringArray& values);
    /// Appends key and value of every item, in the order shown.
    void GetAttAll(CStringArray& keys, CStringArray& values);
    /// Appends the lines of AddListView with the values that the list has now.
    void GetAttAllData(CStringArray& lines);
    /// Orders items by attribute id: letters first, then the number. Below, at or above 0.
    static int SortCompare(const CPropertyItem& left, const CPropertyItem& right);

    [[nodiscard]] zu::AttributePane& pane() { return *m_pane; }

protected:
    CUPAttView();
    ~CUPAttView() override;

    void OnDraw(CDC* dc) override;
    int OnCreate(LPCREATESTRUCT create);
    void OnSize(UINT type, int width, int height);
    DECLARE_MESSAGE_MAP()

private:
    std::unique_ptr<zu::AttributePane> m_pane;
    CStringArray m_lines;
};
