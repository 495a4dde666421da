#pragma once

#include <string>
#include <string_view>

namespace zuhost {

/// Whether the text is a value that the group code may have. Any text is where texts or bytes are expected,
/// and where the code is not known.
[[nodiscard]] bool isReadable(int code, std::string_view text);

/// "a number", "an integer", "a handle": what the code's values are.
[[nodiscard]] std::wstring valueName(int code);

} // namespace zuhost
