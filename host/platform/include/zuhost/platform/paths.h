#pragma once

#include <filesystem>
#include <string>

namespace zuhost::platform {

/// Returns the standard library's path for a path in UTF-8: its own conversion takes another encoding on some
/// systems.
inline std::filesystem::path pathOf(const std::string& utf8) {
    return {std::u8string(utf8.begin(), utf8.end())};
}

/// Returns the path in UTF-8 with "/".
inline std::string textOf(const std::filesystem::path& path) {
    const std::u8string text = path.generic_u8string();
    return {text.begin(), text.end()};
}

} // namespace zuhost::platform
