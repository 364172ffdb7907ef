#include <time.h>

#include "platform/FileTime.h"

namespace zv::platform {

namespace {

constexpr int64_t kUnixEpochSeconds = int64_t(kUnixEpochTicks / kTicksPerSecond);

// Whole seconds since the Unix epoch (rounded down) and the ticks left over.
void SplitTicks(uint64_t u, time_t& t, uint64_t& uRest) {
    t = time_t(int64_t(u / kTicksPerSecond) - kUnixEpochSeconds);
    uRest = u % kTicksPerSecond;
}

bool FromSeconds(time_t t, uint64_t uRest, FILETIME& ft) {
    constexpr int64_t kMaxSeconds = INT64_MAX / int64_t(kTicksPerSecond) - kUnixEpochSeconds;
    if (t < -kUnixEpochSeconds || t > kMaxSeconds) return false;
    ft = FileTimeFromUInt64(uint64_t(t + kUnixEpochSeconds) * kTicksPerSecond + uRest);
    return true;
}

}  // namespace

FILETIME GetSystemTimeAsFileTime() {
    timespec ts{};
    clock_gettime(CLOCK_REALTIME, &ts);
    return FileTimeFromUnix(ts.tv_sec, uint32_t(ts.tv_nsec));
}

bool FileTimeToLocalFileTime(FILETIME utc, FILETIME& local) {
    time_t t;
    uint64_t uRest;
    SplitTicks(FileTimeToUInt64(utc), t, uRest);
    tm tmLocal{};
    if (!localtime_r(&t, &tmLocal)) return false;
    return FromSeconds(t + tmLocal.tm_gmtoff, uRest, local);
}

bool LocalFileTimeToFileTime(FILETIME local, FILETIME& utc) {
    time_t t;
    uint64_t uRest;
    SplitTicks(FileTimeToUInt64(local), t, uRest);
    // Read the local wall-clock fields as if they were UTC, then let mktime
    // find the instant they name under the local zone rules.
    tm tmLocal{};
    if (!gmtime_r(&t, &tmLocal)) return false;
    tmLocal.tm_isdst = -1;
    tmLocal.tm_wday = -1;  // mktime sets it on success; -1 is also a valid result
    const time_t tUtc = mktime(&tmLocal);
    if (tmLocal.tm_wday < 0) return false;
    return FromSeconds(tUtc, uRest, utc);
}

}  // namespace zv::platform
