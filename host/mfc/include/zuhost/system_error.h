#pragma once

#include "../windows.h"

namespace zuhost {

/// The platform's error code for an error number of the system.
[[nodiscard]] DWORD lastErrorOf(int systemError);

/// The file-exception cause for an error number of the system.
[[nodiscard]] int fileExceptionCauseOf(int systemError);

} // namespace zuhost
