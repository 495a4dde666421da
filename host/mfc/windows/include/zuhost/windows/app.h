#pragma once

#include <afxstr.h>
#include <windows.h>
#include <zuhost/platform/export.h>

/// The application: gives access to the user's settings, which are stored in the profile file "windows.ini"
/// in the application's folder (zuhost/application.h) of the user's configuration folder ($XDG_CONFIG_HOME,
/// else ~/.config).
class ZUHOST_API CWinApp {
public:
    [[nodiscard]] CString GetProfileString(const wchar_t* section, const wchar_t* entry,
                                           const wchar_t* fallback = nullptr) const;
    [[nodiscard]] UINT GetProfileInt(const wchar_t* section, const wchar_t* entry, int fallback) const;
    /// FALSE when the file can't be written.
    BOOL WriteProfileString(const wchar_t* section, const wchar_t* entry, const wchar_t* value);
    BOOL WriteProfileInt(const wchar_t* section, const wchar_t* entry, int value);
};

ZUHOST_API CWinApp* AfxGetApp();
