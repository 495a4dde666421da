#include "window_link.h"

#include "dispatch.h"
#include "paint_context.h"
#include "zuhost/windows/frame.h"
#include "zuhost/windows/widgets.h"

#include <QAbstractScrollArea>
#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QFocusEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QResizeEvent>
#include <QTimerEvent>
#include <QToolTip>
#include <QVariant>

#include <algorithm>
#include <cstdlib>
#include <limits>

namespace zuhost {

namespace {

LPARAM packed(const QPoint& point) {
    return MAKELPARAM(point.x(), point.y());
}

/// Calls PreTranslateMessage of the window and its parents until one consumes the message. A call may destroy
/// any of them.
bool preTranslate(const CWnd& window, MSG& message) {
    QPointer<QWidget> current = zuhost::widgetOf(window);
    while (CWnd* const owner = zuhost::windowOf(current)) {
        const CWnd* const above = owner->GetParent();
        const QPointer<QWidget> next = above != nullptr ? zuhost::widgetOf(*above) : nullptr;
        if (owner->PreTranslateMessage(&message) != FALSE)
            return true;
        current = next.data();
    }
    return false;
}

/// Returns false if the focus will return: the window's own list or menu is open, or another program is
/// active.
bool isLost(const QFocusEvent& event) {
    return event.reason() != Qt::PopupFocusReason && event.reason() != Qt::ActiveWindowFocusReason;
}

/// A message queued by PostMessage.
struct PostedMessage : QEvent {
    PostedMessage(UINT number, WPARAM first, LPARAM second)
        : QEvent(QEvent::User), message(number), wParam(first), lParam(second) {}

    UINT message;
    WPARAM wParam;
    LPARAM lParam;
};

} // namespace

void WindowLink::post(UINT message, WPARAM wParam, LPARAM lParam) {
    QCoreApplication::postEvent(this, new PostedMessage(message, wParam, lParam));
}

void WindowLink::customEvent(QEvent* event) {
    const auto& posted = static_cast<const PostedMessage&>(*event);
    if (widget_ != nullptr)
        owner_.SendMessage(posted.message, posted.wParam, posted.lParam);
}

bool WindowLink::startTimer(UINT_PTR id, UINT milliseconds, TIMERPROC function) {
    if (widget_ == nullptr || id == 0)
        return false;
    stopTimer(id);
    const UINT interval = std::min(milliseconds, static_cast<UINT>(std::numeric_limits<int>::max()));
    timers_[id] = {QObject::startTimer(static_cast<int>(interval)), function};
    return true;
}

bool WindowLink::stopTimer(UINT_PTR id) {
    const auto timer = timers_.find(id);
    if (timer == timers_.end())
        return false;
    killTimer(timer->second.number);
    timers_.erase(timer);
    return true;
}

void WindowLink::timerEvent(QTimerEvent* event) {
    const auto timer = std::find_if(timers_.begin(), timers_.end(), [event](const auto& known) {
        return known.second.number == event->timerId();
    });
    if (timer == timers_.end())
        return;
    const UINT_PTR id = timer->first;
    if (timer->second.function == nullptr)
        owner_.SendMessage(WM_TIMER, id);
    else
        timer->second.function(owner_.GetSafeHwnd(), WM_TIMER, id, GetTickCount());
}

void WindowLink::attach(QWidget* widget, UINT id) {
    widget_ = widget;
    id_ = id;
    isBeingDestroyed_ = false;
    widget->setProperty(kOwnerProperty, QVariant::fromValue(static_cast<void*>(&owner_)));
    widget->installEventFilter(this);
    if (client() != widget)
        client()->installEventFilter(this);
}

void WindowLink::detach() {
    while (!timers_.empty())
        stopTimer(timers_.begin()->first);
    if (widget_ == nullptr)
        return;
    widget_->setProperty(kOwnerProperty, QVariant());
    client()->removeEventFilter(this);
    widget_->removeEventFilter(this);
    widget_ = nullptr;
}

QWidget* clientOf(QWidget* widget) {
    const auto* const area = qobject_cast<QAbstractScrollArea*>(widget);
    return area != nullptr ? area->viewport() : widget;
}

QWidget* WindowLink::client() const {
    return clientOf(widget_.data());
}

/// Returns true when a handler consumed the message: the desktop's default handling is skipped.
bool WindowLink::send(UINT message, WPARAM wParam, LPARAM lParam) {
    Dispatch dispatch(owner_, message, wParam, lParam);
    try {
        owner_.WindowProc(message, wParam, lParam);
    } catch (...) {
        reportEscapedException(message);
    }
    return !dispatch.runsDefault;
}

bool WindowLink::eventFilter(QObject* watched, QEvent* event) {
    if (widget_ == nullptr)
        return false;
    const bool isClient = watched == client();
    const bool isWidget = watched == widget_.data();
    if (isWidget && onWidget(*event))
        return true;
    return isClient && widget_ != nullptr && onClient(*event);
}

bool WindowLink::onWidget(QEvent& event) {
    switch (event.type()) {
    case QEvent::Close:
        event.ignore();
        send(WM_CLOSE);
        return true;
    case QEvent::FocusIn:
        return send(WM_SETFOCUS);
    case QEvent::FocusOut:
        return isLost(static_cast<const QFocusEvent&>(event)) && send(WM_KILLFOCUS);
    case QEvent::PaletteChange:
        return send(WM_SYSCOLORCHANGE);
    case QEvent::KeyPress:
        return onKey(static_cast<const QKeyEvent&>(event), *widget_);
    default:
        return false;
    }
}

bool WindowLink::onClient(QEvent& event) {
    switch (event.type()) {
    case QEvent::Resize: {
        const QSize size = client()->size();
        return send(WM_SIZE, SIZE_RESTORED, MAKELPARAM(size.width(), size.height()));
    }
    case QEvent::MouseButtonPress:
        return onMouse(WM_LBUTTONDOWN, static_cast<const QMouseEvent&>(event));
    case QEvent::MouseButtonRelease:
        return onMouse(WM_LBUTTONUP, static_cast<const QMouseEvent&>(event));
    case QEvent::MouseButtonDblClick:
        return onMouse(WM_LBUTTONDBLCLK, static_cast<const QMouseEvent&>(event));
    case QEvent::MouseMove:
        return onMouse(WM_MOUSEMOVE, static_cast<const QMouseEvent&>(event));
    case QEvent::ContextMenu:
        return send(WM_CONTEXTMENU, 0, packed(static_cast<const QContextMenuEvent&>(event).globalPos()));
    case QEvent::ToolTip:
        return onToolTip(static_cast<const QHelpEvent&>(event));
    case QEvent::Paint:
        return onPaint();
    default:
        return false;
    }
}

bool WindowLink::onMouse(UINT message, const QMouseEvent& event) {
    rememberModifiers(event.modifiers());
    if (message != WM_MOUSEMOVE && event.button() != Qt::LeftButton)
        return false;
    return send(message, 0, packed(event.position().toPoint()));
}

/// Sends the key to the receiver's widget itself: Qt would propagate an unhandled one to the parents, which
/// have seen it in PreTranslateMessage.
bool WindowLink::onKey(const QKeyEvent& event, QWidget& receiver) {
    rememberModifiers(event.modifiers());
    const QPointer<QWidget> alive = &receiver;
    const UINT key = virtualKey(event.key());
    MSG message{owner_.GetSafeHwnd(), WM_KEYDOWN, key, 0};
    if (key != 0 && preTranslate(owner_, message))
        return true;
    if (alive == nullptr || widget_ == nullptr)
        return true;
    if (key != 0 && send(WM_KEYDOWN, key))
        return true;
    const QString text = event.text();
    if (alive != nullptr && widget_ != nullptr && !text.isEmpty() && text[0].isPrint() &&
        send(WM_CHAR, text[0].unicode()))
        return true;
    if (alive != nullptr) {
        QKeyEvent copy(event.type(), event.key(), event.modifiers(), text, event.isAutoRepeat());
        static_cast<QObject&>(receiver).event(&copy);
    }
    return true;
}

bool WindowLink::onToolTip(const QHelpEvent& event) {
    TOOLINFO tool;
    const QPoint at = event.pos();
    if (owner_.OnToolHitTest({at.x(), at.y()}, &tool) < 0)
        return false;
    const RECT& part = tool.rect;
    QToolTip::showText(event.globalPos(), QString::fromWCharArray(tool.lpszText), client(),
                       QRect(part.left, part.top, part.right - part.left, part.bottom - part.top));
    std::free(tool.lpszText); // NOLINT(cppcoreguidelines-no-malloc, hicpp-no-malloc)
    return true;
}

bool WindowLink::onPaint() {
    if (owner_.IsKindOf(RUNTIME_CLASS(CView)) == FALSE)
        return false;
    QPainter painter(client());
    PaintContext context(painter);
    owner_.paint(context);
    return false;
}

} // namespace zuhost
