// The bytes and lines of settings files: the encodings a reader takes, the
// line ends, the 255-unit line buffer, and the form written.
#include <gtest/gtest.h>

#include "core/SettingsText.h"
#include "core/TextFile.h"
#include "platform/Text.h"

namespace zv {
namespace {

using Lines = std::vector<std::u16string>;

std::string Utf16Le(std::u16string_view text) {
    std::string strBytes;
    for (const char16_t ch : text) {
        strBytes += static_cast<char>(ch & 0xFF);
        strBytes += static_cast<char>(ch >> 8);
    }
    return strBytes;
}

std::string Utf16Be(std::u16string_view text) {
    std::string strBytes;
    for (const char16_t ch : text) {
        strBytes += static_cast<char>(ch >> 8);
        strBytes += static_cast<char>(ch & 0xFF);
    }
    return strBytes;
}

TEST(SettingsTextTest, EveryAcceptedEncodingGivesTheSameText) {
    const std::u16string strText = u"[FILTER FILE NAMES]\r\n*.d\u00e9j\u00e0\r\n\u65e5\u672c\r\n";
    const std::string strUtf8 = platform::Utf16ToUtf8(strText);
    const std::string aFiles[] = {
        "\xFF\xFE" + Utf16Le(strText),
        "\xFE\xFF" + Utf16Be(strText),
        "\xEF\xBB\xBF" + strUtf8,
        strUtf8,
    };
    for (const std::string& strBytes : aFiles)
        EXPECT_EQ(DecodeTextFile(strBytes),
                  u"[FILTER FILE NAMES]\n*.d\u00e9j\u00e0\n\u65e5\u672c\n");
}

TEST(SettingsTextTest, OnlyCarriageReturnsBeforeALineFeedGo) {
    EXPECT_EQ(DecodeTextFile("a\r\nb\rc\r\r\n"), u"a\nb\rc\r\n");
    EXPECT_EQ(DecodeTextFile("\xFF\xFE" + Utf16Le(u"x") + "\x41"), u"x");  // odd byte dropped
}

TEST(SettingsTextTest, LinesAreCutAtTheBufferLimit) {
    const std::u16string strLong(300, u'a');
    const std::u16string strExact(kSettingsLineLimit, u'b');
    const std::u16string strShort(kSettingsLineLimit - 1, u'c');
    struct {
        std::u16string m_strText;
        Lines m_aLines;
    } const kCases[] = {
        {strLong + u"\nnext", {strLong.substr(0, 255), std::u16string(45, u'a'), u"next"}},
        // The line end of a line that fills the buffer comes as an empty line.
        {strExact + u"\nnext", {strExact, u"", u"next"}},
        {strShort + u"\nnext", {strShort, u"next"}},
        {strExact, {strExact}},
    };
    for (const auto& c : kCases) EXPECT_EQ(SplitSettingsLines(c.m_strText), c.m_aLines);
}

TEST(SettingsTextTest, TrailingWhiteSpaceGoesAndANulEndsTheLine) {
    EXPECT_EQ(SplitSettingsLines(u"  key=value \t\n\n\v\f\r\nlast"),
              (Lines{u"  key=value", u"", u"", u"last"}));
    EXPECT_EQ(SplitSettingsLines(std::u16string(u"ab\0cd \nx", 8)), (Lines{u"ab", u"x"}));
    EXPECT_TRUE(SplitSettingsLines(u"").empty());
    EXPECT_EQ(SplitSettingsLines(u"one\n"), (Lines{u"one"}));
}

TEST(SettingsTextTest, WritesUtf16WithAByteOrderMarkAndCrLf) {
    EXPECT_EQ(EncodeSettingsText({u"[A]", u"", u"\u00e9"}),
              std::string("\xFF\xFE[\0A\0]\0\r\0\n\0\r\0\n\0\xE9\0\r\0\n\0", 22));
    // Names that are not valid UTF-16 (lone surrogates) survive the trip.
    const Lines aLines{u"/data/bad\xDCFF name", u"x"};
    EXPECT_EQ(SplitSettingsLines(DecodeTextFile(EncodeSettingsText(aLines))), aLines);
}

}  // namespace
}  // namespace zv
