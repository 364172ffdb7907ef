#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <string>

#include "platform/FileTime.h"

namespace zv::platform {
namespace {

constexpr uint64_t kMaxFileTime = 0x7FFFFFFFFFFFFFFFULL;

SYSTEMTIME MakeSystemTime(int nYear, int nMonth, int nDay, int nHour = 0, int nMinute = 0,
                          int nSecond = 0, int nMilliseconds = 0) {
    SYSTEMTIME st;
    st.wYear = uint16_t(nYear);
    st.wMonth = uint16_t(nMonth);
    st.wDay = uint16_t(nDay);
    st.wHour = uint16_t(nHour);
    st.wMinute = uint16_t(nMinute);
    st.wSecond = uint16_t(nSecond);
    st.wMilliseconds = uint16_t(nMilliseconds);
    return st;
}

uint64_t ToTicks(const SYSTEMTIME& st) {
    FILETIME ft;
    EXPECT_TRUE(SystemTimeToFileTime(st, ft));
    return FileTimeToUInt64(ft);
}

TEST(FileTimeFromUnix, ConvertsAndClamps) {
    const struct {
        int64_t nSeconds;
        uint32_t uNanoseconds;
        uint64_t uTicks;
    } aCases[] = {
        {0, 0, kUnixEpochTicks},
        {0, 99, kUnixEpochTicks},  // below one tick
        {1, 500, kUnixEpochTicks + kTicksPerSecond + 5},
        {-1, 999999999, kUnixEpochTicks - 1},
        {1700000000, 123456789, 133444736001234567ULL},
        {-11644473600LL, 0, 0},  // 1601-01-01
        {-11644473600LL, 100, 1},
        {-11644473601LL, 999999999, 0},  // before 1601
        {std::numeric_limits<int64_t>::min(), 0, 0},
        {std::numeric_limits<int64_t>::max(), 999999999, kMaxFileTime},
    };
    for (const auto& c : aCases) {
        EXPECT_EQ(FileTimeToUInt64(FileTimeFromUnix(c.nSeconds, c.uNanoseconds)), c.uTicks)
            << c.nSeconds << " s " << c.uNanoseconds << " ns";
    }
}

TEST(FileTime, SystemClockIsNearUnixTime) {
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    const int64_t nSeconds = std::chrono::duration_cast<std::chrono::seconds>(now).count();
    const int64_t nTicks = int64_t(FileTimeToUInt64(GetSystemTimeAsFileTime()));
    const int64_t nExpected = int64_t(FileTimeToUInt64(FileTimeFromUnix(nSeconds, 0)));
    EXPECT_LT(std::llabs(nTicks - nExpected), int64_t(5 * kTicksPerSecond));
}

struct CalendarCase {
    SYSTEMTIME st;
    int nDayOfWeek;
    uint64_t uTicks;
};

// Expected values come from an independent proleptic Gregorian calendar.
const CalendarCase kCalendarCases[] = {
    {MakeSystemTime(1601, 1, 1), 1, 0},
    {MakeSystemTime(1601, 1, 1, 0, 0, 0, 1), 1, 10000},
    {MakeSystemTime(1900, 2, 28, 23, 59, 59, 999), 3, 94405823999990000ULL},
    {MakeSystemTime(1900, 3, 1), 4, 94405824000000000ULL},  // 1900 is no leap year
    {MakeSystemTime(1970, 1, 1), 4, kUnixEpochTicks},
    {MakeSystemTime(2000, 2, 29, 12), 2, 125962992000000000ULL},
    {MakeSystemTime(2023, 1, 1), 0, 133170048000000000ULL},
    {MakeSystemTime(2024, 3, 2, 6, 7, 8, 9), 6, 133538332280090000ULL},
    {MakeSystemTime(2024, 12, 31, 23, 59, 59, 999), 2, 133801631999990000ULL},
    {MakeSystemTime(2100, 3, 1), 1, 157520160000000000ULL},
    {MakeSystemTime(30827, 12, 31, 23, 59, 59, 999), 5, 9223149887999990000ULL},
};

class Calendar : public ::testing::TestWithParam<CalendarCase> {};

TEST_P(Calendar, SystemTimeRoundTrip) {
    const CalendarCase& c = GetParam();
    SYSTEMTIME in = c.st;
    in.wDayOfWeek = 3;  // ignored on input
    EXPECT_EQ(ToTicks(in), c.uTicks);

    SYSTEMTIME out;
    ASSERT_TRUE(FileTimeToSystemTime(FileTimeFromUInt64(c.uTicks), out));
    EXPECT_EQ(out.wYear, c.st.wYear);
    EXPECT_EQ(out.wMonth, c.st.wMonth);
    EXPECT_EQ(out.wDay, c.st.wDay);
    EXPECT_EQ(out.wDayOfWeek, c.nDayOfWeek);
    EXPECT_EQ(out.wHour, c.st.wHour);
    EXPECT_EQ(out.wMinute, c.st.wMinute);
    EXPECT_EQ(out.wSecond, c.st.wSecond);
    EXPECT_EQ(out.wMilliseconds, c.st.wMilliseconds);
}

INSTANTIATE_TEST_SUITE_P(FileTime, Calendar, ::testing::ValuesIn(kCalendarCases),
                         [](const auto& info) {
                             const SYSTEMTIME& st = info.param.st;
                             char sz[48];
                             snprintf(sz, sizeof(sz), "D%04d%02d%02dT%02d%02d%02d_%03d", st.wYear,
                                      st.wMonth, st.wDay, st.wHour, st.wMinute, st.wSecond,
                                      st.wMilliseconds);
                             return std::string(sz);
                         });

TEST(Calendar, DayOfWeekAcrossAWeek) {
    SYSTEMTIME st;
    for (int nDay = 0; nDay < 7; ++nDay) {
        // 2024-01-01 was a Monday.
        ASSERT_TRUE(FileTimeToSystemTime(
            FileTimeFromUInt64(ToTicks(MakeSystemTime(2024, 1, 1 + nDay, 23, 59))), st));
        EXPECT_EQ(st.wDayOfWeek, (nDay + 1) % 7);
    }
}

TEST(Calendar, SubMillisecondTicksAreDropped) {
    SYSTEMTIME st;
    ASSERT_TRUE(FileTimeToSystemTime(FileTimeFromUInt64(kUnixEpochTicks + 19999), st));
    EXPECT_EQ(st.wSecond, 0);
    EXPECT_EQ(st.wMilliseconds, 1);
}

TEST(Calendar, LargestFileTime) {
    SYSTEMTIME st;
    ASSERT_TRUE(FileTimeToSystemTime(FileTimeFromUInt64(kMaxFileTime), st));
    EXPECT_EQ(st.wYear, 30828);
    EXPECT_EQ(st.wMonth, 9);
    EXPECT_EQ(st.wDay, 14);
    EXPECT_EQ(st.wHour, 2);
    EXPECT_EQ(st.wMinute, 48);
    EXPECT_EQ(st.wSecond, 5);
    EXPECT_EQ(st.wMilliseconds, 477);
    EXPECT_FALSE(FileTimeToSystemTime(FileTimeFromUInt64(kMaxFileTime + 1), st));
    EXPECT_FALSE(FileTimeToSystemTime(FileTimeFromUInt64(~0ULL), st));
}

TEST(Calendar, InvalidSystemTimeRejected) {
    const struct {
        const char* szWhat;
        SYSTEMTIME st;
    } aCases[] = {
        {"year 1600", MakeSystemTime(1600, 12, 31)},
        {"year 30828", MakeSystemTime(30828, 1, 1)},
        {"month 0", MakeSystemTime(2024, 0, 1)},
        {"month 13", MakeSystemTime(2024, 13, 1)},
        {"day 0", MakeSystemTime(2024, 1, 0)},
        {"Jan 32", MakeSystemTime(2024, 1, 32)},
        {"Apr 31", MakeSystemTime(2024, 4, 31)},
        {"Feb 29 1900", MakeSystemTime(1900, 2, 29)},
        {"Feb 29 2023", MakeSystemTime(2023, 2, 29)},
        {"Feb 30 2000", MakeSystemTime(2000, 2, 30)},
        {"hour 24", MakeSystemTime(2024, 1, 1, 24)},
        {"minute 60", MakeSystemTime(2024, 1, 1, 0, 60)},
        {"second 60", MakeSystemTime(2024, 1, 1, 0, 0, 60)},
        {"ms 1000", MakeSystemTime(2024, 1, 1, 0, 0, 0, 1000)},
    };
    for (const auto& c : aCases) {
        FILETIME ft;
        EXPECT_FALSE(SystemTimeToFileTime(c.st, ft)) << c.szWhat;
    }
}

TEST(LocalTime, RoundTrip) {
    for (uint64_t u : {kUnixEpochTicks + 1234567, ToTicks(MakeSystemTime(2024, 1, 15, 12)) + 1,
                       ToTicks(MakeSystemTime(2024, 7, 1, 12, 0, 0, 999)) + 9999}) {
        FILETIME local, utc;
        ASSERT_TRUE(FileTimeToLocalFileTime(FileTimeFromUInt64(u), local));
        ASSERT_TRUE(LocalFileTimeToFileTime(local, utc));
        EXPECT_EQ(FileTimeToUInt64(utc), u);
    }
}

#ifndef _WIN32
// Runs with the given TZ and restores the previous one afterwards.
class TimeZone : public ::testing::Test {
protected:
    void SetZone(const char* szZone) {
        setenv("TZ", szZone, 1);
        tzset();
    }
    void SetUp() override {
        const char* szOld = getenv("TZ");
        m_bHadZone = szOld != nullptr;
        if (m_bHadZone) m_strOldZone = szOld;
    }
    void TearDown() override {
        if (m_bHadZone) {
            setenv("TZ", m_strOldZone.c_str(), 1);
        } else {
            unsetenv("TZ");
        }
        tzset();
    }

private:
    bool m_bHadZone = false;
    std::string m_strOldZone;
};

TEST_F(TimeZone, OffsetFollowsRulesAtTheInstant) {
    constexpr int64_t kHour = 3600 * int64_t(kTicksPerSecond);
    const struct {
        const char* szZone;
        SYSTEMTIME utc;
        int64_t nOffsetHours;
    } aCases[] = {
        {"Europe/Berlin", MakeSystemTime(2024, 1, 15, 12, 0, 0, 250), 1},
        {"Europe/Berlin", MakeSystemTime(2024, 7, 1, 12, 0, 0, 250), 2},
        {"Europe/Berlin", MakeSystemTime(2024, 3, 31, 0, 59, 59), 1},  // just before DST
        {"Europe/Berlin", MakeSystemTime(2024, 3, 31, 1), 2},          // DST begins
        {"Europe/Berlin", MakeSystemTime(1950, 6, 1), 1},              // before 1970
        {"America/New_York", MakeSystemTime(2024, 1, 15, 3), -5},      // previous local day
        {"America/New_York", MakeSystemTime(2024, 7, 1, 12), -4},
        {"UTC", MakeSystemTime(2024, 7, 1, 12), 0},
    };
    for (const auto& c : aCases) {
        SetZone(c.szZone);
        const uint64_t uUtc = ToTicks(c.utc) + 1234;  // sub-millisecond ticks survive
        SCOPED_TRACE(std::string(c.szZone) + " " + std::to_string(uUtc));
        FILETIME local, utc;
        ASSERT_TRUE(FileTimeToLocalFileTime(FileTimeFromUInt64(uUtc), local));
        EXPECT_EQ(int64_t(FileTimeToUInt64(local) - uUtc), c.nOffsetHours * kHour);
        ASSERT_TRUE(LocalFileTimeToFileTime(local, utc));
        EXPECT_EQ(FileTimeToUInt64(utc), uUtc);
    }
}
#endif

}  // namespace
}  // namespace zv::platform
