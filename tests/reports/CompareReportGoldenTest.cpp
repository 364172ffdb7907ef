// The compare report of a fixed pair of trees in every form against
// golden/compare.txt (ZORVANE_UPDATE_GOLDENS=1 rewrites it). The identical
// files are hidden by their show flag, so their row must not appear.
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "compare/CompareStatus.h"
#include "core/document/CompareList.h"
#include "reports/CompareReport.h"
#include "reports/ReportTestSupport.h"

namespace zv {
namespace {

// L: same.txt, size.txt, a<b>&'".txt, sub/    R: same.txt, size.txt, sub/, right.txt
class CComparePair {
public:
    CComparePair() {
        m_tree.m_doc.m_scan.m_aRoots.DeleteAll();
        for (CRootDirectoryData* pRoot : {m_pLeft, m_pRight}) {
            pRoot->m_strDrive = u"D1";
            pRoot->m_strFileSystem = u"ZFS";
            m_tree.m_doc.m_scan.m_aRoots.Add(pRoot);
        }
        CFileData* pLeftSame = test::AddFile(*m_pLeft, u"same.txt", 10);
        CFileData* pRightSame = test::AddFile(*m_pRight, u"same.txt", 10);
        CFileData* pLeftSize = test::AddFile(*m_pLeft, u"size.txt", 10);
        CFileData* pRightSize = test::AddFile(*m_pRight, u"size.txt", 11);
        CFileData* pMarkup = test::AddFile(*m_pLeft, u"a<b>&'\".txt", 1);
        CFileData* pRightOnly = test::AddFile(*m_pRight, u"right.txt", 1);
        CDirectoryData* pLeftSub = test::AddDir(*m_pLeft, u"sub");
        CDirectoryData* pRightSub = test::AddDir(*m_pRight, u"sub");
        Dir(m_pLeft, m_pRight, CompareDirFiles);
        File(pMarkup, nullptr, CompareRightFileMissing);
        File(nullptr, pRightOnly, CompareLeftFileMissing);
        File(pLeftSame, pRightSame, CompareIdentical);
        File(pLeftSize, pRightSize, CompareFileSize);
        Dir(pLeftSub, pRightSub, CompareIdentical);
        Dir(pLeftSub, nullptr, CompareRightDirMissing);
    }

    std::string Report(EPrintType eForm) {
        CCompareShowFlags show;
        show.m_bIdenticalFiles = false;
        CStringSink sink;
        {
            CReportStream out(sink, false);
            WriteCompareReport(m_tree.m_doc, out, eForm, m_list, show);
        }
        return test::PortablePaths(sink.m_strBytes);
    }

private:
    void File(CFileData* pLeft, CFileData* pRight, int32_t nStatus) {
        auto pEntry = std::make_unique<CCompareEntry>();
        pEntry->m_pLeftFile = pLeft;
        pEntry->m_pRightFile = pRight;
        pEntry->m_nStatus = nStatus;
        m_list.m_aEntries.push_back(std::move(pEntry));
    }
    void Dir(CDirectoryData* pLeft, CDirectoryData* pRight, int32_t nStatus) {
        auto pEntry = std::make_unique<CCompareEntry>();
        pEntry->m_bFile = false;
        pEntry->m_pLeftDir = pLeft;
        pEntry->m_pRightDir = pRight;
        pEntry->m_nStatus = nStatus;
        m_list.m_aEntries.push_back(std::move(pEntry));
    }

    test::CReportTree m_tree;  // the document with fixed times and settings
    CRootDirectoryData* m_pLeft = test::MakeRoot(u"L").release();
    CRootDirectoryData* m_pRight = test::MakeRoot(u"R").release();
    CCompareList m_list;
};

TEST(CompareReportGolden, EveryForm) {
    const std::string strPath = std::string(ZV_GOLDEN_DIR) + "/compare.txt";
    CComparePair pair;
    std::string strAll;
    for (EPrintType eForm : {PrintTypeText, PrintTypeExcel, PrintTypeHtml, PrintTypeXml})
        strAll += pair.Report(eForm);
    if (std::getenv("ZORVANE_UPDATE_GOLDENS") != nullptr) {
        std::ofstream(strPath, std::ios::binary) << strAll;
        return;
    }
    std::ifstream in(strPath, std::ios::binary);
    std::ostringstream golden;
    golden << in.rdbuf();
    EXPECT_EQ(strAll, golden.str());
}

}  // namespace
}  // namespace zv
