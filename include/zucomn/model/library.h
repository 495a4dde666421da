#pragma once

#include "../export.h"

namespace zucomn {

/// Resets all process-wide values of the library to their state after loading: language, settings file, layer
/// names, scale, tolerances, working database, window records, tables, replace reactors, indexes of the
/// connection search. Close the library's windows first. For tests, and for programs that restart their
/// session.
ZUCOMN_API void resetLibrary();

} // namespace zucomn
