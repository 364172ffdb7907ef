#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "AnalysesTestSupport.h"
#include "analyses/CrcListing.h"
#include "core/Crc32.h"
#include "support/TempDir.h"

#ifndef _WIN32
#include <unistd.h>
#endif

namespace zv {
namespace {

namespace fs = std::filesystem;
using test::ToU16;

// An MP3 file with an ID3v2 header declaring 2 bytes and an ID3v1 trailer.
const std::string kMp3 =
    "ID3\x03" + std::string("\0\0\0\0\0\x02", 6) + "xxaudio" + "TAG" + std::string(125, 't');

uint32_t CrcOf(std::string_view bytes) { return Crc32Buffer(bytes.data(), bytes.size()); }

std::string Hex(uint32_t u, const char* pszPrefix) {
    char sz[16];
    std::snprintf(sz, sizeof sz, "%s%X", pszPrefix, u);
    return sz;
}

class CrcListingTest : public ::testing::Test {
protected:
    void SetUp() override {
        fs::create_directories(m_dir.Path() / "sub");
        m_dir.WriteFile("b.txt", "123456789");
        m_dir.WriteFile("A.mp3", kMp3);
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
    std::u16string Path(const fs::path& relative) { return ToU16(m_dir.Path() / relative); }
    std::string Line(const std::string& strCrc, const fs::path& relative) {
        return strCrc + "  " + platform::Utf16ToUtf8(Path(relative)) + "\n";
    }

    test::CTempDir m_dir;
    std::string m_strOut, m_strErr;
};

TEST_F(CrcListingTest, DirectoriesAreListedRecursivelyInNameOrder) {
    EXPECT_TRUE(List({ToU16(m_dir.Path())}, {}));
    EXPECT_EQ(m_strOut, Line(std::to_string(CrcOf(kMp3)), "A.mp3") + Line("3421780262", "b.txt") +
                            Line("0", "empty") +
                            Line(std::to_string(CrcOf("abc")), fs::path("sub") / "c.bin"));
    EXPECT_EQ(m_strErr, "");
}

TEST_F(CrcListingTest, FormsOfTheChecksum) {
    const std::vector<std::u16string> aPaths = {Path("b.txt"), Path("A.mp3"), Path("empty")};
    // Without tags the stretch runs from the declared tag size, 2, up to
    // the trailer.
    const uint32_t uNoTags = CrcOf(kMp3.substr(2, kMp3.size() - 2 - 128));
    struct Case {
        CCrcListingOptions options;
        std::string strExpected;
    };
    const Case aCases[] = {
        {{true, false, false},
         Line("0xCBF43926", "b.txt") + Line(Hex(CrcOf(kMp3), "0x"), "A.mp3") +
             Line("0x0", "empty")},
        {{false, true, false},
         Line("3421780262", "b.txt") + Line(std::to_string(uNoTags), "A.mp3") + Line("0", "empty")},
        {{true, true, false},  // the tag-free checksum has no "0x"
         Line("CBF43926", "b.txt") + Line(Hex(uNoTags, ""), "A.mp3") + Line("0", "empty")},
        {{false, false, true},  // up to 4096 bytes a file is its own sample
         Line("3421780262", "b.txt") + Line(std::to_string(CrcOf(kMp3)), "A.mp3") +
             Line("0", "empty")},
    };
    for (const Case& c : aCases) {
        EXPECT_TRUE(List(aPaths, c.options));
        EXPECT_EQ(m_strOut, c.strExpected);
    }
}

TEST_F(CrcListingTest, MissingPathsAreReportedAndTheRestListed) {
    EXPECT_FALSE(List({Path("nope"), Path("b.txt")}, {}));
    EXPECT_EQ(m_strOut, Line("3421780262", "b.txt"));
    EXPECT_NE(m_strErr.find("nope"), std::string::npos);
}

#ifndef _WIN32
TEST_F(CrcListingTest, UnreadableFilesReadUnknownAndLinksAreNotFollowed) {
    if (geteuid() == 0) GTEST_SKIP() << "permission bits do not stop root";
    fs::permissions(m_dir.Path() / "b.txt", fs::perms::none);
    fs::create_symlink(m_dir.Path() / "b.txt", m_dir.Path() / "link");
    EXPECT_TRUE(List({Path("b.txt"), Path("link")}, {}));
    EXPECT_EQ(m_strOut, Line("UNKNOWN", "b.txt"));
    EXPECT_NE(m_strErr.find("link"), std::string::npos);
    fs::permissions(m_dir.Path() / "b.txt", fs::perms::owner_all);
}
#endif

}  // namespace
}  // namespace zv
