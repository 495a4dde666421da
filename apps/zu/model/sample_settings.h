#pragma once

#include "model/settings_file.h"

#include <string>

namespace zu::app {

/// A copy of the sample settings, with the paths of their place in them, for the run of a command.
class SampleSettings {
public:
    /// Copies the folders "system" and "parts" of the samples into `output`/settings.
    SampleSettings(const std::string& samples, const std::string& output);

private:
    SettingsFile settings_;
};

} // namespace zu::app
