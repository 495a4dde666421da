#include "find_text.h"
#include "owner_draw.h"
#include "qt_text.h"
#include "zuhost/windows/controls.h"
#include "zuhost/windows/widgets.h"

#include <QAbstractItemDelegate>
#include <QListWidget>
#include <QPainter>

IMPLEMENT_DYNCREATE(CListBox, CWnd)

namespace {

constexpr int kData = Qt::UserRole;

QListWidget* list(const CWnd& window) {
    return static_cast<QListWidget*>(zuhost::widgetOf(window));
}

QListWidgetItem* itemOf(const CWnd& window, int index) {
    return list(window) != nullptr ? list(window)->item(index) : nullptr;
}

/// Has the list box draw its rows.
class OwnerDelegate : public QAbstractItemDelegate {
public:
    OwnerDelegate(CListBox& owner, QObject* parent) : QAbstractItemDelegate(parent), owner_(owner) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        zuhost::drawOwnRow(owner_, *painter, option.rect, index.row(),
                           (list(owner_)->currentRow() == index.row() ? ODS_SELECTED : 0U) |
                               (list(owner_)->hasFocus() ? ODS_FOCUS : 0U));
    }

    QSize sizeHint(const QStyleOptionViewItem& /*option*/, const QModelIndex& /*index*/) const override {
        return {0, owner_.GetItemHeight(0)};
    }

private:
    CListBox& owner_;
};

} // namespace

struct CListBox::Rows {
    int height = 0;
    bool isSorted = false;
    bool changing = false; ///< Set while the program, not the user, changes the selection.
};

CListBox::CListBox() : rows_(std::make_unique<Rows>()) {}

CListBox::~CListBox() {
    CWnd::DestroyWindow();
}

BOOL CListBox::Create(DWORD style, const RECT& rectangle, CWnd* parent, UINT id) {
    return CWnd::Create(nullptr, nullptr, style, rectangle, parent, id);
}

QWidget* CListBox::makeWidget(QWidget* parent, DWORD style) {
    auto* const made = new QListWidget(parent);
    made->setUniformItemSizes(true);
    made->setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    made->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    made->setEditTriggers(QAbstractItemView::NoEditTriggers);
    if ((style & LBS_OWNERDRAWFIXED) != 0) {
        rows_->height = zuhost::ownRowHeight(*this, *made);
        made->setItemDelegate(new OwnerDelegate(*this, made));
    }
    rows_->isSorted = (style & LBS_SORT) != 0;
    const auto notify = [this, made] {
        if (fromWidget(made) != nullptr && !rows_->changing)
            notifyParent(LBN_SELCHANGE);
    };
    if ((style & (LBS_MULTIPLESEL | LBS_EXTENDEDSEL)) != 0) {
        made->setSelectionMode((style & LBS_EXTENDEDSEL) != 0 ? QAbstractItemView::ExtendedSelection
                                                              : QAbstractItemView::MultiSelection);
        QObject::connect(made, &QListWidget::itemSelectionChanged, made, notify);
    } else {
        QObject::connect(made, &QListWidget::currentRowChanged, made, notify);
    }
    QObject::connect(made, &QListWidget::itemDoubleClicked, made,
                     [made] { notifyParentOf(made, LBN_DBLCLK); });
    return made;
}

int CListBox::GetCount() const {
    return list(*this) != nullptr ? list(*this)->count() : LB_ERR;
}

int CListBox::AddString(const wchar_t* text) {
    const auto textAt = [this](int i) { return list(*this)->item(i)->text(); };
    return InsertString(rows_->isSorted ? zuhost::sortedPlace(GetCount(), zuhost::toQt(text), textAt) : -1,
                        text);
}

int CListBox::InsertString(int index, const wchar_t* text) {
    if (list(*this) == nullptr || index > GetCount())
        return LB_ERR;
    const int place = index < 0 ? GetCount() : index;
    rows_->changing = true;
    list(*this)->insertItem(place, zuhost::toQt(text));
    rows_->changing = false;
    return place;
}

int CListBox::DeleteString(UINT index) {
    const QListWidgetItem* const item = itemOf(*this, static_cast<int>(index));
    if (item == nullptr)
        return LB_ERR;
    const bool wasSelected = GetCurSel() == static_cast<int>(index);
    rows_->changing = true;
    delete item;
    if (wasSelected)
        list(*this)->setCurrentRow(-1);
    rows_->changing = false;
    return GetCount();
}

void CListBox::ResetContent() {
    if (list(*this) == nullptr)
        return;
    rows_->changing = true;
    list(*this)->clear();
    rows_->changing = false;
}

int CListBox::GetText(int index, CString& text) const {
    const QListWidgetItem* const item = itemOf(*this, index);
    if (item == nullptr)
        return LB_ERR;
    text = zuhost::fromQt(item->text());
    return text.GetLength();
}

int CListBox::GetText(int index, wchar_t* text) const {
    CString found;
    const int length = GetText(index, found);
    return length != LB_ERR && lstrcpy(text, found) != nullptr ? length : LB_ERR;
}

int CListBox::GetTextLen(int index) const {
    CString text;
    return GetText(index, text);
}

int CListBox::SelectString(int after, const wchar_t* text) {
    const int index = FindString(after, text);
    return index != LB_ERR ? SetCurSel(index) : LB_ERR;
}

bool CListBox::isMultiple() const {
    return list(*this) != nullptr && list(*this)->selectionMode() != QAbstractItemView::SingleSelection;
}

int CListBox::GetSel(int index) const {
    const QListWidgetItem* const item = itemOf(*this, index);
    return item == nullptr ? LB_ERR : (item->isSelected() ? 1 : 0);
}

int CListBox::SetSel(int index, BOOL select) {
    if (!isMultiple() || (index != -1 && itemOf(*this, index) == nullptr))
        return LB_ERR;
    rows_->changing = true;
    if (index != -1)
        itemOf(*this, index)->setSelected(select != FALSE);
    else if (select != FALSE)
        list(*this)->selectAll();
    else
        list(*this)->clearSelection();
    rows_->changing = false;
    return 0;
}

int CListBox::GetSelCount() const {
    return isMultiple() ? static_cast<int>(list(*this)->selectedItems().size()) : LB_ERR;
}

int CListBox::GetSelItems(int most, int* indices) const {
    if (!isMultiple() || indices == nullptr)
        return LB_ERR;
    int count = 0;
    for (int i = 0; i < GetCount() && count < most; ++i)
        if (list(*this)->item(i)->isSelected())
            indices[count++] = i;
    return count;
}

int CListBox::FindStringExact(int after, const wchar_t* text) const {
    return zuhost::findText(
        GetCount(), after, zuhost::toQt(text), [this](int i) { return list(*this)->item(i)->text(); },
        zuhost::equals);
}

int CListBox::FindString(int after, const wchar_t* text) const {
    return zuhost::findText(
        GetCount(), after, zuhost::toQt(text), [this](int i) { return list(*this)->item(i)->text(); },
        zuhost::beginsWith);
}

std::uintptr_t CListBox::GetItemData(int index) const {
    const QListWidgetItem* const item = itemOf(*this, index);
    return item != nullptr ? static_cast<std::uintptr_t>(item->data(kData).toULongLong())
                           : static_cast<std::uintptr_t>(LB_ERR);
}

int CListBox::SetItemData(int index, std::uintptr_t data) {
    QListWidgetItem* const item = itemOf(*this, index);
    if (item == nullptr)
        return LB_ERR;
    item->setData(kData, static_cast<qulonglong>(data));
    return 0;
}

int CListBox::GetCurSel() const {
    return list(*this) != nullptr ? list(*this)->currentRow() : LB_ERR;
}

int CListBox::SetCurSel(int index) {
    if (list(*this) == nullptr)
        return LB_ERR;
    rows_->changing = true;
    list(*this)->setCurrentRow(index >= 0 && index < GetCount() ? index : -1);
    rows_->changing = false;
    return GetCurSel();
}

int CListBox::GetTopIndex() const {
    return list(*this) != nullptr ? std::max(list(*this)->indexAt({0, 0}).row(), 0) : LB_ERR;
}

int CListBox::SetTopIndex(int index) {
    QListWidgetItem* const item = itemOf(*this, index);
    if (item == nullptr)
        return LB_ERR;
    list(*this)->scrollToItem(item, QAbstractItemView::PositionAtTop);
    return 0;
}

int CListBox::GetItemRect(int index, RECT* rectangle) const {
    const QListWidgetItem* const item = itemOf(*this, index);
    if (item == nullptr || rectangle == nullptr)
        return LB_ERR;
    const QRect row = list(*this)->visualItemRect(item);
    *rectangle = {row.left(), row.top(), row.left() + row.width(), row.top() + row.height()};
    return 0;
}

UINT CListBox::ItemFromPoint(CPoint point, BOOL& outside) const {
    outside = TRUE;
    if (list(*this) == nullptr)
        return 0;
    const QModelIndex index = list(*this)->indexAt({point.x, point.y});
    outside = index.isValid() ? FALSE : TRUE;
    return static_cast<UINT>(index.isValid() ? index.row() : std::max(GetCount() - 1, 0));
}

int CListBox::SetItemHeight(int /*index*/, UINT height) {
    rows_->height = static_cast<int>(height);
    if (list(*this) != nullptr)
        list(*this)->doItemsLayout();
    return 0;
}

int CListBox::GetItemHeight(int /*index*/) const {
    return rows_->height;
}

void CListBox::DrawItem(LPDRAWITEMSTRUCT /*draw*/) {}

void CListBox::MeasureItem(LPMEASUREITEMSTRUCT /*measure*/) {}
