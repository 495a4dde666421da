#pragma once

#include "report/output.h"

namespace CLI {
class App;
} // namespace CLI

namespace zu::app {

/// Describes a command, its arguments and options and the commands below it, from which the manual pages are
/// made: {"name","description","arguments":[..],"options":[..],"commands":[..]}; an argument or option is
/// {"name","description","value","default","required"}, where `value` is the type of what follows an option.
[[nodiscard]] Json describe(const CLI::App& command);

} // namespace zu::app
