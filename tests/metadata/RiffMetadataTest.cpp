#include <gtest/gtest.h>

#include "MetadataTestSupport.h"
#include "metadata/RiffMetadata.h"

namespace zv {
namespace {

using test::LabelValues;
using test::Le16;
using test::Le32;

std::string Chunk(const std::string& strId, const std::string& strData) {
    return strId + Le32(uint32_t(strData.size())) + strData + (strData.size() & 1 ? "\0" : "");
}

std::string Format(uint16_t uTag, uint16_t uChannels, uint32_t uRate, uint32_t uAverage,
                   const std::string& strExtra = "") {
    return Chunk("fmt ", Le16(uTag) + Le16(uChannels) + Le32(uRate) + Le32(uAverage) + Le16(1) +
                             Le16(8) + strExtra);
}

std::string Wave(const std::string& strChunks) { return Chunk("RIFF", "WAVE" + strChunks); }

LabelValues WavFields(const std::string& strBytes) {
    CMemoryByteStream stream(strBytes);
    MetadataValueList aValues;
    ReadWavStream(stream, aValues);
    return test::Listed(aValues);
}

TEST(WavMetadata, RealFiles) {
    MetadataValueList aValues;
    // ffmpeg puts its LIST chunk before "data", where it is not looked for.
    ASSERT_TRUE(ReadWavMetadata(test::FixturePath("info.wav"), aValues));
    const LabelValues aBase = {
        {"WAV Audio Format", u"PCM"},        {"WAV Audio sample rate", u"22.50 kHz"},
        {"WAV Audio Sample size", u"8 bit"}, {"WAV Channels", u"1 (Mono)"},
        {"WAV Bit Rate", u"176kbps"},        {"WAV Media Length", u"0:00:05"}};
    EXPECT_EQ(test::Listed(aValues), aBase);
    // Behind "data" it is read: 8-bit text taken as 16-bit units, and the
    // copyright swapped into third place.
    ASSERT_TRUE(ReadWavMetadata(test::FixturePath("info-after-data.wav"), aValues));
    EXPECT_EQ(test::Listed(aValues),
              (LabelValues{{"WAV Audio Format", u"PCM"},
                           {"WAV Audio sample rate", u"22.50 kHz"},
                           {"WAV Copyright", u"\u6157\u2076\u6f43\u7970\u6972\u6867t"},
                           {"WAV Channels", u"1 (Mono)"},
                           {"WAV Bit Rate", u"176kbps"},
                           {"WAV Media Length", u"0:00:05"},
                           {"WAV Artist", u"\u6157\u2076\u7241\u6974\u7473"},
                           {"WAV Audio Sample size", u"8 bit"},
                           {"WAV Name", u"\u6157\u2076\u614e\u656d"}}));
}

TEST(WavMetadata, ValueRules) {
    const std::string strData = Chunk("data", std::string(44100, '\0'));
    // 44100 bytes at 88200 a second: half a second shows as five.
    const LabelValues a44 = WavFields(Wave(Format(1, 2, 44100, 88200) + strData));
    ASSERT_EQ(a44.size(), 6u);
    EXPECT_EQ(a44[1].second, u"44.10 kHz");
    EXPECT_EQ(a44[3].second, u"2 (Stereo)");
    EXPECT_EQ(a44[4].second, u"705kbps");
    EXPECT_EQ(a44[5].second, u"0:00:05");
    // No average rate, no length; no channels, no bracket.
    const LabelValues aZero = WavFields(Wave(Format(85, 0, 11025, 0, Le16(0)) + strData));
    EXPECT_EQ(aZero, (LabelValues{{"WAV Audio Format", u"MPEG Layer-3"},
                                  {"WAV Audio sample rate", u"11.25 kHz"},
                                  {"WAV Audio Sample size", u"8 bit"},
                                  {"WAV Channels", u"0"},
                                  {"WAV Bit Rate", u"0kbps"}}));
    // An unknown INFO id ends the walk, even with known ids behind it.
    const LabelValues aInfo = WavFields(Wave(
        Format(1, 1, 8000, 8000) + strData +
        Chunk("LIST", "INFO" + Chunk("INAM", "ab") + Chunk("IXXX", "cd") + Chunk("IART", "ef"))));
    ASSERT_EQ(aInfo.size(), 7u);
    EXPECT_EQ(aInfo.back(), (std::pair<std::string, std::u16string>("WAV Name", u"\u6261")));
    // A short format chunk is no WAV.
    EXPECT_TRUE(WavFields(Wave(Chunk("fmt ", std::string(14, '\1')) + strData)).empty());
}

std::string AviHeader(uint32_t uScale, uint32_t uRate, const std::string& strBetween = "") {
    std::string strMain(56, '\0'), strStream(56, '\0');
    strMain.replace(32, 4, Le32(320));
    strMain.replace(36, 4, Le32(240));
    strStream.replace(4, 4, "MSVC");
    strStream.replace(20, 4, Le32(uScale));
    strStream.replace(24, 4, Le32(uRate));
    strStream.replace(32, 4, Le32(250));
    return "RIFF" + Le32(0) + "AVI LIST" + Le32(0) + "hdrlavih" + Le32(56) + strMain + strBetween +
           "LIST" + Le32(0) + "strlstrh" + Le32(56) + strStream;
}

LabelValues AviFields(const std::string& strBytes, bool bExpected = true) {
    CMemoryByteStream stream(strBytes);
    MetadataValueList aValues;
    EXPECT_EQ(ReadAviStream(stream, aValues), bExpected);
    return test::Listed(aValues);
}

TEST(AviMetadata, RealFileAndOpenings) {
    MetadataValueList aValues;
    ASSERT_TRUE(ReadAviMetadata(test::FixturePath("audio.avi"), aValues));
    EXPECT_EQ(test::Listed(aValues),
              (LabelValues{{"AVI Video Frame width", u"32 pixels"},
                           {"AVI Video Frame height", u"24 pixels"},
                           {"AVI Video Play Length", u"0:00:00"},
                           {"AVI Video Frame count", u"2"},
                           {"AVI Video Frame rate", u"5.000 frames/second"},
                           {"AVI Video compression", u"Cinepak codec"},
                           {"AVI Audio format", u"PCM"},
                           {"AVI Audio average data rate", u"8.000 Kb/second"},
                           {"AVI Audio sample rate", u"8.00 kHz"},
                           {"AVI Audio sample size", u"8 bit"},
                           {"AVI Audio channels", u"1(Mono)"}}));
    // No audio: the video values only, and still success.
    EXPECT_EQ(AviFields(AviHeader(1, 25)),
              (LabelValues{{"AVI Video Frame width", u"320 pixels"},
                           {"AVI Video Frame height", u"240 pixels"},
                           {"AVI Video Play Length", u"0:00:10"},
                           {"AVI Video Frame count", u"250"},
                           {"AVI Video Frame rate", u"25.000 frames/second"},
                           {"AVI Video compression", u"MS-CRAM"}}));
    // A scale of 0 divides by zero; the text says so on every OS.
    EXPECT_EQ(AviFields(AviHeader(0, 25))[4].second, u"inf frames/second");
    // A JUNK chunk before the stream list is refused.
    EXPECT_TRUE(AviFields(AviHeader(1, 25, "JUNK" + Le32(4) + "xxxx"), false).empty());
}

}  // namespace
}  // namespace zv
