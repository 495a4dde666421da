#pragma once

#include "acutmem.h"

#include <string>

namespace zuhost {

/// Returns a copy that the module frees with acutDelString.
inline ACHAR* newText(const std::wstring& text) {
    ACHAR* copy = nullptr;
    acutNewString(text.c_str(), copy);
    return copy;
}

} // namespace zuhost
