// Disk info read relative to an open directory is what the full path gives,
// for names of every kind.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <tuple>
#include <vector>

#include "PlatformTestSupport.h"
#include "platform/DirectoryDiskInfo.h"

namespace zv::test {
namespace {

namespace fs = std::filesystem;

class DirectoryDiskInfoTest : public TempDirTest {};

auto DiskFacts(const platform::CFileDiskInfo& info) {
    return std::tuple(info.dSizeOnDisk, info.uLinkCount, info.bOwnerKnown, info.strOwner);
}

TEST_F(DirectoryDiskInfoTest, EachNameReadsAsItsFullPath) {
    std::vector<fs::path> aNames = {"plain.txt", fs::path(u8"gr\u00fc\U0001F600n.txt"),
                                    "linked.txt", "missing.txt"};
    m_temp.WriteFile("plain.txt", std::string(10000, 'x'));
    m_temp.WriteFile(aNames[1], "y");
    m_temp.WriteFile("linked.txt", "z");
    fs::create_hard_link(Root() / "linked.txt", Root() / "second.txt");
    if (!kWindows) {
        // Bytes that are no UTF-8, and a link whose target has the sizes.
        aNames.push_back(fs::path("bad\xFF.txt"));
        m_temp.WriteFile(aNames.back(), "w");
        aNames.push_back(fs::path("to-plain"));
        fs::create_symlink("plain.txt", Root() / "to-plain");
    }
    platform::CDirectoryDiskInfo dir;
    platform::CFileDiskInfo info;
    EXPECT_FALSE(dir.Read(u"plain.txt", true, info)) << "no directory open";
    ASSERT_TRUE(dir.Open(ToU16(Root())));
    for (const fs::path& name : aNames) {
        for (bool bOwner : {false, true}) {
            platform::CFileDiskInfo expected;
            platform::GetFileDiskInfo(ToU16(Root() / name), bOwner, expected);
            info.strOwner = u"stale";
            ASSERT_TRUE(dir.Read(ToU16(name), bOwner, info));
            EXPECT_EQ(DiskFacts(info), DiskFacts(expected)) << name << bOwner;
        }
    }
    dir.Read(u"linked.txt", true, info);
    EXPECT_EQ(info.uLinkCount, 2u);
    EXPECT_TRUE(info.bOwnerKnown);
    dir.Read(u"plain.txt", false, info);
    EXPECT_GT(info.dSizeOnDisk, 0);
}

}  // namespace
}  // namespace zv::test
