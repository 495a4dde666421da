#include "qt_text.h"
#include "select_text.h"
#include "zuhost/windows/controls.h"
#include "zuhost/windows/widgets.h"

#include <QLineEdit>

IMPLEMENT_DYNCREATE(CEdit, CWnd)

BEGIN_MESSAGE_MAP(CEdit, CWnd)
ON_WM_KILLFOCUS()
END_MESSAGE_MAP()

namespace {

QLineEdit* lineOf(const CWnd& window) {
    return static_cast<QLineEdit*>(zuhost::widgetOf(window));
}

} // namespace

BOOL CEdit::Create(DWORD style, const RECT& rectangle, CWnd* parent, UINT id) {
    return CWnd::Create(nullptr, nullptr, style, rectangle, parent, id);
}

QWidget* CEdit::makeWidget(QWidget* parent, DWORD style) {
    auto* const line = new QLineEdit(parent);
    line->setReadOnly((style & ES_READONLY) != 0);
    line->setFrame((style & WS_BORDER) != 0);
    if ((style & ES_PASSWORD) != 0)
        line->setEchoMode(QLineEdit::Password);
    QObject::connect(line, &QLineEdit::textChanged, line, [line] { notifyParentOf(line, EN_CHANGE); });
    return line;
}

void CEdit::SetSel(int start, int end, BOOL /*noScroll*/) {
    zuhost::selectText(static_cast<QLineEdit*>(widget()), start, end);
}

void CEdit::GetSel(int& start, int& end) const {
    const QLineEdit* const line = lineOf(*this);
    start = end = 0;
    if (line == nullptr)
        return;
    start = line->hasSelectedText() ? line->selectionStart() : line->cursorPosition();
    end = line->hasSelectedText() ? line->selectionEnd() : start;
}

DWORD CEdit::GetSel() const {
    int start = 0;
    int end = 0;
    GetSel(start, end);
    return static_cast<DWORD>(MAKELONG(static_cast<UINT>(start), static_cast<UINT>(end)));
}

void CEdit::ReplaceSel(const wchar_t* text, BOOL /*canUndo*/) {
    if (lineOf(*this) != nullptr)
        lineOf(*this)->insert(zuhost::toQt(text));
}

void CEdit::SetLimitText(UINT count) {
    constexpr UINT kMost = 32767;
    if (lineOf(*this) != nullptr)
        lineOf(*this)->setMaxLength(static_cast<int>(count == 0 ? kMost : std::min(count, kMost)));
}

UINT CEdit::GetLimitText() const {
    return lineOf(*this) != nullptr ? static_cast<UINT>(lineOf(*this)->maxLength()) : 0;
}

BOOL CEdit::GetModify() const {
    return lineOf(*this) != nullptr && lineOf(*this)->isModified() ? TRUE : FALSE;
}

void CEdit::SetModify(BOOL modified) {
    if (lineOf(*this) != nullptr)
        lineOf(*this)->setModified(modified != FALSE);
}

BOOL CEdit::CanUndo() const {
    return lineOf(*this) != nullptr && lineOf(*this)->isUndoAvailable() ? TRUE : FALSE;
}

BOOL CEdit::Undo() {
    if (CanUndo() == FALSE)
        return FALSE;
    lineOf(*this)->undo();
    return TRUE;
}

void CEdit::Clear() {
    ReplaceSel(L"");
}

void CEdit::Copy() {
    if (lineOf(*this) != nullptr)
        lineOf(*this)->copy();
}

void CEdit::Cut() {
    if (lineOf(*this) != nullptr)
        lineOf(*this)->cut();
}

void CEdit::Paste() {
    if (lineOf(*this) != nullptr)
        lineOf(*this)->paste();
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
