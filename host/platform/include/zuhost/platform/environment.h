#pragma once

#include <zuhost/platform/export.h>

#include <cstdio>
#include <ctime>
#include <string>

namespace zuhost::platform {

/// Returns the user's locale, "ja_JP.UTF-8"; empty when the system names none.
ZUHOST_API std::string userLocale();
/// Returns the folder of the user's settings; empty if unknown.
ZUHOST_API std::string userSettingsFolder();
/// Returns whether the stream is shown on a terminal.
ZUHOST_API bool isTerminal(std::FILE* stream);

/// Return the calendar's parts of a time in the local time zone and in UTC; zeros for a time out of range.
ZUHOST_API std::tm localTime(std::time_t time);
ZUHOST_API std::tm universalTime(std::time_t time);
/// Returns the time for the parts of a local one, which it completes as mktime() does, before 1970 too.
ZUHOST_API std::time_t timeOfLocal(std::tm& parts);

} // namespace zuhost::platform
