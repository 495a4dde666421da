#pragma once

#include "../windows.h"

#include <functional>
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

/// Sets how boxes are shown, and returns how they were until now (empty: a line on standard error).
MessageBoxPresenter setMessageBoxPresenter(MessageBoxPresenter presenter);

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

/// As MessageBoxW, with the program's name as caption.
int AfxMessageBox(const wchar_t* text, UINT style = MB_OK, UINT helpId = 0);
