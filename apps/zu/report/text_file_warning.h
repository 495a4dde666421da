#pragma once

#include <string>

namespace zu::app {

/// Warns on the standard error when a file is likely to be UTF-8 but is read in code page 932 because it has
/// no byte-order mark.
void warnOfUnmarkedUtf8(const std::string& file);

} // namespace zu::app
