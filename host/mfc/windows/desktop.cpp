#include "zuhost/desktop.h"

#include "zuhost/message_box.h"

#include <QApplication>
#include <QLoggingCategory>
#include <QMessageBox>

#include <clocale>

namespace zuhost {

namespace {

QString toQString(const std::wstring& text) {
    return QString::fromWCharArray(text.data(), static_cast<int>(text.size()));
}

int showBox(const MessageBoxRequest& request) {
    QMessageBox box;
    box.setWindowTitle(toQString(request.caption));
    box.setText(toQString(request.text));
    const bool asks = (request.style & 0x0FU) == MB_YESNO;
    box.setStandardButtons(asks ? QMessageBox::Yes | QMessageBox::No : QMessageBox::Ok);
    if ((request.style & 0xF0U) == MB_ICONSTOP)
        box.setIcon(QMessageBox::Critical);
    const int button = box.exec();
    return asks ? (button == QMessageBox::Yes ? IDYES : IDNO) : IDOK;
}

bool hasDesktop() {
    const QString platform = QGuiApplication::platformName();
    return platform != "offscreen" && platform != "minimal";
}

struct Application {
    int count = 1;
    char name[3] = "zu";
    char* arguments[2] = {name, nullptr};
    QApplication application{count, arguments};
};

} // namespace

void ensureDesktop() {
    if (QCoreApplication::instance() != nullptr)
        return;
    // Without a screen nobody needs Qt's remarks on the session.
    if (qgetenv("QT_QPA_PLATFORM") == "offscreen")
        QLoggingCategory::setFilterRules("default.warning=false");
    // Never destroyed: at the program's end the desktop's own parts are gone before it.
    static const Application* const application = new Application;
    static_cast<void>(application);
    std::setlocale(LC_NUMERIC, "C");
    if (hasDesktop())
        setMessageBoxPresenter(&showBox);
}

} // namespace zuhost
