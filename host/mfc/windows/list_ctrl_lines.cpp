#include "find_text.h"
#include "list_ctrl_parts.h"
#include "qt_text.h"

#include <algorithm>

int CListCtrl::InsertItem(int index, const wchar_t* text) {
    LVITEM item;
    item.mask = LVIF_TEXT;
    item.iItem = index;
    item.pszText = text;
    return InsertItem(&item);
}

int CListCtrl::InsertItem(const LVITEM* item) {
    if (parts_->view == nullptr || item == nullptr || item->iItem < 0)
        return -1;
    zuhost::ReportLine line;
    if ((item->mask & LVIF_TEXT) != 0)
        line.texts.append(zuhost::toQt(item->pszText));
    if ((item->mask & LVIF_PARAM) != 0)
        line.data = static_cast<std::uintptr_t>(item->lParam);
    if ((item->mask & LVIF_INDENT) != 0)
        line.indent = item->iIndent;
    const int place = std::min(item->iItem, GetItemCount());
    parts_->model.insertLine(place, std::move(line));
    if ((item->mask & LVIF_STATE) != 0)
        SetItemState(place, item->state, item->stateMask);
    return place;
}

BOOL CListCtrl::SetItem(const LVITEM* item) {
    if (item == nullptr || !parts_->has(item->iItem))
        return FALSE;
    if ((item->mask & LVIF_TEXT) != 0 && SetItemText(item->iItem, item->iSubItem, item->pszText) == FALSE)
        return FALSE;
    if ((item->mask & LVIF_PARAM) != 0)
        SetItemData(item->iItem, static_cast<std::uintptr_t>(item->lParam));
    if ((item->mask & LVIF_INDENT) != 0)
        parts_->model.line(item->iItem).indent = item->iIndent;
    if ((item->mask & LVIF_STATE) != 0)
        SetItemState(item->iItem, item->state, item->stateMask);
    return TRUE;
}

BOOL CListCtrl::DeleteItem(int index) {
    if (!parts_->has(index))
        return FALSE;
    parts_->model.removeLine(index);
    return TRUE;
}

BOOL CListCtrl::DeleteAllItems() {
    parts_->model.clearLines();
    return TRUE;
}

int CListCtrl::GetItemCount() const {
    return parts_->model.rowCount();
}

BOOL CListCtrl::SetItemText(int index, int subItem, const wchar_t* text) {
    if (!parts_->has(index) || subItem < 0 || subItem >= std::max(GetColumnCount(), 1))
        return FALSE;
    parts_->model.setText(index, subItem, zuhost::toQt(text));
    return TRUE;
}

CString CListCtrl::GetItemText(int index, int subItem) const {
    return parts_->has(index) ? zuhost::fromQt(parts_->model.line(index).texts.value(subItem)) : CString();
}

int CListCtrl::GetItemText(int index, int subItem, wchar_t* text, int size) const {
    return lstrcpyn(text, GetItemText(index, subItem), size) != nullptr ? lstrlen(text) : 0;
}

int CListCtrl::FindItem(const LVFINDINFO* wanted, int after) const {
    const int count = GetItemCount();
    if (wanted == nullptr || after < -1 || after >= count)
        return -1;
    const QString text = zuhost::toQt(wanted->psz);
    const auto matches = [&](int index) {
        if ((wanted->flags & LVFI_PARAM) != 0)
            return GetItemData(index) == static_cast<std::uintptr_t>(wanted->lParam);
        const QString shown = parts_->model.line(index).texts.value(0);
        return (wanted->flags & LVFI_PARTIAL) != 0 ? zuhost::beginsWith(shown, text)
                                                   : zuhost::equals(shown, text);
    };
    for (int index = after + 1; index < count; ++index)
        if (matches(index))
            return index;
    for (int index = 0; (wanted->flags & LVFI_WRAP) != 0 && index <= after; ++index)
        if (matches(index))
            return index;
    return -1;
}

BOOL CListCtrl::SortItems(PFNLVCOMPARE compare, DWORD_PTR parameter) {
    if (compare == nullptr)
        return FALSE;
    parts_->model.sortLines([&](const zuhost::ReportLine& left, const zuhost::ReportLine& right) {
        return compare(static_cast<LPARAM>(left.data), static_cast<LPARAM>(right.data),
                       static_cast<LPARAM>(parameter)) < 0;
    });
    return TRUE;
}

BOOL CListCtrl::SetItemData(int index, std::uintptr_t data) {
    if (!parts_->has(index))
        return FALSE;
    parts_->model.line(index).data = data;
    return TRUE;
}

std::uintptr_t CListCtrl::GetItemData(int index) const {
    return parts_->has(index) ? parts_->model.line(index).data : 0;
}

int CListCtrl::GetItemIndent(int index) const {
    return parts_->has(index) ? parts_->model.line(index).indent : 0;
}
