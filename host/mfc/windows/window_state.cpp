#include "qt_text.h"
#include "window_link.h"
#include "zuhost/windows/frame.h"
#include "zuhost/windows/widgets.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QFrame>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>

// A window's appearance, position and focus. Every function does nothing while there is no window.

BOOL CWnd::IsWindowVisible() const {
    return widget() != nullptr && widget()->isVisible() ? TRUE : FALSE;
}

BOOL CWnd::ShowWindow(int command) {
    const BOOL before = IsWindowVisible();
    if (widget() != nullptr)
        widget()->setVisible(command != SW_HIDE);
    return before;
}

BOOL CWnd::IsWindowEnabled() const {
    return widget() != nullptr && widget()->isEnabled() ? TRUE : FALSE;
}

BOOL CWnd::EnableWindow(BOOL enable) {
    const BOOL wasDisabled = IsWindowEnabled() == FALSE ? TRUE : FALSE;
    if (widget() != nullptr)
        widget()->setEnabled(enable != FALSE);
    return wasDisabled;
}

void CWnd::SetWindowText(const wchar_t* text) {
    const QString shown = zuhost::toQt(text);
    if (auto* const button = qobject_cast<QAbstractButton*>(widget()))
        button->setText(shown);
    else if (auto* const line = qobject_cast<QLineEdit*>(widget()))
        line->setText(shown);
    else if (auto* const box = qobject_cast<QComboBox*>(widget()))
        box->setEditText(shown);
    else if (auto* const label = qobject_cast<QLabel*>(widget()))
        label->setText(shown);
    else if (auto* const group = qobject_cast<QGroupBox*>(widget()))
        group->setTitle(shown);
    else if (widget() != nullptr)
        widget()->setWindowTitle(shown);
}

void CWnd::GetWindowText(CString& text) const {
    text.Empty();
    if (const auto* const button = qobject_cast<QAbstractButton*>(widget()))
        text = zuhost::fromQt(button->text());
    else if (const auto* const line = qobject_cast<QLineEdit*>(widget()))
        text = zuhost::fromQt(line->text());
    else if (const auto* const box = qobject_cast<QComboBox*>(widget()))
        text = zuhost::fromQt(box->currentText());
    else if (const auto* const label = qobject_cast<QLabel*>(widget()))
        text = zuhost::fromQt(label->text());
    else if (const auto* const group = qobject_cast<QGroupBox*>(widget()))
        text = zuhost::fromQt(group->title());
    else if (widget() != nullptr)
        text = zuhost::fromQt(widget()->windowTitle());
}

int CWnd::GetWindowText(wchar_t* buffer, int size) const {
    CString text;
    GetWindowText(text);
    return lstrcpyn(buffer, text, size) != nullptr ? lstrlen(buffer) : 0;
}

int CWnd::GetWindowTextLength() const {
    CString text;
    GetWindowText(text);
    return text.GetLength();
}

void CWnd::SetFont(const CFont* font, BOOL /*redraw*/) {
    if (widget() != nullptr)
        widget()->setFont(font != nullptr ? font->font() : QApplication::font());
}

void CWnd::MoveWindow(int x, int y, int width, int height, BOOL /*redraw*/) {
    if (widget() != nullptr)
        widget()->setGeometry(x, y, std::max(width, 0), std::max(height, 0));
}

void CWnd::MoveWindow(const RECT& rectangle, BOOL redraw) {
    const CRect place(rectangle);
    MoveWindow(place.left, place.top, place.Width(), place.Height(), redraw);
}

void CWnd::GetClientRect(RECT* rectangle) const {
    *rectangle = RECT{};
    if (const QWidget* const client = clientWidget())
        *rectangle = {0, 0, client->width(), client->height()};
}

void CWnd::GetWindowRect(RECT* rectangle) const {
    *rectangle = RECT{};
    if (widget() == nullptr)
        return;
    const QPoint corner = widget()->mapToGlobal(QPoint(0, 0));
    *rectangle = CRect(CPoint(corner.x(), corner.y()), CSize(widget()->width(), widget()->height()));
}

void CWnd::ScreenToClient(POINT* point) const {
    if (clientWidget() == nullptr)
        return;
    const QPoint inWindow = clientWidget()->mapFromGlobal(QPoint(point->x, point->y));
    *point = {inWindow.x(), inWindow.y()};
}

void CWnd::ClientToScreen(POINT* point) const {
    if (clientWidget() == nullptr)
        return;
    const QPoint onScreen = clientWidget()->mapToGlobal(QPoint(point->x, point->y));
    *point = {onScreen.x(), onScreen.y()};
}

void CWnd::Invalidate(BOOL /*erase*/) {
    if (clientWidget() != nullptr)
        clientWidget()->update();
}

void CWnd::InvalidateRect(const RECT* rectangle, BOOL erase) {
    if (rectangle == nullptr)
        return Invalidate(erase);
    const CRect part(*rectangle);
    if (clientWidget() != nullptr)
        clientWidget()->update(part.left, part.top, part.Width(), part.Height());
}

void CWnd::UpdateWindow() {
    if (clientWidget() != nullptr)
        clientWidget()->repaint();
}

void CWnd::SetRedraw(BOOL redraw) {
    if (widget() != nullptr)
        widget()->setUpdatesEnabled(redraw != FALSE);
}

BOOL CWnd::ModifyStyleEx(DWORD remove, DWORD add, UINT /*flags*/) {
    auto* const frame = qobject_cast<QFrame*>(widget());
    if (frame == nullptr)
        return FALSE;
    if ((add & WS_EX_CLIENTEDGE) != 0)
        frame->setFrameStyle(static_cast<int>(QFrame::StyledPanel) | static_cast<int>(QFrame::Sunken));
    else if ((remove & WS_EX_CLIENTEDGE) != 0)
        frame->setFrameStyle(QFrame::NoFrame);
    return TRUE;
}

CWnd* CWnd::SetFocus() {
    CWnd* const before = GetFocus();
    if (widget() != nullptr)
        widget()->setFocus(Qt::OtherFocusReason);
    return before;
}

CWnd* CWnd::GetFocus() {
    return fromWidget(QApplication::focusWidget());
}

BOOL IsWindow(HWND window) {
    const QWidgetList widgets = QApplication::allWidgets();
    return window != nullptr && std::any_of(widgets.begin(), widgets.end(),
                                            [window](const QWidget* widget) {
                                                const CWnd* const owner = zuhost::windowOf(widget);
                                                return owner != nullptr && owner->GetSafeHwnd() == window;
                                            })
               ? TRUE
               : FALSE;
}
