#include <gtest/gtest.h>

#include "MetadataTestSupport.h"
#include "metadata/MetadataText.h"
#include "metadata/Mp3Metadata.h"

namespace zv {
namespace {

using test::LabelValues;

LabelValues Mp3Fields(const char* pszFixture) {
    MetadataValueList aValues;
    EXPECT_TRUE(ReadMp3Metadata(test::FixturePath(pszFixture), aValues)) << pszFixture;
    return test::Listed(aValues);
}

const LabelValues kStream = {{"MP3 Version", u"MPEG 2 Layer III"},
                             {"MP3 Bitrate", u"32 kbps"},
                             {"MP3 Frequency", u"22050 Hz"}};

LabelValues With(LabelValues aFirst, const LabelValues& aMore) {
    aFirst.insert(aFirst.end(), aMore.begin(), aMore.end());
    return aFirst;
}

// Each file made by lame and a tagger: stream values first, then the tags.
TEST(Mp3Metadata, RealFiles) {
    EXPECT_EQ(Mp3Fields("id3v1.mp3"), With(kStream, {{"MP3 Frames", u"11"},
                                                     {"MP3 Length", u"0:00:00"},
                                                     {"MP3 Mode", u"Single Channel"},
                                                     {"MP3 Title", u"V1 Title"},
                                                     {"MP3 Artist", u"V1 Artist"},
                                                     {"MP3 Album", u"V1 Album"},
                                                     {"MP3 Year", u"1999"},
                                                     {"MP3 Comment", u"V1 Comment"},
                                                     {"MP3 Genre", u"Rock"}}));
    // Version 2.2: "(17)" through the genre list, the track's digits before "/".
    EXPECT_EQ(Mp3Fields("id3v22.mp3"), With(kStream, {{"MP3 Frames", u"11"},
                                                      {"MP3 Length", u"0:00:00"},
                                                      {"MP3 Mode", u"Single Channel"},
                                                      {"MP3 Title", u"V22 Title"},
                                                      {"MP3 Artist", u"V22 Artist"},
                                                      {"MP3 Album", u"V22 Album"},
                                                      {"MP3 Genre", u"Rock"},
                                                      {"MP3 Track", u"5"}}));
    // Version 2.3 wins over the ID3v1 title; the genre stays as text; the
    // comment with an empty description starts with a blank; the scan ends
    // once title and the other five are read, so the track is never reached.
    EXPECT_EQ(Mp3Fields("id3v23.mp3"), With(kStream, {{"MP3 Frames", u"20"},
                                                      {"MP3 Length", u"0:00:01"},
                                                      {"MP3 Mode", u"Single Channel"},
                                                      {"MP3 Artist", u"V23 Artist"},
                                                      {"MP3 Album", u"V23 Album"},
                                                      {"MP3 Title", u"V23 Title"},
                                                      {"MP3 Comment", u" V23 Comment"},
                                                      {"MP3 Year", u"2003"},
                                                      {"MP3 Genre", u"(13)"}}));
    // Version 2.4 read as 2.3: the encoding byte 3 (UTF-8) is part of the text.
    EXPECT_EQ(Mp3Fields("id3v24.mp3"), With(kStream, {{"MP3 Frames", u"16"},
                                                      {"MP3 Length", u"0:00:00"},
                                                      {"MP3 Mode", u"Single Channel"},
                                                      {"MP3 Title", u"\x03V24 Title"},
                                                      {"MP3 Artist", u"\x03V24 Artist"},
                                                      {"MP3 Track", u"7"},
                                                      {"MP3 Album", u"\x03V24 Album"},
                                                      {"MP3 Genre", u"\x03Jazz"}}));
    // lame's marker stands 4 bytes behind the offset looked at, so it is not seen.
    EXPECT_EQ(Mp3Fields("xing.mp3"), (LabelValues{{"MP3 Version", u"MPEG 2 Layer III"},
                                                  {"MP3 Bitrate", u"64 kbps"},
                                                  {"MP3 Frequency", u"22050 Hz"},
                                                  {"MP3 Frames", u"2"},
                                                  {"MP3 Length", u"0:00:00"},
                                                  {"MP3 Mode", u"Single Channel"}}));
}

// MPEG 1 Layer III, 128 kbps, 44.1 kHz, joint stereo; the marker offset is 32.
std::string Mpeg1Frame() { return std::string("\xFF\xFB\x90\x44", 4); }

LabelValues StreamFields(const std::string& strBytes) {
    CMemoryByteStream stream(strBytes);
    MetadataValueList aValues;
    ReadMp3Stream(stream, aValues);
    return test::Listed(aValues);
}

TEST(Mp3Metadata, XingMarkerAtItsAbsoluteOffset) {
    std::string strMarked = Mpeg1Frame() + std::string(28, '\0') + "Xing" +
                            std::string("\0\0\0\x01\0\0\x01\x2C", 8) + std::string(400, '\0');
    const LabelValues aMarked = StreamFields(strMarked);
    ASSERT_EQ(aMarked.size(), 6u);
    EXPECT_EQ(aMarked[1].second, u"variable 128 kbps");
    EXPECT_EQ(aMarked[3].second, u"300");
    strMarked[39] = 0;  // frames flag clear
    EXPECT_EQ(StreamFields(strMarked)[3].second, u"-1");
    // Without the marker the count comes from the size: 1000 / 417.96.
    const LabelValues aPlain = StreamFields(Mpeg1Frame() + std::string(996, '\0'));
    EXPECT_EQ(aPlain[0].second, u"MPEG 1 Layer III");
    EXPECT_EQ(aPlain[3].second, u"2");
    EXPECT_EQ(aPlain[5].second, u"Joint Stereo");
}

TEST(Mp3Metadata, HeaderSearchAndTags) {
    // A header across the seam of two 1024-byte blocks is found.
    EXPECT_EQ(StreamFields(std::string(1022, 'x') + Mpeg1Frame() + std::string(100, '\0')).size(),
              6u);
    // A tag without a valid frame header gives nothing at all.
    const std::string strTag = std::string("TAG") + std::string(124, 'a') + '\x11';
    EXPECT_TRUE(StreamFields(std::string(200, '\0') + strTag).empty());
    // An ID3v1 genre of 126 or more adds no genre.
    std::string strNoGenre = Mpeg1Frame() + std::string(200, '\0') + strTag;
    strNoGenre.back() = char(126);
    for (const auto& [strLabel, strValue] : StreamFields(strNoGenre))
        EXPECT_NE(strLabel, "MP3 Genre");
    // A version 2.2 genre of 126 or more adds an empty genre.
    const std::string strV22 = std::string("ID3\x02\0\0\0\0\0\x40", 10) +
                               std::string("TCO\0\0\x06\0(200)", 12) + std::string(52, '\0');
    MetadataValueList aValues;
    CMemoryByteStream v22(strV22);
    EXPECT_TRUE(ReadId3v2(v22, aValues));
    EXPECT_EQ(test::Listed(aValues), (LabelValues{{"MP3 Genre", u""}}));
}

TEST(Mp3Metadata, FormatDuration) {
    const std::pair<double, const char16_t*> aCases[] = {
        {3725, u"1:02:05"}, {59, u"0:00:59"}, {59.99, u"0:00:59"},
        {0, u"0:00:00"},    {60, u"0:01:00"}, {360000, u"100:00:00"}};
    for (const auto& [dSeconds, pszText] : aCases) EXPECT_EQ(FormatDuration(dSeconds), pszText);
}

TEST(Mp3Metadata, GenreSpellings) {
    EXPECT_EQ(Mp3GenreText(0), u"Blues");
    EXPECT_EQ(Mp3GenreText(67), u"Psychadelic");
    EXPECT_EQ(Mp3GenreText(125), u"Dance Hall");
    EXPECT_EQ(Mp3GenreText(126), u"");
}

}  // namespace
}  // namespace zv
