#pragma once

#include <afxstr.h>

#include <QString>

#include <string>

namespace zuhost {

inline QString toQt(const wchar_t* text) {
    return text != nullptr ? QString::fromWCharArray(text) : QString();
}

inline QString toQt(const std::wstring& text) {
    return QString::fromStdWString(text);
}

inline CString fromQt(const QString& text) {
    return text.toStdWString().c_str();
}

} // namespace zuhost
