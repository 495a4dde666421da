#pragma once

#include <zuhost/platform/export.h>

class CMDIFrameWnd;

/// Returns the host's main frame; null in headless programs.
ZUHOST_API CMDIFrameWnd* acedGetAcadFrame();
