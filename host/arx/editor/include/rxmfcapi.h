#pragma once

class CMDIFrameWnd;

/// The host's main frame; null on a headless run.
CMDIFrameWnd* acedGetAcadFrame();

namespace zuhost {
/// Makes a frame the host's main frame (null: none again). The frame stays its maker's.
void setMainFrame(CMDIFrameWnd* frame);
} // namespace zuhost
