#pragma once

#include <windows.h>

namespace zuhost {

/// Makes a language the user's for this process, instead of the environment's. 0 for the environment's again.
void setUserLanguage(LANGID id);

/// True when the environment names a language, known to the host or not; "C" and "POSIX" are none.
[[nodiscard]] bool environmentNamesLanguage();

} // namespace zuhost
