#pragma once

#include <cstdio>
#include <ctime>
#include <string>

namespace zuhost::platform {

/// Returns the user's locale, "ja_JP.UTF-8"; empty when the system names none.
std::string userLocale();
/// Returns the folder of the user's settings; empty if unknown.
std::string userSettingsFolder();
/// Returns whether the stream is shown on a terminal.
bool isTerminal(std::FILE* stream);

/// Return the calendar's parts of a time in the local time zone and in UTC; zeros for a time out of range.
std::tm localTime(std::time_t time);
std::tm universalTime(std::time_t time);
/// Returns the time for the parts of a local one, which it completes as mktime() does, before 1970 too.
std::time_t timeOfLocal(std::tm& parts);

} // namespace zuhost::platform
