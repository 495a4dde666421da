#include "afxwin.h"

#include "zuhost/desktop.h"

#include <QMainWindow>
#include <QPointer>
#include <QVariant>

IMPLEMENT_DYNAMIC(CWnd, CObject)
IMPLEMENT_DYNCREATE(CFrameWnd, CWnd)
IMPLEMENT_DYNCREATE(CMDIFrameWnd, CFrameWnd)

namespace {

constexpr const char* kOwner = "zuOwner";

} // namespace

struct CWnd::Handle {
    QPointer<QWidget> widget;
};

CWnd::CWnd() : handle_(std::make_unique<Handle>()) {}

CWnd::~CWnd() {
    delete handle_->widget.data();
}

void CWnd::attachWidget(QWidget* widget) {
    handle_->widget = widget;
    widget->setProperty(kOwner, QVariant::fromValue(static_cast<void*>(this)));
}

QWidget* CWnd::widget() const {
    return handle_->widget.data();
}

CWnd* CWnd::fromWidget(const QWidget* widget) {
    return widget != nullptr ? static_cast<CWnd*>(widget->property(kOwner).value<void*>()) : nullptr;
}

HWND CWnd::GetSafeHwnd() const {
    return reinterpret_cast<HWND>(widget());
}

CWnd* CWnd::GetParent() const {
    return widget() != nullptr ? fromWidget(widget()->parentWidget()) : nullptr;
}

CFrameWnd* CWnd::GetParentFrame() const {
    for (const QWidget* above = widget() != nullptr ? widget()->parentWidget() : nullptr; above != nullptr;
         above = above->parentWidget())
        if (CWnd* const owner = fromWidget(above);
            owner != nullptr && owner->IsKindOf(RUNTIME_CLASS(CFrameWnd)))
            return static_cast<CFrameWnd*>(owner);
    return nullptr;
}

BOOL CWnd::IsWindowVisible() const {
    return widget() != nullptr && widget()->isVisible() ? TRUE : FALSE;
}

BOOL CWnd::ShowWindow(int command) {
    const BOOL before = IsWindowVisible();
    if (widget() != nullptr)
        widget()->setVisible(command != SW_HIDE);
    return before;
}

BOOL CWnd::DestroyWindow() {
    if (widget() == nullptr)
        return FALSE;
    delete widget();
    return TRUE;
}

BOOL CFrameWnd::Create(const wchar_t* /*className*/, const wchar_t* title, DWORD style, CWnd* parent) {
    zuhost::ensureDesktop();
    auto* const frame = new QMainWindow(parent != nullptr ? parent->widget() : nullptr);
    frame->setWindowTitle(QString::fromWCharArray(title != nullptr ? title : L""));
    attachWidget(frame);
    frame->setVisible((style & WS_VISIBLE) != 0);
    return TRUE;
}
