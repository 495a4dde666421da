#include "zuhost/platform/environment.h"

#include "system_call.h"

#include <algorithm>
#include <array>
#include <io.h>

namespace zuhost::platform {

namespace {

// The C library knows no times before 1970. The calendar repeats after 400 years.
// The first hours of 1970 lie before it where clocks are ahead of UTC.
constexpr int kFirstYear = 71; // as std::tm counts
constexpr int kCycleYears = 400;
constexpr std::time_t kCycleSeconds = std::time_t{146'097} * 24 * 60 * 60;

template <typename Convert>
std::tm partsOf(std::time_t time, Convert convert) {
    std::tm parts{};
    if (time >= 0 || time < -kCycleSeconds) {
        convert(&parts, &time);
        return parts;
    }
    time += kCycleSeconds;
    convert(&parts, &time);
    parts.tm_year -= kCycleYears;
    return parts;
}

std::string variable(const wchar_t* name) {
    std::wstring value(GetEnvironmentVariableW(name, nullptr, 0), L'\0');
    value.resize(GetEnvironmentVariableW(name, value.data(), static_cast<DWORD>(value.size())));
    return utf8Text(value);
}

} // namespace

/// The variables of other systems come first: tools that are called by scripts expect them.
std::string userLocale() {
    for (const wchar_t* const name : {L"LC_ALL", L"LC_MESSAGES", L"LANG"})
        if (const std::string locale = variable(name); !locale.empty())
            return locale;
    std::array<wchar_t, LOCALE_NAME_MAX_LENGTH> name{};
    const int length = GetUserDefaultLocaleName(name.data(), static_cast<int>(name.size()));
    std::string locale = length > 0 ? utf8Text({name.data(), static_cast<std::size_t>(length - 1)}) : "";
    std::replace(locale.begin(), locale.end(), '-', '_');
    return locale;
}

std::string userSettingsFolder() {
    std::string folder = variable(L"APPDATA");
    std::replace(folder.begin(), folder.end(), '\\', '/');
    return folder;
}

bool isTerminal(std::FILE* stream) {
    return _isatty(_fileno(stream)) != 0;
}

std::tm localTime(std::time_t time) {
    return partsOf(time, localtime_s);
}

std::tm universalTime(std::time_t time) {
    return partsOf(time, gmtime_s);
}

std::time_t timeOfLocal(std::tm& parts) {
    if (parts.tm_year >= kFirstYear)
        return std::mktime(&parts);
    parts.tm_year += kCycleYears;
    const std::time_t time = std::mktime(&parts);
    parts.tm_year -= kCycleYears;
    return time == -1 ? -1 : time - kCycleSeconds;
}

} // namespace zuhost::platform
