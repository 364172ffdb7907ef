#include <gtest/gtest.h>

#include "core/document/PrintSettings.h"
#include "platform/Text.h"
#include "reports/AutoPrintNames.h"

namespace zv {
namespace {

TEST(AutoPrintNames, ExtensionQuestions) {
    const struct {
        int nType;
        const char16_t* pszName;
        bool bAsks;
    } kCases[] = {
        {PrintTypeText, u"report.txt", false}, {PrintTypeText, u"REPORT.TXT", false},
        {PrintTypeText, u"report.text", true}, {PrintTypeExcel, u"a.Csv", false},
        {PrintTypeExcel, u"a.txt", true},      {PrintTypeHtml, u"a.htm", false},
        {PrintTypeHtml, u"a.HTML", false},     {PrintTypeHtml, u"a.xhtml", true},
        {PrintTypeHtml, u"a.ht", true},        {PrintTypeXml, u"report_xml", false},
        {PrintTypeXml, u"a.xm", true},         {PrintTypeNone, u"anything", false},
    };
    for (const auto& c : kCases) {
        const std::u16string strQuestion = CheckAutoPrintExtension(u"Main: ", c.nType, c.pszName);
        EXPECT_EQ(!strQuestion.empty(), c.bAsks)
            << c.nType << " " << platform::Utf16ToUtf8(c.pszName);
    }
    EXPECT_EQ(CheckAutoPrintExtension(u"Main: ", PrintTypeText, u"report.text"),
              u"Main: report.text\nText files should have a .txt extension\n"
              u"Do you want to correct it?");
}

TEST(AutoPrintNames, DateGoesBeforeTheLastDot) {
    EXPECT_EQ(AppendDateToName(u"out", u"_2017_03_09"), u"out_2017_03_09");
    EXPECT_EQ(AppendDateToName(u"a.b.csv", u"_2017_03_09"), u"a.b_2017_03_09.csv");
    const std::u16string strStamp = DateStamp();
    ASSERT_EQ(strStamp.size(), 11u);  // "_YYYY_MM_DD"
    EXPECT_EQ(strStamp[0], u'_');
    EXPECT_EQ(strStamp[5], u'_');
    EXPECT_EQ(strStamp[8], u'_');
}

}  // namespace
}  // namespace zv
