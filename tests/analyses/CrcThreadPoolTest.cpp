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
#include "core/Crc32.h"
#include "core/Document.h"
#include "core/RecordTestSupport.h"
#include "support/TempDir.h"

namespace zv {
namespace {

using test::RandomBytes;
using test::ToU16;

// Files on disk with records for them in one directory of a root.
class CrcPoolTest : public ::testing::Test {
protected:
    void SetUp() override { m_pRoot = test::MakeRoot(ToU16(m_dir.Path())); }

    CFileData* AddFile(const std::string& strName, const std::string& strContent) {
        m_dir.WriteFile(strName, strContent);
        return test::AddFile(*m_pRoot, platform::U16(strName), double(strContent.size()));
    }
    std::vector<CFileData*> AddFiles(int nCount, const char* pszPrefix = "f") {
        std::vector<CFileData*> aFiles;
        for (int i = 0; i < nCount; ++i)
            aFiles.push_back(
                AddFile(std::string(pszPrefix).append(std::to_string(i)).append(".mp3"),
                        RandomBytes(size_t(5000 + 997 * i), unsigned(i))));
        return aFiles;
    }

    test::CTempDir m_dir;
    std::unique_ptr<CRootDirectoryData> m_pRoot;
};

TEST_F(CrcPoolTest, EachOperationComputesItsChecksumForEveryFile) {
    CCrcRecordServices services;
    SetRecordServices(&services);
    const std::vector<CFileData*> aFiles = AddFiles(8);
    services.Pool().ComputeCrcs({});
    EXPECT_EQ(services.Pool().ThreadCount(), 0);  // created at the first batch
    services.Pool().ComputeCrcs(aFiles);
    EXPECT_EQ(services.Pool().ThreadCount(), 3);
    services.Pool().ComputeMp3Crcs(aFiles);
    services.Pool().ComputeQuickCrcs(aFiles);
    for (CFileData* pFile : aFiles) {
        const uint32_t uFlags = FILE_CRC_VALID | FILE_CRC_NOTAGS_VALID | FILE_PARTIAL_CRC_VALID;
        EXPECT_EQ(pFile->m_uFlags & uFlags, uFlags);
        bool bFailed = false;
        const std::u16string strPath = pFile->GetFullPath();
        EXPECT_EQ(pFile->m_uCrc, Crc32OfFile(strPath, bFailed, 0));
        EXPECT_EQ(pFile->m_uMp3Crc, Crc32OfFileWithoutTags(strPath, bFailed));
        EXPECT_NE(pFile->m_uQuickCrc, 0u);
    }
    SetRecordServices(nullptr);
}

// Records which thread read which path.
class CThreadRecordingServices : public CCrcRecordServices {
public:
    uint32_t Crc32OfFile(const std::u16string& strPath, bool& bFailed, double dSize) override {
        {
            std::lock_guard lock(m_mutex);
            m_mapThreads[strPath] = std::this_thread::get_id();
        }
        return CCrcRecordServices::Crc32OfFile(strPath, bFailed, dSize);
    }
    std::mutex m_mutex;
    std::map<std::u16string, std::thread::id> m_mapThreads;
};

TEST_F(CrcPoolTest, WorkerKTakesTheIndexesKModuloThree) {
    CThreadRecordingServices services;
    SetRecordServices(&services);
    const std::vector<CFileData*> aFiles = AddFiles(10);
    services.Pool().ComputeCrcs(aFiles);
    SetRecordServices(nullptr);

    ASSERT_EQ(services.m_mapThreads.size(), aFiles.size());
    std::set<std::thread::id> setThreads;
    for (size_t i = 0; i < aFiles.size(); ++i) {
        const std::thread::id id = services.m_mapThreads[aFiles[i]->GetFullPath()];
        EXPECT_NE(id, std::this_thread::get_id());
        EXPECT_EQ(id, services.m_mapThreads[aFiles[i % 3]->GetFullPath()]) << i;
        setThreads.insert(id);
    }
    EXPECT_EQ(setThreads.size(), 3u);
}

// Holds every read until the user-interface thread has pumped once, so
// that a batch is sure to be running while messages are pumped.
class CHoldingServices : public CCrcRecordServices {
public:
    uint32_t Crc32OfFile(const std::u16string& strPath, bool& bFailed, double dSize) override {
        const auto tLimit = std::chrono::steady_clock::now() + std::chrono::seconds(20);
        while (!m_bReleased && std::chrono::steady_clock::now() < tLimit)
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        return CCrcRecordServices::Crc32OfFile(strPath, bFailed, dSize);
    }
    std::atomic<bool> m_bReleased{false};
};

TEST_F(CrcPoolTest, RequestDuringABatchReturnsAtOnceAndComputesNothing) {
    test::CRecordingHost host;
    CHoldingServices services;
    SetRecordServices(&services);
    const std::vector<CFileData*> aFirst = AddFiles(4, "first");
    const std::vector<CFileData*> aSecond = AddFiles(4, "second");
    bool bBusyWhilePumping = false;
    host.m_onPump = [&] {
        if (services.m_bReleased) return;
        bBusyWhilePumping = CCrcThreadPool::IsBusy();
        services.Pool().ComputeCrcs(aSecond);
        services.Pool().ComputeQuickCrcs(aSecond);
        services.m_bReleased = true;
    };
    services.Pool().ComputeCrcs(aFirst);
    SetRecordServices(nullptr);

    EXPECT_TRUE(bBusyWhilePumping);
    EXPECT_FALSE(CCrcThreadPool::IsBusy());
    EXPECT_GT(host.m_nUiPumps, 0);
    for (CFileData* pFile : aFirst) EXPECT_TRUE(pFile->m_uFlags & FILE_CRC_VALID);
    for (CFileData* pFile : aSecond)
        EXPECT_EQ(pFile->m_uFlags & (FILE_CRC_VALID | FILE_PARTIAL_CRC_VALID), 0u);
}

TEST_F(CrcPoolTest, AfterABatchTheStatusShowsTheCurrentDirectory) {
    test::CRecordingHost host;
    CCrcThreadPool pool;
    pool.ComputeCrcs(AddFiles(2));
    EXPECT_TRUE(host.m_aStatusTexts.empty());  // no document, no text

    CWZorvaneDoc doc;
    SetMainDocument(&doc);
    doc.m_pCurrentDir = m_pRoot.get();
    pool.ComputeCrcs(AddFiles(2, "g"));
    ASSERT_FALSE(host.m_aStatusTexts.empty());
    EXPECT_EQ(host.m_aStatusTexts.back(), m_pRoot->GetFullPath());
    SetMainDocument(nullptr);
}

// A large file checksummed by a worker: texts up to 100% stay progress
// texts, and the worker never pumps.
class CLargeFileServices : public CCrcRecordServices {
public:
    uint32_t Crc32OfFile(const std::u16string& strPath, bool&, double) override {
        const double dSize = CCrcProgress::kThreshold;
        CCrcProgress progress(strPath, dSize);
        for (int i = 0; i < 128; ++i) progress.Add(dSize / 128);
        return 1;
    }
};

TEST_F(CrcPoolTest, WorkersReportProgressWithoutPumping) {
    test::CRecordingHost host;
    CLargeFileServices services;
    SetRecordServices(&services);
    std::vector<CFileData*> aFiles = {AddFile("big.iso", "x")};
    services.Pool().ComputeCrcs(aFiles);
    SetRecordServices(nullptr);

    EXPECT_EQ(host.m_nWorkerPumps, 0);
    ASSERT_EQ(host.m_aStatusTexts.size(), 101u);
    EXPECT_EQ(host.m_aStatusTexts.back(),
              u"calculating crc 100% for " + aFiles[0]->GetFullPath() + u"\n");
    EXPECT_EQ(aFiles[0]->m_uCrc, 1u);
}

TEST_F(CrcPoolTest, WithoutTheEngineInstalledTheEntryPointsComputeInPlace) {
    const std::vector<CFileData*> aFiles = AddFiles(3);
    ComputeMp3Crcs(aFiles);
    ComputeQuickCrcs(aFiles);
    for (CFileData* pFile : aFiles)
        EXPECT_EQ(pFile->m_uFlags & (FILE_CRC_NOTAGS_VALID | FILE_PARTIAL_CRC_VALID),
                  FILE_CRC_NOTAGS_VALID | FILE_PARTIAL_CRC_VALID);
}

// Directory checksums through the installed engine.
class DirectoryCrcTest : public CrcPoolTest {
protected:
    void SetUp() override {
        CrcPoolTest::SetUp();
        SetRecordServices(&m_services);
    }
    void TearDown() override { SetRecordServices(nullptr); }
    CCrcRecordServices m_services;
};

TEST_F(DirectoryCrcTest, NoFileGivesZero) {
    CDirectoryData* pEmpty = test::AddDir(*m_pRoot, u"empty");
    EXPECT_EQ(pEmpty->GetCrc(), 0u);
    EXPECT_EQ(pEmpty->GetCrcWithSubdirs(), 0u);
    EXPECT_EQ(m_services.Pool().ThreadCount(), 0);
}

TEST_F(DirectoryCrcTest, OneFileGivesThatFilesChecksum) {
    CFileData* pFile = AddFile("only", "123456789");
    EXPECT_EQ(m_pRoot->GetCrc(), 0xCBF43926u);
    EXPECT_EQ(pFile->m_uFlags & FILE_CRC_VALID, FILE_CRC_VALID);
    // No subdirectories: the same value with them.
    EXPECT_EQ(m_pRoot->GetCrcWithSubdirs(), 0xCBF43926u);
}

TEST_F(DirectoryCrcTest, SeveralFilesAreFoldedInArrayOrderOnThePool) {
    const std::vector<CFileData*> aFiles = AddFiles(4);
    uint32_t uRunning = Crc32Init();
    for (CFileData* pFile : aFiles) {
        bool bFailed = false;
        uRunning = Crc32Fold(uRunning, Crc32OfFile(pFile->GetFullPath(), bFailed, 0));
    }
    EXPECT_EQ(m_pRoot->GetCrc(), Crc32Final(uRunning));
    EXPECT_EQ(m_services.Pool().ThreadCount(), 3);

    std::filesystem::create_directories(m_dir.Path() / "child");
    m_dir.WriteFile(std::filesystem::path("child") / "child-file", "abc");
    CDirectoryData* pChild = test::AddDir(*m_pRoot, u"child");
    CFileData* pChildFile = test::AddFile(*pChild, u"child-file", 3);
    const uint32_t uChild = pChild->GetCrcWithSubdirs();
    EXPECT_EQ(uChild, Crc32Buffer("abc", 3));
    EXPECT_EQ(pChildFile->m_uCrc, uChild);
    m_pRoot->m_uFlags &= ~DIR_CRC_SUBDIRS_VALID;
    EXPECT_EQ(m_pRoot->GetCrcWithSubdirs(),
              Crc32Final(Crc32Fold(Crc32Fold(Crc32Init(), m_pRoot->m_uCrc), uChild)));
}

}  // namespace
}  // namespace zv
