#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>

#include "core/Document.h"
#include "core/Host.h"
#include "core/Scanner.h"
#include "core/SortCodes.h"
#include "platform/FileSystem.h"
#include "platform/Text.h"
#include "support/TempDir.h"

#ifndef _WIN32
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace zv {
namespace {

namespace fs = std::filesystem;
using platform::U16;
using platform::Utf16ToUtf8;
using platform::Utf8ToUtf16;

// A host that counts pumps and can ask the scan to stop at a given pump.
class CStoppingHost : public CQuietHost {
public:
    void PumpMessages() override {
        ++m_nPumps;
        if (m_nStopAt && m_nPumps == m_nStopAt) GetMainDocument()->m_bStopRequested = 1;
    }
    int m_nPumps = 0;
    int m_nStopAt = 0;
};

fs::path PathOf(const std::string& strUtf8) {
#ifdef _WIN32
    return fs::path(std::u8string(strUtf8.begin(), strUtf8.end()));
#else
    return fs::path(strUtf8);
#endif
}

void Write(const fs::path& path, size_t nBytes) {
    std::ofstream out(path, std::ios::binary);
    out << std::string(nBytes, 'x');
}

// The generated tree:
//   root/
//     a.txt (10)  "with space.bin" (5000)
//     empty/
//     nested/ b (1)  deeper/ c (4096)  deeper/deepest/ d (1)
//     "Ünïcödé 日本"/ e (7)
//     locked/ hidden.txt (3)       (no permissions)
//     bad\xff name (2)             (POSIX only)
//     link-to-nested -> nested     (POSIX only)
//     loop/ self -> ..             (POSIX only)
class ScannerTest : public ::testing::Test {
protected:
    void SetUp() override {
        SetHost(&m_host);
        SetMainDocument(&m_doc);
        const fs::path& root = m_temp.Path();
        Write(root / "a.txt", 10);
        Write(root / "with space.bin", 5000);
        fs::create_directory(root / "empty");
        fs::create_directories(root / "nested" / "deeper" / "deepest");
        Write(root / "nested" / "b", 1);
        Write(root / "nested" / "deeper" / "c", 4096);
        Write(root / "nested" / "deeper" / "deepest" / "d", 1);
        fs::create_directory(root / PathOf("\xc3\x9cn\xc3\xaf"
                                           "c\xc3\xb6"
                                           "d\xc3\xa9 \xe6\x97\xa5\xe6\x9c\xac"));
        Write(root /
                  PathOf("\xc3\x9cn\xc3\xaf"
                         "c\xc3\xb6"
                         "d\xc3\xa9 \xe6\x97\xa5\xe6\x9c\xac") /
                  "e",
              7);
        fs::create_directory(root / "locked");
        Write(root / "locked" / "hidden.txt", 3);
        m_nFiles = 7;
        m_nDirs = 7;  // the root and six below it
        m_nRootFiles = 2;
        m_dBytes = 10 + 5000 + 1 + 4096 + 1 + 7 + 3;
#ifndef _WIN32
        Write(root / "bad\xff name", 2);
        fs::create_directory_symlink(root / "nested", root / "link-to-nested");
        fs::create_directory(root / "loop");
        fs::create_directory_symlink("..", root / "loop" / "self");
        m_nFiles += 1;
        m_nRootFiles += 1;
        m_nDirs += 1;
        m_dBytes += 2;
        fs::permissions(root / "locked", fs::perms::none);
        m_bLocked = access((root / "locked").c_str(), R_OK) != 0;
#endif
    }

    void TearDown() override {
        std::error_code ec;
        fs::permissions(m_temp.Path() / "locked", fs::perms::owner_all, ec);
        SetMainDocument(nullptr);
        SetHost(nullptr);
    }

    void Scan(const std::function<void(CWZorvaneDoc&)>& configure = {}) {
        auto* pRoot = new CRootDirectoryData(Utf8ToUtf16(m_temp.Path().string()));
        pRoot->Prepare(m_doc.m_scan.m_aDrives);
        m_doc.m_scan.m_aRoots.Add(pRoot);
        if (configure) configure(m_doc);
        CScanner scanner(m_doc);
        scanner.Rescan();
    }

    CRootDirectoryData& Root() { return *m_doc.m_scan.m_aRoots[0]; }

    CDirectoryData* Child(CDirectoryData& dir, std::u16string_view strName) {
        for (CDirectoryData* p : dir.m_aChildren)
            if (p->m_strName.View() == strName) return p;
        return nullptr;
    }

    test::CTempDir m_temp;
    CStoppingHost m_host;
    CWZorvaneDoc m_doc;
    size_t m_nFiles = 0, m_nDirs = 0, m_nRootFiles = 0;
    double m_dBytes = 0;
    bool m_bLocked = false;
};

TEST_F(ScannerTest, WholeTreeCountsAndRollUps) {
    Scan();
    const CScanRegisters& scan = m_doc.m_scan;
    const size_t nLockedFiles = m_bLocked ? 1 : 0;
    EXPECT_EQ(scan.m_aAllDirs.GetSize(), m_nDirs);
    EXPECT_EQ(scan.m_aAllFiles.GetSize(), m_nFiles - nLockedFiles);
    EXPECT_EQ(Root().GetSizeWithSubdirs(), m_dBytes - (m_bLocked ? 3 : 0));
    EXPECT_EQ(Root().m_uCumulativeCount, m_nFiles - nLockedFiles);
    EXPECT_EQ(m_doc.m_bScanning, 0);
    EXPECT_NE(m_doc.m_tScanTime, 0);

    CDirectoryData* pNested = Child(Root(), u"nested");
    ASSERT_NE(pNested, nullptr);
    EXPECT_EQ(pNested->m_dFilesSize, 1);
    EXPECT_EQ(pNested->m_dSubdirsSize, 4097);
    EXPECT_EQ(pNested->m_uCumulativeCount, 3u);
    if (Root().m_dClusterSize > 0) {
        EXPECT_GE(Root().GetActualWithSubdirs(), Root().GetSizeWithSubdirs());
    }
    // Links to directories and the loop's link are neither followed nor kept.
    EXPECT_EQ(Child(Root(), u"link-to-nested"), nullptr);
    if (CDirectoryData* pLoop = Child(Root(), u"loop")) {
        EXPECT_TRUE(pLoop->m_aChildren.IsEmpty());
    }
}

TEST_F(ScannerTest, NamesRoundTripToTheDisk) {
    Scan();
    for (CFileData* pFile : m_doc.m_scan.m_aAllFiles) {
        SCOPED_TRACE(Utf16ToUtf8(pFile->GetFullPath()));
        platform::CFileReader reader;
        EXPECT_TRUE(reader.Open(pFile->GetFullPath()));
        CDirEntry entry;
        ASSERT_TRUE(platform::GetEntryInfo(pFile->GetFullPath(), entry));
        EXPECT_EQ(entry.Size(), pFile->m_dSize);
    }
    EXPECT_NE(Child(Root(), U16("\xc3\x9cn\xc3\xaf"
                                "c\xc3\xb6"
                                "d\xc3\xa9 \xe6\x97\xa5\xe6\x9c\xac")),
              nullptr);
}

TEST_F(ScannerTest, UnreadableDirectoryIsProtected) {
    if (!m_bLocked) GTEST_SKIP() << "permission bits do not stop this user";
    Scan();
    CDirectoryData* pLocked = Child(Root(), u"locked");
    ASSERT_NE(pLocked, nullptr);
    EXPECT_TRUE(pLocked->m_uFlags & DIR_PROTECTED);
    ASSERT_EQ(m_doc.m_scan.m_aProtectedDirs.size(), 1u);
    EXPECT_EQ(m_doc.m_scan.m_aProtectedDirs[0], pLocked->GetFullPath());
}

TEST_F(ScannerTest, DepthLimitsAndNoSubdirectories) {
    struct Case {
        int nMaxDepth;
        bool bSubdirs;
        size_t nDirs;  // records made
        bool bNestedFilesRead;
        bool bDeeperFilesRead;
    };
    const size_t nTop = m_nDirs - 2;  // all but "deeper" and "deepest"
    const Case aCases[] = {
        {-1, true, m_nDirs, true, true}, {0, true, nTop, false, false},
        {1, true, nTop, false, false},   {2, true, nTop + 1, true, false},
        {3, true, m_nDirs, true, true},  {-1, false, 1, false, false},
    };
    for (const Case& c : aCases) {
        SCOPED_TRACE("depth " + std::to_string(c.nMaxDepth) + (c.bSubdirs ? "" : " no subdirs"));
        m_doc.m_scan.m_aRoots.DeleteAll();
        Scan([&](CWZorvaneDoc& doc) {
            doc.m_options.m_nMaxDepth = c.nMaxDepth;
            doc.m_options.m_bScanSubdirs = c.bSubdirs;
        });
        EXPECT_EQ(m_doc.m_scan.m_aAllDirs.GetSize(), c.nDirs);
        EXPECT_EQ(Root().m_aFiles.GetSize(), m_nRootFiles);
        CDirectoryData* pNested = Child(Root(), u"nested");
        if (!c.bSubdirs) {
            EXPECT_EQ(pNested, nullptr);
            continue;
        }
        ASSERT_NE(pNested, nullptr);
        EXPECT_EQ(pNested->m_aFiles.GetSize(), c.bNestedFilesRead ? 1u : 0u);
        CDirectoryData* pDeeper = Child(*pNested, u"deeper");
        EXPECT_EQ(pDeeper != nullptr, c.bNestedFilesRead);
        if (pDeeper) {
            EXPECT_EQ(pDeeper->m_aFiles.GetSize(), c.bDeeperFilesRead ? 1u : 0u);
        }
    }
}

TEST_F(ScannerTest, StopMidwayKeepsWhatWasFound) {
    m_host.m_nStopAt = 6;
    Scan();
    EXPECT_EQ(m_doc.m_bStopRequested, 1);
    EXPECT_LT(m_doc.m_scan.m_aAllFiles.GetSize(), m_nFiles);
    EXPECT_EQ(m_doc.m_bScanning, 0);
    // The roll-up holds for what was kept.
    double dSum = 0;
    for (CFileData* pFile : m_doc.m_scan.m_aAllFiles) dSum += pFile->m_dSize;
    EXPECT_EQ(Root().GetSizeWithSubdirs(), dSum);
}

TEST_F(ScannerTest, RescanReplacesThePreviousForestAndSortsIt) {
    Scan();
    const size_t nFirst = m_doc.m_scan.m_aAllFiles.GetSize();
    CScanner(m_doc).Rescan();
    EXPECT_EQ(m_doc.m_scan.m_aAllFiles.GetSize(), nFirst);
    EXPECT_EQ(m_doc.m_scan.m_aRoots.GetSize(), 1u);
    // Files by size descending, directories by size with subdirectories.
    EXPECT_EQ(Root().m_nFileSort, 7);
    EXPECT_EQ(Root().m_nDirSort, 9);
    const auto& aFiles = Root().m_aFiles.Items();
    for (size_t i = 1; i < aFiles.size(); ++i)
        EXPECT_GE(aFiles[i - 1]->m_dSize, aFiles[i]->m_dSize);
    const auto& aDirs = Root().m_aChildren.Items();
    for (size_t i = 1; i < aDirs.size(); ++i)
        EXPECT_GE(aDirs[i - 1]->GetSizeWithSubdirs(), aDirs[i]->GetSizeWithSubdirs());
}

TEST(Scanner, NoRootsClearsTheStatus) {
    CQuietHost host;
    SetHost(&host);
    CWZorvaneDoc doc;
    host.m_strStatus = u"old";
    CScanner(doc).Rescan();
    EXPECT_EQ(host.m_strStatus, u"");
    EXPECT_EQ(doc.m_bScanning, 0);
    SetHost(nullptr);
}

#ifndef _WIN32
// A chain of directories deeper than any path the system can open by name.
TEST(ScannerDeep, ChainDeeperThanThePathLimitIsWalked) {
    test::CTempDir temp;
    const std::string strName(200, 'd');
    int nFd = open(temp.Path().c_str(), O_RDONLY | O_DIRECTORY);
    const int nLevels = 30;  // 30 x 201 bytes: beyond PATH_MAX (4096)
    std::vector<int> aFds;
    for (int i = 0; i < nLevels; ++i) {
        ASSERT_EQ(mkdirat(nFd, strName.c_str(), 0755), 0);
        aFds.push_back(nFd);
        nFd = openat(nFd, strName.c_str(), O_RDONLY | O_DIRECTORY);
        ASSERT_GE(nFd, 0);
    }
    const int nFile = openat(nFd, "bottom.txt", O_WRONLY | O_CREAT, 0644);
    ASSERT_EQ(write(nFile, "12345", 5), 5);
    close(nFile);

    CQuietHost host;
    SetHost(&host);
    CWZorvaneDoc doc;
    SetMainDocument(&doc);
    auto* pRoot = new CRootDirectoryData(Utf8ToUtf16(temp.Path().string()));
    pRoot->Prepare(doc.m_scan.m_aDrives);
    doc.m_scan.m_aRoots.Add(pRoot);
    CScanner(doc).Rescan();
    EXPECT_EQ(doc.m_scan.m_aAllDirs.GetSize(), size_t(nLevels + 1));
    ASSERT_EQ(doc.m_scan.m_aAllFiles.GetSize(), 1u);
    EXPECT_EQ(pRoot->GetSizeWithSubdirs(), 5);
    EXPECT_GT(doc.m_scan.m_aAllFiles[0]->GetFullPath().size(), 4096u);
    SetMainDocument(nullptr);
    SetHost(nullptr);

    // Remove the chain bottom up, relative to the handles.
    unlinkat(nFd, "bottom.txt", 0);
    close(nFd);
    for (int i = nLevels; i-- > 0;) {
        unlinkat(aFds[i], strName.c_str(), AT_REMOVEDIR);
        close(aFds[i]);
    }
}
#endif

}  // namespace
}  // namespace zv
