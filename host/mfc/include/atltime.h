#pragma once

#include "afxstr.h"

#include <zuhost/platform/export.h>

#include <ctime>

// Times and spans of time in whole seconds.

class ZUHOST_API CTimeSpan {
public:
    CTimeSpan() = default;
    // NOLINTNEXTLINE(google-explicit-constructor, hicpp-explicit-conversions): as the interface has it.
    CTimeSpan(std::int64_t seconds) : seconds_(seconds) {}
    CTimeSpan(LONG days, int hours, int minutes, int seconds)
        : seconds_(((std::int64_t{days} * 24 + hours) * 60 + minutes) * 60 + seconds) {}

    [[nodiscard]] std::int64_t GetDays() const { return seconds_ / kDay; }
    [[nodiscard]] std::int64_t GetTotalHours() const { return seconds_ / kHour; }
    [[nodiscard]] int GetHours() const { return static_cast<int>(seconds_ % kDay / kHour); }
    [[nodiscard]] std::int64_t GetTotalMinutes() const { return seconds_ / kMinute; }
    [[nodiscard]] int GetMinutes() const { return static_cast<int>(seconds_ % kHour / kMinute); }
    [[nodiscard]] std::int64_t GetTotalSeconds() const { return seconds_; }
    [[nodiscard]] int GetSeconds() const { return static_cast<int>(seconds_ % kMinute); }
    [[nodiscard]] std::int64_t GetTimeSpan() const { return seconds_; }

    /// Replaces %D by the days and %H, %M and %S by the rest in two digits.
    [[nodiscard]] CString Format(const wchar_t* format) const;

    CTimeSpan operator+(CTimeSpan other) const { return seconds_ + other.seconds_; }
    CTimeSpan operator-(CTimeSpan other) const { return seconds_ - other.seconds_; }
    CTimeSpan& operator+=(CTimeSpan other) { return *this = *this + other; }
    CTimeSpan& operator-=(CTimeSpan other) { return *this = *this - other; }
    auto operator<=>(const CTimeSpan&) const = default;

private:
    static constexpr std::int64_t kMinute = 60;
    static constexpr std::int64_t kHour = 60 * kMinute;
    static constexpr std::int64_t kDay = 24 * kHour;

    std::int64_t seconds_ = 0;
};

/// A moment in seconds since 1970, UTC. The calendar is that of the local time zone.
class ZUHOST_API CTime {
public:
    CTime() = default;
    // NOLINTNEXTLINE(google-explicit-constructor, hicpp-explicit-conversions): as the interface has it.
    CTime(std::int64_t time) : time_(time) {}
    /// The month and the day begin at 1. `summerTime` is 0, 1, or -1 to let the time zone decide. Throws the
    /// invalid-argument exception for a part out of range.
    CTime(int year, int month, int day, int hour, int minute, int second, int summerTime = -1);
    explicit CTime(const SYSTEMTIME& time, int summerTime = -1);
    explicit CTime(const FILETIME& time, int summerTime = -1);
    [[nodiscard]] static CTime GetCurrentTime();

    [[nodiscard]] std::int64_t GetTime() const { return time_; }
    [[nodiscard]] int GetYear() const { return parts().tm_year + 1900; }
    [[nodiscard]] int GetMonth() const { return parts().tm_mon + 1; }
    [[nodiscard]] int GetDay() const { return parts().tm_mday; }
    [[nodiscard]] int GetHour() const { return parts().tm_hour; }
    [[nodiscard]] int GetMinute() const { return parts().tm_min; }
    [[nodiscard]] int GetSecond() const { return parts().tm_sec; }
    /// Sunday is 1.
    [[nodiscard]] int GetDayOfWeek() const { return parts().tm_wday + 1; }
    /// Each stores the calendar's parts and returns the pointer; null when it is null.
    std::tm* GetLocalTm(std::tm* parts) const;
    std::tm* GetGmtTm(std::tm* parts) const;
    bool GetAsSystemTime(SYSTEMTIME& time) const;

    /// Formats with the conversions of strftime, in English; FormatGmt in UTC.
    [[nodiscard]] CString Format(const wchar_t* format) const;
    [[nodiscard]] CString FormatGmt(const wchar_t* format) const;

    CTime operator+(CTimeSpan span) const { return time_ + span.GetTimeSpan(); }
    CTime operator-(CTimeSpan span) const { return time_ - span.GetTimeSpan(); }
    CTimeSpan operator-(CTime other) const { return time_ - other.time_; }
    CTime& operator+=(CTimeSpan span) { return *this = *this + span; }
    CTime& operator-=(CTimeSpan span) { return *this = *this - span; }
    auto operator<=>(const CTime&) const = default;

private:
    [[nodiscard]] std::tm parts() const;

    std::int64_t time_ = 0;
};
