#pragma once

#include <string>

namespace zu::app {

/// The master settings file for the run of a command; without a name the library has no settings.
class SettingsFile {
public:
    /// Throws Failure when the file can't be read.
    explicit SettingsFile(const std::string& path);
    ~SettingsFile();
    SettingsFile(const SettingsFile&) = delete;
    SettingsFile& operator=(const SettingsFile&) = delete;
};

} // namespace zu::app
