#include "afxext.h"
#include "qt_text.h"
#include "zuhost/windows/widgets.h"

#include <QLabel>
#include <QMainWindow>
#include <QStatusBar>
#include <QToolBar>

IMPLEMENT_DYNCREATE(CStatusBar, CWnd)
IMPLEMENT_DYNCREATE(CReBar, CWnd)

namespace {

QStatusBar* statusBar(const CWnd& window) {
    return static_cast<QStatusBar*>(zuhost::widgetOf(window));
}

QMainWindow* mainWindow(const CWnd* frame) {
    return frame != nullptr ? qobject_cast<QMainWindow*>(zuhost::widgetOf(*frame)) : nullptr;
}

} // namespace

// ---- status bar

CStatusBar::~CStatusBar() {
    CWnd::DestroyWindow();
}

BOOL CStatusBar::Create(CWnd* frame, DWORD style, UINT id) {
    if (mainWindow(frame) == nullptr || CWnd::Create(nullptr, nullptr, style, CRect(), frame, id) == FALSE)
        return FALSE;
    mainWindow(frame)->setStatusBar(statusBar(*this));
    return TRUE;
}

QWidget* CStatusBar::makeWidget(QWidget* parent, DWORD /*style*/) {
    return new QStatusBar(parent);
}

BOOL CStatusBar::SetPaneText(int index, const wchar_t* text, BOOL /*update*/) {
    if (index != 0 || widget() == nullptr)
        return FALSE;
    const QString shown = zuhost::toQt(text);
    statusBar(*this)->showMessage(shown);
    statusBar(*this)->setToolTip(shown);
    return TRUE;
}

CString CStatusBar::GetPaneText(int index) const {
    return index == 0 && widget() != nullptr ? zuhost::fromQt(statusBar(*this)->currentMessage()) : CString();
}

// ---- bar of controls

CReBar::~CReBar() {
    CWnd::DestroyWindow();
}

BOOL CReBar::Create(CWnd* frame, DWORD /*controlStyle*/, DWORD style, UINT id) {
    if (mainWindow(frame) == nullptr || CWnd::Create(nullptr, nullptr, style, CRect(), frame, id) == FALSE)
        return FALSE;
    mainWindow(frame)->addToolBar(static_cast<QToolBar*>(widget()));
    return TRUE;
}

QWidget* CReBar::makeWidget(QWidget* parent, DWORD /*style*/) {
    auto* const made = new QToolBar(parent);
    made->setMovable(false);
    made->setContextMenuPolicy(Qt::PreventContextMenu); // the frame's own menu would hide the bar
    return made;
}

BOOL CReBar::AddBar(CWnd* control, const wchar_t* text) {
    auto* const bar = static_cast<QToolBar*>(widget());
    if (bar == nullptr || control == nullptr || zuhost::widgetOf(*control) == nullptr)
        return FALSE;
    if (text != nullptr)
        bar->addWidget(new QLabel(zuhost::toQt(text)));
    bar->addWidget(zuhost::widgetOf(*control));
    return TRUE;
}

BOOL CReBar::OnCommand(WPARAM wParam, LPARAM lParam) {
    if (CWnd::OnCommand(wParam, lParam) != FALSE)
        return TRUE;
    CWnd* const frame = GetParent();
    return frame != nullptr && frame->SendMessage(WM_COMMAND, wParam, lParam) != 0 ? TRUE : FALSE;
}
