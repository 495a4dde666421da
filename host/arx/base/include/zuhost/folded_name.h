#pragma once

#include <zuhost/character.h>

#include <algorithm>
#include <string>
#include <string_view>

namespace zuhost {

/// Returns the form in which names are compared: in upper case.
[[nodiscard]] inline std::wstring foldedName(std::wstring_view name) {
    std::wstring folded(name);
    std::transform(folded.begin(), folded.end(), folded.begin(), toUpper);
    return folded;
}

} // namespace zuhost
