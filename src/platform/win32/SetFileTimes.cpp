#include <windows.h>

#include "platform/FileSystem.h"
#include "platform/win32/WideString.h"

namespace zv::platform {
namespace {

const ::FILETIME* OrNull(const zv::FILETIME& ft, ::FILETIME& native) {
    if (IsZero(ft)) return nullptr;
    native.dwLowDateTime = ft.dwLowDateTime;
    native.dwHighDateTime = ft.dwHighDateTime;
    return &native;
}

}  // namespace

bool SetFileTimes(std::u16string_view path, FILETIME ftCreated, FILETIME ftAccessed,
                  FILETIME ftModified) {
    HANDLE hFile =
        CreateFileW(ToWide(path).c_str(), FILE_WRITE_ATTRIBUTES, FILE_SHARE_READ | FILE_SHARE_WRITE,
                    nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    if (hFile == INVALID_HANDLE_VALUE) return false;
    ::FILETIME c, a, m;
    const BOOL bOk =
        SetFileTime(hFile, OrNull(ftCreated, c), OrNull(ftAccessed, a), OrNull(ftModified, m));
    CloseHandle(hFile);
    return bOk != 0;
}

}  // namespace zv::platform
