// The six result reports of the fixed tree in each form against one
// expected file per form in golden/. ZORVANE_UPDATE_GOLDENS=1 rewrites them.
#include <gtest/gtest.h>

#include "reports/ReportTestSupport.h"
#include "reports/ResultReports.h"

namespace zv {
namespace {

using test::GoldenPath;
using test::ReadGolden;

// The tree of the main report with its result lists: two duplicate groups
// (a.txt with c.dat, then b.txt alone), the largest lists and both tables.
struct CResultTree : test::CReportTree {
    CResultTree() {
        auto& flags = m_doc.m_print.m_aFlags;
        flags.fill(0);
        flags[PrintSize] = flags[PrintCrc] = flags[PrintOwner] = flags[PrintDuplicateGroup] = 1;
        for (auto& aGroup : m_doc.m_print.m_aMetadataFlags) aGroup.assign(aGroup.size(), 0);
        m_doc.m_options.m_dupFiles.m_bByCrc = 1;
        m_doc.m_options.m_dupDirs.m_aCriteria[DupDirByName] = 1;
        CResultLists& results = m_doc.m_results;
        m_pA->m_nDuplicateGroup = m_pC->m_nDuplicateGroup = 0;
        m_pB->m_nDuplicateGroup = 1;
        results.m_aDuplicateGroups = {{m_pA, m_pC}, {m_pB}};
        m_pSub->m_nDuplicateGroup = 0;
        m_pEmpty->m_nDuplicateGroup = 1;
        results.m_aDuplicateDirGroups = {{m_pSub}, {m_pEmpty}};
        results.m_aLargestFiles = {m_pA, m_pB, m_pC};
        results.m_aLargestDirs = {m_pRoot, m_pSub};
        AddTotal(results.m_totals.m_aOwners, u"alice", 1, 1234567);
        AddTotal(results.m_totals.m_aOwners, u"bob", 2, 5001);
        AddTotal(results.m_totals.m_aTypes, u"txt", 2, 1239567);
        AddTotal(results.m_totals.m_aTypes, u"dat", 1, 1);
    }

    std::string All(EPrintType eForm) {
        std::string strAll;
        for (EResultReport eReport : {ResultDuplicateFiles, ResultDuplicateDirs, ResultLargestFiles,
                                      ResultLargestDirs, ResultLargestOwner, ResultLargestType}) {
            CStringSink sink;
            {
                CReportStream out(sink, false);
                WriteResultReport(m_doc, out, eForm, eReport);
            }
            strAll += test::PortablePaths(sink.m_strBytes) + "=====\n";
        }
        return strAll;
    }

    static void AddTotal(CTotalTable& aTable, const char16_t* pszKey, uint32_t nFiles,
                         double dSize) {
        aTable.push_back(std::make_unique<CTotalEntry>(CTotalEntry{pszKey, nFiles, dSize}));
    }
};

TEST(ResultReportsGolden, EveryReportInEveryForm) {
    const bool bUpdate = std::getenv("ZORVANE_UPDATE_GOLDENS") != nullptr;
    const struct {
        EPrintType eForm;
        const char* pszName;
    } kForms[] = {{PrintTypeText, "results-text.txt"},
                  {PrintTypeExcel, "results-csv.txt"},
                  {PrintTypeHtml, "results-html.txt"},
                  {PrintTypeXml, "results-xml.txt"}};
    for (const auto& form : kForms) {
        SCOPED_TRACE(form.pszName);
        CResultTree tree;
        tree.m_doc.m_print.m_aFlags[SaveAsUnicode] = 0;
        const std::string strReport = tree.All(form.eForm);
        if (bUpdate) {
            std::ofstream(GoldenPath(form.pszName), std::ios::binary) << strReport;
            continue;
        }
        EXPECT_EQ(strReport, ReadGolden(form.pszName));
    }
}

// The screens' set: each screen's rows in its own order, a removed row left
// out (the files' removed row stands between two rows of one group, so no
// separator is written there), with the screens' openings, colours and
// columns. Header text, volume lines, filters and the path column are on,
// where the two sets differ.
TEST(ResultReportsGolden, ScreensSetInEveryForm) {
    const bool bUpdate = std::getenv("ZORVANE_UPDATE_GOLDENS") != nullptr;
    const struct {
        EPrintType eForm;
        const char* pszName;
    } kForms[] = {{PrintTypeText, "results-view-text.txt"},
                  {PrintTypeExcel, "results-view-csv.txt"},
                  {PrintTypeHtml, "results-view-html.txt"},
                  {PrintTypeXml, "results-view-xml.txt"}};
    for (const auto& form : kForms) {
        SCOPED_TRACE(form.pszName);
        CResultTree tree;
        CWZorvaneDoc& doc = tree.m_doc;
        auto& flags = doc.m_print.m_aFlags;
        flags[SaveAsUnicode] = 0;
        flags[PrintFilters] = flags[PrintFileSystemInfo] = flags[PrintNameSeparateColumn] = 1;
        doc.m_print.m_strPrintTitle = u"Header text";
        doc.m_options.m_dupFiles.m_bByteByByte = 1;

        CFileViewRows dupFiles, largestFiles;
        dupFiles.Add(*tree.m_pA);
        dupFiles.Add(*tree.m_pB, true);
        dupFiles.Add(*tree.m_pC);
        largestFiles.Add(*tree.m_pC);
        largestFiles.Add(*tree.m_pA);
        largestFiles.Add(*tree.m_pB);
        largestFiles.MarkRemoved(2);
        CDirViewRows dupDirs, largestDirs;
        dupDirs.Add(*tree.m_pEmpty);
        dupDirs.Add(*tree.m_pSub);
        largestDirs.Add(*tree.m_pSub);
        largestDirs.Add(*tree.m_pRoot);
        const CTotalTables& totals = doc.m_results.m_totals;
        CTotalViewRows owners, types;
        owners.Add(*totals.m_aOwners[1]);
        owners.Add(*totals.m_aOwners[0]);
        types.Add(*totals.m_aTypes[0], true);
        types.Add(*totals.m_aTypes[1]);

        std::string strAll;
        auto Append = [&](EResultReport eReport, const auto& rows) {
            CStringSink sink;
            {
                CReportStream out(sink, false);
                EXPECT_TRUE(WriteViewResultReport(doc, out, form.eForm, eReport, rows));
            }
            strAll += test::PortablePaths(sink.m_strBytes) + "=====\n";
        };
        Append(ResultDuplicateFiles, dupFiles);
        Append(ResultDuplicateDirs, dupDirs);
        Append(ResultLargestFiles, largestFiles);
        Append(ResultLargestDirs, largestDirs);
        Append(ResultLargestOwner, owners);
        Append(ResultLargestType, types);
        if (bUpdate) {
            std::ofstream(GoldenPath(form.pszName), std::ios::binary) << strAll;
            continue;
        }
        EXPECT_EQ(strAll, ReadGolden(form.pszName));
    }
}

// Without colours, the HTML rows of duplicate groups are parted by an empty
// row, written only where the group number changes.
TEST(ResultReportsGolden, HtmlSeparatorRowsWithoutColours) {
    CResultTree tree;
    tree.m_doc.m_options.m_bShowDupColor = 0;
    CStringSink sink;
    {
        CReportStream out(sink, false);
        WriteResultReport(tree.m_doc, out, PrintTypeHtml, ResultDuplicateFiles);
    }
    const std::string& strHtml = sink.m_strBytes;
    size_t nSeparators = 0;
    for (size_t n = strHtml.find("&nbsp;"); n != std::string::npos;
         n = strHtml.find("&nbsp;", n + 1))
        ++nSeparators;
    EXPECT_EQ(nSeparators, 4u);  // one row: name, size, CRC, owner
    EXPECT_LT(strHtml.find("c.dat"), strHtml.find("&nbsp;"));
    EXPECT_GT(strHtml.find("b.txt"), strHtml.find("&nbsp;"));
    EXPECT_EQ(strHtml.find("bgcolor"), std::string::npos);
}

}  // namespace
}  // namespace zv
