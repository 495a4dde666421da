#pragma once

#include "winuser.h"

class CWnd;

namespace zuhost {

/// A message that is being handled. Messages handled within each other form a chain.
class Dispatch {
public:
    Dispatch(CWnd& window, UINT message, WPARAM wParam, LPARAM lParam);
    ~Dispatch();
    Dispatch(const Dispatch&) = delete;
    Dispatch& operator=(const Dispatch&) = delete;

    /// The innermost one; null when none is handled.
    [[nodiscard]] static Dispatch* current();

    CWnd& window;
    const UINT message;
    const WPARAM wParam;
    const LPARAM lParam;
    bool goesOn = false; ///< The desktop shall do what it does without a handler.

private:
    Dispatch* outer_;
};

} // namespace zuhost
