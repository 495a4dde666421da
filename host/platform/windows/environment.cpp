#include "zuhost/platform/environment.h"

#include "system_call.h"

#include <algorithm>
#include <array>
#include <io.h>

namespace zuhost::platform {

namespace {

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
    std::tm parts{};
    localtime_s(&parts, &time);
    return parts;
}

std::tm universalTime(std::time_t time) {
    std::tm parts{};
    gmtime_s(&parts, &time);
    return parts;
}

} // namespace zuhost::platform
