#pragma once

#include <string>
#include <string_view>

namespace zv {

// Appends the native separator and a name, leaving out the separator when
// the path already ends in one (a volume root such as "/" or "C:\").
void AppendPathComponent(std::u16string& strPath, std::u16string_view strName);

std::u16string JoinPath(std::u16string_view strDirectory, std::u16string_view strName);

}  // namespace zv
