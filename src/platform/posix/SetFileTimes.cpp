#include <fcntl.h>
#include <sys/stat.h>

#include "platform/FileSystem.h"
#include "platform/Text.h"

namespace zv::platform {
namespace {

timespec ToTimespec(FILETIME ft) {
    timespec ts{};
    if (IsZero(ft)) {
        ts.tv_nsec = UTIME_OMIT;
        return ts;
    }
    const int64_t nTicks = int64_t(FileTimeToUInt64(ft)) - int64_t(kUnixEpochTicks);
    int64_t nSeconds = nTicks / int64_t(kTicksPerSecond);
    int64_t nRemainder = nTicks % int64_t(kTicksPerSecond);
    if (nRemainder < 0) {
        --nSeconds;
        nRemainder += int64_t(kTicksPerSecond);
    }
    ts.tv_sec = static_cast<time_t>(nSeconds);
    ts.tv_nsec = static_cast<long>(nRemainder * 100);
    return ts;
}

}  // namespace

bool SetFileTimes(std::u16string_view path, FILETIME, FILETIME ftAccessed, FILETIME ftModified) {
    const timespec aTimes[2] = {ToTimespec(ftAccessed), ToTimespec(ftModified)};
    return utimensat(AT_FDCWD, Utf16ToUtf8(path).c_str(), aTimes, 0) == 0;
}

}  // namespace zv::platform
