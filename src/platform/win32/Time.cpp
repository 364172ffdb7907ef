#include <windows.h>

#include "platform/FileTime.h"

namespace zv::platform {

namespace {

// zv::FILETIME and ::FILETIME have the same layout but are distinct types.
::FILETIME ToWin(FILETIME ft) { return ::FILETIME{ft.dwLowDateTime, ft.dwHighDateTime}; }
FILETIME FromWin(::FILETIME ft) { return FILETIME{ft.dwLowDateTime, ft.dwHighDateTime}; }

}  // namespace

FILETIME GetSystemTimeAsFileTime() {
    ::FILETIME ft{};
    ::GetSystemTimeAsFileTime(&ft);
    return FromWin(ft);
}

bool FileTimeToLocalFileTime(FILETIME utc, FILETIME& local) {
    const ::FILETIME in = ToWin(utc);
    ::FILETIME out{};
    if (!::FileTimeToLocalFileTime(&in, &out)) return false;
    local = FromWin(out);
    return true;
}

bool LocalFileTimeToFileTime(FILETIME local, FILETIME& utc) {
    const ::FILETIME in = ToWin(local);
    ::FILETIME out{};
    if (!::LocalFileTimeToFileTime(&in, &out)) return false;
    utc = FromWin(out);
    return true;
}

}  // namespace zv::platform
