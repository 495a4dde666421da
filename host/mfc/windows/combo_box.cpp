#include "find_text.h"
#include "owner_draw.h"
#include "qt_text.h"
#include "select_text.h"
#include "zuhost/windows/controls.h"
#include "zuhost/windows/widgets.h"

#include <QAbstractItemDelegate>
#include <QAbstractItemView>
#include <QComboBox>
#include <QLineEdit>

IMPLEMENT_DYNCREATE(CComboBox, CWnd)

BEGIN_MESSAGE_MAP(CComboBox, CWnd)
ON_WM_KILLFOCUS()
END_MESSAGE_MAP()

namespace {

constexpr const char* kSorted = "zuSorted";

QComboBox* box(const CWnd& window) {
    return static_cast<QComboBox*>(zuhost::widgetOf(window));
}

bool hasItem(const QComboBox* list, int index) {
    return list != nullptr && index >= 0 && index < list->count();
}

/// Notifies when its list opens and closes; Qt has no signals for it.
class NotifyingComboBox : public QComboBox {
public:
    using Notify = void (*)(const QWidget* box, UINT code);

    NotifyingComboBox(QWidget* parent, Notify notify) : QComboBox(parent), notify_(notify) {}

    void showPopup() override {
        notify_(this, CBN_DROPDOWN);
        QComboBox::showPopup();
    }
    void hidePopup() override {
        const bool wasOpen = view()->isVisible();
        QComboBox::hidePopup();
        if (wasOpen)
            notify_(this, CBN_CLOSEUP);
    }

private:
    Notify notify_;
};

/// Has the combo box draw the rows of its open list.
class OwnerDelegate : public QAbstractItemDelegate {
public:
    OwnerDelegate(CComboBox& owner, QObject* parent) : QAbstractItemDelegate(parent), owner_(owner) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        zuhost::drawOwnRow(owner_, *painter, option.rect, index.row(),
                           option.state.testFlag(QStyle::State_Selected) ? ODS_SELECTED : 0U);
    }
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& /*index*/) const override {
        return {0, zuhost::ownRowHeight(owner_, *option.widget)};
    }

private:
    CComboBox& owner_;
};

} // namespace

BOOL CComboBox::Create(DWORD style, const RECT& rectangle, CWnd* parent, UINT id) {
    return CWnd::Create(nullptr, nullptr, style, rectangle, parent, id);
}

QWidget* CComboBox::makeWidget(QWidget* parent, DWORD style) {
    auto* const made = new NotifyingComboBox(parent, &CComboBox::notifyParentOf);
    made->setEditable((style & CBS_DROPDOWNLIST) == CBS_DROPDOWN);
    made->setInsertPolicy(QComboBox::NoInsert);
    made->setProperty(kSorted, (style & CBS_SORT) != 0);
    if ((style & CBS_OWNERDRAWFIXED) != 0)
        made->setItemDelegate(new OwnerDelegate(*this, made));
    made->setPlaceholderText(QStringLiteral(" ")); // Without it Qt selects the first item inserted.
    QObject::connect(made, &QComboBox::activated, made, [made](int) {
        notifyParentOf(made, CBN_SELENDOK);
        notifyParentOf(made, CBN_SELCHANGE);
    });
    QObject::connect(made, &QComboBox::editTextChanged, made,
                     [made] { notifyParentOf(made, CBN_EDITCHANGE); });
    return made;
}

int CComboBox::GetCount() const {
    return box(*this) != nullptr ? box(*this)->count() : CB_ERR;
}

int CComboBox::GetLBTextLen(int index) const {
    CString text;
    return GetLBText(index, text);
}

int CComboBox::GetLBText(int index, wchar_t* text) const {
    CString found;
    const int length = GetLBText(index, found);
    return length != CB_ERR && lstrcpy(text, found) != nullptr ? length : CB_ERR;
}

int CComboBox::GetLBText(int index, CString& text) const {
    if (!hasItem(box(*this), index))
        return CB_ERR;
    text = zuhost::fromQt(box(*this)->itemText(index));
    return text.GetLength();
}

int CComboBox::AddString(const wchar_t* text) {
    if (box(*this) == nullptr)
        return CB_ERR;
    const bool isSorted = box(*this)->property(kSorted).toBool();
    const auto textAt = [this](int i) { return box(*this)->itemText(i); };
    return InsertString(isSorted ? zuhost::sortedPlace(GetCount(), zuhost::toQt(text), textAt) : -1, text);
}

int CComboBox::InsertString(int index, const wchar_t* text) {
    if (box(*this) == nullptr || index > GetCount())
        return CB_ERR;
    const int place = index < 0 ? GetCount() : index;
    box(*this)->insertItem(place, zuhost::toQt(text));
    return place;
}

int CComboBox::DeleteString(UINT index) {
    if (!hasItem(box(*this), static_cast<int>(index)))
        return CB_ERR;
    const bool wasSelected = GetCurSel() == static_cast<int>(index);
    box(*this)->removeItem(static_cast<int>(index));
    if (wasSelected)
        box(*this)->setCurrentIndex(-1);
    return GetCount();
}

void CComboBox::ResetContent() {
    if (box(*this) != nullptr)
        box(*this)->clear();
}

int CComboBox::FindStringExact(int after, const wchar_t* text) const {
    return zuhost::findText(
        GetCount(), after, zuhost::toQt(text), [this](int i) { return box(*this)->itemText(i); },
        zuhost::equals);
}

int CComboBox::FindString(int after, const wchar_t* text) const {
    return zuhost::findText(
        GetCount(), after, zuhost::toQt(text), [this](int i) { return box(*this)->itemText(i); },
        zuhost::beginsWith);
}

int CComboBox::SelectString(int after, const wchar_t* text) {
    const int index = FindString(after, text);
    return index != CB_ERR ? SetCurSel(index) : CB_ERR;
}

DWORD_PTR CComboBox::GetItemData(int index) const {
    return hasItem(box(*this), index) ? static_cast<DWORD_PTR>(box(*this)->itemData(index).toULongLong())
                                      : static_cast<DWORD_PTR>(CB_ERR);
}

int CComboBox::SetItemData(int index, DWORD_PTR data) {
    if (!hasItem(box(*this), index))
        return CB_ERR;
    box(*this)->setItemData(index, static_cast<qulonglong>(data));
    return 0;
}

DWORD CComboBox::GetEditSel() const {
    const QLineEdit* const line = box(*this) != nullptr ? box(*this)->lineEdit() : nullptr;
    if (line == nullptr)
        return static_cast<DWORD>(CB_ERR);
    const int start = line->hasSelectedText() ? line->selectionStart() : line->cursorPosition();
    const int end = line->hasSelectedText() ? line->selectionEnd() : start;
    return static_cast<DWORD>(MAKELONG(static_cast<UINT>(start), static_cast<UINT>(end)));
}

BOOL CComboBox::LimitText(int count) {
    constexpr int kMost = 32767;
    if (box(*this) != nullptr && box(*this)->lineEdit() != nullptr)
        box(*this)->lineEdit()->setMaxLength(count <= 0 ? kMost : count);
    return TRUE;
}

int CComboBox::GetCurSel() const {
    return box(*this) != nullptr ? box(*this)->currentIndex() : CB_ERR;
}

int CComboBox::SetCurSel(int index) {
    if (box(*this) == nullptr)
        return CB_ERR;
    box(*this)->setCurrentIndex(hasItem(box(*this), index) ? index : -1);
    return box(*this)->currentIndex();
}

void CComboBox::ShowDropDown(BOOL show) {
    if (box(*this) == nullptr)
        return;
    if (show != FALSE)
        box(*this)->showPopup();
    else
        box(*this)->hidePopup();
}

BOOL CComboBox::GetDroppedState() const {
    return box(*this) != nullptr && box(*this)->view()->isVisible() ? TRUE : FALSE;
}

void CComboBox::SetEditSel(int start, int end) {
    zuhost::selectText(box(*this) != nullptr ? box(*this)->lineEdit() : nullptr, start, end);
}

int CComboBox::SetDroppedWidth(UINT width) {
    if (box(*this) == nullptr)
        return CB_ERR;
    box(*this)->view()->setMinimumWidth(static_cast<int>(width));
    return static_cast<int>(width);
}

void CComboBox::DrawItem(LPDRAWITEMSTRUCT /*draw*/) {}

void CComboBox::MeasureItem(LPMEASUREITEMSTRUCT /*measure*/) {}

void CComboBox::OnKillFocus(CWnd* newFocus) {
    CWnd::OnKillFocus(newFocus);
    // The focus may have moved to the box's own list.
    if (GetDroppedState() == FALSE)
        notifyParent(CBN_KILLFOCUS);
}
