#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "metadata/Mp3Tags.h"
#include "platform/FileSystem.h"
#include "platform/Text.h"
#include "support/TempDir.h"

namespace zv {
namespace {

std::u16string ToU16(const std::filesystem::path& path) {
    const auto& native = path.native();
#ifdef _WIN32
    return std::u16string(native.begin(), native.end());
#else
    return platform::Utf8ToUtf16(native);
#endif
}

TEST(Mp3Tags, ExtensionTestTakesTheLastFourCharactersWithoutCase) {
    const std::pair<const char16_t*, bool> aCases[] = {
        {u"song.mp3", true}, {u"song.MP3", true},   {u"song.Mp2", true},  {u"song.mp1", true},
        {u".mp3", true},     {u"mp3", false},       {u"", false},         {u"song.mp4", false},
        {u"song.mp", false}, {u"song.mp3 ", false}, {u"song_mp3", false}, {u"song.mpa", false},
        {u"a.mp30", false},  {u"x.mP3", true},
    };
    for (const auto& [pszName, bExpected] : aCases)
        EXPECT_EQ(IsMp3Extension(pszName), bExpected) << platform::Utf16ToUtf8(pszName);
}

TEST(Mp3Tags, SynchsafeTakesSevenBitsPerByteFirstByteHighest) {
    struct Case {
        unsigned char aBytes[4];
        uint32_t uExpected;
    };
    const Case aCases[] = {
        {{0, 0, 0, 0}, 0},    {{0, 0, 0, 0x7F}, 0x7F},  {{0, 0, 1, 0}, 0x80},
        {{0, 0, 2, 1}, 257},  {{1, 0, 0, 0}, 1u << 21}, {{0x7F, 0x7F, 0x7F, 0x7F}, 0x0FFFFFFF},
        {{0x80, 0, 0, 0}, 0}, {{0, 0, 0, 0x80}, 0},     {{0, 0xFF, 0, 5}, 0},
    };
    for (const Case& c : aCases) {
        const uint32_t uRaw =
            c.aBytes[0] | c.aBytes[1] << 8 | c.aBytes[2] << 16 | uint32_t(c.aBytes[3]) << 24;
        EXPECT_EQ(DecodeSynchsafe(uRaw), c.uExpected) << std::hex << uRaw;
    }
}

class Id3v2TagSizeTest : public ::testing::Test {
protected:
    uint32_t SizeOf(const std::string& strContent) {
        const auto path = m_dir.WriteFile("f.mp3", strContent);
        platform::CFileReader reader;
        EXPECT_TRUE(reader.Open(ToU16(path)));
        return Id3v2TagSize(reader);
    }
    static std::string Header(unsigned char nMajor, unsigned char nRevision, std::string strSize) {
        return std::string("ID3") + char(nMajor) + char(nRevision) + '\0' + strSize;
    }
    test::CTempDir m_dir;
};

TEST_F(Id3v2TagSizeTest, DeclaredSizeWithoutTheHeader) {
    EXPECT_EQ(SizeOf(Header(3, 0, std::string("\0\0\x02\x01", 4)) + std::string(300, 'x')), 257u);
    EXPECT_EQ(SizeOf(Header(2, 0, std::string("\0\0\0\x10", 4))), 16u);
    EXPECT_EQ(SizeOf(Header(4, 254, std::string("\0\0\0\x10", 4))), 16u);
}

TEST_F(Id3v2TagSizeTest, NoUsableTagGivesZero) {
    EXPECT_EQ(SizeOf(""), 0u);
    EXPECT_EQ(SizeOf("ID3"), 0u);                                         // short read
    EXPECT_EQ(SizeOf(Header(3, 0, std::string("\0\0\x01", 3))), 0u);      // 9 bytes
    EXPECT_EQ(SizeOf("id3" + Header(3, 0, "\1\1\1\1").substr(3)), 0u);    // case matters
    EXPECT_EQ(SizeOf(Header(255, 0, std::string("\0\0\0\x10", 4))), 0u);  // major 255
    EXPECT_EQ(SizeOf(Header(3, 255, std::string("\0\0\0\x10", 4))), 0u);  // revision 255
    EXPECT_EQ(SizeOf(Header(3, 0, std::string("\0\0\0\x80", 4))), 0u);    // not synchsafe
}

TEST_F(Id3v2TagSizeTest, ReadsFromTheStartWhateverThePosition) {
    const auto path =
        m_dir.WriteFile("g.mp3", Header(3, 0, std::string("\0\0\0\x20", 4)) + "0123456789");
    platform::CFileReader reader;
    ASSERT_TRUE(reader.Open(ToU16(path)));
    ASSERT_TRUE(reader.Seek(12));
    EXPECT_EQ(Id3v2TagSize(reader), 32u);
}

}  // namespace
}  // namespace zv
