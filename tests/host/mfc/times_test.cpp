#include "environment.h"
#include "temporary_folder.h"

#include <afx.h>
#include <shlwapi.h>

#include <gtest/gtest.h>

#include <limits>
#include <set>

namespace {

bool isRefused(int year, int month, int day, int hour, int minute, int second) {
    try {
        static_cast<void>(CTime(year, month, day, hour, minute, second));
    } catch (CInvalidArgException* error) {
        error->Delete();
        return true;
    }
    return false;
}

/// Sets the time zone of the process for a while.
class TimeZone {
public:
    explicit TimeZone(const char* zone) {
        if (const char* const old = std::getenv("TZ"))
            old_ = old;
        setVariable("TZ", zone);
        tzset();
    }
    ~TimeZone() {
        setVariable("TZ", old_ ? old_->c_str() : nullptr);
        tzset();
    }
    TimeZone(const TimeZone&) = delete;
    TimeZone& operator=(const TimeZone&) = delete;

private:
    std::optional<std::string> old_;
};

TEST(Times, HaveTheCalendarOfTheirZone) {
    const TimeZone zone("JST-9");
    const CTime moment(std::int64_t{1709164800}); // 2024-02-29, 00:00 UTC
    EXPECT_EQ(moment.Format(L"%Y-%m-%d %H:%M:%S"), L"2024-02-29 09:00:00");
    EXPECT_EQ(moment.FormatGmt(L"%Y-%m-%d %H:%M:%S"), L"2024-02-29 00:00:00");
    EXPECT_EQ(moment, CTime(2024, 2, 29, 9, 0, 0));
    EXPECT_EQ(moment.GetDayOfWeek(), 5) << "Sunday is 1";
    EXPECT_EQ(moment.Format(L"%A %B %d%%"), L"Thursday February 29%");
    SYSTEMTIME parts{};
    ASSERT_TRUE(moment.GetAsSystemTime(parts));
    EXPECT_EQ(parts.wHour, 9);
    EXPECT_EQ(parts.wDayOfWeek, 4);
    EXPECT_EQ(CTime(parts), moment);
    std::tm universal{};
    ASSERT_EQ(moment.GetGmtTm(&universal), &universal);
    EXPECT_EQ(universal.tm_hour, 0);
    EXPECT_EQ(moment.GetLocalTm(nullptr), nullptr);
    // Units of 100 ns since 1601.
    const std::uint64_t units = (1709164800ULL + 11644473600ULL) * 10'000'000ULL;
    const FILETIME file{static_cast<DWORD>(units), static_cast<DWORD>(units >> 32U)};
    EXPECT_EQ(CTime(file), moment);
    EXPECT_EQ(CTime(1969, 12, 31, 23, 0, 0).GetTime(), -36000) << "before 1970";
    EXPECT_EQ(moment.Format(static_cast<const wchar_t*>(nullptr)), L"");
}

TEST(Times, CountInTheCalendar) {
    const TimeZone zone("UTC0");
    const CTime leap(2024, 2, 28, 23, 59, 59);
    EXPECT_EQ((leap + CTimeSpan(1)).GetDay(), 29);
    EXPECT_EQ((leap + CTimeSpan(1, 0, 0, 1)).GetMonth(), 3);
    EXPECT_EQ((CTime(2023, 2, 28, 23, 59, 59) + CTimeSpan(1)).GetMonth(), 3);
    EXPECT_EQ((CTime(2025, 1, 1, 0, 0, 0) - leap).GetDays(), 307);
    EXPECT_EQ((CTime(2025, 1, 1, 0, 0, 0) - CTimeSpan(1)).GetYear(), 2024);
    CTime moved = leap;
    moved += CTimeSpan(0, 1, 0, 0);
    moved -= CTimeSpan(0, 0, 60, 0);
    EXPECT_EQ(moved, leap);
    for (const auto& [year, month, day, hour, minute, second] : {std::tuple{1899, 1, 1, 0, 0, 0},
                                                                 {10000, 1, 1, 0, 0, 0},
                                                                 {2024, 0, 1, 0, 0, 0},
                                                                 {2024, 1, 32, 0, 0, 0},
                                                                 {2024, 1, 0, 0, 0, 0},
                                                                 {2024, 1, 1, 24, 0, 0},
                                                                 {2024, 1, 1, 0, 60, 0},
                                                                 {2024, 1, 1, 0, 0, -1}})
        EXPECT_TRUE(isRefused(year, month, day, hour, minute, second)) << year << '-' << month << '-' << day;
    EXPECT_FALSE(isRefused(9999, 12, 31, 23, 59, 59));
    // Years that the system's calendar does not have.
    for (const std::int64_t huge :
         {std::numeric_limits<std::int64_t>::max(), std::numeric_limits<std::int64_t>::min()})
        EXPECT_GE(CTime(huge).Format(L"%Y").GetLength(), 1);
}

TEST(Times, SpansAreSplitIntoDaysHoursMinutesAndSeconds) {
    const struct {
        CTimeSpan span;
        std::int64_t days, hours, minutes, seconds;
        const wchar_t* text;
    } cases[] = {
        {{2, 3, 4, 5}, 2, 51, 3064, 183845, L"2 days 03:04:05"},
        {{0, 23, 59, 60}, 1, 24, 1440, 86400, L"1 days 00:00:00"},
        {{0, 0, 0, 59}, 0, 0, 0, 59, L"0 days 00:00:59"},
        {{100'000, 0, 0, 0}, 100'000, 2'400'000, 144'000'000, 8'640'000'000, L"100000 days 00:00:00"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(c.span.GetDays(), c.days);
        EXPECT_EQ(c.span.GetTotalHours(), c.hours);
        EXPECT_EQ(c.span.GetTotalMinutes(), c.minutes);
        EXPECT_EQ(c.span.GetTotalSeconds(), c.seconds);
        EXPECT_EQ(c.span.Format(L"%D days %H:%M:%S"), c.text);
    }
    const CTimeSpan span(1, 2, 3, 4);
    EXPECT_EQ(span.Format(L"%H%%%"), L"02%%") << "a percent sign at the end is plain";
    EXPECT_EQ(span.Format(L""), L"");
    CTimeSpan sum = span + CTimeSpan(0, 22, 0, 0);
    EXPECT_EQ(sum.GetDays(), 2);
    sum -= span;
    EXPECT_EQ(sum, CTimeSpan(0, 22, 0, 0));
}

class FindFiles : public testing::Test {
protected:
    FindFiles() {
        for (const char* const name : {"pump.zud", "PIPE.ZUD", "pipe.zud.bak", "readme", "a.b.c"})
            folder.write(name, "12345");
        std::filesystem::create_directory(folder.path() / "parts.zud");
    }
    [[nodiscard]] std::set<std::wstring> found(const wchar_t* mask) const {
        std::set<std::wstring> names;
        CFileFind find;
        BOOL more = find.FindFile((folder.wide("") + mask).c_str());
        while (more) {
            more = find.FindNextFile();
            names.insert(find.GetFileName().GetString());
        }
        return names;
    }

    TemporaryFolder folder;
};

TEST_F(FindFiles, MasksIgnoreCase) {
    using Names = std::set<std::wstring>;
    EXPECT_EQ(found(L"*.zud"), (Names{L"pump.zud", L"PIPE.ZUD", L"parts.zud"}));
    EXPECT_EQ(found(L"p?pe.zud"), (Names{L"PIPE.ZUD"}));
    EXPECT_EQ(found(L"p*e*d*"), (Names{L"PIPE.ZUD", L"pipe.zud.bak"}));
    EXPECT_EQ(found(L"readme"), (Names{L"readme"}));
    EXPECT_EQ(found(L"*.*").size(), 8U) << "all files, with . and ..";
    EXPECT_EQ(found(L"*").size(), 8U);
    EXPECT_EQ(found(L"??"), (Names{L".."}));
    EXPECT_EQ(found(L"no*"), Names());
    EXPECT_EQ(found(L"no such folder\\*"), Names());
    EXPECT_EQ(found(L""), Names());
    EXPECT_EQ(found((std::wstring(20'000, L'*') + L"x").c_str()), Names());
}

TEST_F(FindFiles, DescribeEachFile) {
    CFileFind find;
    ASSERT_TRUE(find.FindFile(folder.wide("pa*").c_str()));
    EXPECT_FALSE(find.FindNextFile()) << "the last one";
    EXPECT_TRUE(find.IsDirectory());
    EXPECT_FALSE(find.IsDots());
    ASSERT_TRUE(find.FindFile(folder.wide("a.b*").c_str()));
    find.FindNextFile();
    EXPECT_EQ(find.GetFileName(), L"a.b.c");
    EXPECT_EQ(find.GetFileTitle(), L"a.b");
    EXPECT_EQ(find.GetLength(), 5U);
    EXPECT_FALSE(find.IsDirectory());
    CTime written;
    ASSERT_TRUE(find.GetLastWriteTime(written));
    EXPECT_LT((CTime::GetCurrentTime() - written).GetTotalSeconds(), 3600);
    EXPECT_TRUE(PathFileExistsW(find.GetFilePath()));
    find.Close();
    find.Close();
    EXPECT_EQ(find.GetFileName(), L"");
    EXPECT_FALSE(find.FindNextFile());
}

TEST_F(FindFiles, HandlesOfClosedSearchesAreRefused) {
    WIN32_FIND_DATAW data;
    const HANDLE search = FindFirstFileW(folder.wide("*").c_str(), &data);
    ASSERT_NE(search, INVALID_HANDLE_VALUE);
    EXPECT_TRUE(FindNextFileW(search, &data));
    EXPECT_FALSE(FindNextFileW(search, nullptr));
    EXPECT_TRUE(FindClose(search));
    EXPECT_FALSE(FindClose(search));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
    EXPECT_FALSE(FindNextFileW(search, &data));
    EXPECT_FALSE(FindClose(nullptr));
    EXPECT_FALSE(FindClose(INVALID_HANDLE_VALUE));
    EXPECT_EQ(FindFirstFileW(nullptr, &data), INVALID_HANDLE_VALUE);
    EXPECT_EQ(FindFirstFileW(L"*", nullptr), INVALID_HANDLE_VALUE);
}

} // namespace
