#include <windows.h>

#include "zuhost/text_codec.h"

#include <zuhost/platform/environment.h>

#include <chrono>
#include <cstdlib>
#include <ctime>
#include <thread>

namespace {

using Calendar = std::tm (*)(std::time_t);

void store(SYSTEMTIME* time, Calendar calendar) {
    if (time == nullptr)
        return;
    const auto now = std::chrono::system_clock::now();
    const std::time_t seconds = std::chrono::system_clock::to_time_t(now);
    const auto milliseconds =
        std::chrono::duration_cast<std::chrono::milliseconds>(now.time_since_epoch()).count() % 1000;
    const std::tm parts = calendar(seconds);
    const auto word = [](auto value) { return static_cast<WORD>(value); };
    *time = {word(parts.tm_year + 1900), word(parts.tm_mon + 1), word(parts.tm_wday), word(parts.tm_mday),
             word(parts.tm_hour),        word(parts.tm_min),     word(parts.tm_sec),  word(milliseconds)};
}

} // namespace

void GetLocalTime(SYSTEMTIME* time) {
    store(time, zuhost::platform::localTime);
}

void GetSystemTime(SYSTEMTIME* time) {
    store(time, zuhost::platform::universalTime);
}

ULONGLONG GetTickCount64() {
    const auto sinceStart = std::chrono::steady_clock::now().time_since_epoch();
    return static_cast<ULONGLONG>(std::chrono::duration_cast<std::chrono::milliseconds>(sinceStart).count());
}

void Sleep(DWORD milliseconds) {
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

DWORD GetEnvironmentVariableW(const wchar_t* name, wchar_t* buffer, DWORD size) {
    const char* const value = name != nullptr ? std::getenv(zuhost::toUtf8(name).c_str()) : nullptr;
    if (value == nullptr) {
        SetLastError(ERROR_ENVVAR_NOT_FOUND);
        return 0;
    }
    const std::wstring text = zuhost::fromUtf8(value);
    if (buffer == nullptr || text.size() >= size)
        return static_cast<DWORD>(text.size() + 1);
    text.copy(buffer, text.size());
    buffer[text.size()] = L'\0';
    return static_cast<DWORD>(text.size());
}
