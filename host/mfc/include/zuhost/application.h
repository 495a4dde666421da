#pragma once

#include <zuhost/platform/export.h>

#include <string>

namespace zuhost {

/// Names of the program that the host runs in.
struct Application {
    std::string program = "zuhost";        ///< Name of the application for the desktop.
    std::wstring title;                    ///< Caption of AfxMessageBox.
    std::string settingsFolder = "zuhost"; ///< For CWinApp's profile, in the user's configuration folder.
};

/// Sets the names; the program calls it before it shows a window or a message box.
ZUHOST_API void setApplication(Application application);
[[nodiscard]] ZUHOST_API const Application& application();

} // namespace zuhost
