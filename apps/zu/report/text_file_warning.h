#pragma once

#include <string>

namespace zu::app {

/// Warns on the standard error when a file is likely to be in UTF-8 but is read in code page 932, for want of
/// a byte-order mark.
void warnOfUnmarkedUtf8(const std::string& file);

} // namespace zu::app
