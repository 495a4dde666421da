#pragma once

#include <afx.h>

#include <string_view>

namespace zu {

/// Returns a view of the text, valid until its next change. Unlike the text's pointer, it ends at no null
/// character within.
inline std::wstring_view view(const CString& text) {
    return {text.GetString(), static_cast<std::size_t>(text.GetLength())};
}

/// Returns a text that may contain null characters.
inline CString textOf(std::wstring_view text) {
    return {text.data(), static_cast<int>(text.size())};
}

} // namespace zu
