#include "afxcmn.h"

#include "find_text.h"
#include "owner_draw.h"
#include "qt_text.h"
#include "report_model.h"

#include <QHeaderView>
#include <QPainter>
#include <QPointer>
#include <QTreeView>

IMPLEMENT_DYNCREATE(CListCtrl, CWnd)

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

void configure(QTreeView& view, DWORD style) {
    view.setRootIsDecorated(false);
    view.setItemsExpandable(false);
    view.setUniformRowHeights(true);
    view.setAllColumnsShowFocus(true);
    view.setEditTriggers(QAbstractItemView::NoEditTriggers);
    view.setSelectionMode((style & LVS_SINGLESEL) != 0 ? QAbstractItemView::SingleSelection
                                                       : QAbstractItemView::ExtendedSelection);
    view.header()->setSectionsClickable((style & LVS_NOSORTHEADER) == 0);
    view.header()->setStretchLastSection(false);
    view.header()->setSectionsMovable(false);
}

/// A view whose lines are drawn by the list control when it is owner-drawn.
class ReportView : public QTreeView {
public:
    ReportView(CListCtrl& owner, QWidget* parent, bool ownerDrawn)
        : QTreeView(parent), owner_(owner), ownerDrawn_(ownerDrawn) {}

protected:
    void drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                 const QModelIndex& index) const override {
        if (!ownerDrawn_)
            return QTreeView::drawRow(painter, option, index);
        const QRect& row = option.rect;
        zuhost::drawOwnRow(
            owner_, *painter,
            QRect(row.left() - header()->offset(), row.top(), header()->length(), row.height()), index.row(),
            (selectionModel()->isRowSelected(index.row(), {}) ? ODS_SELECTED : 0U) |
                (currentIndex().row() == index.row() && hasFocus() ? ODS_FOCUS : 0U));
    }

private:
    CListCtrl& owner_;
    bool ownerDrawn_;
};

} // namespace

struct CListCtrl::Parts {
    zuhost::ReportModel model;
    QPointer<ReportView> view;
    DWORD extendedStyle = 0;

    [[nodiscard]] QItemSelectionModel* selection() const { return view->selectionModel(); }
    [[nodiscard]] bool has(int index) const { return view != nullptr && model.hasLine(index); }
    [[nodiscard]] UINT state(int index) const {
        return (selection()->isRowSelected(index, {}) ? LVIS_SELECTED : 0U) |
               (view->currentIndex().row() == index ? LVIS_FOCUSED : 0U);
    }

    // A handler may delete the control while its view still emits signals: each call looks the control up.

    /// Sends LVN_ITEMCHANGED for each line of the ranges.
    static void notifyStates(const QWidget* view, const QItemSelection& ranges, UINT before, UINT now);
    static void notifyClick(const QWidget* view, int index, UINT code);
};

void CListCtrl::Parts::notifyStates(const QWidget* view, const QItemSelection& ranges, UINT before,
                                    UINT now) {
    for (const QItemSelectionRange& range : ranges)
        for (int row = range.top(); row <= range.bottom(); ++row) {
            auto* const list = static_cast<CListCtrl*>(fromWidget(view));
            if (list == nullptr)
                return;
            NMLISTVIEW change;
            change.hdr.code = LVN_ITEMCHANGED;
            change.iItem = row;
            change.uOldState = before;
            change.uNewState = now;
            change.uChanged = LVIF_STATE;
            change.lParam = static_cast<LPARAM>(list->GetItemData(row));
            list->notifyParent(change.hdr);
        }
}

void CListCtrl::Parts::notifyClick(const QWidget* view, int index, UINT code) {
    auto* const list = static_cast<CListCtrl*>(fromWidget(view));
    if (list == nullptr)
        return;
    NMLISTVIEW click;
    click.hdr.code = code;
    click.iItem = index;
    list->notifyParent(click.hdr);
}

CListCtrl::CListCtrl() : parts_(std::make_unique<Parts>()) {}

CListCtrl::~CListCtrl() {
    CWnd::DestroyWindow();
}

BOOL CListCtrl::Create(DWORD style, const RECT& rectangle, CWnd* parent, UINT id) {
    return CWnd::Create(nullptr, nullptr, style, rectangle, parent, id);
}

QWidget* CListCtrl::makeWidget(QWidget* parent, DWORD style) {
    auto* const made = new ReportView(*this, parent, (style & LVS_OWNERDRAWFIXED) != 0);
    configure(*made, style);
    if ((style & LVS_OWNERDRAWFIXED) != 0)
        parts_->model.setLineHeight(zuhost::ownRowHeight(*this, *made));
    made->setModel(&parts_->model);
    parts_->view = made;
    QObject::connect(made->selectionModel(), &QItemSelectionModel::selectionChanged, made,
                     [made](const QItemSelection& selected, const QItemSelection& deselected) {
                         Parts::notifyStates(made, deselected, LVIS_SELECTED, 0);
                         Parts::notifyStates(made, selected, 0, LVIS_SELECTED);
                     });
    QObject::connect(made, &QTreeView::clicked, made,
                     [made](const QModelIndex& index) { Parts::notifyClick(made, index.row(), NM_CLICK); });
    QObject::connect(made, &QTreeView::doubleClicked, made,
                     [made](const QModelIndex& index) { Parts::notifyClick(made, index.row(), NM_DBLCLK); });
    return made;
}

// ---- columns

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

// ---- lines

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

DWORD CListCtrl::SetExtendedStyle(DWORD style) {
    return std::exchange(parts_->extendedStyle, style);
}

DWORD CListCtrl::GetExtendedStyle() const {
    return parts_->extendedStyle;
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

// ---- states

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

int CListCtrl::GetTopIndex() const {
    return parts_->view != nullptr ? std::max(parts_->view->indexAt({0, 0}).row(), 0) : 0;
}

BOOL CListCtrl::EnsureVisible(int index, BOOL /*partlyWillDo*/) {
    if (!parts_->has(index))
        return FALSE;
    parts_->view->scrollTo(parts_->model.index(index, 0));
    return TRUE;
}

BOOL CListCtrl::GetItemRect(int index, RECT* rectangle) const {
    if (!parts_->has(index) || rectangle == nullptr)
        return FALSE;
    const QRect row = parts_->view->visualRect(parts_->model.index(index, 0));
    *rectangle = {0, row.top(), parts_->view->viewport()->width(), row.top() + row.height()};
    return TRUE;
}

int CListCtrl::HitTest(CPoint point) const {
    return parts_->view != nullptr ? parts_->view->indexAt({point.x, point.y}).row() : -1;
}

void CListCtrl::MeasureItem(LPMEASUREITEMSTRUCT /*measure*/) {}

void CListCtrl::DrawItem(LPDRAWITEMSTRUCT /*draw*/) {}
