#pragma once

#include "zuhost/windows/wnd.h"

#include <QObject>
#include <QPointer>
#include <QWidget>

#include <map>
#include <utility>

class QKeyEvent;
class QMouseEvent;
class QHelpEvent;

namespace zuhost {

/// The property of a widget that holds the window that owns it.
inline constexpr const char* kOwnerProperty = "zuOwner";

/// Connects a window with its widget: translates desktop events into messages.
class WindowLink : public QObject {
public:
    explicit WindowLink(CWnd& owner) : owner_(owner) {}

    void attach(QWidget* widget, UINT id);
    /// Marks the window as being destroyed. False when it already is: a handler of WM_DESTROY may call
    /// DestroyWindow again.
    bool beginDestruction() { return !std::exchange(isBeingDestroyed_, true); }
    /// Ends the connection: the window receives no further events of the widget.
    void detach();

    [[nodiscard]] QWidget* widget() const { return widget_.data(); }
    [[nodiscard]] QWidget* client() const;
    [[nodiscard]] UINT id() const { return id_; }

    /// Queues a message; the event loop sends it.
    void post(UINT message, WPARAM wParam, LPARAM lParam);

    bool startTimer(UINT_PTR id, UINT milliseconds, TIMERPROC function);
    bool stopTimer(UINT_PTR id);

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void customEvent(QEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    bool onWidget(QEvent& event);
    bool onClient(QEvent& event);
    bool onKey(const QKeyEvent& event, QWidget& receiver);
    bool onMouse(UINT message, const QMouseEvent& event);
    bool onToolTip(const QHelpEvent& event);
    bool onPaint();
    bool send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0);

    struct Timer {
        int number = 0; ///< Of the desktop.
        TIMERPROC function = nullptr;
    };

    CWnd& owner_;
    std::map<UINT_PTR, Timer> timers_;
    QPointer<QWidget> widget_;
    UINT id_ = 0;
    bool isBeingDestroyed_ = false;
};

/// Returns the widget of a window that it draws on: the viewport in lists that scroll.
[[nodiscard]] QWidget* clientOf(QWidget* widget);

/// Returns the VK_ number of a key; 0 for keys without one.
[[nodiscard]] UINT virtualKey(int qtKey);
/// Stores the modifiers of the latest event for GetKeyState.
void rememberModifiers(Qt::KeyboardModifiers modifiers);

} // namespace zuhost
