#include "zuhost/windows/app.h"

#include <zuhost/application.h>
#include <zuhost/paths.h>
#include <zuhost/platform/environment.h>

#include <filesystem>
#include <string>

namespace {

std::wstring settingsFile() {
    const std::string folder = zuhost::platform::userSettingsFolder();
    if (folder.empty())
        return {};
    return zuhost::hostPath(
        (std::filesystem::path(folder) / zuhost::application().settingsFolder / "windows.ini").string());
}

} // namespace

CString CWinApp::GetProfileString(const wchar_t* section, const wchar_t* entry,
                                  const wchar_t* fallback) const {
    constexpr DWORD kSize = 1024;
    std::wstring buffer(kSize, L'\0');
    GetPrivateProfileStringW(section, entry, fallback, buffer.data(), kSize, settingsFile().c_str());
    return buffer.c_str();
}

UINT CWinApp::GetProfileInt(const wchar_t* section, const wchar_t* entry, int fallback) const {
    return GetPrivateProfileIntW(section, entry, fallback, settingsFile().c_str());
}

BOOL CWinApp::WriteProfileString(const wchar_t* section, const wchar_t* entry, const wchar_t* value) {
    const std::wstring file = settingsFile();
    if (file.empty())
        return FALSE;
    std::error_code failed;
    std::filesystem::create_directories(std::filesystem::path(zuhost::systemPath(file)).parent_path(),
                                        failed);
    return failed ? FALSE : WritePrivateProfileStringW(section, entry, value, file.c_str());
}

BOOL CWinApp::WriteProfileInt(const wchar_t* section, const wchar_t* entry, int value) {
    return WriteProfileString(section, entry, std::to_wstring(value).c_str());
}

CWinApp* AfxGetApp() {
    static CWinApp app;
    return &app;
}
