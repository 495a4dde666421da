#pragma once

#include <windows.h>
#include <zuhost/platform/export.h>

#include <chrono>
#include <filesystem>

namespace zuhost {

/// Returns a file's time in the platform's form.
[[nodiscard]] ZUHOST_API FILETIME fileTimeOf(std::filesystem::file_time_type time);

} // namespace zuhost
