#include "afxcmn.h"

#include "list_ctrl_parts.h"
#include "owner_draw.h"

#include <QHeaderView>
#include <QPainter>

#include <algorithm>
#include <utility>

IMPLEMENT_DYNCREATE(CListCtrl, CWnd)

namespace {

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

DWORD CListCtrl::SetExtendedStyle(DWORD style) {
    return std::exchange(parts_->extendedStyle, style);
}

DWORD CListCtrl::GetExtendedStyle() const {
    return parts_->extendedStyle;
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
