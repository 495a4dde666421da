#pragma once

#include "model/settings_file.h"

#include <string>

namespace zu::app {

/// A copy of the sample settings, with its own folder in its paths, used by the library for the run of a
/// command.
class SampleSettings {
public:
    /// Copies the folders "system" and "parts" of the samples into `output`/settings.
    SampleSettings(const std::string& samples, const std::string& output);

private:
    SettingsFile settings_;
};

} // namespace zu::app
