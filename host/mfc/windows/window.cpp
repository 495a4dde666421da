#include "dispatch.h"
#include "qt_text.h"
#include "window_link.h"
#include "zuhost/desktop.h"
#include "zuhost/windows/frame.h"

#include "zuhost/windows/widgets.h"
#include <zuhost/message_box.h>

#include <QApplication>
#include <QPointer>
#include <QVariant>

#include <algorithm>

IMPLEMENT_DYNAMIC(CWnd, CObject)

namespace {

using Widgets = std::vector<QPointer<QWidget>>;

/// Returns the widgets of the windows within a widget, outer ones first. The pointers become null when a
/// handler deletes a window.
Widgets widgetsIn(const QWidget& widget) {
    Widgets widgets;
    for (QWidget* const inner : widget.findChildren<QWidget*>())
        if (zuhost::windowOf(inner) != nullptr)
            widgets.emplace_back(inner);
    return widgets;
}

/// Deletes a widget; deferred during a dispatch, because its own event may be the one being handled.
void deleteWidget(QWidget* widget) {
    if (zuhost::Dispatch::current() == nullptr) {
        delete widget;
        return;
    }
    widget->hide();
    widget->deleteLater();
}

} // namespace

CWnd::CWnd() : link_(std::make_unique<zuhost::WindowLink>(*this)) {}

CWnd::~CWnd() {
    destroy(false);
    // The handler that deletes the window may have been called by the link, which must outlive the call.
    if (zuhost::Dispatch::current() != nullptr)
        link_.release()->deleteLater();
}

BOOL CWnd::Create(const wchar_t* /*className*/, const wchar_t* text, DWORD style, const RECT& rectangle,
                  CWnd* parent, UINT id, CCreateContext* context) {
    if (this->widget() != nullptr)
        return FALSE;
    zuhost::ensureDesktop();
    QWidget* const widget = makeWidget(parent != nullptr ? zuhost::clientWidgetOf(*parent) : nullptr, style);
    link_->attach(widget, id);
    SetWindowText(text);
    if (const CRect place(rectangle); !place.IsRectEmpty())
        MoveWindow(rectangle);
    widget->setEnabled((style & WS_DISABLED) == 0);
    CREATESTRUCT create{context,
                        parent != nullptr ? parent->GetSafeHwnd() : nullptr,
                        rectangle.bottom - rectangle.top,
                        rectangle.right - rectangle.left,
                        rectangle.top,
                        rectangle.left,
                        style,
                        text};
    if (SendMessage(WM_CREATE, 0, reinterpret_cast<LPARAM>(&create)) == -1) {
        DestroyWindow();
        return FALSE;
    }
    widget->setVisible((style & WS_VISIBLE) != 0 && (parent != nullptr || (style & WS_CHILD) == 0));
    return TRUE;
}

QWidget* CWnd::makeWidget(QWidget* parent, DWORD /*style*/) {
    return new QWidget(parent);
}

BOOL CWnd::DestroyWindow() {
    if (widget() == nullptr || !link_->beginDestruction())
        return FALSE;
    destroy(true);
    return TRUE;
}

void CWnd::destroy(bool notifySelf) {
    const QPointer<QWidget> root = widget();
    if (root == nullptr)
        return;
    if (notifySelf)
        SendMessage(WM_DESTROY);
    if (root == nullptr)
        return;
    for (const QPointer<QWidget>& inner : widgetsIn(*root))
        if (CWnd* const window = fromWidget(inner); window != nullptr && window->link_->beginDestruction())
            window->SendMessage(WM_DESTROY);
    if (fromWidget(root) != this)
        return; // A handler has deleted the window.
    Widgets widgets = widgetsIn(*root);
    std::reverse(widgets.begin(), widgets.end());
    for (const QPointer<QWidget>& inner : widgets) {
        if (CWnd* const window = fromWidget(inner)) {
            window->link_->detach();
            window->PostNcDestroy();
        }
    }
    link_->detach();
    deleteWidget(root.data());
    if (notifySelf)
        PostNcDestroy();
}

QWidget* CWnd::widget() const {
    return link_->widget();
}

QWidget* CWnd::clientWidget() const {
    return link_->client();
}

CWnd* CWnd::fromWidget(const QWidget* widget) {
    return zuhost::windowOf(widget);
}

QWidget* zuhost::widgetOf(const CWnd& window) {
    return reinterpret_cast<QWidget*>(window.GetSafeHwnd());
}

QWidget* zuhost::clientWidgetOf(const CWnd& window) {
    return clientOf(widgetOf(window));
}

CWnd* zuhost::windowOf(const QWidget* widget) {
    return widget != nullptr ? static_cast<CWnd*>(widget->property(kOwnerProperty).value<void*>()) : nullptr;
}

HWND CWnd::GetSafeHwnd() const {
    return reinterpret_cast<HWND>(widget());
}

CWnd* CWnd::FromHandle(HWND window) {
    return fromWidget(reinterpret_cast<const QWidget*>(window));
}

CWnd* CWnd::GetParent() const {
    for (const QWidget* above = widget() != nullptr ? widget()->parentWidget() : nullptr; above != nullptr;
         above = above->parentWidget())
        if (CWnd* const owner = fromWidget(above))
            return owner;
    return nullptr;
}

CFrameWnd* CWnd::GetParentFrame() const {
    for (CWnd* above = GetParent(); above != nullptr; above = above->GetParent())
        if (above->IsKindOf(RUNTIME_CLASS(CFrameWnd)) != FALSE)
            return static_cast<CFrameWnd*>(above);
    return nullptr;
}

int CWnd::GetDlgCtrlID() const {
    return static_cast<int>(link_->id());
}

CWnd* CWnd::GetDlgItem(int id) const {
    if (widget() == nullptr)
        return nullptr;
    for (const QPointer<QWidget>& inner : widgetsIn(*widget()))
        if (CWnd* const window = fromWidget(inner);
            window->GetDlgCtrlID() == id && window->GetParent() == this)
            return window;
    return nullptr;
}

// ---- messages

LRESULT CWnd::SendMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    const zuhost::Dispatch dispatch(*this, message, wParam, lParam);
    try {
        return WindowProc(message, wParam, lParam);
    } catch (...) {
        return zuhost::reportEscapedException(message);
    }
}

BOOL CWnd::PostMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    if (widget() == nullptr)
        return FALSE;
    link_->post(message, wParam, lParam);
    return TRUE;
}

UINT_PTR CWnd::SetTimer(UINT_PTR id, UINT milliseconds, TIMERPROC function) {
    return link_->startTimer(id, milliseconds, function) ? id : 0;
}

BOOL CWnd::KillTimer(UINT_PTR id) {
    return link_->stopTimer(id) ? TRUE : FALSE;
}

int CWnd::MessageBox(const wchar_t* text, const wchar_t* caption, UINT style) {
    return caption != nullptr ? MessageBoxW(GetSafeHwnd(), text, caption, style) : AfxMessageBox(text, style);
}

BOOL CWnd::PreTranslateMessage(MSG* /*message*/) {
    return FALSE;
}

LRESULT CWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_COMMAND)
        return OnCommand(wParam, lParam);
    if (message == WM_NOTIFY) {
        LRESULT result = 0;
        OnNotify(wParam, lParam, &result);
        return result;
    }
    const AFX_MSGMAP_ENTRY* const entry = findHandler(message, 0, 0);
    return entry != nullptr ? entry->handler(*this, wParam, lParam) : DefWindowProc(message, wParam, lParam);
}

LRESULT CWnd::DefWindowProc(UINT message, WPARAM /*wParam*/, LPARAM /*lParam*/) {
    if (message == WM_CLOSE)
        DestroyWindow();
    else if (zuhost::Dispatch* const now = zuhost::Dispatch::current())
        now->runsDefault = true;
    return 0;
}

LRESULT CWnd::Default() {
    const zuhost::Dispatch* const now = zuhost::Dispatch::current();
    return now != nullptr ? DefWindowProc(now->message, now->wParam, now->lParam) : 0;
}

BOOL CWnd::OnCommand(WPARAM wParam, LPARAM lParam) {
    const AFX_MSGMAP_ENTRY* const entry = findHandler(WM_COMMAND, HIWORD(wParam), LOWORD(wParam));
    if (entry == nullptr)
        return FALSE;
    entry->handler(*this, wParam, lParam);
    return TRUE;
}

BOOL CWnd::OnNotify(WPARAM /*wParam*/, LPARAM lParam, LRESULT* result) {
    const auto& header = *objectOf<const NMHDR>(lParam);
    const AFX_MSGMAP_ENTRY* const entry =
        findHandler(WM_NOTIFY, header.code, static_cast<UINT>(header.idFrom));
    if (entry == nullptr)
        return FALSE;
    *result = entry->handler(*this, header.idFrom, lParam);
    return TRUE;
}

const AFX_MSGMAP* CWnd::GetThisMessageMap() {
    static const AFX_MSGMAP_ENTRY entries[] = {{0, 0, 0, nullptr}};
    static const AFX_MSGMAP map = {nullptr, entries};
    return &map;
}

const AFX_MSGMAP* CWnd::GetMessageMap() const {
    return GetThisMessageMap();
}

const AFX_MSGMAP_ENTRY* CWnd::findHandler(UINT message, UINT code, UINT id) const {
    for (const AFX_MSGMAP* map = GetMessageMap(); map != nullptr;
         map = map->base != nullptr ? map->base() : nullptr)
        for (const AFX_MSGMAP_ENTRY* entry = map->entries; entry->handler != nullptr; ++entry)
            if (entry->message == message && entry->code == code && entry->id == id)
                return entry;
    return nullptr;
}

void CWnd::notifyParent(UINT code) {
    if (CWnd* const parent = GetParent())
        parent->SendMessage(WM_COMMAND, MAKEWPARAM(link_->id(), code),
                            reinterpret_cast<LPARAM>(GetSafeHwnd()));
}

void CWnd::notifyParentOf(const QWidget* widget, UINT code) {
    if (CWnd* const window = fromWidget(widget))
        window->notifyParent(code);
}

LRESULT CWnd::notifyParent(NMHDR& header) {
    header.hwndFrom = GetSafeHwnd();
    header.idFrom = link_->id();
    CWnd* const parent = GetParent();
    return parent != nullptr
               ? parent->SendMessage(WM_NOTIFY, header.idFrom, reinterpret_cast<LPARAM>(&header))
               : 0;
}

std::intptr_t CWnd::OnToolHitTest(CPoint /*point*/, TOOLINFO* /*tool*/) const {
    return -1;
}

void CWnd::paint(CDC& /*dc*/) {}

// ---- default handlers

int CWnd::OnCreate(LPCREATESTRUCT /*create*/) {
    return static_cast<int>(Default());
}
void CWnd::OnSize(UINT /*type*/, int /*width*/, int /*height*/) {
    Default();
}
void CWnd::OnSetFocus(CWnd* /*oldFocus*/) {
    Default();
}
void CWnd::OnKillFocus(CWnd* /*newFocus*/) {
    Default();
}
void CWnd::OnKeyDown(UINT /*key*/, UINT /*repeat*/, UINT /*flags*/) {
    Default();
}
void CWnd::OnChar(UINT /*character*/, UINT /*repeat*/, UINT /*flags*/) {
    Default();
}
void CWnd::OnMouseMove(UINT /*flags*/, CPoint /*point*/) {
    Default();
}
void CWnd::OnLButtonDown(UINT /*flags*/, CPoint /*point*/) {
    Default();
}
void CWnd::OnLButtonUp(UINT /*flags*/, CPoint /*point*/) {
    Default();
}
void CWnd::OnLButtonDblClk(UINT /*flags*/, CPoint /*point*/) {
    Default();
}
void CWnd::OnTimer(UINT_PTR /*id*/) {
    Default();
}
void CWnd::OnContextMenu(CWnd* /*window*/, CPoint /*point*/) {
    Default();
}
