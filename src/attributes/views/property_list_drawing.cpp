#include "expander.h"

#include <zucomn/property_list.h>

#include <cstdlib>
#include <cwchar>

namespace {

constexpr int kMargin = 4;
constexpr COLORREF kNoticeColor = RGB(255, 170, 0);
constexpr UINT kOneLine = DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS;

void drawCell(CDC& dc, CRect cell, const CString& text, COLORREF background, COLORREF color) {
    dc.FillSolidRect(cell, background);
    cell.DeflateRect(kMargin, 0);
    dc.SetTextColor(color);
    dc.DrawText(text, cell, kOneLine);
}

COLORREF gridColor() {
    return zu::mixed(GetSysColor(COLOR_WINDOW), GetSysColor(COLOR_WINDOWTEXT), 18);
}

} // namespace

void CPropertyListCtrl::MeasureItem(LPMEASUREITEMSTRUCT measure) {
    constexpr UINT kAroundText = 8;
    measure->itemHeight += kAroundText;
}

void CPropertyListCtrl::DrawItem(LPDRAWITEMSTRUCT draw) {
    const Row* const row = rowAt(static_cast<int>(draw->itemID));
    if (row == nullptr)
        return;
    CDC& dc = *CDC::FromHandle(draw->hDC);
    CRect place(draw->rcItem);
    const bool isSelected = (draw->itemState & ODS_SELECTED) != 0;
    dc.FillSolidRect(CRect(place.left, place.bottom - 1, place.right, place.bottom), gridColor());
    place.bottom -= 1;
    if (row->category < 0)
        drawNotice(dc, place, m_manager->GetNotice(row->item), isSelected);
    else if (row->item < 0)
        drawHeading(dc, place, *row, isSelected);
    else
        drawProperty(dc, place, m_manager->GetItem(row->item), isSelected);
    if (isSelected && (draw->itemState & ODS_FOCUS) != 0 && !IsEditing())
        dc.DrawFocusRect(place);
}

void CPropertyListCtrl::drawNotice(CDC& dc, const CRect& row, const CString& notice, bool selected) const {
    const COLORREF background =
        selected ? GetSysColor(COLOR_HIGHLIGHT) : zu::mixed(GetSysColor(COLOR_WINDOW), kNoticeColor, 25);
    drawCell(dc, row, notice, background, GetSysColor(selected ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT));
}

void CPropertyListCtrl::drawHeading(CDC& dc, const CRect& row, const Row& heading, bool selected) const {
    const COLORREF background = GetSysColor(selected ? COLOR_HIGHLIGHT : COLOR_BTNFACE);
    const COLORREF color = GetSysColor(selected ? COLOR_HIGHLIGHTTEXT : COLOR_BTNTEXT);
    dc.FillSolidRect(row, background);
    zu::drawExpander(dc, CRect(row.left, row.top, row.left + zu::kExpanderWidth, row.bottom),
                     m_manager->IsExpanded(heading.category), color);
    dc.SelectObject(&m_headingFont);
    drawCell(dc, CRect(row.left + zu::kExpanderWidth - kMargin, row.top, row.right, row.bottom),
             m_manager->GetCategoryName(heading.category), background, color);
}

void CPropertyListCtrl::drawProperty(CDC& dc, const CRect& row, const CPropertyItem& item,
                                     bool selected) const {
    const COLORREF window = GetSysColor(COLOR_WINDOW);
    const COLORREF text = item.editable ? GetSysColor(COLOR_WINDOWTEXT) : zu::readOnlyColor();
    const int divider = GetDivider();
    const CRect name(row.left + zu::kExpanderWidth, row.top, divider, row.bottom);
    dc.FillSolidRect(CRect(row.left, row.top, name.left, row.bottom),
                     GetSysColor(item.changed ? COLOR_HIGHLIGHT : COLOR_BTNFACE));
    drawCell(dc, name, item.name, selected ? GetSysColor(COLOR_HIGHLIGHT) : window,
             selected ? GetSysColor(COLOR_HIGHLIGHTTEXT) : text);
    dc.FillSolidRect(CRect(divider, row.top, divider + 1, row.bottom), gridColor());
    if (item.changed)
        dc.SelectObject(&m_headingFont);
    drawCell(dc, CRect(divider + 1, row.top, row.right, row.bottom), item.value, window, text);
}

CRect CPropertyListCtrl::valueCell(int index) const {
    CRect cell;
    GetItemRect(index, &cell);
    cell.left = GetDivider() + 1;
    cell.bottom -= 1;
    return cell;
}

/// Provides a tool tip with the full text of a cell that truncates it.
std::intptr_t CPropertyListCtrl::OnToolHitTest(CPoint point, TOOLINFO* tool) const {
    BOOL outside = FALSE;
    const int index = static_cast<int>(ItemFromPoint(point, outside));
    const CPropertyItem* const item = outside == FALSE ? itemAt(index) : nullptr;
    const Row* const row = outside == FALSE ? rowAt(index) : nullptr;
    const bool isNotice = row != nullptr && row->category < 0;
    if (item == nullptr && !isNotice)
        return -1;
    CRect cell = valueCell(index);
    const bool isValue = point.x >= cell.left;
    if (!isValue || isNotice) {
        cell.right = isNotice ? cell.right : cell.left - 1;
        cell.left = isNotice ? 0 : zu::kExpanderWidth;
    }
    const CString& text = isNotice ? m_manager->GetNotice(row->item) : isValue ? item->value : item->name;
    if (CClientDC(this).GetTextExtent(text).cx <= cell.Width() - 2 * kMargin)
        return -1;
    tool->rect = cell;
    const auto length = static_cast<std::size_t>(text.GetLength()) + 1;
    tool->lpszText = static_cast<wchar_t*>(std::calloc(length, sizeof(wchar_t)));
    if (tool->lpszText == nullptr)
        return -1;
    std::wmemcpy(tool->lpszText, static_cast<const wchar_t*>(text), length);
    return index * 2 + (isValue ? 1 : 0);
}
