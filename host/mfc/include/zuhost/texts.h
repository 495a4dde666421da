#pragma once

#include <afxstr.h>

#include <string_view>

/// Texts of the framework as those of the standard library, null characters within them included.
namespace zuhost {

/// Returns a view of the text, valid until its next change.
[[nodiscard]] inline std::wstring_view viewOf(const CString& text) {
    return {text.GetString(), static_cast<std::size_t>(text.GetLength())};
}

[[nodiscard]] inline CString textOf(std::wstring_view text) {
    return {text.data(), static_cast<int>(text.size())};
}

} // namespace zuhost
