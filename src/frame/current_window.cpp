#include <zucomn/frame.h>

#include "reset.h"

CWnd* close_pLastWnd = nullptr;
bool close_bDoHide = false;
UINT close_Msg = 0;
UINT close_wParam = 0;
LPARAM close_lParam = 0;
CWnd* close_pLastWnd2 = nullptr;
bool close_bDoHide2 = false;
UINT close_Msg2 = 0;
UINT close_wParam2 = 0;
LPARAM close_lParam2 = 0;
CString close_SendCommand;

void zu::resetCurrentWindows() {
    ZuComn_SetCurrentWindow(nullptr, false, 0, 0, 0);
    ZuComn_SetCurrentWindow2(nullptr, false, 0, 0, 0);
}

void ZuComn_SetSendCueCommand(const CString& command) {
    close_SendCommand = command;
}

void ZuComn_ClearSendCueCommand() {
    close_SendCommand.Empty();
}

void ZuComn_SetCurrentWindow(CWnd* window, bool hide, UINT message, UINT wParam, LPARAM lParam) {
    close_pLastWnd = window;
    close_bDoHide = hide;
    close_Msg = message;
    close_wParam = wParam;
    close_lParam = lParam;
    ZuComn_ClearSendCueCommand();
}

void ZuComn_SetCurrentWindow2(CWnd* window, bool hide, UINT message, UINT wParam, LPARAM lParam) {
    close_pLastWnd2 = window;
    close_bDoHide2 = hide;
    close_Msg2 = message;
    close_wParam2 = wParam;
    close_lParam2 = lParam;
}

void ZuceComn_ClearCurrentWindow(bool both) {
    close_pLastWnd = nullptr;
    if (both)
        close_pLastWnd2 = nullptr;
    ZuComn_ClearSendCueCommand();
}
