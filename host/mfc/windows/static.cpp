#include "zuhost/windows/controls.h"

#include <QLabel>

IMPLEMENT_DYNCREATE(CStatic, CWnd)

BOOL CStatic::Create(const wchar_t* text, DWORD style, const RECT& rectangle, CWnd* parent, UINT id) {
    return CWnd::Create(nullptr, text, style, rectangle, parent, id);
}

QWidget* CStatic::makeWidget(QWidget* parent, DWORD style) {
    constexpr DWORD kAlignment = 0x3;
    auto* const label = new QLabel(parent);
    const Qt::Alignment across = (style & kAlignment) == SS_CENTER  ? Qt::AlignHCenter
                                 : (style & kAlignment) == SS_RIGHT ? Qt::AlignRight
                                                                    : Qt::AlignLeft;
    label->setAlignment(across | Qt::AlignTop);
    label->setTextFormat(Qt::PlainText);
    return label;
}
