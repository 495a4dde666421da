#pragma once

#include <string>
#include <vector>

namespace zuhost::platform {

/// Makes the standard streams pass bytes as given, line ends included, and the terminal show UTF-8.
void prepareStandardStreams();
/// Returns the arguments of main() in UTF-8, the program's name first.
std::vector<std::string> programArguments(int count, const char* const* arguments);

} // namespace zuhost::platform
