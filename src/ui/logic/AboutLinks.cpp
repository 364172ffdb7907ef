#include "ui/logic/AboutLinks.h"

#include "platform/FileSystem.h"

namespace zv {

CAboutLinks FindAboutLinks(std::u16string_view strProgramDir,
                           const std::function<bool(std::u16string_view)>& bExists) {
    constexpr std::u16string_view kSeparators = u"\\/";
    std::u16string_view strDir = strProgramDir;
    while (!strDir.empty() && kSeparators.find(strDir.back()) != std::u16string_view::npos)
        strDir.remove_suffix(1);
    while (!strDir.empty()) {
        const std::u16string strBase = std::u16string(strDir) + platform::kPathSeparator;
        if (bExists(strBase + u"README.md")) {
            CAboutLinks links{strBase + u"README.md", strBase + u"docs"};
            if (!bExists(links.m_strDocs)) links.m_strDocs.clear();
            return links;
        }
        const size_t nSeparator = strDir.find_last_of(kSeparators);
        if (nSeparator == std::u16string_view::npos) break;
        strDir = strDir.substr(0, nSeparator);
    }
    return {};
}

}  // namespace zv
