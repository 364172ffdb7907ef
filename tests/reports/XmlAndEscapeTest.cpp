// The XML report parses with a real parser, and a hostile name appears
// escaped where the form escapes and unchanged where it does not.
#include <gtest/gtest.h>

#include <pugixml.hpp>

#include "platform/Text.h"
#include "reports/ReportTestSupport.h"

namespace zv {
namespace {

bool Contains(const std::string& strText, const std::string& strPart) {
    return strText.find(strPart) != std::string::npos;
}

TEST(XmlReport, ParsesInEveryScopeAndEncoding) {
    for (EReportScope eScope :
         {ReportAllDirectories, ReportCurrentDirectory, ReportCurrentAndSubdirectories}) {
        for (bool bUnicode : {false, true}) {
            test::CReportTree tree;
            tree.m_doc.m_filters.AddEntry(FilterFileNames, u"*.<txt>&");
            tree.m_doc.m_filters.m_bHasStreams = 1;
            tree.m_doc.m_print.m_aFlags[SaveAsUnicode] = bUnicode;
            const std::string strXml = tree.Report(PrintTypeXml, eScope);
            pugi::xml_document doc;
            const pugi::xml_parse_result result = doc.load_buffer(strXml.data(), strXml.size());
            ASSERT_TRUE(result) << result.description() << " scope " << eScope << " " << bUnicode;
            EXPECT_STREQ(doc.document_element().name(), "Zorvane");
            EXPECT_STREQ(doc.document_element().child("FileNameFilter").text().get(), "*.<txt>&");
            EXPECT_STREQ(
                doc.document_element().child("OtherFilters").attribute("HasStreamsFilter").value(),
                "1");
        }
    }
}

TEST(ReportEscapes, HostileNamesInEveryForm) {
    test::CReportTree tree;
    // Markup characters, a character beyond the BMP, and a byte that was
    // not UTF-8 in a POSIX name (kept as U+DC80 + byte).
    const std::u16string strName = u"&<>\"'\U0001F600\xDCFF.txt";
    tree.m_pC->m_strName = strName;
    tree.m_pB->m_strName = u"<script>x</script>.txt";
    tree.m_pA->SetOwner(u"<b>&owner");

    const std::string strHtml = tree.Narrow(PrintTypeHtml);
    EXPECT_TRUE(Contains(strHtml, "&amp;&lt;&gt;&quot;'\xF0\x9F\x98\x80\xFF.txt</td>"));
    EXPECT_TRUE(Contains(strHtml, "&lt;script&gt;x&lt;/script&gt;.txt"));
    EXPECT_FALSE(Contains(strHtml, "<script>"));
    EXPECT_TRUE(Contains(strHtml, "&lt;b&gt;&amp;owner"));

    const std::string strXml = tree.Narrow(PrintTypeXml);
    EXPECT_TRUE(Contains(strXml, "&amp;&lt;&gt;&quot;&apos;&#xD83D;&#xDE00;&#xDCFF;.txt'"));
    EXPECT_TRUE(Contains(strXml, "owner='&lt;b&gt;&amp;owner'"));
    pugi::xml_document doc;
    EXPECT_TRUE(doc.load_buffer(strXml.data(), strXml.size()));

    // Text and CSV carry the name as it is; the CSV's first field too.
    EXPECT_TRUE(Contains(tree.Narrow(PrintTypeText), "\r\n&<>\"'\xF0\x9F\x98\x80\xFF.txt\r\n"));
    EXPECT_TRUE(Contains(tree.Narrow(PrintTypeExcel), "\r\n\"&<>\"'\xF0\x9F\x98\x80\xFF.txt\","));
    // The Unicode form keeps the pair and the lone unit as they are.
    tree.m_doc.m_print.m_aFlags[SaveAsUnicode] = 1;
    const std::string strUnicode = tree.Report(PrintTypeText, ReportAllDirectories);
    EXPECT_TRUE(Contains(strUnicode, std::string("'\0\x3D\xD8\x00\xDE\xFF\xDC.\0", 10)));
}

}  // namespace
}  // namespace zv
