// What each print flag takes out of the report (or, for "no files" and "no
// dirs", puts out of it), one flag at a time from the defaults.
#include <gtest/gtest.h>

#include <vector>

#include "core/host/Host.h"
#include "reports/ReportTestSupport.h"

namespace zv {
namespace {

size_t Count(const std::string& strText, const std::string& strNeedle) {
    size_t nCount = 0;
    for (size_t i = strText.find(strNeedle); i != std::string::npos;
         i = strText.find(strNeedle, i + 1))
        ++nCount;
    return nCount;
}

TEST(PrintFlags, EachFlagOffTakesItsPartOut) {
    const struct {
        EPrintFlag eFlag;
        EPrintType eForm;
        const char* pszPart;
    } kCases[] = {
        {PrintSize, PrintTypeExcel, "\"Size (bytes)\""},
        {PrintSizeOnDisk, PrintTypeExcel, "\"Size On Disk (bytes)\""},
        {PrintSizeSubdirs, PrintTypeExcel, "\"Size(bytes) including all subdirectories\""},
        {PrintSizeActual, PrintTypeExcel, "\"Actual Size (bytes)\""},
        {PrintSizeActualSubdirs, PrintTypeExcel, "\"Actual Size(bytes) including all"},
        {PrintCreated, PrintTypeText, "Create date: "},
        {PrintAccessed, PrintTypeText, "Access date: "},
        {PrintModified, PrintTypeText, "Modify date: "},
        {PrintAttributes, PrintTypeXml, "attributes='"},
        {PrintCrc, PrintTypeText, "CRC: UNKNOWN"},
        {PrintCrcSubdirs, PrintTypeHtml, "CRC including all subdirectories</td>"},
        {PrintTime, PrintTypeText, ": PM\r\n"},
        {PrintDirTotals, PrintTypeText, " files, "},
        {PrintFilters, PrintTypeHtml, "<p>No filters</p>"},
        {PrintOwner, PrintTypeExcel, "\"alice\""},
        {PrintLinkCount, PrintTypeText, "Link Count: "},
        {PrintFileSystemInfo, PrintTypeText, "Disk D1\r\nFile system type: ZFS\r\n"},
        {PrintDuplicateGroup, PrintTypeText, "Group: 7"},
    };
    for (const auto& c : kCases) {
        SCOPED_TRACE(c.pszPart);
        test::CReportTree tree;
        EXPECT_GT(Count(tree.Narrow(c.eForm), c.pszPart), 0u);
        tree.m_doc.m_print.m_aFlags[c.eFlag] = 0;
        EXPECT_EQ(Count(tree.Narrow(c.eForm), c.pszPart), 0u);
    }
}

// Records the host's status texts.
class CStatusHost : public CQuietHost {
public:
    CStatusHost() { SetHost(this); }
    ~CStatusHost() override { SetHost(nullptr); }
    void SetStatusText(std::u16string_view strText) override { m_aTexts.emplace_back(strText); }
    std::vector<std::u16string> m_aTexts;
};

TEST(PrintFlags, NoFilesWritesNoFileRowsAndStillReachesTheTotal) {
    CStatusHost host;
    test::CReportTree tree;
    tree.m_doc.m_print.m_aFlags[PrintNoFiles] = 1;
    for (EPrintType eForm : {PrintTypeText, PrintTypeExcel, PrintTypeHtml, PrintTypeXml}) {
        host.m_aTexts.clear();
        const std::string strReport = tree.Narrow(eForm);
        EXPECT_EQ(Count(strReport, "a.txt"), 0u) << eForm;
        EXPECT_EQ(Count(strReport, "c.dat"), 0u) << eForm;
        ASSERT_GE(host.m_aTexts.size(), 2u);
        EXPECT_EQ(host.m_aTexts.front(), u"Files: 0%");
        EXPECT_EQ(host.m_aTexts[host.m_aTexts.size() - 2], u"Files: 100%");
        EXPECT_EQ(host.m_aTexts.back(), u"");
    }
}

TEST(PrintFlags, NoDirsGivesOneTableOfFileRows) {
    test::CReportTree tree;
    tree.m_doc.m_print.m_aFlags[PrintNoDirs] = 1;
    const std::string strText = tree.Narrow(PrintTypeText);
    EXPECT_EQ(Count(strText, "-----"), 0u);
    EXPECT_EQ(Count(strText, "Directory: "), 0u);
    EXPECT_EQ(Count(strText, "c.dat\r\n"), 1u);
    const std::string strCsv = tree.Narrow(PrintTypeExcel);
    EXPECT_EQ(Count(strCsv, "\"Name\""), 1u);
    EXPECT_LT(strCsv.find("\"Name\""), strCsv.find("\"a.txt\""));
    EXPECT_EQ(Count(strCsv, "Directory: "), 0u);
    const std::string strHtml = tree.Narrow(PrintTypeHtml);
    EXPECT_EQ(Count(strHtml, "<table border"), 1u);
    EXPECT_EQ(Count(strHtml, "<tr>"), 4u);  // the title row and three files
    // XML keeps its directory elements but no subdirectory rows.
    EXPECT_EQ(Count(tree.Narrow(PrintTypeXml), "<Directory"), 3u);
}

}  // namespace
}  // namespace zv
