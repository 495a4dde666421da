#pragma once

#include <zuhost/platform/export.h>

#include <string>
#include <string_view>

namespace zuhost {

/// Returns the system's path (UTF-8, "/") for a path of the platform's form. Components are separated by "\\"
/// or "/" and found ignoring case: an exact match first, else the first match in alphabetical order. Missing
/// components keep their names, without trailing spaces and dots. A drive letter ("C:") is removed. A path
/// that no file can have (with NUL or half of a surrogate pair) starts with NUL: file operations refuse it
/// with EILSEQ.
[[nodiscard]] ZUHOST_API std::string systemPath(std::wstring_view path);

/// Returns the platform's form of a path of the system: wide, separated by "\\".
[[nodiscard]] ZUHOST_API std::wstring hostPath(std::string_view systemPath);

} // namespace zuhost
