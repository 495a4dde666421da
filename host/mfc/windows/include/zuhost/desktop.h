#pragma once

#include <zuhost/message_box.h>
#include <zuhost/platform/export.h>

#include <string>

class CWnd;

namespace zuhost {

/// Creates the desktop's application object on first use; programs that show no window never have one.
/// Windows are created off-screen when the environment names no desktop, or one that does not answer. The
/// decimal separator stays a point, whatever the desktop's language.
ZUHOST_API void ensureDesktop();

/// Returns true if the user can see windows. Creates the application object if a desktop is configured.
[[nodiscard]] ZUHOST_API bool hasDesktop();

/// Shows a message box and returns the number of the button pressed; nullopt without a desktop.
ZUHOST_API std::optional<int> showMessageBox(const MessageBoxRequest& request);

/// Runs the event loop until all windows are closed or hidden.
ZUHOST_API void runDesktop();

/// Processes pending events, posted messages, drawing and deferred deletions, without waiting for more.
ZUHOST_API void processPendingEvents();

/// Writes a picture of a window as it looks now, in the format that the file's extension names (.png). False
/// when there is no window or the file can't be written.
ZUHOST_API bool savePicture(const CWnd& window, const std::string& path);

} // namespace zuhost
