// With the CRC column on, the checksum workers get the files of many
// directories in one batch ahead of the rows, and no file is read twice.
#include <gtest/gtest.h>

#include <vector>

#include "reports/ReportTestSupport.h"

namespace zv {
namespace {

class CBatchServices : public test::CTableServices {
public:
    void ComputeCrcs(const std::vector<CFileData*>& aFiles) override {
        size_t nToCompute = 0;
        for (const CFileData* pFile : aFiles) nToCompute += !(pFile->m_uFlags & FILE_CRC_VALID);
        if (nToCompute) m_aBatches.push_back(nToCompute);
        IRecordServices::ComputeCrcs(aFiles);
    }
    std::vector<size_t> m_aBatches;
};

TEST(CrcAhead, DirectoriesShareOneBatchAndEachFileIsReadOnce) {
    for (bool bSubdirCrc : {false, true}) {
        CBatchServices services;
        CWZorvaneDoc doc;
        CRootDirectoryData* pRoot = test::MakeRoot(u"R").release();
        doc.m_scan.m_aRoots.Add(pRoot);
        for (int d = 0; d < 10; ++d) {
            CDirectoryData* pDir = test::AddDir(*pRoot, u"d" + std::u16string(1, u'0' + d));
            for (int f = 0; f < 3; ++f) {
                CFileData* pFile = test::AddFile(*pDir, u"f" + std::u16string(1, u'0' + f), 10);
                services.m_mapCrc[pFile->GetFullPath()] = uint32_t(d * 3 + f);
            }
        }
        doc.m_print.m_aFlags[PrintCrcSubdirs] = bSubdirCrc;
        CStringSink sink;
        CReportStream out(sink, false);
        WriteMainReport(doc, out, PrintTypeExcel, ReportAllDirectories, nullptr, false);
        EXPECT_EQ(services.m_aBatches, std::vector<size_t>{30}) << bSubdirCrc;
        EXPECT_EQ(services.m_nReads, 30) << bSubdirCrc;
    }
}

}  // namespace
}  // namespace zv
