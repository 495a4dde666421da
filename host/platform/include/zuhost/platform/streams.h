#pragma once

#include <zuhost/platform/export.h>

#include <string>
#include <vector>

namespace zuhost::platform {

/// Makes the standard streams pass bytes as given, line ends included, and the terminal show UTF-8.
ZUHOST_API void prepareStandardStreams();
/// Returns the arguments of main() in UTF-8, the program's name first.
ZUHOST_API std::vector<std::string> programArguments(int count, const char* const* arguments);

} // namespace zuhost::platform
