#include "entity_list.h"

#include "attributes/model/field_rules.h"
#include "expander.h"
#include "frame/library_text.h"
#include "lock_mark.h"

#include <algorithm>
#include <numeric>

namespace zu {

BEGIN_MESSAGE_MAP(EntityList, CListCtrl)
ON_WM_KEYDOWN()
ON_WM_LBUTTONDOWN()
ON_WM_LBUTTONDBLCLK()
ON_WM_SIZE()
END_MESSAGE_MAP()

bool EntityList::create(CWnd& view, std::span<const Column> columns) {
    constexpr DWORD kStyle =
        WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_NOSORTHEADER | LVS_SHOWSELALWAYS | LVS_OWNERDRAWFIXED;
    if (Create(kStyle, CRect(), &view, kId) == FALSE)
        return false;
    highlight_ = GetSysColor(COLOR_HIGHLIGHT);
    for (const Column& column : columns)
        InsertColumn(GetColumnCount(), libraryText(column.title), LVCFMT_LEFT, column.width);
    columns_.assign(columns.begin(), columns.end());
    return true;
}

/// Fits the columns to the list, so that none is out of sight.
void EntityList::OnSize(UINT type, int width, int height) {
    CListCtrl::OnSize(type, width, height);
    const int shares = std::accumulate(columns_.begin(), columns_.end(), 0,
                                       [](int sum, const Column& column) { return sum + column.share; });
    for (int column = 0; column + 1 < GetColumnCount() && shares > 0; ++column)
        SetColumnWidth(column, width * columns_[static_cast<std::size_t>(column)].share / shares);
    SetColumnWidth(GetColumnCount() - 1, LVSCW_AUTOSIZE_USEHEADER);
}

void EntityList::setGroups(std::vector<CEntityGroup> groups) {
    DeleteAllItems();
    groups_ = std::move(groups);
}

void EntityList::fill() {
    DeleteAllItems();
    for (const CEntityGroup& group : groups_)
        for (const CEntityGroup::Row& row : group.rows)
            if (row.columns == nullptr || row.columns->IsEmpty())
                AfxThrowInvalidArgException();
    SetRedraw(FALSE);
    insertGroups();
    setExpanded(0, true);
    SetItemState(0, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    SetRedraw(TRUE);
}

void EntityList::insertGroups() {
    lines_.assign(groups_.size(), {});
    for (std::size_t group = 0; group < groups_.size(); ++group) {
        GroupLines& lines = lines_[group];
        const std::vector<CEntityGroup::Row>& rows = groups_[group].rows;
        lines.parent = {Line::kParent, group, 0, false};
        lines.shown = matchesIn(groups_[group], filter_);
        lines.isLocked = !rows.empty() &&
                         std::all_of(rows.begin(), rows.end(), [](const auto& row) { return row.locked; });
        if (filter_.IsEmpty() || !lines.shown.empty())
            insertLine(GetItemCount(), lines.parent, groups_[group].title);
    }
}

// ---- filter

std::vector<std::size_t> EntityList::matchesIn(const CEntityGroup& group, const CString& text) const {
    const bool isWhole = containsText(group.title, text);
    std::vector<std::size_t> found;
    for (std::size_t row = 0; row < group.rows.size(); ++row) {
        const CStringArray& columns = *group.rows[row].columns;
        const auto matches = [&](const CString& column) { return containsText(column, text); };
        if (isWhole || std::any_of(columns.GetData(), columns.GetData() + columns.GetSize(), matches))
            found.push_back(row);
    }
    return found;
}

std::size_t EntityList::countMatches(const CString& text) const {
    return std::accumulate(
        groups_.begin(), groups_.end(), std::size_t{0},
        [&](std::size_t sum, const CEntityGroup& group) { return sum + matchesIn(group, text).size(); });
}

std::set<EntityList::LineKey> EntityList::selectedLines() const {
    std::set<LineKey> selected;
    for (int index = GetNextItem(-1, LVNI_SELECTED); index >= 0; index = GetNextItem(index, LVNI_SELECTED)) {
        const Line& line = *lineAt(index);
        selected.emplace(line.group, line.kind == Line::kParent ? kGroup : line.row);
    }
    return selected;
}

void EntityList::select(const std::set<LineKey>& wanted) {
    int first = -1;
    for (int index = 0; index < GetItemCount(); ++index) {
        const Line& line = *lineAt(index);
        if (!wanted.contains({line.group, line.kind == Line::kParent ? kGroup : line.row}))
            continue;
        SetItemState(index, LVIS_SELECTED, LVIS_SELECTED);
        first = first < 0 ? index : first;
    }
    SetItemState(std::max(first, 0), LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    EnsureVisible(std::max(first, 0), FALSE);
}

void EntityList::selectEntities(const AcArray<AcDbObjectId>& entities) {
    const std::set<AcDbObjectId> wanted(entities.begin(), entities.end());
    std::set<LineKey> lines;
    std::set<std::size_t> groups;
    for (std::size_t group = 0; group < lines_.size(); ++group)
        for (const std::size_t row : lines_[group].shown)
            if (wanted.contains(groups_[group].rows[row].entity)) {
                lines.emplace(group, row);
                groups.insert(group);
            }
    if (lines.empty())
        return;
    for (int index = GetItemCount() - 1; index >= 0; --index)
        if (const Line& line = *lineAt(index); line.kind == Line::kParent && groups.contains(line.group))
            setExpanded(index, true);
    SetItemState(-1, 0, LVIS_SELECTED);
    select(lines);
}

void EntityList::setFilter(const CString& text) {
    if (text == filter_)
        return;
    constexpr std::size_t kMostExpanded = 500; // More rows are searched, not read.
    const std::set<LineKey> selected = selectedLines();
    std::set<std::size_t> expanded;
    for (std::size_t group = 0; group < lines_.size(); ++group)
        if (lines_[group].parent.isExpanded)
            expanded.insert(group);
    if (filter_.IsEmpty())
        expandedBefore_ = expanded;
    filter_ = text;
    SetRedraw(FALSE);
    DeleteAllItems();
    insertGroups();
    const std::size_t matches = countMatches(text);
    const bool expandsAll = !text.IsEmpty() && matches <= kMostExpanded;
    for (int index = GetItemCount() - 1; index >= 0; --index)
        setExpanded(index, expandsAll || expandedBefore_.contains(lineAt(index)->group));
    select(selected);
    SetRedraw(TRUE);
}

void EntityList::insertLine(int index, Line& line, const CString& text) {
    LVITEM item;
    item.mask = LVIF_TEXT | LVIF_PARAM | LVIF_INDENT;
    item.iItem = index;
    item.pszText = text;
    item.lParam = reinterpret_cast<LPARAM>(&line);
    item.iIndent = line.kind == Line::kParent ? 0 : 1;
    InsertItem(&item);
}

EntityList::Line* EntityList::lineAt(int index) const {
    return objectOf<Line>(static_cast<LPARAM>(GetItemData(index)));
}

void EntityList::insertRows(int below, std::size_t group) {
    const std::vector<std::size_t>& shown = lines_[group].shown;
    std::vector<Line>& lines = lines_[group].rows;
    lines.resize(shown.size());
    for (std::size_t i = 0; i < shown.size(); ++i) {
        const CStringArray& columns = *groups_[group].rows[shown[i]].columns;
        const int index = below + 1 + static_cast<int>(i);
        lines[i] = {0, group, shown[i], false};
        insertLine(index, lines[i], columns[0]);
        showTexts(index, columns);
    }
}

void EntityList::showTexts(int index, const CStringArray& columns) {
    for (int column = 0; column < columns.GetSize() && column < GetColumnCount(); ++column)
        SetItemText(index, column, columns[column]);
}

void EntityList::updateTexts(std::vector<CEntityGroup> groups) {
    groups_ = std::move(groups);
    for (int index = 0; index < GetItemCount(); ++index)
        if (const Line& line = *lineAt(index); line.kind != Line::kParent)
            showTexts(index, *groups_[line.group].rows[line.row].columns);
}

void EntityList::setExpanded(int index, bool expanded) {
    Line* const line = lineAt(index);
    if (line == nullptr || line->kind != Line::kParent || line->isExpanded == expanded)
        return;
    line->isExpanded = expanded;
    SetRedraw(FALSE);
    if (expanded)
        insertRows(index, line->group);
    else
        for (std::size_t row = lines_[line->group].shown.size(); row > 0; --row)
            DeleteItem(index + static_cast<int>(row));
    SetRedraw(TRUE);
}

int EntityList::parentOf(int index) const {
    while (index >= 0 && lineAt(index) != nullptr && lineAt(index)->kind != Line::kParent)
        --index;
    return index;
}

std::vector<EntityList::RowIndex> EntityList::selectedRows() const {
    std::vector<RowIndex> rows;
    std::set<RowIndex> seen;
    const auto add = [&](std::size_t group, std::size_t row) {
        if (seen.emplace(group, row).second)
            rows.emplace_back(group, row);
    };
    for (int index = GetNextItem(-1, LVNI_SELECTED); index >= 0; index = GetNextItem(index, LVNI_SELECTED)) {
        const Line& line = *lineAt(index);
        if (line.kind != Line::kParent)
            add(line.group, line.row);
        else
            for (const std::size_t row : lines_[line.group].shown)
                add(line.group, row);
    }
    return rows;
}

AcArray<AcDbObjectId> EntityList::selectedEntities() const {
    AcArray<AcDbObjectId> entities;
    for (const auto& [group, row] : selectedRows())
        entities.append(groups_[group].rows[row].entity);
    return entities;
}

void EntityList::selectRowsBelow(int index) {
    const Line* const line = lineAt(index);
    if (line == nullptr || line->kind != Line::kParent)
        return;
    setExpanded(index, true);
    SetItemState(index, 0, LVIS_SELECTED);
    for (int row = 1; row <= static_cast<int>(lines_[line->group].shown.size()); ++row)
        SetItemState(index + row, LVIS_SELECTED, LVIS_SELECTED);
}

// ---- collapsing and expanding

void EntityList::OnLButtonDown(UINT flags, CPoint point) {
    const int index = HitTest(point);
    const Line* const line = lineAt(index);
    CRect row;
    const bool isExpander = line != nullptr && line->kind == Line::kParent &&
                            GetItemRect(index, &row) != FALSE && point.x < row.left + kExpanderWidth;
    if (isExpander)
        setExpanded(index, !line->isExpanded);
    else
        CListCtrl::OnLButtonDown(flags, point);
}

void EntityList::OnLButtonDblClk(UINT flags, CPoint point) {
    CListCtrl::OnLButtonDblClk(flags, point);
    const int index = HitTest(point);
    if (const Line* const line = lineAt(index); line != nullptr)
        setExpanded(index, !line->isExpanded);
}

void EntityList::OnKeyDown(UINT key, UINT repeat, UINT flags) {
    const int index = GetNextItem(-1, LVNI_FOCUSED);
    const Line* const line = lineAt(index);
    const bool isParent = line != nullptr && line->kind == Line::kParent;
    const bool collapses = key == VK_LEFT || key == VK_SUBTRACT;
    const bool expands = key == VK_RIGHT || key == VK_ADD;
    if (isParent && (collapses || expands)) {
        setExpanded(index, expands);
    } else if (line != nullptr && collapses) {
        SetItemState(-1, 0, LVIS_SELECTED);
        SetItemState(parentOf(index), LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    } else {
        CListCtrl::OnKeyDown(key, repeat, flags);
    }
}

// ---- drawing

void EntityList::MeasureItem(LPMEASUREITEMSTRUCT measure) {
    constexpr UINT kAroundText = 6;
    measure->itemHeight += kAroundText;
}

void EntityList::DrawItem(LPDRAWITEMSTRUCT draw) {
    const int index = static_cast<int>(draw->itemID);
    const Line* const line = lineAt(index);
    if (line == nullptr)
        return;
    CDC& dc = *CDC::FromHandle(draw->hDC);
    const CRect row(draw->rcItem);
    const bool isSelected = (draw->itemState & ODS_SELECTED) != 0;
    const bool isParent = line->kind == Line::kParent;
    const bool isLocked =
        isParent ? lines_[line->group].isLocked : groups_[line->group].rows[line->row].locked;
    const COLORREF background =
        isSelected ? highlight_ : GetSysColor(isParent ? COLOR_BTNFACE : COLOR_WINDOW);
    const COLORREF color = isSelected ? GetSysColor(COLOR_HIGHLIGHTTEXT)
                           : isLocked ? readOnlyColor()
                                      : GetSysColor(COLOR_WINDOWTEXT);
    dc.FillSolidRect(row, background);
    if (isParent)
        drawExpander(dc, CRect(row.left, row.top, row.left + kExpanderWidth, row.bottom), line->isExpanded,
                     color);
    if (isLocked) {
        const int left = isParent ? row.right - kLockWidth : row.left + kExpanderWidth;
        drawLock(dc, CRect(left, row.top, left + kLockWidth, row.bottom), color);
    }
    drawTexts(dc, row, index, isParent, color);
    if ((draw->itemState & ODS_FOCUS) != 0)
        dc.DrawFocusRect(row);
}

void EntityList::drawTexts(CDC& dc, const CRect& row, int index, bool isParent, COLORREF color) const {
    constexpr int kMargin = 4;
    dc.SetTextColor(color);
    int left = row.left;
    for (int column = 0; column < GetColumnCount(); ++column) {
        CRect cell(left, row.top, isParent ? row.right - kLockWidth : left + GetColumnWidth(column),
                   row.bottom);
        left += GetColumnWidth(column);
        cell.DeflateRect(column == 0 ? kExpanderWidth * (isParent ? 1 : 2) : kMargin, 0, kMargin, 0);
        dc.DrawText(GetItemText(index, column), cell,
                    DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
        if (isParent)
            break;
    }
}

} // namespace zu
