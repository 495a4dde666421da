#pragma once

#include <windows.h>

namespace zu {

/// The language id of the user's interface; 0 when nothing tells one.
[[nodiscard]] LANGID userLanguage();

} // namespace zu
