#include "list_ctrl_parts.h"
#include "qt_text.h"

#include <QHeaderView>

#include <algorithm>

namespace {

Qt::Alignment alignmentOf(int format) {
    return format == LVCFMT_RIGHT    ? Qt::AlignRight
           : format == LVCFMT_CENTER ? Qt::AlignHCenter
                                     : Qt::AlignLeft;
}

int formatOf(Qt::Alignment alignment) {
    return alignment == Qt::AlignRight     ? LVCFMT_RIGHT
           : alignment == Qt::AlignHCenter ? LVCFMT_CENTER
                                           : LVCFMT_LEFT;
}

} // namespace

int CListCtrl::InsertColumn(int index, const wchar_t* heading, int format, int width, int /*subItem*/) {
    if (parts_->view == nullptr || index < 0)
        return -1;
    const int place = std::min(index, GetColumnCount());
    parts_->model.insertHeading(place, zuhost::toQt(heading), alignmentOf(format));
    parts_->view->setColumnWidth(place, width);
    return place;
}

int CListCtrl::InsertColumn(int index, const LVCOLUMN* column) {
    if (column == nullptr)
        return -1;
    constexpr int kWidth = 100;
    const UINT mask = column->mask;
    return InsertColumn(index, (mask & LVCF_TEXT) != 0 ? column->pszText : nullptr,
                        (mask & LVCF_FMT) != 0 ? column->fmt : LVCFMT_LEFT,
                        (mask & LVCF_WIDTH) != 0 ? column->cx : kWidth);
}

BOOL CListCtrl::DeleteColumn(int index) {
    if (parts_->view == nullptr || index < 0 || index >= GetColumnCount())
        return FALSE;
    parts_->model.removeHeading(index);
    return TRUE;
}

BOOL CListCtrl::GetColumn(int index, LVCOLUMN* column) const {
    if (column == nullptr || index < 0 || index >= GetColumnCount())
        return FALSE;
    if ((column->mask & LVCF_TEXT) != 0)
        lstrcpyn(column->pszText, zuhost::fromQt(parts_->model.heading(index)), column->cchTextMax);
    column->cx = GetColumnWidth(index);
    column->fmt = formatOf(parts_->model.alignment(index));
    column->iSubItem = index;
    return TRUE;
}

BOOL CListCtrl::SetColumn(int index, const LVCOLUMN* column) {
    if (column == nullptr || index < 0 || index >= GetColumnCount())
        return FALSE;
    zuhost::ReportModel& model = parts_->model;
    model.setHeading(index,
                     (column->mask & LVCF_TEXT) != 0 ? zuhost::toQt(column->pszText) : model.heading(index),
                     (column->mask & LVCF_FMT) != 0 ? alignmentOf(column->fmt) : model.alignment(index));
    if ((column->mask & LVCF_WIDTH) != 0)
        SetColumnWidth(index, column->cx);
    return TRUE;
}

int CListCtrl::GetColumnCount() const {
    return parts_->model.columnCount();
}

int CListCtrl::GetColumnWidth(int column) const {
    return parts_->view != nullptr && column >= 0 && column < GetColumnCount()
               ? parts_->view->columnWidth(column)
               : 0;
}

BOOL CListCtrl::SetColumnWidth(int column, int width) {
    if (parts_->view == nullptr || column < 0 || column >= GetColumnCount())
        return FALSE;
    QHeaderView& header = *parts_->view->header();
    const bool isLast = column == GetColumnCount() - 1;
    const bool fills = isLast && width == LVSCW_AUTOSIZE_USEHEADER;
    if (isLast)
        header.setStretchLastSection(false);
    // A filling column grows only from the width that it has.
    parts_->view->setColumnWidth(column, fills ? header.minimumSectionSize() : width);
    if (fills)
        header.setStretchLastSection(true);
    return TRUE;
}
