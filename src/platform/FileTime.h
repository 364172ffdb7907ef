// Time stamps as the system keeps them on every platform: Windows FILETIME
// values, 100-nanosecond ticks since 1 January 1601 UTC.
#pragma once

#include <cstdint>

namespace zv {

struct FILETIME {
    uint32_t dwLowDateTime = 0;
    uint32_t dwHighDateTime = 0;
};

// Broken-down calendar time, laid out like the Windows SYSTEMTIME.
struct SYSTEMTIME {
    uint16_t wYear = 0;
    uint16_t wMonth = 0;      // 1..12
    uint16_t wDayOfWeek = 0;  // 0 = Sunday
    uint16_t wDay = 0;        // 1..31
    uint16_t wHour = 0;
    uint16_t wMinute = 0;
    uint16_t wSecond = 0;
    uint16_t wMilliseconds = 0;
};

inline constexpr uint64_t FileTimeToUInt64(FILETIME ft) {
    return (uint64_t(ft.dwHighDateTime) << 32) | ft.dwLowDateTime;
}

inline constexpr FILETIME FileTimeFromUInt64(uint64_t u) {
    return FILETIME{uint32_t(u), uint32_t(u >> 32)};
}

inline constexpr bool operator==(FILETIME a, FILETIME b) {
    return FileTimeToUInt64(a) == FileTimeToUInt64(b);
}

inline constexpr bool IsZero(FILETIME ft) { return FileTimeToUInt64(ft) == 0; }

// -1, 0 or 1, as the Windows call of the same name.
inline constexpr int CompareFileTime(FILETIME a, FILETIME b) {
    const uint64_t ua = FileTimeToUInt64(a), ub = FileTimeToUInt64(b);
    return ua < ub ? -1 : (ua > ub ? 1 : 0);
}

// Ticks between 1601-01-01 and the Unix epoch 1970-01-01.
inline constexpr uint64_t kUnixEpochTicks = 116444736000000000ULL;
inline constexpr uint64_t kTicksPerSecond = 10000000ULL;

namespace platform {

// Seconds and nanoseconds since the Unix epoch; times before 1601 clamp to 0.
FILETIME FileTimeFromUnix(int64_t nSeconds, uint32_t uNanoseconds);

FILETIME GetSystemTimeAsFileTime();

// Pure calendar arithmetic in the proleptic Gregorian calendar; no time zone.
bool FileTimeToSystemTime(FILETIME ft, SYSTEMTIME& st);
bool SystemTimeToFileTime(const SYSTEMTIME& st, FILETIME& ft);

// UTC <-> local wall-clock time. On POSIX the zone rules in force at the
// given instant apply (daylight saving included); on Windows the calls of
// the same names, which apply the bias in force now.
bool FileTimeToLocalFileTime(FILETIME utc, FILETIME& local);
bool LocalFileTimeToFileTime(FILETIME local, FILETIME& utc);

}  // namespace platform
}  // namespace zv
