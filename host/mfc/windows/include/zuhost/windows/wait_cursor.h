#pragma once

#include <zuhost/platform/export.h>

/// Shows the desktop's cursor for waiting during its lifetime. Does nothing without a desktop.
class ZUHOST_API CWaitCursor {
public:
    CWaitCursor();
    ~CWaitCursor();
    CWaitCursor(const CWaitCursor&) = delete;
    CWaitCursor& operator=(const CWaitCursor&) = delete;

    /// Shows the cursor again after another one was set.
    void Restore();

private:
    bool isShown_ = false;
};
