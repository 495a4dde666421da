#pragma once

#include <afxcmn.h>
#include <zucomn/views.h>

#include <span>
#include <utility>

namespace zu {

/// The two-level list of the entity view: a line for each group, and one for each row of the groups that are
/// unfolded.
class EntityList : public CListCtrl {
public:
    static constexpr UINT kId = 3003;

    struct Column {
        unsigned title = 0; ///< Id of the text.
        int width = 150;
    };
    /// The list in a view.
    bool create(CWnd& view, std::span<const Column> columns);

    void setGroups(std::vector<CEntityGroup> groups);
    /// Fills the list anew: the first group unfolded and selected. Throws the framework's invalid-argument
    /// exception for a row without a column.
    void fill();

    /// Shows other texts of the same groups and rows; what is unfolded and selected stays so.
    void updateTexts(std::vector<CEntityGroup> groups);
    /// Unfolds a group and selects the lines of its rows instead of its own.
    void selectRowsBelow(int index);

    /// A group and one of its rows.
    using Place = std::pair<std::size_t, std::size_t>;
    /// The rows of the selected lines, each once, in the order of the list; a group's line stands for all of
    /// its rows.
    [[nodiscard]] std::vector<Place> selectedRows() const;
    [[nodiscard]] AcArray<AcDbObjectId> selectedEntities() const;

    void DrawItem(LPDRAWITEMSTRUCT draw) override;
    void MeasureItem(LPMEASUREITEMSTRUCT measure) override;

protected:
    void OnLButtonDown(UINT flags, CPoint point);
    void OnLButtonDblClk(UINT flags, CPoint point);
    void OnKeyDown(UINT key, UINT repeat, UINT flags);
    DECLARE_MESSAGE_MAP()

private:
    /// What a line of the list refers to.
    struct Line {
        static constexpr int kParent = 7;
        int kind = 0; ///< kParent for the line of a group.
        std::size_t group = 0;
        std::size_t row = 0;
        bool isExpanded = false;
    };
    /// The lines of a group, those of its rows once it was unfolded.
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
    std::vector<GroupLines> lines_; ///< By group; the list refers to them.
    COLORREF highlight_ = 0;
};

/// Groups for the entity view: entities by their block, or by their class.
[[nodiscard]] std::vector<CEntityGroup> groupsOf(const AcArray<AcDbObjectId>& entities);

} // namespace zu
