#include <gtest/gtest.h>

#include <string>

#include "metadata/Mp3Tags.h"
#include "platform/FileSystem.h"
#include "platform/Text.h"
#include "support/TempDir.h"

namespace zv {
namespace {

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

// The declared size without the 10 header bytes, read from the start of the
// file wherever it stands: 7 bits from each size byte, the first the highest.
TEST(Mp3Tags, Id3v2TagSize) {
    auto Header = [](char nMajor, char nRevision, const char(&aSize)[5]) {
        return std::string("ID3") + nMajor + nRevision + '\0' + std::string(aSize, 4);
    };
    const std::pair<std::string, uint32_t> aCases[] = {
        {Header(3, 0, "\0\0\x02\x01") + std::string(300, 'x'), 257},
        {Header(2, 0, "\0\0\0\x7F"), 0x7F},
        {Header(4, -2, "\0\0\x01\0"), 0x80},
        {Header(3, 0, "\x01\0\0\0"), 1u << 21},
        {Header(3, 0, "\x7F\x7F\x7F\x7F"), 0x0FFFFFFF},
        // No usable tag.
        {"", 0},
        {"ID3", 0},                                       // short read
        {Header(3, 0, "\0\0\x01\0").substr(0, 9), 0},     // 9 bytes
        {"id3" + Header(3, 0, "\1\1\1\1").substr(3), 0},  // case matters
        {Header(-1, 0, "\0\0\0\x10"), 0},                 // major 255
        {Header(3, -1, "\0\0\0\x10"), 0},                 // revision 255
        {Header(3, 0, "\x80\0\0\0"), 0},                  // not synchsafe
        {Header(3, 0, "\0\0\0\x80"), 0},
        {Header(3, 0, "\0\xFF\0\x05"), 0},
    };
    test::CTempDir dir;
    for (size_t i = 0; i < std::size(aCases); ++i) {
        platform::CFileReader reader;
        ASSERT_TRUE(reader.Open(dir.WriteFile("f.mp3", aCases[i].first).u16string()));
        ASSERT_TRUE(reader.Seek(aCases[i].first.size()));
        EXPECT_EQ(Id3v2TagSize(reader), aCases[i].second) << "case " << i;
    }
}

}  // namespace
}  // namespace zv
