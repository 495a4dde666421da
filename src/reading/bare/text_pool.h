#pragma once

#include <afxcoll.h>

#include <algorithm>
#include <memory>
#include <string_view>

/// Texts in large numbers, on the interface alone.
namespace zu {

class TextPool {
public:
    [[nodiscard]] static CString make(std::wstring_view text) {
        return {text.data(), static_cast<int>(text.size())};
    }
    /// Returns an empty list with room for that many texts; it grows on demand.
    [[nodiscard]] static std::unique_ptr<CStringArray> makeArray(int room) {
        auto array = std::make_unique<CStringArray>();
        array->SetSize(0, std::max(room, 1));
        return array;
    }
};

} // namespace zu
