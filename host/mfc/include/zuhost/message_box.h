#pragma once

#include "../windows.h"

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

/// Sets how boxes are shown and returns the previous way. Empty, as at the start: on the desktop, where there
/// is one, otherwise by printMessageBox.
MessageBoxPresenter setMessageBoxPresenter(MessageBoxPresenter presenter);

/// Prints a box as a line on standard error and takes its first button: for programs that must not wait.
int printMessageBox(const MessageBoxRequest& box);

/// Shows a box on the desktop; nullopt where there is none.
using DesktopMessageBox = std::optional<int> (*)(const MessageBoxRequest&);
/// Registered by the part of the host that owns the desktop.
void setDesktopMessageBox(DesktopMessageBox box);

/// Collects the boxes shown during its life instead of showing them.
class MessageBoxObserver {
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

/// As MessageBoxW, with the application's title (zuhost/application.h) as caption.
int AfxMessageBox(const wchar_t* text, UINT style = MB_OK, UINT helpId = 0);
