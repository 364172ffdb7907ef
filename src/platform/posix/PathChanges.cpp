#include <fcntl.h>
#include <stdio.h>
#include <sys/stat.h>

#include <cerrno>

#include "platform/FileSystem.h"
#include "platform/Text.h"

namespace zv::platform {

bool RenamePath(std::u16string_view from, std::u16string_view to) {
    const std::string strFrom = Utf16ToUtf8(from);
    const std::string strTo = Utf16ToUtf8(to);
    if (strFrom.empty() || strTo.empty()) return false;
    // rename() would replace an existing target; MoveFileW refuses to.
    if (renameat2(AT_FDCWD, strFrom.c_str(), AT_FDCWD, strTo.c_str(), RENAME_NOREPLACE) == 0)
        return true;
    if (errno != EINVAL && errno != ENOSYS) return false;
    // File systems without the flag: a check, then the plain rename.
    struct stat st;
    if (lstat(strTo.c_str(), &st) == 0) return false;
    return rename(strFrom.c_str(), strTo.c_str()) == 0;
}

bool MakeDirectory(std::u16string_view path) {
    const std::string strPath = Utf16ToUtf8(path);
    return !strPath.empty() && mkdir(strPath.c_str(), 0777) == 0;
}

}  // namespace zv::platform
