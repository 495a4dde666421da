#pragma once

class CMDIFrameWnd;

/// Returns the host's main frame; null in headless programs.
CMDIFrameWnd* acedGetAcadFrame();
