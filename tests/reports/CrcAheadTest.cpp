// With the CRC column on, the checksum workers get the files of many
// directories in one batch ahead of the rows, and no file is read twice.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/host/Host.h"
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

// A started batch stands for the workers running: it is computed only when
// finished, and until then its records must be nobody else's. Reads of a
// record of the running batch are counted as the races they would be.
class CDeferredServices : public test::CTableServices {
public:
    uint32_t Crc32OfFile(const std::u16string& strPath, bool& bFailed, double dSize) override {
        for (const CFileData* pFile : m_aRunning) m_nEarlyReads += pFile->GetFullPath() == strPath;
        return CTableServices::Crc32OfFile(strPath, bFailed, dSize);
    }
    void StartCrcs(std::vector<CFileData*> aFiles) override {
        EXPECT_TRUE(m_aRunning.empty()) << "one batch at a time";
        m_aRunning = std::move(aFiles);
        ++m_nStarted;
    }
    void FinishCrcs(bool bCancel) override {
        std::vector<CFileData*> aFiles;
        aFiles.swap(m_aRunning);
        if (!bCancel) ComputeCrcs(aFiles);
        m_nCancelled += bCancel && !aFiles.empty();
    }
    std::vector<CFileData*> m_aRunning;
    int m_nStarted = 0, m_nEarlyReads = 0, m_nCancelled = 0;
};

class CStopHost : public CQuietHost {
public:
    CStopHost() { SetHost(this); }
    ~CStopHost() override { SetHost(nullptr); }
    void PumpMessages() override {
        if (++m_nPumps == m_nStopAt && m_pDoc) m_pDoc->m_bStopRequested = 1;
    }
    CWZorvaneDoc* m_pDoc = nullptr;
    int m_nPumps = 0, m_nStopAt = -1;
};

// Deep and wide: 4 x 4 x 4 directories of 20 files, so that batches run
// ahead across several directory blocks.
TEST(CrcAhead, BatchesRunAheadWithoutRacesAndAStopCancelsTheLastOne) {
    for (bool bStop : {false, true}) {
        CDeferredServices services;
        CStopHost host;
        CWZorvaneDoc doc;
        host.m_pDoc = &doc;
        if (bStop) host.m_nStopAt = 300;
        doc.m_print.m_aFlags[PrintCrcSubdirs] = 0;  // else all are computed first
        CRootDirectoryData* pRoot = test::MakeRoot(u"R").release();
        doc.m_scan.m_aRoots.Add(pRoot);
        std::vector<CFileData*> aFiles;
        const auto Fill = [&](CDirectoryData& dir) {
            for (int f = 0; f < 20; ++f) {
                aFiles.push_back(test::AddFile(dir, u"f" + DecimalText(f), 10));
                services.m_mapCrc[aFiles.back()->GetFullPath()] = uint32_t(aFiles.size());
            }
        };
        for (int a = 0; a < 4; ++a) {
            CDirectoryData* pA = test::AddDir(*pRoot, u"a" + DecimalText(a));
            for (int b = 0; b < 4; ++b) {
                CDirectoryData* pB = test::AddDir(*pA, u"b" + DecimalText(b));
                for (int c = 0; c < 4; ++c) Fill(*test::AddDir(*pB, u"c" + DecimalText(c)));
            }
        }
        CStringSink sink;
        {
            CReportStream out(sink, false);
            EXPECT_EQ(
                WriteMainReport(doc, out, PrintTypeExcel, ReportAllDirectories, nullptr, false),
                !bStop);
        }
        EXPECT_GT(services.m_nStarted, 1) << bStop;
        EXPECT_EQ(services.m_nEarlyReads, 0) << bStop;
        EXPECT_TRUE(services.m_aRunning.empty()) << bStop;
        EXPECT_EQ(services.m_nCancelled, bStop ? 1 : 0);
        // Each checksum computed is its file's; a stopped report leaves the
        // files it did not reach.
        size_t nComputed = 0;
        for (CFileData* pFile : aFiles) {
            if (!(pFile->m_uFlags & FILE_CRC_VALID)) continue;
            ++nComputed;
            EXPECT_EQ(pFile->m_uCrc, services.m_mapCrc[pFile->GetFullPath()]);
        }
        if (bStop)
            EXPECT_LT(nComputed, aFiles.size());
        else
            EXPECT_EQ(nComputed, aFiles.size());
    }
}

}  // namespace
}  // namespace zv
