#include "core/records/RecordPath.h"

#include "platform/FileSystem.h"

namespace zv {

void AppendPathComponent(std::u16string& strPath, std::u16string_view strName) {
    if (!strPath.empty() && strPath.back() != platform::kPathSeparator)
        strPath.push_back(platform::kPathSeparator);
    strPath.append(strName);
}

std::u16string JoinPath(std::u16string_view strDirectory, std::u16string_view strName) {
    std::u16string strPath;
    strPath.reserve(strDirectory.size() + 1 + strName.size());
    strPath.append(strDirectory);
    AppendPathComponent(strPath, strName);
    return strPath;
}

}  // namespace zv
