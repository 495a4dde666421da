#pragma once

/// Marks what a module or library exports.
#define ZUHOST_EXPORTED __attribute__((visibility("default")))

namespace zuhost::platform {

/// Paths begin with a drive: "C:/folder". Elsewhere a drive is dropped.
inline constexpr bool kPathsHaveDrives = false;

} // namespace zuhost::platform
