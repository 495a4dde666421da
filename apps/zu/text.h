#pragma once

#include <afxcoll.h>

#include <string>
#include <vector>

namespace zu::app {

// Between the program's UTF-8 and the library's wide text.
[[nodiscard]] CString wide(const std::string& utf8);
[[nodiscard]] std::string narrow(std::wstring_view text);
[[nodiscard]] std::vector<std::string> narrow(const CStringArray& texts);

/// The full path of a file in the form that the interface names files by.
[[nodiscard]] CString fullPath(const std::string& file);

} // namespace zu::app
