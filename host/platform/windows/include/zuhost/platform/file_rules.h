#pragma once

namespace zuhost::platform {

/// A file can be replaced while this process has it open. Only file systems with POSIX renames could.
inline constexpr bool kReplacesOpenFiles = false;
/// Names of files that differ in case only are the same.
inline constexpr bool kNamesIgnoreCase = true;

} // namespace zuhost::platform
