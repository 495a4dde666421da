#include "settings_file.h"

#include "failure.h"
#include "text.h"
#include "text_file_warning.h"

#include <zucomn/settings.h>
#include <zucomn/tables.h>

namespace zu::app {

SettingsFile::SettingsFile(const std::string& path) {
    if (path.empty())
        return;
    if (ZuComn_findFile(wide(path)) == 0)
        throw Failure(path + ": can't read the settings");
    ZuComn_SetIniFile(wide(path));
    warnOfUnmarkedUtf8(path);
    CString folder;
    if (ZuComn_GetSystemPath(folder))
        warnOfUnmarkedUtf8(narrow((folder + L"\\ZuConfig.ini").view()));
}

SettingsFile::~SettingsFile() {
    ZuComn_SetIniFile(L"");
}

} // namespace zu::app
