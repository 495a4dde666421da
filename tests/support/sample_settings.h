#pragma once

#include "temporary_folder.h"

#include <zucomn/model/library.h>
#include <zucomn/settings.h>
#include <zuhost/texts.h>

#include <filesystem>
#include <string>

/// A copy of the sample settings with the paths of their place, named to the library for the object's life.
class SampleSettings {
public:
    SampleSettings() {
        namespace fs = std::filesystem;
        for (const char* part : {"system", "parts"})
            fs::copy(fs::path(ZU_SAMPLES) / part, folder_.path() / part, fs::copy_options::recursive);
        std::string text = TemporaryFolder::read(folder_.file("system/master.ini"));
        for (std::size_t at = text.find("@ROOT@"); at != std::string::npos; at = text.find("@ROOT@"))
            text.replace(at, 6, folder_.path().string());
        folder_.write("system/master.ini", text);
        ZuComn_SetIniFile(zuhost::textOf(folder_.wide("system/master.ini")));
    }
    ~SampleSettings() { zucomn::resetLibrary(); }
    SampleSettings(const SampleSettings&) = delete;
    SampleSettings& operator=(const SampleSettings&) = delete;

    [[nodiscard]] const TemporaryFolder& folder() const { return folder_; }
    [[nodiscard]] std::wstring system(std::string_view name) const {
        return folder_.wide("system/" + std::string(name));
    }

private:
    TemporaryFolder folder_;
};
