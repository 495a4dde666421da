#pragma once

namespace zuhost::platform {

/// A file can be replaced while this process has it open.
inline constexpr bool kReplacesOpenFiles = true;
/// Names of files that differ in case only are the same.
inline constexpr bool kNamesIgnoreCase = false;

} // namespace zuhost::platform
