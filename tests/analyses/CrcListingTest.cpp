#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <string>

#include "analyses/CrcListing.h"
#include "core/records/Crc32.h"
#include "platform/Text.h"
#include "support/TempDir.h"

#ifndef _WIN32
#include <sys/stat.h>
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
        const CCrcListingResult result = WriteCrcListing(
            aPaths, options, [this](std::string_view text) { m_strOut += text; },
            [this](std::string_view text) { m_strErr += text; });
        return result.bAllFound && result.bAllRead;
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
        {{true, false, false, {}},
         Line("0xCBF43926", "B.txt") + Line(Crc(kMp3, "0x%X"), "a.mp3") + Line("0x0", "empty")},
        {{false, true, false, {}},
         Line("3421780262", "B.txt") + Line(Crc(strNoTags), "a.mp3") + Line("0", "empty")},
        {{true, true, false, {}},  // the tag-free checksum has no "0x"
         Line("CBF43926", "B.txt") + Line(Crc(strNoTags, "%X"), "a.mp3") + Line("0", "empty")},
        {{true, false, true, {}},
         Line("0xCBF43926", "B.txt") + Line(Crc(kMp3, "0x%X"), "a.mp3") + Line("0x0", "empty")},
        {{false, false, true, {}},  // up to 4096 bytes a file is its own sample
         Line("3421780262", "B.txt") + Line(Crc(kMp3), "a.mp3") + Line("0", "empty")},
    };
    for (const auto& [options, strExpected] : aCases) {
        EXPECT_TRUE(List(aPaths, options));
        EXPECT_EQ(m_strOut, strExpected);
    }
}

#ifndef _WIN32
// A link below a path named is not followed; one named is (it is what the
// user means).
TEST_F(CrcListingTest, LinksAreFollowedOnlyWhereNamed) {
    fs::create_directories(m_dir.Path() / "tree");
    fs::create_symlink(m_dir.Path() / "B.txt", m_dir.Path() / "tree" / "link");
    fs::create_directory_symlink(m_dir.Path() / "sub", m_dir.Path() / "dirlink");
    EXPECT_TRUE(List({Path("tree"), Path("dirlink")}, {}));
    EXPECT_EQ(m_strOut, Line(Crc("abc"), fs::path("dirlink") / "c.bin"));
    EXPECT_NE(m_strErr.find("link"), std::string::npos);
}

TEST_F(CrcListingTest, SpecialFilesAreSkippedAndUnreadableFilesReadUnknown) {
    ASSERT_EQ(mkfifo((m_dir.Path() / "fifo").c_str(), 0600), 0);
    EXPECT_TRUE(List({Path("fifo"), Path("B.txt")}, {}));
    EXPECT_EQ(m_strOut, Line("3421780262", "B.txt"));
    EXPECT_NE(m_strErr.find("fifo"), std::string::npos);
    if (geteuid() == 0) GTEST_SKIP() << "permission bits do not stop root";
    // An empty file in a directory that may be listed but not searched.
    fs::permissions(m_dir.Path() / "B.txt", fs::perms::none);
    fs::permissions(m_dir.Path() / "sub", fs::perms::owner_read);
    EXPECT_FALSE(List({Path("B.txt"), Path("sub")}, {}));
    fs::permissions(m_dir.Path() / "sub", fs::perms::owner_all);
    fs::permissions(m_dir.Path() / "B.txt", fs::perms::owner_all);
    EXPECT_EQ(m_strOut, Line("UNKNOWN", "B.txt") + Line("UNKNOWN", fs::path("sub") / "c.bin"));
}

TEST_F(CrcListingTest, AStopEndsTheListingWithTheLinesDone) {
    CCrcListingOptions options;
    int nAsked = 0;
    options.fnStopRequested = [&nAsked] { return ++nAsked > 2; };
    const CCrcListingResult result = WriteCrcListing(
        {m_dir.Path().u16string()}, options, [this](std::string_view text) { m_strOut += text; },
        [](std::string_view) {});
    EXPECT_TRUE(result.bStopped);
    EXPECT_EQ(m_strOut, "");  // the first batch was not yet checked
}
#endif

}  // namespace
}  // namespace zv
