#include "entity_list.h"

#include "expander.h"
#include "frame/library_text.h"

#include <set>

namespace zu {

BEGIN_MESSAGE_MAP(EntityList, CListCtrl)
ON_WM_KEYDOWN()
ON_WM_LBUTTONDOWN()
ON_WM_LBUTTONDBLCLK()
END_MESSAGE_MAP()

bool EntityList::create(CWnd& view, std::span<const Column> columns) {
    constexpr DWORD kStyle =
        WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_NOSORTHEADER | LVS_SHOWSELALWAYS | LVS_OWNERDRAWFIXED;
    if (Create(kStyle, CRect(), &view, kId) == FALSE)
        return false;
    highlight_ = GetSysColor(COLOR_HIGHLIGHT);
    for (const Column& column : columns)
        InsertColumn(GetColumnCount(), libraryText(column.title), LVCFMT_LEFT, column.width);
    return true;
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
    lines_.assign(groups_.size(), {});
    for (std::size_t group = 0; group < groups_.size(); ++group) {
        lines_[group].parent = {Line::kParent, group, 0, false};
        insertLine(GetItemCount(), lines_[group].parent, groups_[group].title);
    }
    setExpanded(0, true);
    SetItemState(0, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
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
    const std::vector<CEntityGroup::Row>& rows = groups_[group].rows;
    std::vector<Line>& lines = lines_[group].rows;
    lines.resize(rows.size());
    for (std::size_t row = 0; row < rows.size(); ++row) {
        const CStringArray& columns = *rows[row].columns;
        const int index = below + 1 + static_cast<int>(row);
        lines[row] = {0, group, row, false};
        insertLine(index, lines[row], columns[0]);
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
        for (std::size_t row = groups_[line->group].rows.size(); row > 0; --row)
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
            for (std::size_t row = 0; row < groups_[line.group].rows.size(); ++row)
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
    for (int row = 1; row <= static_cast<int>(groups_[line->group].rows.size()); ++row)
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
    constexpr int kMargin = 4;
    const int index = static_cast<int>(draw->itemID);
    const Line* const line = lineAt(index);
    if (line == nullptr)
        return;
    CDC dc = CDC::FromHandle(draw->hDC);
    const CRect row(draw->rcItem);
    const bool isSelected = (draw->itemState & ODS_SELECTED) != 0;
    const bool isParent = line->kind == Line::kParent;
    const COLORREF background =
        isSelected ? highlight_ : GetSysColor(isParent ? COLOR_BTNFACE : COLOR_WINDOW);
    const COLORREF color = GetSysColor(isSelected ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT);
    dc.FillSolidRect(row, background);
    if (isParent)
        drawExpander(dc, CRect(row.left, row.top, row.left + kExpanderWidth, row.bottom), line->isExpanded,
                     color);
    dc.SetTextColor(color);
    int left = row.left;
    for (int column = 0; column < GetColumnCount(); ++column) {
        CRect cell(left, row.top, isParent ? row.right : left + GetColumnWidth(column), row.bottom);
        left += GetColumnWidth(column);
        cell.DeflateRect(column == 0 ? kExpanderWidth * (isParent ? 1 : 2) : kMargin, 0, kMargin, 0);
        dc.DrawText(GetItemText(index, column), cell,
                    DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
        if (isParent)
            break;
    }
    if ((draw->itemState & ODS_FOCUS) != 0)
        dc.DrawFocusRect(row);
}

} // namespace zu
