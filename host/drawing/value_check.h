#pragma once

#include <string>
#include <string_view>

namespace zuhost {

/// Returns whether the text is a valid value of the group code. Texts, chunks and values of unknown codes are
/// always valid.
[[nodiscard]] bool isReadable(int code, std::string_view text);

/// Returns the type of the code's values for messages: "a number", "an integer", "a handle".
[[nodiscard]] std::wstring valueName(int code);

} // namespace zuhost
