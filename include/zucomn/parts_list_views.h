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
class PaneSplitter;
} // namespace zu

// The parts-list window: edits the attribute lines of a text file, which is saved as a whole. The left pane
// lists the parts with their lines, the right pane shows the values of the selected lines.
//
// A line has the form of an item string of an attribute record: six fields that each end in "|"; the first is
// the attribute id, the second the value. A part ends before a line whose attribute id it already contains.

/// The frame of the parts-list window, with two panes. The Escape key hides it without saving. The width of
/// the left pane is saved in the user's profile.
class ZUCOMN_API CUPAttFrameWnd : public CFrameWnd {
    DECLARE_DYNCREATE(CUPAttFrameWnd)

public:
    CUPAttFrameWnd();
    ~CUPAttFrameWnd() override;

    /// The panes, which belong to the frame; null before the frame is created.
    /// @{
    [[nodiscard]] CUPEntView* GetLeftPane() const;
    [[nodiscard]] CUPAttView* GetRightPane() const;
    /// @}

    BOOL PreTranslateMessage(MSG* message) override;
    BOOL DestroyWindow() override;
    /// Destroys the window with its panes.
    BOOL FrameDestroyWindow();

protected:
    BOOL OnCreateClient(LPCREATESTRUCT create, CCreateContext* context) override;

    void OnClose();
    void OnDestroy();
    void OnCancelMode();
    DECLARE_MESSAGE_MAP()

private:
    std::unique_ptr<zu::PaneSplitter> m_splitter;
};

/// The left pane: the list of parts and lines, and three buttons above it. It holds the lines.
///
/// "属性修正" copies the values of the right pane into the selected lines. "属性確定" also saves the file and
/// sends the confirm command to the host; "戻る" sends the back command.
class ZUCOMN_API CUPEntView : public CView {
    DECLARE_DYNCREATE(CUPEntView)

public:
    /// Reads the lines of a file, shows them and sets the file path, see SetFilePath. Returns 0 on success,
    /// -1 with nothing changed when the file cannot be read.
    int ReadCSVFile(const wchar_t* path);
    /// Sets the path that the lines are saved to, and this window's route-attribute mode by the path. With an
    /// empty path the lines are not saved.
    void SetFilePath(const wchar_t* path);
    /// Returns the path that the lines are saved to.
    [[nodiscard]] CString GetFilePath() const;
    /// Sets the commands that are sent to the host after "属性確定" and after "戻る"; empty for none.
    void SetCommands(const wchar_t* confirm, const wchar_t* back);
    /// Sets a number for the caller's own use, initially 0.
    void SetFlag(int flag);
    /// Returns the number set by SetFlag.
    [[nodiscard]] int GetFlag() const;
    /// Returns true in route-attribute mode: when the path that this window was given or saved to last
    /// contains
    /// "\RootAttr.dat". Each window has its own mode.
    [[nodiscard]] bool IsRouteAttributeMode() const;

    /// Copies the lines and shows them, with the first part selected.
    void AddListView(const CStringArray& lines);
    /// Refills the list from the current lines.
    void AddListView();
    /// Returns the current lines. The view keeps ownership.
    [[nodiscard]] const CStringArray& GetLines() const;
    /// Fills the right pane with the values of the selected lines.
    void DataDisp();
    /// Fills the right pane now if a change of the selection is still to be shown. The functions of the right
    /// pane that read values call it.
    void CompleteUpdate();

    /// Copies the first selected line that begins with the key. Returns 0, or -1 with `out` untouched when
    /// there is none.
    int GetAtAtt(const wchar_t* key, CString& out) const;
    /// Replaces the value of the first selected line that begins with the key. Returns 0, or -1 with the
    /// lines unchanged when there is none or the value contains "|" or a line end.
    int SetAtAtt(const wchar_t* key, const wchar_t* value);
    /// Brings each line to exactly six fields: appends missing fields, keeps empty ones, removes those after
    /// the sixth. A file whose lines are joined without line ends is split by this number of fields.
    static void SetAtAtt3Space(CStringArray& lines);

    /// Selects a row of the list.
    void SSAdd(int row);
    /// Deselects a row of the list.
    void SSDel(int row);
    /// Expands a part and selects its lines instead of the part's own row.
    void SelectChild(int row);

    /// Returns field n, counted from 1, of a "|"-separated text: empty for n < 1, the text after the last "|"
    /// when fewer than n fields end in "|".
    [[nodiscard]] static CString GetAttDetails(const CString& text, int n);
    /// Returns true when the fourth field of the text begins with "1".
    [[nodiscard]] static bool IsUpdateEnable(const CString& text);
    /// Copies column 1 of the first record (CStringArray) whose columns 0 and 2 equal `first` and `third`,
    /// ignoring case. Returns false with `code` untouched when there is none.
    static bool GetAttIDCode(CString& code, const CPtrArray& table, const CString& first,
                             const CString& third);
    /// Returns nonzero when the entity's layer is locked, after a message box with the layer's name; else 0.
    static int layerLockState(AcDbObjectId entity);

    /// Brings the lines to six fields and writes them as the whole file: with a line end after each in
    /// route-attribute mode, else joined without line ends. A file that holds the lines already is not
    /// written. Shows a message box, with the old file and the lines unchanged, when the file cannot be
    /// written, its encoding cannot represent a character, or a line contains a null character or a line end.
    void SaveCSVFile();
    /// "属性修正": copies the values of the right pane into the selected lines.
    void OnUpdateAttributes();
    /// "属性確定": copies the values as above, saves and sends the confirm command; hides the frame in
    /// route-attribute mode. Does nothing more when the edited value cannot be accepted or saving fails.
    void OnUpdateAttributes2();
    /// "戻る": copies the values and saves as above unless in route-attribute mode, and sends the back
    /// command; hides the frame in route-attribute mode.
    void OnUpdateAttributes3();

protected:
    CUPEntView();
    ~CUPEntView() override;

    void OnDraw(CDC* dc) override;
    int OnCreate(LPCREATESTRUCT create);
    void OnSize(UINT type, int width, int height);
    void OnItemchanged(NMHDR* header, LRESULT* result);
    /// Shows what was selected while the view was busy.
    LRESULT onShowSelection(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP()

private:
    [[nodiscard]] CUPAttView* rightPane() const;
    void refreshLines();
    bool acceptValues();
    bool save();
    void sendToHost(const CString& command);

    struct Parts;
    std::unique_ptr<Parts> m_parts;
};

/// The right pane: the property list (control 3002) of the attribute window, filled from attribute lines.
class ZUCOMN_API CUPAttView : public CView {
    DECLARE_DYNCREATE(CUPAttView)

public:
    /// Shows the values of the lines; values of an id that differ among the parts are shown as "*各種*".
    /// Appends the keys of the items to `keys`, which may be null, in display order.
    void AddListView(const CStringArray& lines, CStringArray* keys);
    /// Appends the key (the attribute id and "|") and the value of the selected row. Returns 0, or -1 with
    /// nothing appended when no row is selected or its key or value is empty.
    int GetAttSel(CStringArray& keys, CStringArray& values);
    /// Appends the keys and values of all items in display order.
    void GetAttAll(CStringArray& keys, CStringArray& values);
    /// Appends the lines of AddListView with the current values of the list.
    void GetAttAllData(CStringArray& lines);
    /// Compares items by attribute id, whose digits compare as numbers. Returns a value below, equal to or
    /// above 0.
    static int SortCompare(const CPropertyItem& left, const CPropertyItem& right);

    /// Returns the pane that implements the view; for the library's own use.
    [[nodiscard]] zu::AttributePane& pane() { return *m_pane; }

protected:
    CUPAttView();
    ~CUPAttView() override;

    void OnDraw(CDC* dc) override;
    int OnCreate(LPCREATESTRUCT create);
    void OnSize(UINT type, int width, int height);
    DECLARE_MESSAGE_MAP()

private:
    void showPendingSelection() const;

    std::unique_ptr<zu::AttributePane> m_pane;
    CStringArray m_lines;
};
