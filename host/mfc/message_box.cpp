#include "zuhost/message_box.h"

#include "zuhost/application.h"
#include "zuhost/text_codec.h"

#include <iostream>
#include <utility>

namespace zuhost {

namespace {

MessageBoxPresenter& presenter() {
    static MessageBoxPresenter current;
    return current;
}

DesktopMessageBox& desktopMessageBox() {
    static DesktopMessageBox box = nullptr;
    return box;
}

int firstButton(UINT style) {
    return (style & 0x0FU) == MB_YESNO || (style & 0x0FU) == MB_YESNOCANCEL ? IDYES : IDOK;
}

} // namespace

int printMessageBox(const MessageBoxRequest& box) {
    if (!box.caption.empty())
        std::cerr << toUtf8(box.caption) << ": ";
    std::cerr << toUtf8(box.text) << std::endl;
    return firstButton(box.style);
}

MessageBoxPresenter setMessageBoxPresenter(MessageBoxPresenter wanted) {
    return std::exchange(presenter(), std::move(wanted));
}

void setDesktopMessageBox(DesktopMessageBox box) {
    desktopMessageBox() = box;
}

MessageBoxObserver::MessageBoxObserver(int answer)
    : previous_(setMessageBoxPresenter([this, answer](const MessageBoxRequest& box) {
          boxes_.push_back(box);
          return answer;
      })) {}

MessageBoxObserver::~MessageBoxObserver() {
    setMessageBoxPresenter(std::move(previous_));
}

} // namespace zuhost

int MessageBoxW(HWND /*owner*/, const wchar_t* text, const wchar_t* caption, UINT style) {
    const zuhost::MessageBoxRequest box{text != nullptr ? text : L"", caption != nullptr ? caption : L"",
                                        style};
    if (zuhost::presenter())
        return zuhost::presenter()(box);
    const zuhost::DesktopMessageBox desktop = zuhost::desktopMessageBox();
    const std::optional<int> answer = desktop != nullptr ? desktop(box) : std::nullopt;
    return answer ? *answer : zuhost::printMessageBox(box);
}

int AfxMessageBox(const wchar_t* text, UINT style, UINT /*helpId*/) {
    return MessageBoxW(nullptr, text, zuhost::application().title.c_str(), style);
}
