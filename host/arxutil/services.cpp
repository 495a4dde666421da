#include "arxutil.h"

#include "zuhost/input.h"
#include <acdocman.h>
#include <windows.h>

#include <array>
#include <numbers>
#include <string>

int ApiComn_GetEnv(CString& value, const wchar_t* file, const wchar_t* section, const wchar_t* key) {
    std::array<wchar_t, 512> buffer{};
    GetPrivateProfileStringW(section, key, L"error", buffer.data(), static_cast<DWORD>(buffer.size()), file);
    if (_wcsicmp(buffer.data(), L"error") == 0)
        return -1;
    value = buffer.data();
    return 0;
}

int ApiComn_sendCommand(const wchar_t* command, int first, int wait, int enter) {
    if (command == nullptr || *command == L'\0')
        return -1;
    const std::wstring waiting = first != 0 ? zuhost::pendingInput() : std::wstring();
    if (first != 0)
        zuhost::clearPendingInput();
    std::wstring text = command;
    if (enter != 0)
        text += L'\n';
    text += waiting;
    if (acDocManager->sendStringToExecute(acDocManager->curDocument(), text.c_str()) != Acad::eOk)
        return -1;
    if (wait != 0)
        zuhost::runPendingCommands();
    return 0;
}

double ApiComn_DegreeToRadian(double degrees) {
    return degrees / 180.0 * std::numbers::pi;
}

double ApiComn_RadianToDegree(double radians) {
    return radians / std::numbers::pi * 180.0;
}
