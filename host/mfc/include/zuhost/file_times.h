#pragma once

#include <windows.h>

#include <chrono>
#include <filesystem>

namespace zuhost {

/// Returns a file's time in the platform's form.
[[nodiscard]] FILETIME fileTimeOf(std::filesystem::file_time_type time);

} // namespace zuhost
