#include "zuhost/desktop.h"

#include "zuhost/progress_window.h"
#include "zuhost/system_error.h"
#include "zuhost/windows/wnd.h"

#include "zuhost/windows/widgets.h"
#include <zuhost/application.h>
#include <zuhost/atomic_file.h>
#include <zuhost/progress.h>

#include <QApplication>
#include <QBuffer>
#include <QFileInfo>
#include <QLoggingCategory>
#include <QPixmap>
#include <QWidget>

#include <algorithm>
#include <cerrno>
#include <clocale>

namespace zuhost {

namespace {

constexpr const char* kPlatform = "QT_QPA_PLATFORM";

/// Returns the Qt platforms to try, in order; the last one is always available.
QByteArray platforms() {
    QByteArray names;
    if (qEnvironmentVariableIsSet("WAYLAND_DISPLAY"))
        names += "wayland;";
    if (qEnvironmentVariableIsSet("DISPLAY"))
        names += "xcb;";
    return names + "offscreen";
}

bool namesDesktop(const QByteArray& platform) {
    return !platform.startsWith("offscreen") && !platform.startsWith("minimal");
}

struct DesktopApplication {
    int count = 1;
    std::string name = zuhost::application().program;
    char* arguments[2] = {name.data(), nullptr};
    QApplication application{count, arguments};
};

/// The layers below the windows show message boxes and progress through these functions.
[[maybe_unused]] const bool registered = [] {
    setDesktopMessageBox(&showMessageBox);
    setDesktopProgress(&progressWindow);
    return true;
}();

} // namespace

void ensureDesktop() {
    if (QCoreApplication::instance() != nullptr)
        return;
    const bool chosen = qEnvironmentVariableIsSet(kPlatform);
    if (!chosen)
        qputenv(kPlatform, platforms());
    // Without a screen, Qt's warnings about missing desktop features are noise.
    if (!namesDesktop(qgetenv(kPlatform)))
        QLoggingCategory::setFilterRules("default.warning=false");
    // Never destroyed: at exit Qt's own static objects, which it needs, may be destroyed before it.
    static const DesktopApplication* const application = new DesktopApplication;
    static_cast<void>(application);
    if (!chosen)
        qunsetenv(kPlatform);
    std::setlocale(LC_NUMERIC, "C");
}

bool hasDesktop() {
    if (QCoreApplication::instance() == nullptr) {
        const QByteArray chosen = qgetenv(kPlatform);
        if (!namesDesktop(chosen.isEmpty() ? platforms() : chosen))
            return false;
        ensureDesktop();
    }
    return qobject_cast<QApplication*>(QCoreApplication::instance()) != nullptr &&
           namesDesktop(QGuiApplication::platformName().toLatin1());
}

void runDesktop() {
    ensureDesktop();
    const auto isShown = [](const QWidget* window) { return window->isVisible(); };
    for (QWidgetList windows = QApplication::topLevelWidgets();
         std::any_of(windows.cbegin(), windows.cend(), isShown); windows = QApplication::topLevelWidgets()) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

void processPendingEvents() {
    ensureDesktop();
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

bool savePicture(const CWnd& window, const std::string& path) {
    if (zuhost::widgetOf(window) == nullptr)
        return false;
    processPendingEvents();
    const QString name = QString::fromStdString(path);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    const bool isKnownFormat =
        zuhost::widgetOf(window)->grab().save(&buffer, QFileInfo(name).suffix().toLatin1().constData());
    const int error = isKnownFormat
                          ? replaceFile(path, {bytes.constData(), static_cast<std::size_t>(bytes.size())})
                          : EINVAL;
    SetLastError(lastErrorOf(error));
    return error == 0;
}

} // namespace zuhost
