#pragma once

#include <afxstr.h>

#include <QString>

namespace zuhost {

inline QString toQt(const wchar_t* text) {
    return text != nullptr ? QString::fromWCharArray(text) : QString();
}

inline CString fromQt(const QString& text) {
    return text.toStdWString().c_str();
}

} // namespace zuhost
