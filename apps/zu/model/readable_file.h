#pragma once

#include <string>

namespace zu::app {

/// Throws Failure with the file's name and the reason when it can't be opened for reading.
void requireReadable(const std::string& file);

/// The name of the file with the reason in words that saving it by the library's last call failed for.
[[nodiscard]] std::string withLastError(const std::string& file);

} // namespace zu::app
