#include <zucomn/frame.h>

#include <afxwin.h>
#include <rxmfcapi.h>

void ZuComn_ShowWindow(CWnd* window, int command) {
    if (window == nullptr || window->GetSafeHwnd() == nullptr)
        return;
    CWnd* const parent = window->GetParentFrame();
    CWnd* const target = parent == nullptr || parent == acedGetAcadFrame() ? window : parent;
    if (target->IsWindowVisible())
        target->ShowWindow(command);
}
