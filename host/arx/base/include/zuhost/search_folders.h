#pragma once

#include <zuhost/platform/export.h>

#include <string>
#include <vector>

namespace zuhost {

/// Returns the folders in which a file named without one is searched for, each with its last separator: the
/// current one, the program's and the host's.
[[nodiscard]] ZUHOST_API std::vector<std::wstring> searchFolders();

} // namespace zuhost
