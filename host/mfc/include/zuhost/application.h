#pragma once

#include <string>

namespace zuhost {

/// The program that the host runs in, as users see it.
struct Application {
    std::string program = "zuhost";        ///< What the desktop calls its windows' owner.
    std::wstring title;                    ///< Caption of AfxMessageBox.
    std::string settingsFolder = "zuhost"; ///< Of CWinApp's profile, in the user's configuration folder.
};

/// Set by the program before it shows anything.
void setApplication(Application application);
[[nodiscard]] const Application& application();

} // namespace zuhost
