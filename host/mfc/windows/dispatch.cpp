#include "dispatch.h"

#include <zuhost/escaped_exception.h>
#include <zuhost/message_box.h>

namespace zuhost {

namespace {

Dispatch* innermost = nullptr;

} // namespace

Dispatch::Dispatch(CWnd& receiver, UINT number, WPARAM first, LPARAM second)
    : window(receiver), message(number), wParam(first), lParam(second), outer_(innermost) {
    innermost = this;
}

Dispatch::~Dispatch() {
    innermost = outer_;
}

Dispatch* Dispatch::current() {
    return innermost;
}

LRESULT reportEscapedException(UINT message) {
    AfxMessageBox(deleteEscapedException().c_str(), MB_OK | MB_ICONSTOP);
    return message == WM_CREATE ? -1 : 0;
}

} // namespace zuhost
