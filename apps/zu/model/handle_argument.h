#pragma once

#include "command_line.h"

#include <string>

namespace zu::app {

/// The optional argument HANDLE after the drawings of a command. The last of several words is a handle when
/// it is hexadecimal (a file of such a name is written "./126"), or when it can't name a drawing: it has
/// neither
/// "." nor "/" in it and no file has its name.
[[nodiscard]] LastArguments handleArgument(std::string& handle);

} // namespace zu::app
