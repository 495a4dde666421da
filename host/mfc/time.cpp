#include "afx.h"

#include "atltime.h"
#include "zuhost/text_codec.h"

#include <zuhost/platform/environment.h>

#include <iomanip>
#include <locale>
#include <sstream>

namespace {

CString formatted(const wchar_t* format, const std::tm& parts) {
    if (format == nullptr)
        return {};
    std::ostringstream text;
    text.imbue(std::locale::classic());
    text << std::put_time(&parts, zuhost::toUtf8(format).c_str());
    return zuhost::fromUtf8(text.str()).c_str();
}

bool isIn(int value, int first, int last) {
    return value >= first && value <= last;
}

} // namespace

CString CTimeSpan::Format(const wchar_t* format) const {
    CString text;
    for (const wchar_t* c = format != nullptr ? format : L""; *c != L'\0'; ++c) {
        if (*c != L'%' || c[1] == L'\0') {
            text += *c;
            continue;
        }
        switch (*++c) {
        case L'D':
            text.AppendFormat(L"%I64d", GetDays());
            break;
        case L'H':
            text.AppendFormat(L"%02d", GetHours());
            break;
        case L'M':
            text.AppendFormat(L"%02d", GetMinutes());
            break;
        case L'S':
            text.AppendFormat(L"%02d", GetSeconds());
            break;
        default:
            text += *c;
        }
    }
    return text;
}

CTime::CTime(int year, int month, int day, int hour, int minute, int second, int summerTime) {
    if (!isIn(year, 1900, 9999) || !isIn(month, 1, 12) || !isIn(day, 1, 31) || !isIn(hour, 0, 23) ||
        !isIn(minute, 0, 59) || !isIn(second, 0, 59))
        AfxThrowInvalidArgException();
    std::tm parts{};
    parts.tm_year = year - 1900;
    parts.tm_mon = month - 1;
    parts.tm_mday = day;
    parts.tm_hour = hour;
    parts.tm_min = minute;
    parts.tm_sec = second;
    parts.tm_isdst = summerTime;
    time_ = zuhost::platform::timeOfLocal(parts);
}

CTime::CTime(const SYSTEMTIME& time, int summerTime)
    : CTime(time.wYear, time.wMonth, time.wDay, time.wHour, time.wMinute, time.wSecond, summerTime) {}

CTime::CTime(const FILETIME& time, int /*summerTime*/) {
    constexpr std::int64_t kUnitsPerSecond = 10'000'000;
    constexpr std::int64_t kSecondsTo1970 = 11'644'473'600;
    const auto units =
        static_cast<std::int64_t>(std::uint64_t{time.dwHighDateTime} << 32U | time.dwLowDateTime);
    time_ = units / kUnitsPerSecond - kSecondsTo1970;
}

CTime CTime::GetCurrentTime() {
    return std::int64_t{std::time(nullptr)};
}

std::tm CTime::parts() const {
    return zuhost::platform::localTime(static_cast<std::time_t>(time_));
}

std::tm* CTime::GetLocalTm(std::tm* parts) const {
    if (parts != nullptr)
        *parts = this->parts();
    return parts;
}

std::tm* CTime::GetGmtTm(std::tm* parts) const {
    if (parts != nullptr)
        *parts = zuhost::platform::universalTime(static_cast<std::time_t>(time_));
    return parts;
}

bool CTime::GetAsSystemTime(SYSTEMTIME& time) const {
    const std::tm p = parts();
    const auto word = [](int value) { return static_cast<WORD>(value); };
    time = {word(p.tm_year + 1900), word(p.tm_mon + 1), word(p.tm_wday), word(p.tm_mday),
            word(p.tm_hour),        word(p.tm_min),     word(p.tm_sec),  0};
    return true;
}

CString CTime::Format(const wchar_t* format) const {
    return formatted(format, parts());
}

CString CTime::FormatGmt(const wchar_t* format) const {
    std::tm parts{};
    GetGmtTm(&parts);
    return formatted(format, parts);
}
