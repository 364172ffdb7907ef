#include "platform/FileTime.h"

namespace zv::platform {

namespace {

constexpr int64_t kUnixEpochSeconds = int64_t(kUnixEpochTicks / kTicksPerSecond);
constexpr uint64_t kTicksPerMillisecond = 10000;
constexpr int64_t kSecondsPerDay = 86400;
// Days from 1601-01-01 to 1970-01-01.
constexpr int64_t kUnixEpochDays = kUnixEpochSeconds / kSecondsPerDay;
// The largest value Windows accepts as a time stamp.
constexpr uint64_t kMaxFileTime = 0x7FFFFFFFFFFFFFFFULL;

bool IsLeapYear(int64_t nYear) { return (nYear % 4 == 0 && nYear % 100 != 0) || nYear % 400 == 0; }

int DaysInMonth(int64_t nYear, int nMonth) {
    static constexpr int kDays[12] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return nMonth == 2 && IsLeapYear(nYear) ? 29 : kDays[nMonth - 1];
}

// Days since 1970-01-01 of a proleptic Gregorian date, and back
// (after Howard Hinnant's days_from_civil / civil_from_days).
int64_t DaysFromCivil(int64_t y, int m, int d) {
    y -= m <= 2;
    const int64_t era = (y >= 0 ? y : y - 399) / 400;
    const int64_t yoe = y - era * 400;
    const int64_t doy = (153 * (m + (m > 2 ? -3 : 9)) + 2) / 5 + d - 1;
    const int64_t doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
    return era * 146097 + doe - 719468;
}

void CivilFromDays(int64_t z, int64_t& y, int& m, int& d) {
    z += 719468;
    const int64_t era = (z >= 0 ? z : z - 146096) / 146097;
    const int64_t doe = z - era * 146097;
    const int64_t yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;
    const int64_t doy = doe - (365 * yoe + yoe / 4 - yoe / 100);
    const int64_t mp = (5 * doy + 2) / 153;
    d = int(doy - (153 * mp + 2) / 5 + 1);
    m = int(mp < 10 ? mp + 3 : mp - 9);
    y = yoe + era * 400 + (m <= 2);
}

}  // namespace

FILETIME FileTimeFromUnix(int64_t nSeconds, uint32_t uNanoseconds) {
    // Times past the largest time stamp clamp to it.
    constexpr int64_t kMaxSeconds = int64_t(kMaxFileTime / kTicksPerSecond) - kUnixEpochSeconds;
    if (nSeconds < -kUnixEpochSeconds) return FILETIME{};
    if (nSeconds > kMaxSeconds) return FileTimeFromUInt64(kMaxFileTime);
    const uint64_t u =
        uint64_t(nSeconds + kUnixEpochSeconds) * kTicksPerSecond + uNanoseconds / 100;
    return FileTimeFromUInt64(u < kMaxFileTime ? u : kMaxFileTime);
}

bool FileTimeToSystemTime(FILETIME ft, SYSTEMTIME& st) {
    const uint64_t u = FileTimeToUInt64(ft);
    if (u > kMaxFileTime) return false;
    const int64_t nDays = int64_t(u / kTicksPerSecond / kSecondsPerDay);
    const uint64_t uTicksOfDay = u % (kTicksPerSecond * kSecondsPerDay);
    const uint64_t uSecondsOfDay = uTicksOfDay / kTicksPerSecond;
    int64_t nYear = 0;
    int nMonth = 0, nDay = 0;
    CivilFromDays(nDays - kUnixEpochDays, nYear, nMonth, nDay);
    st.wYear = uint16_t(nYear);
    st.wMonth = uint16_t(nMonth);
    st.wDay = uint16_t(nDay);
    st.wDayOfWeek = uint16_t((nDays + 1) % 7);  // 1601-01-01 was a Monday
    st.wHour = uint16_t(uSecondsOfDay / 3600);
    st.wMinute = uint16_t(uSecondsOfDay / 60 % 60);
    st.wSecond = uint16_t(uSecondsOfDay % 60);
    st.wMilliseconds = uint16_t(uTicksOfDay % kTicksPerSecond / kTicksPerMillisecond);
    return true;
}

bool SystemTimeToFileTime(const SYSTEMTIME& st, FILETIME& ft) {
    // The day of the week is ignored, as Windows does.
    if (st.wYear < 1601 || st.wYear > 30827 || st.wMonth < 1 || st.wMonth > 12 || st.wDay < 1 ||
        st.wDay > DaysInMonth(st.wYear, st.wMonth) || st.wHour > 23 || st.wMinute > 59 ||
        st.wSecond > 59 || st.wMilliseconds > 999) {
        return false;
    }
    const int64_t nDays = DaysFromCivil(st.wYear, st.wMonth, st.wDay) + kUnixEpochDays;
    const uint64_t uSeconds =
        uint64_t(nDays) * kSecondsPerDay + st.wHour * 3600u + st.wMinute * 60u + st.wSecond;
    ft = FileTimeFromUInt64(uSeconds * kTicksPerSecond + st.wMilliseconds * kTicksPerMillisecond);
    return true;
}

}  // namespace zv::platform
