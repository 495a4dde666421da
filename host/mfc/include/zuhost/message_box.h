#pragma once

#include "../afxmbox_.h"
#include <windows.h>
#include <zuhost/platform/export.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace zuhost {

struct MessageBoxRequest {
    std::wstring text;
    std::wstring caption;
    UINT style = MB_OK;
};

/// Shows a box and returns the button chosen.
using MessageBoxPresenter = std::function<int(const MessageBoxRequest&)>;

/// Sets the presenter of message boxes and returns the previous one. Empty, the initial value: shows boxes on
/// the desktop if there is one, otherwise calls printMessageBox.
ZUHOST_API MessageBoxPresenter setMessageBoxPresenter(MessageBoxPresenter presenter);

/// Prints a box as a line on standard error and returns its first button: for programs that must not wait.
ZUHOST_API int printMessageBox(const MessageBoxRequest& box);

/// Shows a box on the desktop; returns nullopt when there is none.
using DesktopMessageBox = std::optional<int> (*)(const MessageBoxRequest&);
/// Called by the part of the host that owns the desktop.
ZUHOST_API void setDesktopMessageBox(DesktopMessageBox box);

/// Records message boxes during its lifetime instead of showing them.
class ZUHOST_API MessageBoxObserver {
public:
    /// `answer` is what each box returns.
    explicit MessageBoxObserver(int answer = IDOK);
    ~MessageBoxObserver();
    MessageBoxObserver(const MessageBoxObserver&) = delete;
    MessageBoxObserver& operator=(const MessageBoxObserver&) = delete;

    [[nodiscard]] const std::vector<MessageBoxRequest>& boxes() const { return boxes_; }

private:
    std::vector<MessageBoxRequest> boxes_;
    MessageBoxPresenter previous_;
};

} // namespace zuhost
