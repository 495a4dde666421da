#include "list_ctrl_parts.h"

#include <algorithm>

namespace {

QItemSelection selectionOf(const QAbstractItemModel& model, int first, int last) {
    return {model.index(first, 0), model.index(last, std::max(model.columnCount() - 1, 0))};
}

/// Returns a line together with the selected ranges that it touches. Qt never merges ranges, and every change
/// of the selection takes time for each.
QItemSelection mergedWithNeighbours(const QItemSelectionModel& selection, int row) {
    int first = row;
    int last = row;
    for (const QItemSelectionRange& range : selection.selection()) {
        if (range.top() <= row && row <= range.bottom() + 1)
            first = range.top();
        if (range.top() <= row + 1 && row <= range.bottom())
            last = range.bottom();
    }
    return selectionOf(*selection.model(), first, last);
}

} // namespace

BOOL CListCtrl::SetItemState(int index, UINT state, UINT mask) {
    if (index == -1 && (mask & LVIS_SELECTED) != 0 && parts_->view != nullptr) {
        if ((state & LVIS_SELECTED) != 0)
            parts_->view->selectAll();
        else
            parts_->view->clearSelection();
        return TRUE;
    }
    if (!parts_->has(index))
        return FALSE;
    if ((mask & state & LVIS_FOCUSED) != 0)
        parts_->selection()->setCurrentIndex(parts_->model.index(index, 0), QItemSelectionModel::NoUpdate);
    if ((mask & state & LVIS_SELECTED) != 0)
        parts_->selection()->select(mergedWithNeighbours(*parts_->selection(), index),
                                    QItemSelectionModel::Select);
    else if ((mask & LVIS_SELECTED) != 0)
        parts_->selection()->select(selectionOf(parts_->model, index, index), QItemSelectionModel::Deselect);
    return TRUE;
}

UINT CListCtrl::GetItemState(int index, UINT mask) const {
    return parts_->has(index) ? parts_->state(index) & mask : 0;
}

int CListCtrl::GetNextItem(int after, int flags) const {
    const auto wanted = ((flags & LVNI_SELECTED) != 0 ? LVIS_SELECTED : 0U) |
                        ((flags & LVNI_FOCUSED) != 0 ? LVIS_FOCUSED : 0U);
    for (int index = std::max(after, -1) + 1; parts_->has(index); ++index)
        if ((parts_->state(index) & wanted) == wanted)
            return index;
    return -1;
}

UINT CListCtrl::GetSelectedCount() const {
    UINT count = 0;
    if (parts_->view != nullptr)
        for (const QItemSelectionRange& range : parts_->selection()->selection())
            count += static_cast<UINT>(range.height());
    return count;
}

// A position is the number of a line plus 1.

POSITION CListCtrl::GetFirstSelectedItemPosition() const {
    const int first = GetNextItem(-1, LVNI_SELECTED);
    return reinterpret_cast<POSITION>(std::intptr_t{first} + 1); // NOLINT(performance-no-int-to-ptr)
}

int CListCtrl::GetNextSelectedItem(POSITION& position) const {
    const int index = static_cast<int>(reinterpret_cast<std::intptr_t>(position)) - 1;
    position = nullptr;
    if (index < 0)
        return -1;
    const int next = GetNextItem(index, LVNI_SELECTED);
    position = reinterpret_cast<POSITION>(std::intptr_t{next} + 1); // NOLINT(performance-no-int-to-ptr)
    return index;
}

int CListCtrl::SetSelectionMark(int index) {
    const int before = GetSelectionMark();
    SetItemState(index, LVIS_FOCUSED, LVIS_FOCUSED);
    return before;
}
