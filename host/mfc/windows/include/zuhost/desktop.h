#pragma once

#include "zuhost/message_box.h"

#include <string>

class CWnd;

namespace zuhost {

/// Makes the desktop's application object on first use. Programs that show no window never have one. Numbers
/// are read and written as before: the decimal separator does not follow the desktop. Where the environment
/// names no desktop, or one that does not answer, windows live off the screen.
void ensureDesktop();

/// True where the user can see windows; makes the application object when the environment names a desktop.
[[nodiscard]] bool hasDesktop();

/// Shows a box and waits for its button; nullopt without a desktop.
std::optional<int> showMessageBox(const MessageBoxRequest& request);

/// Runs the desktop until no window is shown any more, because all were closed or hidden.
void runDesktop();

/// Handles what the desktop has in hand now: events, messages posted, drawing.
void settleDesktop();

/// Writes a picture of a window as it looks now (.png by the name). False when there is no window or the file
/// can't be written.
bool savePicture(const CWnd& window, const std::string& path);

} // namespace zuhost
