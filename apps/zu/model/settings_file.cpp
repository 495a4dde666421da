#include "model/settings_file.h"

#include "failure.h"
#include "model/readable_file.h"
#include "report/text_file_warning.h"
#include "text.h"

#include <zucomn/settings.h>
#include <zucomn/tables.h>
#include <zuhost/paths.h>
#include <zuhost/platform/paths.h>
#include <zuhost/texts.h>

#include <filesystem>
#include <system_error>

namespace zu::app {

namespace {

/// The files that the library reads from the system folder.
constexpr const wchar_t* kSystemFiles[] = {L"ZuConfig.ini", L"属性IDパラメータ.csv", L"属性IDタイトル.csv"};

} // namespace

SettingsFile::SettingsFile(const std::string& path) {
    if (path.empty())
        return;
    requireReadable(path);
    // Settings are read again for each value.
    std::error_code unknown;
    if (std::filesystem::is_other(std::filesystem::status(zuhost::platform::pathOf(path), unknown)))
        throw Failure(path + ": is a device or pipe, not a file");
    ZuComn_SetIniFile(wide(path));
    warnOfUnmarkedUtf8(path);
    CString folder;
    if (ZuComn_GetSystemPath(folder))
        for (const wchar_t* const name : kSystemFiles)
            warnOfUnmarkedUtf8(zuhost::systemPath(zuhost::viewOf(folder + L"\\" + name)));
}

SettingsFile::~SettingsFile() {
    ZuComn_SetIniFile(L"");
}

} // namespace zu::app
