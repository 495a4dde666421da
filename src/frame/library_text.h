#pragma once

#include <afx.h>

namespace zu {

/// Returns a text of the library in the user's language, or the built-in one where the language module lacks
/// it.
[[nodiscard]] CString libraryText(unsigned id);

} // namespace zu
