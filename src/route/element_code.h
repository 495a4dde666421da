#pragma once

#include <string_view>

namespace zu {

/// Element code of a block name; see ZuComn_GetBlockElementCode.
[[nodiscard]] int elementCode(std::wstring_view blockName);

/// Search code of a block name, case-sensitive unlike every other prefix test; 0 for names without one.
[[nodiscard]] int searchCode(std::wstring_view blockName, bool fullForm);

/// True when the text begins with the prefix, the case of ASCII letters ignored.
[[nodiscard]] bool startsWithNoCase(std::wstring_view text, std::wstring_view prefix);

} // namespace zu
