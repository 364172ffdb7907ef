#include "platform/Shell.h"

#include <cstdlib>

#include "platform/Process.h"
#include "platform/Text.h"

namespace zv::platform {

int ShellOpen(std::u16string_view path) {
    int nError = 0;
    return StartProcess({u"xdg-open", std::u16string(path)}, nullptr, nError) ? 33
                                                                              : kShellNoAssociation;
}

bool ReadClassesRootDefault(std::u16string_view, std::u16string&) { return false; }

std::u16string GetWindowsFolder() { return {}; }

std::u16string GetEnvironmentText(std::u16string_view strName) {
    const char* pszValue = std::getenv(Utf16ToUtf8(strName).c_str());
    return pszValue ? Utf8ToUtf16(pszValue) : std::u16string();
}

}  // namespace zv::platform
