#pragma once

#include <afxcmn.h>
#include <zucomn/views.h>

#include <set>
#include <span>
#include <utility>

namespace zu {

/// The two-level list of the entity view: one line per group, and one per row of the expanded groups.
class EntityList : public CListCtrl {
public:
    static constexpr UINT kId = 3003;

    struct Column {
        unsigned title = 0; ///< Id of a library text.
        int width = 150;
        int share = 1; ///< Of the width of the list, to which its columns are fitted.
    };
    /// Creates the list in a view. Returns false when that fails.
    bool create(CWnd& view, std::span<const Column> columns);

    /// Sets the groups and empties the list.
    void setGroups(std::vector<CEntityGroup> groups);
    /// Fills the list, with the first group expanded and selected. Throws the framework's invalid-argument
    /// exception for a row without a column.
    void fill();

    /// Shows only the groups and rows that contain the text in their title or a column, ignoring case, and
    /// keeps the selected ones of them; an empty text shows all. A group whose title contains it keeps all of
    /// its rows. With nothing left of the selection, the first group is selected.
    void setFilter(const CString& text);
    /// Returns how many rows a filter would show.
    [[nodiscard]] std::size_t countMatches(const CString& text) const;

    /// Replaces the texts of the rows and keeps selection and expansion. The groups must have the same sizes
    /// as before.
    void updateTexts(std::vector<CEntityGroup> groups);
    /// Expands a group and selects the lines of its rows instead of its own line.
    void selectRowsBelow(int index);

    /// The indexes of a group and of one of its rows.
    using RowIndex = std::pair<std::size_t, std::size_t>;
    /// Returns the rows of the selected lines in list order, each once; the line of a group stands for all of
    /// its rows that the filter shows.
    [[nodiscard]] std::vector<RowIndex> selectedRows() const;
    [[nodiscard]] AcArray<AcDbObjectId> selectedEntities() const;
    /// Selects the rows of the entities only, expanding their groups. Does nothing when none is in the list.
    void selectEntities(const AcArray<AcDbObjectId>& entities);

    void DrawItem(LPDRAWITEMSTRUCT draw) override;
    void MeasureItem(LPMEASUREITEMSTRUCT measure) override;

protected:
    void OnLButtonDown(UINT flags, CPoint point);
    void OnLButtonDblClk(UINT flags, CPoint point);
    void OnKeyDown(UINT key, UINT repeat, UINT flags);
    void OnSize(UINT type, int width, int height);
    DECLARE_MESSAGE_MAP()

private:
    /// The group or row that a line of the list displays.
    struct Line {
        static constexpr int kParent = 7;
        int kind = 0; ///< kParent for the line of a group.
        std::size_t group = 0;
        std::size_t row = 0;
        bool isExpanded = false;
    };
    /// The line of a group and, after its first expansion, the lines of its rows that the filter shows.
    struct GroupLines {
        Line parent;
        std::vector<Line> rows;
        std::vector<std::size_t> shown; ///< The indexes of the rows.
        bool isLocked = false;          ///< All of the rows are.
    };
    using LineKey =
        std::pair<std::size_t, std::size_t>; ///< The group and the row, which is kGroup for a group.
    static constexpr std::size_t kGroup = static_cast<std::size_t>(-1);

    [[nodiscard]] std::vector<std::size_t> matchesIn(const CEntityGroup& group, const CString& text) const;
    void insertGroups();
    void select(const std::set<LineKey>& wanted);
    [[nodiscard]] std::set<LineKey> selectedLines() const;
    void drawTexts(CDC& dc, const CRect& row, int index, bool isParent, COLORREF color) const;

    void showTexts(int index, const CStringArray& columns);
    [[nodiscard]] Line* lineAt(int index) const;
    void insertRows(int below, std::size_t group);
    void setExpanded(int index, bool expanded);
    void insertLine(int index, Line& line, const CString& text);
    [[nodiscard]] int parentOf(int index) const;

    std::vector<CEntityGroup> groups_;
    std::vector<GroupLines> lines_; ///< By group. List items point to these lines.
    std::vector<Column> columns_;
    CString filter_;
    std::set<std::size_t> expandedBefore_; ///< The groups that were expanded before there was a filter.
    COLORREF highlight_ = 0;
};

/// Groups entities for the entity view by block, or by class if they are no block references.
[[nodiscard]] std::vector<CEntityGroup> groupsOf(const AcArray<AcDbObjectId>& entities);

} // namespace zu
