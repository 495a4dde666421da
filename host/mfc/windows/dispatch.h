#pragma once

#include "winuser.h"

class CWnd;

namespace zuhost {

/// A message that is being handled. Nested messages form a chain.
class Dispatch {
public:
    Dispatch(CWnd& window, UINT message, WPARAM wParam, LPARAM lParam);
    ~Dispatch();
    Dispatch(const Dispatch&) = delete;
    Dispatch& operator=(const Dispatch&) = delete;

    /// Returns the innermost message; null when none is being handled.
    [[nodiscard]] static Dispatch* current();

    CWnd& window;
    const UINT message;
    const WPARAM wParam;
    const LPARAM lParam;
    bool runsDefault = false; ///< The desktop's default handling follows.

private:
    Dispatch* outer_;
};

/// Shows the exception that is being handled in a message box, and returns a message's result for it: -1,
/// which cancels a window's creation, for WM_CREATE, otherwise 0.
LRESULT reportEscapedException(UINT message);

} // namespace zuhost
