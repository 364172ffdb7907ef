#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <string>

#include "analyses/CrcListing.h"
#include "core/records/Crc32.h"
#include "platform/Text.h"
#include "support/TempDir.h"

#ifndef _WIN32
#include <unistd.h>
#endif

namespace zv {
namespace {

namespace fs = std::filesystem;

// An MP3 file with an ID3v2 header declaring 2 bytes and an ID3v1 trailer.
const std::string kMp3 =
    "ID3\x03" + std::string("\0\0\0\0\0\x02", 6) + "xxaudio" + "TAG" + std::string(125, 't');

std::string Crc(std::string_view bytes, const char* pszFormat = "%u") {
    char sz[16];
    std::snprintf(sz, sizeof sz, pszFormat, unsigned(Crc32Buffer(bytes.data(), bytes.size())));
    return sz;
}

class CrcListingTest : public ::testing::Test {
protected:
    void SetUp() override {
        fs::create_directories(m_dir.Path() / "sub");
        m_dir.WriteFile("B.txt", "123456789");
        m_dir.WriteFile("a.mp3", kMp3);
        m_dir.WriteFile(fs::path("sub") / "c.bin", "abc");
        m_dir.WriteFile("empty", "");
    }
    bool List(const std::vector<std::u16string>& aPaths, CCrcListingOptions options) {
        m_strOut.clear();
        m_strErr.clear();
        return WriteCrcListing(
            aPaths, options, [this](std::string_view text) { m_strOut += text; },
            [this](std::string_view text) { m_strErr += text; });
    }
    std::u16string Path(const fs::path& relative) { return (m_dir.Path() / relative).u16string(); }
    std::string Line(const std::string& strCrc, const fs::path& relative) {
        return strCrc + "  " + platform::Utf16ToUtf8(Path(relative)) + "\n";
    }

    test::CTempDir m_dir;
    std::string m_strOut, m_strErr;
};

// Names in order without case first, so "a.mp3" comes before "B.txt".
TEST_F(CrcListingTest, DirectoriesAreListedRecursivelyInNameOrderAndMissingPathsReported) {
    EXPECT_FALSE(List({Path("nope"), m_dir.Path().u16string()}, {}));
    EXPECT_EQ(m_strOut, Line(Crc(kMp3), "a.mp3") + Line("3421780262", "B.txt") +
                            Line("0", "empty") + Line(Crc("abc"), fs::path("sub") / "c.bin"));
    EXPECT_NE(m_strErr.find("nope"), std::string::npos);
}

TEST_F(CrcListingTest, FormsOfTheChecksum) {
    const std::vector<std::u16string> aPaths = {Path("B.txt"), Path("a.mp3"), Path("empty")};
    // Without tags the stretch runs from the declared tag size, 2, up to
    // the trailer.
    const std::string strNoTags = kMp3.substr(2, kMp3.size() - 2 - 128);
    const std::pair<CCrcListingOptions, std::string> aCases[] = {
        {{true, false, false},
         Line("0xCBF43926", "B.txt") + Line(Crc(kMp3, "0x%X"), "a.mp3") + Line("0x0", "empty")},
        {{false, true, false},
         Line("3421780262", "B.txt") + Line(Crc(strNoTags), "a.mp3") + Line("0", "empty")},
        {{true, true, false},  // the tag-free checksum has no "0x"
         Line("CBF43926", "B.txt") + Line(Crc(strNoTags, "%X"), "a.mp3") + Line("0", "empty")},
        {{true, false, true},
         Line("0xCBF43926", "B.txt") + Line(Crc(kMp3, "0x%X"), "a.mp3") + Line("0x0", "empty")},
        {{false, false, true},  // up to 4096 bytes a file is its own sample
         Line("3421780262", "B.txt") + Line(Crc(kMp3), "a.mp3") + Line("0", "empty")},
    };
    for (const auto& [options, strExpected] : aCases) {
        EXPECT_TRUE(List(aPaths, options));
        EXPECT_EQ(m_strOut, strExpected);
    }
}

#ifndef _WIN32
TEST_F(CrcListingTest, UnreadableFilesReadUnknownAndLinksAreNotFollowed) {
    if (geteuid() == 0) GTEST_SKIP() << "permission bits do not stop root";
    fs::permissions(m_dir.Path() / "B.txt", fs::perms::none);
    fs::create_symlink(m_dir.Path() / "B.txt", m_dir.Path() / "link");
    EXPECT_TRUE(List({Path("B.txt"), Path("link")}, {}));
    EXPECT_EQ(m_strOut, Line("UNKNOWN", "B.txt"));
    EXPECT_NE(m_strErr.find("link"), std::string::npos);
    fs::permissions(m_dir.Path() / "B.txt", fs::perms::owner_all);
}
#endif

}  // namespace
}  // namespace zv
