// Numbers and words of settings files: the C runtime's reading of numbers,
// "%f", and the word tables of sort codes, report types, units and modes.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "core/SettingsValues.h"
#include "core/SettingsWords.h"
#include "platform/Text.h"

namespace zv {
namespace {

TEST(SettingsValuesTest, IntegersReadLikeWtoi) {
    struct {
        std::u16string_view m_strText;
        int32_t m_nValue;
    } const kCases[] = {
        {u"12", 12},
        {u"  -7x", -7},
        {u"+5", 5},
        {u"abc", 0},
        {u"", 0},
        {u"- 3", 0},
        {u"0012", 12},
        {u"3.9", 3},
        {u"\t42", 42},
        {u"2147483647", std::numeric_limits<int32_t>::max()},
        {u"99999999999999999999", std::numeric_limits<int32_t>::max()},
        {u"-2147483648", std::numeric_limits<int32_t>::min()},
        {u"-99999999999", std::numeric_limits<int32_t>::min()},
    };
    for (const auto& c : kCases)
        EXPECT_EQ(ParseSettingsInteger(c.m_strText), c.m_nValue)
            << platform::Utf16ToUtf8(c.m_strText);
}

TEST(SettingsValuesTest, RealsReadLikeWtof) {
    struct {
        std::u16string_view m_strText;
        double m_dValue;
    } const kCases[] = {
        {u"0.4", 0.4},
        {u" -2.25abc", -2.25},
        {u".5", 0.5},
        {u"5.", 5.0},
        {u"1e3", 1000.0},
        {u"1E-2", 0.01},
        {u"1e", 1.0},
        {u"1e+", 1.0},
        {u"abc", 0.0},
        {u"", 0.0},
        {u"+7", 7.0},
        {u"1,5", 1.0},
        {u"1e999", std::numeric_limits<double>::infinity()},
        {u"1e-999", 0.0},
        {u"-INF", -std::numeric_limits<double>::infinity()},
    };
    for (const auto& c : kCases)
        EXPECT_EQ(ParseSettingsReal(c.m_strText), c.m_dValue) << platform::Utf16ToUtf8(c.m_strText);
    EXPECT_TRUE(std::isnan(ParseSettingsReal(u"nan")));
    EXPECT_EQ(FormatSettingsReal(1e20), u"100000000000000000000.000000");  // "%f"
}

TEST(SettingsWordsTest, SortWordsMatchTheirCodesBothWays) {
    struct {
        int m_nFileCode;
        std::u16string_view m_strFileWord;
        int m_nDirCode;
        std::u16string_view m_strDirWord;
    } const kTable[] = {
        {1, u"Name asc", 1, u"short name asc"},
        {2, u"Name des", 2, u"short name des"},
        {4, u"Size asc", 4, u"long name asc"},
        {5, u"Size des", 5, u"long name des"},
        {6, u"Size wsubdir asc", 6, u"size asc"},
        {7, u"Size wsubdir des", 7, u"size des"},
        {8, u"created asc", 8, u"size wsubdir asc"},
        {9, u"created des", 9, u"size wsubdir des"},
        {10, u"accessed asc", 10, u"created asc"},
        {11, u"accessed des", 11, u"created des"},
        {12, u"modified asc", 12, u"accessed asc"},
        {13, u"modified des", 13, u"accessed des"},
        {16, u"crc asc", 14, u"modified asc"},
        {17, u"crc des", 15, u"modified des"},
        {19, u"dir asc", 16, u"crc asc"},
        {20, u"dir des", 17, u"crc des"},
        {21, u"extension asc", 18, u"crc wsubdir asc"},
        {22, u"extension des", 19, u"crc wsubdir des"},
        {23, u"Owner asc", 20, u"owner asc"},
        {24, u"Owner des", 21, u"owner des"},
    };
    for (const auto& row : kTable) {
        EXPECT_EQ(FileSortWord(row.m_nFileCode), row.m_strFileWord);
        EXPECT_EQ(FileSortCode(row.m_strFileWord), row.m_nFileCode);
        EXPECT_EQ(FileSortCode(platform::ToUpperCopy(row.m_strFileWord)), row.m_nFileCode);
        EXPECT_EQ(DirSortWord(row.m_nDirCode), row.m_strDirWord);
        EXPECT_EQ(DirSortCode(row.m_strDirWord), row.m_nDirCode);
    }
    // Free codes, version sorting and code 0 are "nothing", which reads as 0.
    for (const int nCode : {0, 3, 14, 15, 18, 27, 28, 255})
        EXPECT_EQ(FileSortWord(nCode), u"nothing");
    for (const int nCode : {0, 3, 22}) EXPECT_EQ(DirSortWord(nCode), u"nothing");
    EXPECT_EQ(FileSortCode(u"nothing"), 0);
    EXPECT_EQ(FileSortCode(u"Version asc"), 0);
    EXPECT_EQ(DirSortCode(u"Name asc"), 0);  // a files word is no directories word
}

TEST(SettingsWordsTest, ReportTypesAreExactWords) {
    const std::u16string_view aWords[] = {u"none", u"text", u"excel", u"html", u"xml"};
    for (int nType = 0; nType < 5; ++nType) {
        EXPECT_EQ(PrintTypeWord(nType), aWords[nType]);
        EXPECT_EQ(PrintTypeFromWord(aWords[nType]), nType);
    }
    EXPECT_EQ(PrintTypeFromWord(u"HTML"), 0);
    EXPECT_EQ(PrintTypeFromWord(u"html "), 0);
}

TEST(SettingsWordsTest, UnitAndCompareModeWordsIgnoreCase) {
    const std::u16string_view aUnits[] = {u"bytes", u"kb", u"Mb", u"GB"};
    const std::u16string_view aTexts[] = {u"bytes", u"KB", u"MB", u"GB"};
    for (int nUnit = 0; nUnit < 4; ++nUnit) {
        int32_t nRead = -1;
        EXPECT_TRUE(SizeUnitFromWord(aUnits[nUnit], nRead));
        EXPECT_EQ(nRead, nUnit);
        EXPECT_EQ(SizeUnitText(nUnit), aTexts[nUnit]);
    }
    EXPECT_EQ(SizeUnitWord(0), u"BYTES");
    int32_t nUnit = 2;
    EXPECT_FALSE(SizeUnitFromWord(u"TB", nUnit));
    EXPECT_EQ(nUnit, 2);

    const std::u16string_view aModes[] = {u"side by side", u"side by side ignore blanks", u"binary",
                                          u"none"};
    for (int nMode = 0; nMode < 4; ++nMode) {
        int32_t nRead = -1;
        EXPECT_EQ(CompareModeWord(nMode), aModes[nMode]);
        EXPECT_TRUE(CompareModeFromWord(platform::ToUpperCopy(aModes[nMode]), nRead));
        EXPECT_EQ(nRead, nMode);
    }
}

}  // namespace
}  // namespace zv
