// The text of settings files: the encodings a reader takes, the line ends,
// the 255-unit line buffer and the form written; the C runtime's reading of
// numbers and "%f"; the word tables of sort codes, report types, units and
// compare modes.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "core/settings/SettingsText.h"
#include "core/settings/SettingsValues.h"
#include "core/settings/SettingsWords.h"
#include "core/settings/TextFile.h"
#include "platform/Text.h"

namespace zv {
namespace {

using platform::ToUpperCopy;
using platform::Utf16ToUtf8;

TEST(SettingsValuesTest, NumbersReadLikeTheCRuntime) {
    constexpr int32_t kMax = std::numeric_limits<int32_t>::max();
    constexpr int32_t kMin = std::numeric_limits<int32_t>::min();
    constexpr double kInf = std::numeric_limits<double>::infinity();
    // clang-format off
    const std::pair<std::u16string_view, int32_t> aIntegers[] = {
        {u"12", 12}, {u"  -7x", -7}, {u"+5", 5}, {u"abc", 0}, {u"", 0}, {u"- 3", 0}, {u"0012", 12},
        {u"3.9", 3}, {u"\t42", 42}, {u"2147483647", kMax}, {u"99999999999999999999", kMax},
        {u"-2147483648", kMin}, {u"-99999999999", kMin}};
    const std::pair<std::u16string_view, double> aReals[] = {
        {u"0.4", 0.4}, {u" -2.25abc", -2.25}, {u".5", 0.5}, {u"5.", 5.0}, {u"1e3", 1000.0},
        {u"1E-2", 0.01}, {u"1e", 1.0}, {u"1e+", 1.0}, {u"abc", 0.0}, {u"", 0.0}, {u"+7", 7.0},
        {u"1,5", 1.0}, {u"1e999", kInf}, {u"1e-999", 0.0}, {u"-INF", -kInf}};
    // clang-format on
    for (const auto& [strText, nValue] : aIntegers)
        EXPECT_EQ(ParseSettingsInteger(strText), nValue) << Utf16ToUtf8(strText);
    for (const auto& [strText, dValue] : aReals)
        EXPECT_EQ(ParseSettingsReal(strText), dValue) << Utf16ToUtf8(strText);
    EXPECT_TRUE(std::isnan(ParseSettingsReal(u"nan")));
    EXPECT_EQ(FormatSettingsReal(1e20), u"100000000000000000000.000000");  // "%f"
}

// Each table by code: a word reads back to its code in any case; a free
// code is "nothing", which reads as 0.
TEST(SettingsWordsTest, SortWordsMatchTheirCodesBothWays) {
    // clang-format off
    const std::vector<std::u16string_view> aFileWords = {
        u"nothing", u"Name asc", u"Name des", u"nothing", u"Size asc", u"Size des",
        u"Size wsubdir asc", u"Size wsubdir des", u"created asc", u"created des", u"accessed asc",
        u"accessed des", u"modified asc", u"modified des", u"nothing", u"nothing", u"crc asc",
        u"crc des", u"nothing", u"dir asc", u"dir des", u"extension asc", u"extension des",
        u"Owner asc", u"Owner des", u"nothing", u"nothing", u"nothing", u"nothing"};
    const std::vector<std::u16string_view> aDirWords = {
        u"nothing", u"short name asc", u"short name des", u"nothing", u"long name asc",
        u"long name des", u"size asc", u"size des", u"size wsubdir asc", u"size wsubdir des",
        u"created asc", u"created des", u"accessed asc", u"accessed des", u"modified asc",
        u"modified des", u"crc asc", u"crc des", u"crc wsubdir asc", u"crc wsubdir des",
        u"owner asc", u"owner des", u"nothing"};
    // clang-format on
    const struct {
        const std::vector<std::u16string_view>& aWords;
        std::u16string_view (*fnWord)(int);
        uint8_t (*fnCode)(std::u16string_view);
    } aTables[] = {{aFileWords, FileSortWord, FileSortCode}, {aDirWords, DirSortWord, DirSortCode}};
    for (const auto& table : aTables) {
        for (int nCode = 0; nCode < int(table.aWords.size()); ++nCode) {
            const std::u16string_view strWord = table.aWords[nCode];
            EXPECT_EQ(table.fnWord(nCode), strWord);
            const int nRead = strWord == u"nothing" ? 0 : nCode;
            EXPECT_EQ(table.fnCode(strWord), nRead) << Utf16ToUtf8(strWord);
            EXPECT_EQ(table.fnCode(ToUpperCopy(strWord)), nRead) << Utf16ToUtf8(strWord);
        }
    }
    EXPECT_EQ(FileSortWord(255), u"nothing");
    EXPECT_EQ(FileSortCode(u"Version asc"), 0);
    EXPECT_EQ(DirSortCode(u"Name asc"), 0);  // a files word is no directories word
}

TEST(SettingsWordsTest, ReportTypesAreExactWordsAndUnitsAndModesIgnoreCase) {
    const std::u16string_view aTypes[] = {u"none", u"text", u"excel", u"html", u"xml"};
    for (int nType = 0; nType < 5; ++nType) {
        EXPECT_EQ(PrintTypeWord(nType), aTypes[nType]);
        EXPECT_EQ(PrintTypeFromWord(aTypes[nType]), nType);
    }
    EXPECT_EQ(PrintTypeFromWord(u"HTML"), 0);
    EXPECT_EQ(PrintTypeFromWord(u"html "), 0);

    const std::u16string_view aUnitWords[] = {u"BYTES", u"KB", u"MB", u"GB"};
    const std::u16string_view aUnitTexts[] = {u"bytes", u"KB", u"MB", u"GB"};
    const std::u16string_view aUnitsAnyCase[] = {u"bytes", u"kb", u"Mb", u"GB"};
    const std::u16string_view aModes[] = {u"side by side", u"side by side ignore blanks", u"binary",
                                          u"none"};
    for (int n = 0; n < 4; ++n) {
        int32_t nUnit = -1, nMode = -1;
        EXPECT_EQ(SizeUnitWord(n), aUnitWords[n]);
        EXPECT_EQ(SizeUnitText(n), aUnitTexts[n]);
        EXPECT_TRUE(SizeUnitFromWord(aUnitsAnyCase[n], nUnit));
        EXPECT_EQ(nUnit, n);
        EXPECT_EQ(CompareModeWord(n), aModes[n]);
        EXPECT_TRUE(CompareModeFromWord(ToUpperCopy(aModes[n]), nMode));
        EXPECT_EQ(nMode, n);
    }
    int32_t nUnit = 2;
    EXPECT_FALSE(SizeUnitFromWord(u"TB", nUnit));
    EXPECT_EQ(nUnit, 2);
}

using Lines = std::vector<std::u16string>;

std::string Utf16(std::u16string_view text, bool bBigEndian) {
    std::string strBytes;
    for (const char16_t ch : text) {
        const char aUnit[] = {static_cast<char>(ch & 0xFF), static_cast<char>(ch >> 8)};
        strBytes += aUnit[bBigEndian];
        strBytes += aUnit[!bBigEndian];
    }
    return strBytes;
}

TEST(SettingsTextTest, DecodingTakesEveryEncodingAndDropsCarriageReturnsBeforeLineFeeds) {
    const std::u16string strText = u"[FILTER FILE NAMES]\r\n*.d\u00e9j\u00e0\r\n\u65e5\u672c\r\n";
    const std::u16string strDecoded = u"[FILTER FILE NAMES]\n*.d\u00e9j\u00e0\n\u65e5\u672c\n";
    const std::string strUtf8 = Utf16ToUtf8(strText);
    const std::pair<std::string, std::u16string> aCases[] = {
        {"\xFF\xFE" + Utf16(strText, false), strDecoded},
        {"\xFE\xFF" + Utf16(strText, true), strDecoded},
        {"\xEF\xBB\xBF" + strUtf8, strDecoded},
        {strUtf8, strDecoded},
        {"a\r\nb\rc\r\r\n", u"a\nb\rc\r\n"},
        {"\xFF\xFE" + Utf16(u"x", false) + "\x41", u"x"}};  // an odd last byte goes
    for (const auto& [strBytes, strExpected] : aCases)
        EXPECT_EQ(DecodeTextFile(strBytes), strExpected);
}

TEST(SettingsTextTest, LinesLoseTrailingWhiteSpaceAndAreCutAtTheBufferLimit) {
    const std::u16string strLong(300, u'a');
    const std::u16string strExact(kSettingsLineLimit, u'b');
    const std::u16string strShort(kSettingsLineLimit - 1, u'c');
    const std::pair<std::u16string, Lines> aCases[] = {
        {strLong + u"\nnext", {strLong.substr(0, 255), std::u16string(45, u'a'), u"next"}},
        // The line end of a line that fills the buffer comes as an empty line.
        {strExact + u"\nnext", {strExact, u"", u"next"}},
        {strShort + u"\nnext", {strShort, u"next"}},
        {strExact, {strExact}},
        {u"  key=value \t\n\n\v\f\r\nlast", {u"  key=value", u"", u"", u"last"}},
        {std::u16string(u"ab\0cd \nx", 8), {u"ab", u"x"}},  // a NUL ends the line
        {u"", {}},
        {u"one\n", {u"one"}}};
    for (const auto& [strText, aLines] : aCases) EXPECT_EQ(SplitSettingsLines(strText), aLines);
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
