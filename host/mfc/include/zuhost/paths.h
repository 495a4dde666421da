#pragma once

#include <string>
#include <string_view>

namespace zuhost {

/// The file that a path of the interface names, as the system knows it (UTF-8, "/"). Both "\\" and "/" part
/// its components, and a component that is not there in its own case is taken in the case that is: first an
/// exact match, else the first in alphabetical order. What does not exist keeps the name as given, without
/// spaces and dots at its end. A drive letter ("C:") is dropped. A path that no file can have (with NUL or
/// half of a surrogate pair) starts with NUL: the file operations refuse it with EILSEQ.
[[nodiscard]] std::string systemPath(std::wstring_view path);

/// Returns the platform's form of a path of the system: wide, separated by "\\".
[[nodiscard]] std::wstring hostPath(std::string_view systemPath);

} // namespace zuhost
