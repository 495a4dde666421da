#pragma once

#include <windows.h>

namespace zu {

/// Returns the language id of the user's interface; 0 when it is unknown.
[[nodiscard]] LANGID userLanguage();

} // namespace zu
