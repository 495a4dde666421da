#pragma once

#include <zuhost/platform/export.h>

class CMDIFrameWnd;

namespace zuhost {

/// Sets the host's main frame, which stays owned by the caller; null for none.
ZUHOST_API void setMainFrame(CMDIFrameWnd* frame);

} // namespace zuhost
