#pragma once

namespace zuhost {

/// Makes the desktop's application object on first use. Programs that show no window never have one. Numbers
/// are read and written as before: the decimal separator does not follow the desktop.
void ensureDesktop();

} // namespace zuhost
