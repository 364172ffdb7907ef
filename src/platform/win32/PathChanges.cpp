#include <windows.h>

#include "platform/FileSystem.h"
#include "platform/win32/WideString.h"

namespace zv::platform {

bool RenamePath(std::u16string_view from, std::u16string_view to) {
    return MoveFileW(ToWide(from).c_str(), ToWide(to).c_str()) != 0;
}

bool MakeDirectory(std::u16string_view path) {
    return CreateDirectoryW(ToWide(path).c_str(), nullptr) != 0;
}

}  // namespace zv::platform
