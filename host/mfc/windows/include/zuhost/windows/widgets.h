#pragma once

#include <zuhost/platform/export.h>

class CWnd;
class QWidget;

/// The desktop's widgets of windows, for tools and tests.
namespace zuhost {

/// Null while there is no window.
[[nodiscard]] ZUHOST_API QWidget* widgetOf(const CWnd& window);
/// Returns the widget that the window draws on and that holds its children: the viewport in lists that
/// scroll, else the window's widget.
[[nodiscard]] ZUHOST_API QWidget* clientWidgetOf(const CWnd& window);
/// Returns the window that owns the widget; null when there is none.
[[nodiscard]] ZUHOST_API CWnd* windowOf(const QWidget* widget);

} // namespace zuhost
