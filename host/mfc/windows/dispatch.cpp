#include "dispatch.h"

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

} // namespace zuhost
