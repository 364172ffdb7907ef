#include <gtest/gtest.h>

#include <cstdio>
#include <limits>
#include <string>
#include <utility>

#include "PlatformTestSupport.h"
#include "platform/FileTime.h"

namespace zv::platform {
namespace {

constexpr uint64_t kMaxFileTime = 0x7FFFFFFFFFFFFFFFULL;

SYSTEMTIME Make(int nYear, int nMonth, int nDay, int nHour = 0, int nMinute = 0, int nSecond = 0,
                int nMilliseconds = 0, int nDayOfWeek = 0) {
    return {uint16_t(nYear), uint16_t(nMonth),  uint16_t(nDayOfWeek), uint16_t(nDay),
            uint16_t(nHour), uint16_t(nMinute), uint16_t(nSecond),    uint16_t(nMilliseconds)};
}

std::string Show(const SYSTEMTIME& st) {
    char sz[96];
    snprintf(sz, sizeof sz, "%04d-%02d-%02d %02d:%02d:%02d.%03d, day %d of the week", st.wYear,
             st.wMonth, st.wDay, st.wHour, st.wMinute, st.wSecond, st.wMilliseconds, st.wDayOfWeek);
    return sz;
}

uint64_t ToTicks(const SYSTEMTIME& st) {
    FILETIME ft;
    EXPECT_TRUE(SystemTimeToFileTime(st, ft)) << Show(st);
    return FileTimeToUInt64(ft);
}

TEST(FileTime, FromUnixConvertsAndClamps) {
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

TEST(FileTime, CalendarTimesRoundTripAndInvalidOnesAreRejected) {
    // Expected values come from an independent proleptic Gregorian calendar.
    const std::pair<SYSTEMTIME, uint64_t> aCases[] = {
        {Make(1601, 1, 1, 0, 0, 0, 0, 1), 0},
        {Make(1900, 2, 28, 23, 59, 59, 999, 3), 94405823999990000ULL},
        {Make(1900, 3, 1, 0, 0, 0, 0, 4), 94405824000000000ULL},  // 1900 is no leap year
        {Make(1970, 1, 1, 0, 0, 0, 0, 4), kUnixEpochTicks},
        {Make(2000, 2, 29, 12, 0, 0, 0, 2), 125962992000000000ULL},
        {Make(2023, 1, 1, 0, 0, 0, 0, 0), 133170048000000000ULL},
        {Make(2024, 3, 2, 6, 7, 8, 9, 6), 133538332280090000ULL},
        {Make(2024, 12, 31, 23, 59, 59, 999, 2), 133801631999990000ULL},
        {Make(2100, 3, 1, 0, 0, 0, 0, 1), 157520160000000000ULL},
        {Make(30827, 12, 31, 23, 59, 59, 999, 5), 9223149887999990000ULL},
    };
    for (const auto& [st, uTicks] : aCases) {
        SCOPED_TRACE(Show(st));
        SYSTEMTIME in = st;
        in.wDayOfWeek = 3;  // ignored on input
        EXPECT_EQ(ToTicks(in), uTicks);
        // Ticks below a millisecond are dropped, not rounded.
        for (const uint64_t u : {uTicks, uTicks + 9999}) {
            SYSTEMTIME out;
            ASSERT_TRUE(FileTimeToSystemTime(FileTimeFromUInt64(u), out));
            EXPECT_EQ(Show(out), Show(st));
        }
    }

    SYSTEMTIME out;
    ASSERT_TRUE(FileTimeToSystemTime(FileTimeFromUInt64(kMaxFileTime), out));
    EXPECT_EQ(Show(out), Show(Make(30828, 9, 14, 2, 48, 5, 477, 4)));
    EXPECT_FALSE(FileTimeToSystemTime(FileTimeFromUInt64(kMaxFileTime + 1), out));
    EXPECT_FALSE(FileTimeToSystemTime(FileTimeFromUInt64(~0ULL), out));

    const SYSTEMTIME aInvalid[] = {
        Make(1600, 12, 31),         Make(30828, 1, 1),
        Make(2024, 0, 1),           Make(2024, 13, 1),
        Make(2024, 1, 0),           Make(2024, 1, 32),
        Make(2024, 4, 31),          Make(1900, 2, 29),
        Make(2023, 2, 29),          Make(2000, 2, 30),
        Make(2024, 1, 1, 24),       Make(2024, 1, 1, 0, 60),
        Make(2024, 1, 1, 0, 0, 60), Make(2024, 1, 1, 0, 0, 0, 1000),
    };
    for (const SYSTEMTIME& st : aInvalid) {
        FILETIME ft;
        EXPECT_FALSE(SystemTimeToFileTime(st, ft)) << Show(st);
    }
}

TEST(FileTime, LocalTimeRoundTripsAndFollowsTheZoneRulesAtTheInstant) {
    constexpr int64_t kHour = 3600 * int64_t(kTicksPerSecond);
    const struct {
        const char* pszZone;
        SYSTEMTIME utc;
        int64_t nOffsetHours;
    } aCases[] = {
        {"Europe/Berlin", Make(2024, 1, 15, 12, 0, 0, 250), 1},
        {"Europe/Berlin", Make(2024, 7, 1, 12, 0, 0, 250), 2},
        {"Europe/Berlin", Make(2024, 3, 31, 0, 59, 59), 1},  // just before DST
        {"Europe/Berlin", Make(2024, 3, 31, 1), 2},          // DST begins
        {"Europe/Berlin", Make(1950, 6, 1), 1},              // before 1970
        {"America/New_York", Make(2024, 1, 15, 3), -5},      // previous local day
        {"America/New_York", Make(2024, 7, 1, 12), -4},
        {"UTC", Make(2024, 7, 1, 12), 0},
    };
#ifndef _WIN32
    const test::CScopedEnv zone("TZ", nullptr);
#endif
    for (const auto& c : aCases) {
#ifndef _WIN32
        zone.Set(c.pszZone);
#endif
        const uint64_t uUtc = ToTicks(c.utc) + 1234;  // sub-millisecond ticks survive
        SCOPED_TRACE(std::string(c.pszZone) + " " + Show(c.utc));
        FILETIME local, utc;
        ASSERT_TRUE(FileTimeToLocalFileTime(FileTimeFromUInt64(uUtc), local));
        ASSERT_TRUE(LocalFileTimeToFileTime(local, utc));
        EXPECT_EQ(FileTimeToUInt64(utc), uUtc);
        // Windows applies the bias in force now, whatever the zone named.
        EXPECT_TRUE(test::kWindows ||
                    int64_t(FileTimeToUInt64(local) - uUtc) == c.nOffsetHours * kHour)
            << "offset " << double(int64_t(FileTimeToUInt64(local) - uUtc)) / kHour << " h";
    }
}

}  // namespace
}  // namespace zv::platform
