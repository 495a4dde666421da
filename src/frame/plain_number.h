#pragma once

#include <optional>
#include <string_view>

namespace zu {

/// Parses a finite decimal number that is the whole text, such as "-2.5" or "+1e3".
[[nodiscard]] std::optional<double> plainNumber(std::wstring_view text);

} // namespace zu
