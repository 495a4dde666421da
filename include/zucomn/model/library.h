#pragma once

#include "../export.h"

namespace zucomn {

/// Gives every process-wide value of the library its default, as in a library just loaded: language, settings
/// file, layer names, scale, tolerances, working database, windows, tables read, replace reactors, indexes of
/// the connection search. Windows of the library must be closed before. Meant for tests and for programs that
/// start anew.
ZUCOMN_API void resetLibrary();

} // namespace zucomn
