#include <gtest/gtest.h>

#include <set>

#include "platform/FileSystem.h"
#include "ui/logic/AboutLinks.h"

namespace zv {
namespace {

TEST(AboutLinks, TheNearestFolderWithTheReadmeGivesBothLinks) {
    const std::u16string s(1, platform::kPathSeparator);
    const std::u16string strTree = u"/src" + s + u"zorvane";
    std::set<std::u16string> files{strTree + s + u"README.md", strTree + s + u"docs"};
    auto Exists = [&files](std::u16string_view strPath) {
        return files.count(std::u16string(strPath)) != 0;
    };

    // A build tree inside the source tree, either separator, a trailing one.
    CAboutLinks links = FindAboutLinks(strTree + u"/build\\windows/src/app/", Exists);
    EXPECT_EQ(links.m_strReadme, strTree + s + u"README.md");
    EXPECT_EQ(links.m_strDocs, strTree + s + u"docs");

    // An installed program with its read-me beside it but no documentation.
    files.insert(u"/opt/bin" + s + u"README.md");
    links = FindAboutLinks(u"/opt/bin", Exists);
    EXPECT_EQ(links.m_strReadme, u"/opt/bin" + s + u"README.md");
    EXPECT_TRUE(links.m_strDocs.empty());

    links = FindAboutLinks(u"/usr/bin", Exists);
    EXPECT_TRUE(links.m_strReadme.empty() && links.m_strDocs.empty());
}

}  // namespace
}  // namespace zv
