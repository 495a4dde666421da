#include "qt_text.h"
#include "select_text.h"
#include "zuhost/windows/controls.h"

#include <QLineEdit>

IMPLEMENT_DYNCREATE(CEdit, CWnd)

BEGIN_MESSAGE_MAP(CEdit, CWnd)
ON_WM_KILLFOCUS()
END_MESSAGE_MAP()

BOOL CEdit::Create(DWORD style, const RECT& rectangle, CWnd* parent, UINT id) {
    return CWnd::Create(nullptr, nullptr, style, rectangle, parent, id);
}

QWidget* CEdit::makeWidget(QWidget* parent, DWORD style) {
    auto* const line = new QLineEdit(parent);
    line->setReadOnly((style & ES_READONLY) != 0);
    line->setFrame((style & WS_BORDER) != 0);
    QObject::connect(line, &QLineEdit::textChanged, line, [line] { notifyParentOf(line, EN_CHANGE); });
    return line;
}

void CEdit::SetSel(int start, int end, BOOL /*noScroll*/) {
    zuhost::selectText(static_cast<QLineEdit*>(widget()), start, end);
}

BOOL CEdit::SetReadOnly(BOOL readOnly) {
    if (widget() == nullptr)
        return FALSE;
    static_cast<QLineEdit*>(widget())->setReadOnly(readOnly != FALSE);
    return TRUE;
}

BOOL CEdit::SetCueBanner(const wchar_t* text) {
    if (widget() == nullptr)
        return FALSE;
    static_cast<QLineEdit*>(widget())->setPlaceholderText(zuhost::toQt(text));
    return TRUE;
}

void CEdit::OnKillFocus(CWnd* newFocus) {
    CWnd::OnKillFocus(newFocus);
    notifyParent(EN_KILLFOCUS);
}
