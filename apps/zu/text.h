#pragma once

#include <afxcoll.h>

#include <string>
#include <vector>

namespace zu::app {

// Between the program's UTF-8 and the library's wide text.
[[nodiscard]] CString wide(const std::string& utf8);
[[nodiscard]] std::string narrow(std::wstring_view text);
[[nodiscard]] std::vector<std::string> narrow(const CStringArray& texts);

/// The name of a file. Throws Failure when it is not valid UTF-8: the interface can't name such files.
[[nodiscard]] CString filePath(const std::string& file);

/// The full path of a file in the form that the interface takes; throws as `filePath`.
[[nodiscard]] CString fullPath(const std::string& file);

} // namespace zu::app
