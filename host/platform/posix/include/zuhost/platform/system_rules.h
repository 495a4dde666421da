#pragma once

namespace zuhost::platform {

/// Paths begin with a drive: "C:/folder". Elsewhere a drive is dropped.
inline constexpr bool kPathsHaveDrives = false;

} // namespace zuhost::platform
