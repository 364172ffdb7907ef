// Files opened and disk info read relative to a directory handle are what
// their full paths give, whatever bytes their names hold.
#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <tuple>
#include <vector>

#include "PlatformTestSupport.h"
#include "platform/DirectoryHandle.h"

namespace fs = std::filesystem;

namespace zv::platform {
namespace {

using DirectoryHandleTest = test::TempDirTest;

std::string ReadAll(CFileReader& reader) {
    std::string strBytes(64, '\0');
    const int64_t n = reader.Read(strBytes.data(), strBytes.size());
    return n < 0 ? "<error>" : strBytes.substr(0, size_t(n));
}

TEST_F(DirectoryHandleTest, OpensTheFilesOfItsDirectoryOnly) {
    struct CName {
        std::u16string strName;
        fs::path onDisk;
    };
    std::vector<CName> aNames = {{u"plain.txt", "plain.txt"},
                                 {u"caf\u00E9 \u20AC.txt", fs::path(u"caf\u00E9 \u20AC.txt")}};
#ifndef _WIN32
    // Not UTF-8: the name maps to a lone surrogate and back to the byte.
    aNames.push_back({u"x\xDCFF.bin", fs::path(std::string("x\xFF.bin"))});
#endif
    fs::create_directory(Root() / "sub");
    for (size_t i = 0; i < aNames.size(); ++i)
        std::ofstream(Root() / "sub" / aNames[i].onDisk, std::ios::binary) << "file " << i;
    fs::create_directory(Root() / "sub" / "inner");

    CDirectoryHandle dir;
    EXPECT_FALSE(dir.Open(Path("missing")));
    EXPECT_FALSE(dir.Open(Path("sub/plain.txt"))) << "a file is no directory";
    ASSERT_TRUE(dir.Open(Path("sub")));
    CFileReader reader;
    for (const CName& name : aNames) {
        ASSERT_TRUE(dir.OpenFile(reader, name.strName));
        CFileReader byPath;
        ASSERT_TRUE(byPath.Open(Path(fs::path("sub") / name.onDisk)));
        const std::string strBytes = ReadAll(reader);
        EXPECT_EQ(strBytes.substr(0, 5), "file ");
        EXPECT_EQ(strBytes, ReadAll(byPath));
    }
    EXPECT_FALSE(dir.OpenFile(reader, u"missing"));
    EXPECT_FALSE(dir.OpenFile(reader, u"inner")) << "only regular files";
    dir.Close();
    EXPECT_FALSE(dir.OpenFile(reader, u"plain.txt")) << "closed";
}

auto DiskFacts(const CFileDiskInfo& info) {
    return std::tuple(info.dSizeOnDisk, info.uLinkCount, info.bOwnerKnown, info.strOwner);
}

TEST_F(DirectoryHandleTest, DiskInfoOfEachNameIsWhatItsFullPathGives) {
    std::vector<fs::path> aNames = {"plain.txt", fs::path(u8"gr\u00fc\U0001F600n.txt"),
                                    "linked.txt", "missing.txt"};
    m_temp.WriteFile("plain.txt", std::string(10000, 'x'));
    m_temp.WriteFile(aNames[1], "y");
    m_temp.WriteFile("linked.txt", "z");
    fs::create_hard_link(Root() / "linked.txt", Root() / "second.txt");
    if (!test::kWindows) {
        // Bytes that are no UTF-8, and a link whose target has the sizes.
        aNames.push_back(fs::path("bad\xFF.txt"));
        m_temp.WriteFile(aNames.back(), "w");
        aNames.push_back(fs::path("to-plain"));
        fs::create_symlink("plain.txt", Root() / "to-plain");
    }
    CDirectoryHandle dir;
    CFileDiskInfo info;
    EXPECT_FALSE(dir.ReadDiskInfo(u"plain.txt", true, info)) << "no directory open";
    ASSERT_TRUE(dir.Open(test::ToU16(Root())));
    for (const fs::path& name : aNames) {
        for (bool bOwner : {false, true}) {
            CFileDiskInfo expected;
            GetFileDiskInfo(test::ToU16(Root() / name), bOwner, expected);
            info.strOwner = u"stale";
            ASSERT_TRUE(dir.ReadDiskInfo(test::ToU16(name), bOwner, info));
            EXPECT_EQ(DiskFacts(info), DiskFacts(expected)) << name << bOwner;
        }
    }
    dir.ReadDiskInfo(u"linked.txt", true, info);
    EXPECT_EQ(info.uLinkCount, 2u);
    EXPECT_TRUE(info.bOwnerKnown);
    dir.ReadDiskInfo(u"plain.txt", false, info);
    EXPECT_GT(info.dSizeOnDisk, 0);
}

}  // namespace
}  // namespace zv::platform
