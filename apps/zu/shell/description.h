#pragma once

#include "command_line.h"
#include "report/output.h"

namespace zu::app {

/// Returns the description from which the manual pages are made:
/// {"name","description","arguments":[..],"options":[..],"commands":[..]}; an argument or option is
/// {"name","description","value","default","required","repeats"}, where `value` is the type of what follows
/// an option.
[[nodiscard]] Json descriptionJson(const CommandDescription& command);

} // namespace zu::app
