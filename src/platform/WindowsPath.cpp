// The textual drive rule of Windows paths.
#include "platform/FileSystem.h"

namespace zv::platform {

// "X:" is everything up to and including the first colon. Without a colon,
// a path holding "\\" is a UNC path whose drive runs from the start up to the
// next backslash after the two: "\\server\share\dir" gives "\\server" (the
// share is not part of it). Any other path has no drive.
std::u16string DriveOfWindowsPath(std::u16string_view path) {
    const size_t uColon = path.find(u':');
    if (uColon != std::u16string_view::npos) return std::u16string(path.substr(0, uColon + 1));
    const size_t uUnc = path.find(u"\\\\");
    if (uUnc == std::u16string_view::npos) return std::u16string();
    return std::u16string(path.substr(0, path.find(u'\\', uUnc + 2)));
}

}  // namespace zv::platform
