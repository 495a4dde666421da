#include "zuhost/desktop.h"

#include "qt_text.h"

#include <QApplication>
#include <QMessageBox>

#include <array>

namespace zuhost {

namespace {

constexpr UINT kButtonsMask = 0x0F;
constexpr UINT kIconMask = 0xF0;

struct Buttons {
    UINT style;
    QMessageBox::StandardButtons shown;
};

constexpr std::array<Buttons, 4> kButtons{{
    {MB_OK, QMessageBox::Ok},
    {MB_OKCANCEL, QMessageBox::Ok | QMessageBox::Cancel},
    {MB_YESNO, QMessageBox::Yes | QMessageBox::No},
    {MB_YESNOCANCEL, QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel},
}};

QMessageBox::StandardButtons buttonsOf(UINT style) {
    for (const Buttons& buttons : kButtons)
        if (buttons.style == (style & kButtonsMask))
            return buttons.shown;
    return QMessageBox::Ok;
}

QMessageBox::Icon iconOf(UINT style) {
    switch (style & kIconMask) {
    case MB_ICONSTOP:
        return QMessageBox::Critical;
    case MB_ICONQUESTION:
        return QMessageBox::Question;
    case MB_ICONEXCLAMATION:
        return QMessageBox::Warning;
    case MB_ICONINFORMATION:
        return QMessageBox::Information;
    default:
        return QMessageBox::NoIcon;
    }
}

int answerOf(int button) {
    switch (button) {
    case QMessageBox::Yes:
        return IDYES;
    case QMessageBox::No:
        return IDNO;
    case QMessageBox::Cancel:
        return IDCANCEL;
    default:
        return IDOK;
    }
}

int show(const MessageBoxRequest& request) {
    QMessageBox box(QApplication::activeWindow());
    box.setWindowTitle(toQt(request.caption));
    // File names and user values in the text must not be read as markup.
    box.setTextFormat(Qt::PlainText);
    box.setText(toQt(request.text));
    box.setStandardButtons(buttonsOf(request.style));
    box.setIcon(iconOf(request.style));
    return answerOf(box.exec());
}

} // namespace

std::optional<int> showMessageBox(const MessageBoxRequest& request) {
    return hasDesktop() ? std::optional(show(request)) : std::nullopt;
}

} // namespace zuhost
