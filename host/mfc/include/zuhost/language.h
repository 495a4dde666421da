#pragma once

#include <windows.h>
#include <zuhost/platform/export.h>

namespace zuhost {

/// Sets the user's language for this process; 0 restores the environment's.
ZUHOST_API void setUserLanguage(LANGID id);

/// Returns whether the environment names a language, known to the host or not; not for "C" and "POSIX".
[[nodiscard]] ZUHOST_API bool environmentNamesLanguage();

} // namespace zuhost
