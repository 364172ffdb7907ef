#include <gtest/gtest.h>

#include "core/document/Document.h"
#include "platform/FileSystem.h"
#include "platform/Text.h"
#include "reports/ValueText.h"

namespace zv {
namespace {

using platform::U16;

TEST(ValueText, FixedForms) {
    UseDateLocale(false);
    SYSTEMTIME st{};
    st.wYear = 2024, st.wMonth = 3, st.wDay = 5, st.wHour = 0, st.wMinute = 7, st.wSecond = 9;
    EXPECT_EQ(FormatSystemTime(st, false), u"03/05/2024");
    EXPECT_EQ(FormatSystemTime(st, true), u"03/05/2024 12:07:09: AM");  // the colon is the form
    st.wHour = 13;
    EXPECT_EQ(FormatSystemTime(st, true), u"03/05/2024 01:07:09: PM");
    EXPECT_EQ(FormatReportDate(FILETIME{}, true), u"(unknown)");

    EXPECT_EQ(FormatAttributes(0), u"   ");
    EXPECT_EQ(FormatAttributes(ATTR_HIDDEN | ATTR_ARCHIVE | ATTR_READONLY | ATTR_SYSTEM), u"HAR");
    EXPECT_EQ(FormatAttributes(ATTR_READONLY), u"  R");
    EXPECT_EQ(FormatCrcDir(0xAB, true), u"0xAB");
    EXPECT_EQ(FormatCrcDir(0xFFFFFFFF, false), u"4294967295");
    EXPECT_EQ(PadLeft(u"1,234", 8), u"   1,234");
}

TEST(ValueText, XmlSizesAreCeilingsInTheUnitWithoutGrouping) {
    CWZorvaneDoc doc;
    const struct {
        int nUnit;
        double dSize;
        const char16_t* pszText;
    } kCases[] = {{0, 1234567, u"1234567"}, {1, 1, u"1"}, {1, 1024, u"1"},
                  {1, 1025, u"2"},          {3, 1, u"1"}, {3, 0, u"0"}};
    for (const auto& c : kCases) {
        doc.m_options.m_nSizeUnit = c.nUnit;
        EXPECT_EQ(FormatXmlSize(doc, c.dSize), c.pszText) << c.nUnit << " " << c.dSize;
    }
}

TEST(ValueText, CsvFieldsQuoteAndReplaceDoubleQuotes) {
    std::u16string strLine;
    CsvAppendFirst(strLine, u"a\"b");
    CsvAppendFirst(strLine, u"x,y");
    CsvAppend(strLine, u"line\nend");
    EXPECT_EQ(strLine, u"\"a'b\",\"x,y\",\"line\nend\"");
    std::u16string strSecond;
    CsvAppend(strSecond, u"");
    EXPECT_EQ(strSecond, u",\"\"");
}

TEST(ValueText, EscapesForXmlAndHtml) {
    const std::u16string strName = u"&<>\"'\u00e9\U0001F600";
    EXPECT_EQ(XmlEscape(strName), u"&amp;&lt;&gt;&quot;&apos;&#xE9;&#xD83D;&#xDE00;");
    EXPECT_EQ(XmlEscape(u"\x7f"), u"&#x7F;");
    EXPECT_EQ(HtmlEscape(strName), u"&amp;&lt;&gt;&quot;'\u00e9\U0001F600");
}

}  // namespace
}  // namespace zv
