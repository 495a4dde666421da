#pragma once

class CMDIFrameWnd;

/// Returns the host's main frame; null in headless programs.
CMDIFrameWnd* acedGetAcadFrame();

namespace zuhost {
/// Sets the host's main frame, which stays owned by the caller; null for none.
void setMainFrame(CMDIFrameWnd* frame);
} // namespace zuhost
