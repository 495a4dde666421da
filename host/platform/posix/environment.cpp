#include "zuhost/platform/environment.h"

#include <unistd.h>

#include <cstdlib>
#include <string_view>

namespace zuhost::platform {

namespace {

std::string_view variable(const char* name) {
    const char* const value = std::getenv(name);
    return value != nullptr ? value : "";
}

} // namespace

std::string userLocale() {
    for (const char* const name : {"LC_ALL", "LC_MESSAGES", "LANG"})
        if (const std::string_view locale = variable(name); !locale.empty())
            return std::string(locale);
    return {};
}

std::string userSettingsFolder() {
    const std::string_view configuration = variable("XDG_CONFIG_HOME");
    if (configuration.starts_with('/'))
        return std::string(configuration);
    const std::string_view home = variable("HOME");
    return home.empty() ? std::string() : std::string(home) + "/.config";
}

bool isTerminal(std::FILE* stream) {
    return isatty(fileno(stream)) != 0;
}

std::tm localTime(std::time_t time) {
    std::tm parts{};
    localtime_r(&time, &parts);
    return parts;
}

std::tm universalTime(std::time_t time) {
    std::tm parts{};
    gmtime_r(&time, &parts);
    return parts;
}

std::time_t timeOfLocal(std::tm& parts) {
    return std::mktime(&parts);
}

} // namespace zuhost::platform
