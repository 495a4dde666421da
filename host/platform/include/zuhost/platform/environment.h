#pragma once

#include <cstdio>
#include <string>

namespace zuhost::platform {

/// Returns the user's locale, "ja_JP.UTF-8"; empty when the system names none.
std::string userLocale();
/// Returns the folder of the user's settings; empty if unknown.
std::string userSettingsFolder();
/// Returns whether the stream is shown on a terminal.
bool isTerminal(std::FILE* stream);

} // namespace zuhost::platform
