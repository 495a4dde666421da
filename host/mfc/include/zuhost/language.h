#pragma once

#include <windows.h>

namespace zuhost {

/// Sets the user's language for this process; 0 restores the environment's.
void setUserLanguage(LANGID id);

/// Returns whether the environment names a language, known to the host or not; not for "C" and "POSIX".
[[nodiscard]] bool environmentNamesLanguage();

} // namespace zuhost
