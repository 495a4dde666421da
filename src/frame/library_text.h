#pragma once

#include <afx.h>

namespace zu {

/// A text of the library in the user's language; one that the language module lacks is the built-in one.
[[nodiscard]] CString libraryText(unsigned id);

} // namespace zu
