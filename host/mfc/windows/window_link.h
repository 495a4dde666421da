#pragma once

#include "zuhost/windows/wnd.h"

#include <QObject>
#include <QPointer>
#include <QWidget>

#include <utility>

class QKeyEvent;
class QMouseEvent;
class QHelpEvent;

namespace zuhost {

/// The way between a window and its widget: turns the events of the desktop into messages.
class WindowLink : public QObject {
public:
    explicit WindowLink(CWnd& owner) : owner_(owner) {}

    void attach(QWidget* widget, UINT id);
    /// False when the window's end has begun before: a handler of WM_DESTROY may ask for it again.
    bool startEnd() { return !std::exchange(ending_, true); }
    /// The widget is told of no more.
    void detach();

    [[nodiscard]] QWidget* widget() const { return widget_.data(); }
    [[nodiscard]] QWidget* client() const;
    [[nodiscard]] UINT id() const { return id_; }

    /// Sends a message once the desktop is idle.
    void post(UINT message, WPARAM wParam, LPARAM lParam);

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void customEvent(QEvent* event) override;

private:
    bool onWidget(QEvent& event);
    bool onClient(QEvent& event);
    bool onKey(const QKeyEvent& event, QWidget& receiver);
    bool onMouse(UINT message, const QMouseEvent& event);
    bool onToolTip(const QHelpEvent& event);
    bool onPaint();
    bool send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0);

    CWnd& owner_;
    QPointer<QWidget> widget_;
    UINT id_ = 0;
    bool ending_ = false;
};

/// The platform's number of a key; 0 for keys without one.
[[nodiscard]] UINT virtualKey(int qtKey);
void rememberModifiers(Qt::KeyboardModifiers modifiers);

} // namespace zuhost
