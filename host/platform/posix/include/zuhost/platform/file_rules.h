#pragma once

namespace zuhost::platform {

/// A file can be replaced while this process has it open.
inline constexpr bool kReplacesOpenFiles = true;

} // namespace zuhost::platform
