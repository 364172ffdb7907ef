#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <map>
#include <memory>
#include <set>
#include <thread>

#include "AnalysesTestSupport.h"
#include "analyses/Crc32OfFile.h"
#include "analyses/CrcProgress.h"
#include "analyses/CrcServices.h"
#include "core/document/Document.h"
#include "core/records/Crc32.h"
#include "core/records/RecordTestSupport.h"
#include "support/TempDir.h"

namespace zv {
namespace {

// The engine, installed while it lives, recording which thread read which
// path. A read waits while m_bHeld is set (at most 20 s); with
// m_bFakeLargeFile it only reports the progress of a 1 GiB file and gives 1.
class CTestServices : public CCrcRecordServices {
public:
    CTestServices() { SetRecordServices(this); }
    ~CTestServices() override { SetRecordServices(nullptr); }
    uint32_t Crc32OfFile(const std::u16string& strPath, bool& bFailed, double dSize) override {
        {
            std::lock_guard lock(m_mutex);
            m_mapThreads[strPath] = std::this_thread::get_id();
        }
        const auto tLimit = std::chrono::steady_clock::now() + std::chrono::seconds(20);
        while (m_bHeld && std::chrono::steady_clock::now() < tLimit)
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        if (!m_bFakeLargeFile) return CCrcRecordServices::Crc32OfFile(strPath, bFailed, dSize);
        CCrcProgress progress(strPath, CCrcProgress::kThreshold);
        for (int i = 0; i < 128; ++i) progress.Add(CCrcProgress::kThreshold / 128);
        return 1;
    }
    std::atomic<bool> m_bHeld{false};
    bool m_bFakeLargeFile = false;
    std::mutex m_mutex;
    std::map<std::u16string, std::thread::id> m_mapThreads;
};

// Files on disk with records for them in the root.
class CrcPoolTest : public ::testing::Test {
protected:
    CFileData* AddFile(const std::string& strName, const std::string& strContent,
                       CDirectoryData* pDir = nullptr) {
        m_dir.WriteFile(strName, strContent);
        const std::u16string strLeaf = std::filesystem::path(strName).filename().u16string();
        return test::AddFile(pDir ? *pDir : *m_pRoot, strLeaf, double(strContent.size()));
    }
    std::vector<CFileData*> AddFiles(int nCount, const char* pszPrefix) {
        std::vector<CFileData*> aFiles;
        for (int i = 0; i < nCount; ++i)
            aFiles.push_back(
                AddFile(std::string(pszPrefix).append(std::to_string(i)).append(".mp3"),
                        test::RandomBytes(size_t(5000 + 997 * i), unsigned(i))));
        return aFiles;
    }

    test::CTempDir m_dir;
    std::unique_ptr<CRootDirectoryData> m_pRoot = test::MakeRoot(m_dir.Path().u16string());
    test::CRecordingHost m_host;
};

TEST_F(CrcPoolTest, EachOperationComputesItsChecksumForEveryFileWorkerKTakingIndexesKModulo3) {
    CTestServices services;
    const std::vector<CFileData*> aFiles = AddFiles(10, "f");
    services.Pool().ComputeCrcs({});
    EXPECT_EQ(services.Pool().ThreadCount(), 0);  // created at the first batch
    services.Pool().ComputeCrcs(aFiles);
    EXPECT_EQ(services.Pool().ThreadCount(), 3);
    EXPECT_TRUE(m_host.m_aStatusTexts.empty());  // no document, no current directory

    // After a batch the status line shows the current directory again.
    CWZorvaneDoc doc;
    SetMainDocument(&doc);
    doc.m_pCurrentDir = m_pRoot.get();
    services.Pool().ComputeMp3Crcs(aFiles);
    services.Pool().ComputeQuickCrcs(aFiles);
    SetMainDocument(nullptr);
    EXPECT_EQ(m_host.m_aStatusTexts, std::vector<std::u16string>(2, m_pRoot->GetFullPath()));

    std::set<std::thread::id> setThreads;
    for (size_t i = 0; i < aFiles.size(); ++i) {
        const uint32_t uFlags = FILE_CRC_VALID | FILE_CRC_NOTAGS_VALID | FILE_PARTIAL_CRC_VALID;
        EXPECT_EQ(aFiles[i]->m_uFlags & uFlags, uFlags);
        bool bFailed = false;
        const std::u16string strPath = aFiles[i]->GetFullPath();
        EXPECT_EQ(aFiles[i]->m_uCrc, Crc32OfFile(strPath, bFailed, 0));
        EXPECT_EQ(aFiles[i]->m_uMp3Crc, Crc32OfFileWithoutTags(strPath, bFailed));
        EXPECT_NE(aFiles[i]->m_uQuickCrc, 0u);
        const std::thread::id id = services.m_mapThreads[strPath];
        EXPECT_NE(id, std::this_thread::get_id());
        EXPECT_EQ(id, services.m_mapThreads[aFiles[i % 3]->GetFullPath()]) << i;
        setThreads.insert(id);
    }
    EXPECT_EQ(setThreads.size(), 3u);
}

// A batch held until the user-interface thread pumps: requests made from
// the pump find the pool busy and compute nothing.
TEST_F(CrcPoolTest, RequestDuringABatchReturnsAtOnceAndComputesNothing) {
    CTestServices services;
    services.m_bHeld = true;
    const std::vector<CFileData*> aFirst = AddFiles(4, "first");
    const std::vector<CFileData*> aSecond = AddFiles(4, "second");
    bool bBusyWhilePumping = false;
    m_host.m_onPump = [&] {
        if (!services.m_bHeld) return;
        bBusyWhilePumping = CCrcThreadPool::IsBusy();
        services.Pool().ComputeCrcs(aSecond);
        services.Pool().ComputeQuickCrcs(aSecond);
        services.m_bHeld = false;
    };
    services.Pool().ComputeCrcs(aFirst);

    EXPECT_TRUE(bBusyWhilePumping);
    EXPECT_FALSE(CCrcThreadPool::IsBusy());
    for (CFileData* pFile : aFirst) EXPECT_TRUE(pFile->m_uFlags & FILE_CRC_VALID);
    for (CFileData* pFile : aSecond)
        EXPECT_EQ(pFile->m_uFlags & (FILE_CRC_VALID | FILE_PARTIAL_CRC_VALID), 0u);
}

// A started batch runs while the caller goes on; the pool is busy until it
// is finished, and a cancel leaves the files the workers had not begun,
// which compute their checksums when next asked.
TEST_F(CrcPoolTest, StartedBatchRunsAheadAndACancelLeavesTheFilesNotBegun) {
    CTestServices services;
    services.m_bHeld = true;
    const std::vector<CFileData*> aFiles = AddFiles(9, "a");
    ASSERT_TRUE(services.Pool().StartCrcs(aFiles));
    EXPECT_TRUE(CCrcThreadPool::IsBusy());
    EXPECT_FALSE(services.Pool().StartCrcs(AddFiles(1, "b")));
    // Each worker is inside its first file.
    const auto tLimit = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    for (;;) {
        std::lock_guard lock(services.m_mutex);
        if (services.m_mapThreads.size() == 3 || std::chrono::steady_clock::now() > tLimit) break;
    }
    m_host.m_onPump = [&] { services.m_bHeld = false; };
    services.Pool().FinishCrcs(true);

    EXPECT_FALSE(CCrcThreadPool::IsBusy());
    for (size_t i = 0; i < aFiles.size(); ++i)
        EXPECT_EQ((aFiles[i]->m_uFlags & FILE_CRC_VALID) != 0, i < 3) << i;
    bool bFailed = false;
    EXPECT_EQ(aFiles[8]->GetCrc(), Crc32OfFile(aFiles[8]->GetFullPath(), bFailed, 0));
    services.Pool().FinishCrcs(false);  // nothing started: returns at once
}

// Texts up to 100% stay progress texts, and the worker never pumps.
TEST_F(CrcPoolTest, WorkersReportProgressWithoutPumping) {
    CTestServices services;
    services.m_bFakeLargeFile = true;
    const std::vector<CFileData*> aFiles = {AddFile("big.iso", "x")};
    services.Pool().ComputeCrcs(aFiles);

    EXPECT_EQ(m_host.m_nWorkerPumps, 0);
    ASSERT_EQ(m_host.m_aStatusTexts.size(), 101u);
    EXPECT_EQ(m_host.m_aStatusTexts.back(),
              u"calculating crc 100% for " + aFiles[0]->GetFullPath() + u"\n");
    EXPECT_EQ(aFiles[0]->m_uCrc, 1u);
}

TEST_F(CrcPoolTest, WithoutTheEngineInstalledTheEntryPointsComputeInPlace) {
    const std::vector<CFileData*> aFiles = AddFiles(3, "f");
    ComputeMp3Crcs(aFiles);
    ComputeQuickCrcs(aFiles);
    for (CFileData* pFile : aFiles)
        EXPECT_EQ(pFile->m_uFlags & (FILE_CRC_NOTAGS_VALID | FILE_PARTIAL_CRC_VALID),
                  FILE_CRC_NOTAGS_VALID | FILE_PARTIAL_CRC_VALID);
}

// No file gives 0 and no batch; one file its checksum; more are folded in
// array order, and subdirectories after the directory's own value.
TEST_F(CrcPoolTest, DirectoryFolds) {
    CTestServices services;
    CDirectoryData* pEmpty = test::AddDir(*m_pRoot, u"empty");
    EXPECT_EQ(pEmpty->GetCrcWithSubdirs(), 0u);
    EXPECT_EQ(services.Pool().ThreadCount(), 0);

    std::filesystem::create_directories(m_dir.Path() / "one");
    CDirectoryData* pOne = test::AddDir(*m_pRoot, u"one");
    AddFile("one/only", "123456789", pOne);
    EXPECT_EQ(pOne->GetCrcWithSubdirs(), 0xCBF43926u);

    const std::vector<CFileData*> aFiles = AddFiles(4, "f");
    uint32_t uRunning = Crc32Init();
    for (CFileData* pFile : aFiles) {
        bool bFailed = false;
        uRunning = Crc32Fold(uRunning, Crc32OfFile(pFile->GetFullPath(), bFailed, 0));
    }
    EXPECT_EQ(m_pRoot->GetCrc(), Crc32Final(uRunning));
    EXPECT_EQ(services.Pool().ThreadCount(), 3);
    uRunning = Crc32Fold(Crc32Init(), m_pRoot->GetCrc());
    for (uint32_t uChild : {0u, 0xCBF43926u}) uRunning = Crc32Fold(uRunning, uChild);
    EXPECT_EQ(m_pRoot->GetCrcWithSubdirs(), Crc32Final(uRunning));
}

}  // namespace
}  // namespace zv
