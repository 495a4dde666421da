#pragma once

#include "../windows.h"

namespace zuhost {

/// Returns the platform's error code for an error number of the system.
[[nodiscard]] DWORD lastErrorOf(int systemError);

/// Returns the cause of a CFileException for an error number of the system.
[[nodiscard]] int fileExceptionCauseOf(int systemError);

} // namespace zuhost
