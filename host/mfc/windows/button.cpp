#include "zuhost/windows/controls.h"
#include "zuhost/windows/widgets.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>

IMPLEMENT_DYNCREATE(CButton, CWnd)

namespace {

/// A check box or radio button that only the program checks.
template <typename Button>
class ManualButton : public Button {
public:
    using Button::Button;

protected:
    void nextCheckState() override {}
};

QAbstractButton* newButton(QWidget* parent, DWORD type) {
    switch (type) {
    case BS_CHECKBOX:
    case BS_3STATE:
        return new ManualButton<QCheckBox>(parent);
    case BS_AUTOCHECKBOX:
    case BS_AUTO3STATE:
        return new QCheckBox(parent);
    case BS_RADIOBUTTON:
        return new ManualButton<QRadioButton>(parent);
    case BS_AUTORADIOBUTTON:
        return new QRadioButton(parent);
    default:
        return new QPushButton(parent);
    }
}

QAbstractButton* buttonOf(const CWnd& window) {
    return qobject_cast<QAbstractButton*>(zuhost::widgetOf(window));
}

} // namespace

BOOL CButton::Create(const wchar_t* caption, DWORD style, const RECT& rectangle, CWnd* parent, UINT id) {
    return CWnd::Create(nullptr, caption, style, rectangle, parent, id);
}

QWidget* CButton::makeWidget(QWidget* parent, DWORD style) {
    constexpr DWORD kType = 0x0F;
    const DWORD type = style & kType;
    if (type == BS_GROUPBOX)
        return new QGroupBox(parent);
    QAbstractButton* const button = newButton(parent, type);
    if (type == BS_3STATE || type == BS_AUTO3STATE)
        static_cast<QCheckBox*>(button)->setTristate(true);
    QObject::connect(button, &QAbstractButton::clicked, button,
                     [button] { notifyParentOf(button, BN_CLICKED); });
    return button;
}

int CButton::GetCheck() const {
    if (const auto* const box = qobject_cast<QCheckBox*>(widget()))
        return box->checkState() == Qt::PartiallyChecked ? BST_INDETERMINATE
               : box->isChecked()                        ? BST_CHECKED
                                                         : BST_UNCHECKED;
    return buttonOf(*this) != nullptr && buttonOf(*this)->isChecked() ? BST_CHECKED : BST_UNCHECKED;
}

void CButton::SetCheck(int check) {
    auto* const box = qobject_cast<QCheckBox*>(widget());
    if (box != nullptr && box->isTristate() && check == BST_INDETERMINATE)
        box->setCheckState(Qt::PartiallyChecked);
    else if (buttonOf(*this) != nullptr)
        buttonOf(*this)->setChecked(check != BST_UNCHECKED);
}
