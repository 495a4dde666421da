#pragma once

#include <afxcmn.h>
#include <zucomn/views.h>

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
    };
    /// Creates the list in a view. Returns false when that fails.
    bool create(CWnd& view, std::span<const Column> columns);

    /// Sets the groups and empties the list.
    void setGroups(std::vector<CEntityGroup> groups);
    /// Fills the list, with the first group expanded and selected. Throws the framework's invalid-argument
    /// exception for a row without a column.
    void fill();

    /// Replaces the texts of the rows and keeps selection and expansion. The groups must have the same sizes
    /// as before.
    void updateTexts(std::vector<CEntityGroup> groups);
    /// Expands a group and selects the lines of its rows instead of its own line.
    void selectRowsBelow(int index);

    /// The indexes of a group and of one of its rows.
    using RowIndex = std::pair<std::size_t, std::size_t>;
    /// Returns the rows of the selected lines in list order, each once; the line of a group stands for all of
    /// its rows.
    [[nodiscard]] std::vector<RowIndex> selectedRows() const;
    [[nodiscard]] AcArray<AcDbObjectId> selectedEntities() const;

    void DrawItem(LPDRAWITEMSTRUCT draw) override;
    void MeasureItem(LPMEASUREITEMSTRUCT measure) override;

protected:
    void OnLButtonDown(UINT flags, CPoint point);
    void OnLButtonDblClk(UINT flags, CPoint point);
    void OnKeyDown(UINT key, UINT repeat, UINT flags);
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
    /// The line of a group and, after its first expansion, the lines of its rows.
    struct GroupLines {
        Line parent;
        std::vector<Line> rows;
    };

    void showTexts(int index, const CStringArray& columns);
    [[nodiscard]] Line* lineAt(int index) const;
    void insertRows(int below, std::size_t group);
    void setExpanded(int index, bool expanded);
    void insertLine(int index, Line& line, const CString& text);
    [[nodiscard]] int parentOf(int index) const;

    std::vector<CEntityGroup> groups_;
    std::vector<GroupLines> lines_; ///< By group. List items point to these lines.
    COLORREF highlight_ = 0;
};

/// Groups entities for the entity view by block, or by class if they are no block references.
[[nodiscard]] std::vector<CEntityGroup> groupsOf(const AcArray<AcDbObjectId>& entities);

} // namespace zu
