#include "afxwin.h"

#include "zuhost/desktop.h"

#include <QComboBox>

IMPLEMENT_DYNCREATE(CComboBox, CWnd)

namespace {

QComboBox* box(const CWnd& window) {
    return static_cast<QComboBox*>(window.widget());
}

bool hasItem(const QComboBox* list, int index) {
    return list != nullptr && index >= 0 && index < list->count();
}

} // namespace

BOOL CComboBox::Create(DWORD style, const RECT& rectangle, CWnd* parent, UINT /*id*/) {
    zuhost::ensureDesktop();
    auto* const list = new QComboBox(parent != nullptr ? parent->widget() : nullptr);
    list->setGeometry(rectangle.left, rectangle.top, rectangle.right - rectangle.left,
                      rectangle.bottom - rectangle.top);
    list->setEditable((style & CBS_DROPDOWNLIST) == CBS_DROPDOWN);
    attachWidget(list);
    list->setVisible((style & WS_VISIBLE) != 0 && parent != nullptr);
    return TRUE;
}

int CComboBox::GetCount() const {
    return box(*this) != nullptr ? box(*this)->count() : CB_ERR;
}

int CComboBox::GetLBTextLen(int index) const {
    CString text;
    return GetLBText(index, text);
}

int CComboBox::GetLBText(int index, CString& text) const {
    if (!hasItem(box(*this), index))
        return CB_ERR;
    text = box(*this)->itemText(index).toStdWString().c_str();
    return text.GetLength();
}

int CComboBox::AddString(const wchar_t* text) {
    return InsertString(GetCount(), text);
}

int CComboBox::InsertString(int index, const wchar_t* text) {
    if (box(*this) == nullptr || index > GetCount())
        return CB_ERR;
    const int place = index < 0 ? GetCount() : index;
    box(*this)->insertItem(place, QString::fromWCharArray(text));
    return place;
}

int CComboBox::DeleteString(UINT index) {
    if (!hasItem(box(*this), static_cast<int>(index)))
        return CB_ERR;
    box(*this)->removeItem(static_cast<int>(index));
    return GetCount();
}

void CComboBox::ResetContent() {
    if (box(*this) != nullptr)
        box(*this)->clear();
}

int CComboBox::FindStringExact(int after, const wchar_t* text) const {
    const QString wanted = QString::fromWCharArray(text);
    const int count = wanted.isEmpty() ? 0 : GetCount();
    for (int step = 0; step < count; ++step) {
        const int index = (std::max(after, -1) + 1 + step) % count;
        if (box(*this)->itemText(index).compare(wanted, Qt::CaseInsensitive) == 0)
            return index;
    }
    return CB_ERR;
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
