#pragma once

class CMDIFrameWnd;

namespace zuhost {

/// Sets the host's main frame, which stays owned by the caller; null for none.
void setMainFrame(CMDIFrameWnd* frame);

} // namespace zuhost
