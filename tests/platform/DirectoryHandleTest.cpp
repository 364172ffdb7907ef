// Files opened relative to a directory handle read as by their full paths,
// whatever bytes their names hold.
#include <gtest/gtest.h>

#include <fstream>
#include <string>

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

}  // namespace
}  // namespace zv::platform
