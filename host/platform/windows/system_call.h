#pragma once

#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#include <string>
#include <string_view>

namespace zuhost::platform {

/// Returns the C library's number for an error of the system.
int errorNumber(DWORD error);
/// Returns the number for the last error of this thread.
int lastErrorNumber();

std::wstring wideText(std::string_view utf8);
std::string utf8Text(std::wstring_view text);
/// Returns the system's name for a path in UTF-8 with "/"; long ones in the form that has no limit.
std::wstring systemName(const std::string& path);
/// Returns a path of the system in UTF-8 with "/".
std::string portablePath(std::wstring_view name);

} // namespace zuhost::platform
