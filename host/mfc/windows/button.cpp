#include "zuhost/windows/controls.h"

#include <QPushButton>

IMPLEMENT_DYNCREATE(CButton, CWnd)

BOOL CButton::Create(const wchar_t* caption, DWORD style, const RECT& rectangle, CWnd* parent, UINT id) {
    return CWnd::Create(nullptr, caption, style, rectangle, parent, id);
}

QWidget* CButton::makeWidget(QWidget* parent, DWORD /*style*/) {
    auto* const button = new QPushButton(parent);
    QObject::connect(button, &QPushButton::clicked, button, [button] { notifyParentOf(button, BN_CLICKED); });
    return button;
}
