#pragma once

#include <string>

namespace zu::app {

/// Throws Failure with the file's name and the reason when it can't be opened for reading.
void requireReadable(const std::string& file);

/// Returns the file's name and the reason for which the library's last call could not save it.
[[nodiscard]] std::string withLastError(const std::string& file);

} // namespace zu::app
