// The scanner on a generated tree, as an ordinary user: counts, roll-ups,
// protected directories, depth limits, stopping, very deep chains, and the
// same records whether directories are read ahead or not.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <sstream>

#include "core/document/Document.h"
#include "core/document/SortCodes.h"
#include "core/host/Host.h"
#include "core/records/SubtreeWalk.h"
#include "core/scan/Scanner.h"
#include "platform/FileSystem.h"
#include "platform/Text.h"
#include "support/TempDir.h"

#ifndef _WIN32
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace zv {
namespace {

namespace fs = std::filesystem;
using platform::Utf16ToUtf8;
using platform::Utf8ToUtf16;

using U8 = std::u8string;

const U8 kUnicodeDir = u8"\u00dcn\u00efc\u00f6d\u00e9 \u65e5\u672c";

// Threads of this process, where the system tells; -1 elsewhere.
int ThreadCount() {
#ifdef __linux__
    int nCount = 0;
    for ([[maybe_unused]] const auto& task : fs::directory_iterator("/proc/self/task")) ++nCount;
    return nCount;
#else
    return -1;
#endif
}

// A host that counts pumps, keeps every status text and can ask the scan to
// stop at a given pump.
class CStoppingHost : public CQuietHost {
public:
    void PumpMessages() override {
        if (++m_nPumps == m_nStopAt) {
            GetMainDocument()->m_bStopRequested = 1;
            m_nThreadsAtStop = ThreadCount();
        }
    }
    void SetStatusText(std::u16string_view strText) override {
        CQuietHost::SetStatusText(strText);
        m_aStatusTexts.emplace_back(strText);
    }
    int m_nPumps = 0;
    int m_nStopAt = 0;
    int m_nThreadsAtStop = 0;
    std::vector<std::u16string> m_aStatusTexts;
};

// Leaves out every directory named "deeper" and the one-byte files.
class CTestFilter : public IScanFilter {
public:
    bool IsActive() override { return true; }
    bool HasDuplicateFilter() override { return false; }
    void ResolveRelativeDates() override {}
    bool IsDirectoryExcluded(const std::u16string& strPath) override {
        return strPath.ends_with(u"deeper");
    }
    bool SkipsFilesOf(const std::u16string&) override { return false; }
    bool AdmitsFile(CFileCandidate& candidate) override { return candidate.m_dSize != 1; }
};

// The generated tree: a.txt, "with space.bin", empty/, nested/b,
// nested/deeper/c, nested/deeper/deepest/d, the Unicode directory's e, and
// locked/hidden.txt under a directory without permissions; on POSIX also
// a name that is not UTF-8, a link to nested and loop/self -> "..".
class ScannerTest : public ::testing::Test {
protected:
    void SetUp() override {
        SetHost(&m_host);
        SetMainDocument(&m_doc);
        const fs::path& root = m_temp.Path();
        // The files in the root come largest first, as sorted after a scan.
        std::vector<std::pair<U8, size_t>> aFiles = {{u8"with space.bin", 5000},
                                                     {u8"a.txt", 10},
                                                     {u8"nested/b", 1},
                                                     {u8"nested/deeper/c", 4096},
                                                     {u8"nested/deeper/deepest/d", 1},
                                                     {kUnicodeDir + u8"/e", 7},
                                                     {u8"locked/hidden.txt", 3}};
#ifndef _WIN32
        aFiles.emplace_back(u8"bad\xff name", 2);
        fs::create_directory(root / "loop");
        fs::create_directory_symlink("..", root / "loop" / "self");
        ++m_nDirs;
#endif
        fs::create_directory(root / "empty");
        for (const auto& [strPath, nBytes] : aFiles) {
            fs::create_directories((root / strPath).parent_path());
            std::ofstream(root / strPath, std::ios::binary) << std::string(nBytes, 'x');
            m_dBytes += double(nBytes);
            if (strPath.find(u8'/') == U8::npos)
                m_aRootNames.emplace_back(strPath.begin(), strPath.end());
        }
        m_nFiles = aFiles.size();
#ifndef _WIN32
        fs::create_directory_symlink(root / "nested", root / "link-to-nested");
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

    CRootDirectoryData& Scan(const std::function<void(CWZorvaneDoc&)>& configure = {},
                             const fs::path& root = {}, size_t nThreads = 0,
                             IScanFilter* pFilter = nullptr) {
        m_doc.m_scan.m_aRoots.DeleteAll();
        auto* pRoot =
            new CRootDirectoryData(Utf8ToUtf16((root.empty() ? m_temp.Path() : root).string()));
        pRoot->Prepare(m_doc.m_scan.m_aDrives);
        m_doc.m_scan.m_aRoots.Add(pRoot);
        if (configure) configure(m_doc);
        CScanner scanner(m_doc, pFilter);
        if (nThreads) scanner.SetReadThreads(nThreads);
        m_host.m_aStatusTexts.clear();
        scanner.Rescan();
        return *pRoot;
    }

    // Everything a scan found, in the order it was found.
    std::vector<std::u16string> Records() const {
        std::vector<std::u16string> aRecords = m_host.m_aStatusTexts;
        auto Facts = [](uint32_t uAttributes, FILETIME ftCreated, FILETIME ftAccessed,
                        FILETIME ftModified, double dSize) {
            std::ostringstream facts;
            for (FILETIME ft : {ftCreated, ftAccessed, ftModified})
                facts << ' ' << ft.dwHighDateTime << ':' << ft.dwLowDateTime;
            facts << ' ' << uAttributes << ' ' << dSize;
            return Utf8ToUtf16(facts.str());
        };
        for (const CDirectoryData* pDir : m_doc.m_scan.m_aAllDirs)
            aRecords.push_back(pDir->GetFullPath() + Facts(pDir->m_uAttributes, pDir->m_ftCreated,
                                                           pDir->m_ftAccessed, pDir->m_ftModified,
                                                           double(pDir->m_uFlags)));
        for (const CFileData* pFile : m_doc.m_scan.m_aAllFiles)
            aRecords.push_back(pFile->GetFullPath() + Facts(pFile->m_uAttributes,
                                                            pFile->m_ftCreated, pFile->m_ftAccessed,
                                                            pFile->m_ftModified, pFile->m_dSize));
        for (const std::u16string& strPath : m_doc.m_scan.m_aProtectedDirs)
            aRecords.push_back(u"protected " + strPath);
        return aRecords;
    }

    static CDirectoryData* Child(CDirectoryData& dir, std::u16string_view strName) {
        for (CDirectoryData* p : dir.m_aChildren)
            if (p->m_strName.View() == strName) return p;
        return nullptr;
    }

    test::CTempDir m_temp;
    CStoppingHost m_host;
    CWZorvaneDoc m_doc;
    size_t m_nFiles = 0, m_nDirs = 7;       // the root and six below it
    std::vector<std::string> m_aRootNames;  // largest first
    double m_dBytes = 0;
    bool m_bLocked = false;
};

// A second scan replaces the first one's records.
TEST_F(ScannerTest, WholeTreeCountsRollUpsNamesAndOrder) {
    CRootDirectoryData& root = Scan();
    CScanner(m_doc).Rescan();
    const CScanRegisters& scan = m_doc.m_scan;
    const size_t nFiles = m_nFiles - (m_bLocked ? 1 : 0);
    EXPECT_EQ(scan.m_aRoots.GetSize(), 1u);
    EXPECT_EQ(scan.m_aAllDirs.GetSize(), m_nDirs);
    EXPECT_EQ(scan.m_aAllFiles.GetSize(), nFiles);
    EXPECT_EQ(root.m_uCumulativeCount, nFiles);
    EXPECT_EQ(root.GetSizeWithSubdirs(), m_dBytes - (m_bLocked ? 3 : 0));
    if (root.m_dClusterSize > 0) {
        EXPECT_GE(root.GetActualWithSubdirs(), root.GetSizeWithSubdirs());
    }
    EXPECT_EQ(m_doc.m_bScanning, 0);
    EXPECT_NE(m_doc.m_tScanTime, 0);
    CDirectoryData* pNested = Child(root, u"nested");
    ASSERT_NE(pNested, nullptr);
    EXPECT_EQ(pNested->m_dFilesSize, 1);
    EXPECT_EQ(pNested->m_dSubdirsSize, 4097);
    EXPECT_EQ(pNested->m_uCumulativeCount, 3u);
    // Links to directories and the loop's link are neither followed nor kept.
    EXPECT_EQ(Child(root, u"link-to-nested"), nullptr);
    if (CDirectoryData* pLoop = Child(root, u"loop")) {
        EXPECT_TRUE(pLoop->m_aChildren.IsEmpty());
    }

    // Files by size descending, directories by size with subdirectories.
    EXPECT_EQ(root.m_nFileSort, 7);
    EXPECT_EQ(root.m_nDirSort, 9);
    const auto& aDirs = root.m_aChildren.Items();
    for (size_t i = 1; i < aDirs.size(); ++i)
        EXPECT_GE(aDirs[i - 1]->GetSizeWithSubdirs(), aDirs[i]->GetSizeWithSubdirs());
    std::vector<std::string> aRootNames;  // every name, UTF-8 or not, as listed
    for (CFileData* pFile : root.m_aFiles)
        aRootNames.push_back(Utf16ToUtf8(pFile->m_strName.View()));
    EXPECT_EQ(aRootNames, m_aRootNames);
    EXPECT_NE(Child(root, fs::path(kUnicodeDir).u16string()), nullptr);
    for (CFileData* pFile : scan.m_aAllFiles) {  // and each leads back to its file
        SCOPED_TRACE(Utf16ToUtf8(pFile->GetFullPath()));
        platform::CFileReader reader;
        EXPECT_TRUE(reader.Open(pFile->GetFullPath()));
        CDirEntry entry;
        ASSERT_TRUE(platform::GetEntryInfo(pFile->GetFullPath(), entry));
        EXPECT_EQ(entry.Size(), pFile->m_dSize);
    }
}

TEST_F(ScannerTest, UnreadableDirectoryIsProtected) {
    if (!m_bLocked) GTEST_SKIP() << "permission bits do not stop this user";
    CDirectoryData* pLocked = Child(Scan(), u"locked");
    ASSERT_NE(pLocked, nullptr);
    EXPECT_TRUE(pLocked->m_uFlags & DIR_PROTECTED);
    EXPECT_EQ(m_doc.m_scan.m_aProtectedDirs, std::vector<std::u16string>{pLocked->GetFullPath()});
}

TEST_F(ScannerTest, DepthLimitsAndNoSubdirectories) {
    struct Case {
        int nMaxDepth;
        bool bSubdirs;
        size_t nDirs;  // records made
        bool bNestedFilesRead, bDeeperFilesRead;
    };
    const size_t nTop = m_nDirs - 2;  // all but "deeper" and "deepest"
    const Case aCases[] = {{-1, true, m_nDirs, true, true}, {0, true, nTop, false, false},
                           {1, true, nTop, false, false},   {2, true, nTop + 1, true, false},
                           {3, true, m_nDirs, true, true},  {-1, false, 1, false, false}};
    for (const Case& c : aCases) {
        SCOPED_TRACE("depth " + std::to_string(c.nMaxDepth) + (c.bSubdirs ? "" : " no subdirs"));
        CRootDirectoryData& root = Scan([&](CWZorvaneDoc& doc) {
            doc.m_options.m_nMaxDepth = c.nMaxDepth;
            doc.m_options.m_bScanSubdirs = c.bSubdirs;
        });
        EXPECT_EQ(m_doc.m_scan.m_aAllDirs.GetSize(), c.nDirs);
        EXPECT_EQ(root.m_aFiles.GetSize(), m_aRootNames.size());
        CDirectoryData* pNested = Child(root, u"nested");
        ASSERT_EQ(pNested != nullptr, c.bSubdirs);
        if (!pNested) continue;
        EXPECT_EQ(pNested->m_aFiles.GetSize(), c.bNestedFilesRead ? 1u : 0u);
        CDirectoryData* pDeeper = Child(*pNested, u"deeper");
        ASSERT_EQ(pDeeper != nullptr, c.bNestedFilesRead);
        if (pDeeper) {
            EXPECT_EQ(pDeeper->m_aFiles.GetSize(), c.bDeeperFilesRead ? 1u : 0u);
        }
    }
}

TEST_F(ScannerTest, StopMidwayKeepsWhatWasFound) {
    m_host.m_nStopAt = 6;
    CRootDirectoryData& root = Scan();
    EXPECT_EQ(m_doc.m_bStopRequested, 1);
    EXPECT_LT(m_doc.m_scan.m_aAllFiles.GetSize(), m_nFiles);
    EXPECT_EQ(m_doc.m_bScanning, 0);
    double dSum = 0;  // the roll-up holds for what was kept
    for (CFileData* pFile : m_doc.m_scan.m_aAllFiles) dSum += pFile->m_dSize;
    EXPECT_EQ(root.GetSizeWithSubdirs(), dSum);
}

TEST_F(ScannerTest, NoRootsClearsTheStatus) {
    m_host.m_strStatus = u"old";
    CScanner(m_doc).Rescan();
    EXPECT_EQ(m_host.m_strStatus, u"");
    EXPECT_EQ(m_doc.m_bScanning, 0);
}

// Read ahead by any number of workers, a walk finds the same records in the
// same order, with the same status texts and protected list, filtered or
// not; also when its window is full (more subdirectories than it holds).
TEST_F(ScannerTest, ReadAheadFindsTheSameRecordsInTheSameOrder) {
    for (int i = 0; i < int(CDirectoryReadAhead::kMaxTaken) + 40; ++i) {
        const fs::path sub = m_temp.Path() / "wide" / std::to_string(i) / "sub";
        fs::create_directories(sub);
        std::ofstream(sub / "f") << std::string(size_t(i % 3), 'x');
    }
    CTestFilter filter;
    for (IScanFilter* pFilter :
         {static_cast<IScanFilter*>(nullptr), static_cast<IScanFilter*>(&filter)}) {
        for (int nMaxDepth : {-1, 3}) {
            SCOPED_TRACE(std::string(pFilter ? "filtered" : "unfiltered") + ", depth " +
                         std::to_string(nMaxDepth));
            auto Depth = [nMaxDepth](CWZorvaneDoc& doc) { doc.m_options.m_nMaxDepth = nMaxDepth; };
            Scan(Depth, {}, 1, pFilter);  // directories read once have their access times set
            Scan(Depth, {}, 1, pFilter);
            const std::vector<std::u16string> aExpected = Records();
            EXPECT_GT(aExpected.size(), CDirectoryReadAhead::kMaxTaken);
            for (size_t nThreads : {2, 5}) {
                Scan(Depth, {}, nThreads, pFilter);
                EXPECT_EQ(Records(), aExpected) << nThreads << " threads";
            }
            if (!pFilter) continue;
            // Only directories with files in their subtree stay listed.
            size_t nWithFiles = 0;
            ForEachInSubtree(
                static_cast<CDirectoryData&>(*m_doc.m_scan.m_aRoots[0]),
                [&](const CDirectoryData& dir) { nWithFiles += dir.HasFiles() ? 1 : 0; });
            EXPECT_EQ(m_doc.m_scan.m_aAllDirs.GetSize(), nWithFiles);
        }
    }
}

// A stop ends the workers with the walk, whenever it comes.
TEST_F(ScannerTest, StopLeavesNoWorkerRunning) {
    const int nBefore = ThreadCount();
    if (nBefore < 0) GTEST_SKIP() << "threads cannot be counted here";
    for (int nStopAt : {2, 6, 9}) {
        m_host.m_nPumps = 0;
        m_host.m_nStopAt = nStopAt;
        const CRootDirectoryData& root = Scan({}, {}, 4);
        EXPECT_EQ(m_doc.m_bStopRequested, 1);
        // Subtrees left half walked still count what they found.
        EXPECT_EQ(root.m_uCumulativeCount, m_doc.m_scan.m_aAllFiles.GetSize());
        EXPECT_GT(m_host.m_nThreadsAtStop, nBefore) << "stop at " << nStopAt;
        EXPECT_EQ(ThreadCount(), nBefore) << "stop at " << nStopAt;
    }
}

#ifndef _WIN32
// A chain of directories deeper than any path the system can open by name.
TEST_F(ScannerTest, ChainDeeperThanThePathLimitIsWalked) {
    test::CTempDir temp;
    const std::string strName(200, 'd');
    const int nLevels = 30;  // 30 x 201 bytes: beyond PATH_MAX (4096)
    std::vector<int> aFds{open(temp.Path().c_str(), O_RDONLY | O_DIRECTORY)};
    for (int i = 0; i < nLevels; ++i) {
        ASSERT_EQ(mkdirat(aFds.back(), strName.c_str(), 0755), 0);
        aFds.push_back(openat(aFds.back(), strName.c_str(), O_RDONLY | O_DIRECTORY));
        ASSERT_GE(aFds.back(), 0);
    }
    const int nFile = openat(aFds.back(), "bottom.txt", O_WRONLY | O_CREAT, 0644);
    ASSERT_EQ(write(nFile, "12345", 5), 5);
    close(nFile);

    for (size_t nThreads : {1, 3}) {
        CRootDirectoryData& root = Scan({}, temp.Path(), nThreads);
        EXPECT_EQ(m_doc.m_scan.m_aAllDirs.GetSize(), size_t(nLevels + 1));
        ASSERT_EQ(m_doc.m_scan.m_aAllFiles.GetSize(), 1u);
        EXPECT_EQ(root.GetSizeWithSubdirs(), 5);
        EXPECT_GT(m_doc.m_scan.m_aAllFiles[0]->GetFullPath().size(), 4096u);
    }

    // Remove the chain bottom up, relative to the handles.
    unlinkat(aFds.back(), "bottom.txt", 0);
    for (int i = nLevels; i > 0; --i) {
        close(aFds[i]);
        unlinkat(aFds[i - 1], strName.c_str(), AT_REMOVEDIR);
    }
    close(aFds[0]);
}
// Descriptors run out while workers hold some: nothing is lost or marked
// unread, and the records are those of a walk that never ran short.
TEST_F(ScannerTest, ReadAheadOutOfDescriptorsFindsEverything) {
    if (!fs::exists("/proc/self/fd")) GTEST_SKIP() << "open descriptors cannot be counted";
    test::CTempDir temp;
    fs::path level = temp.Path();
    const int nLevels = 300;  // beyond the levels that keep their handles
    for (int i = 0; i < nLevels; ++i) {
        fs::create_directories(level / "leaf");
        std::ofstream(level / "leaf" / "f") << "x";
        level /= "next";
    }
    fs::create_directory(level);
    Scan({}, temp.Path(), 1);
    Scan({}, temp.Path(), 1);
    const std::vector<std::u16string> aExpected = Records();

    rlimit saved{};
    ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &saved), 0);
    size_t nOpen = 0;
    for ([[maybe_unused]] const auto& fd : fs::directory_iterator("/proc/self/fd")) ++nOpen;
    rlimit low = saved;
    low.rlim_cur = nOpen + 12;
    ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &low), 0);
    Scan({}, temp.Path(), 4);
    setrlimit(RLIMIT_NOFILE, &saved);
    EXPECT_EQ(m_doc.m_scan.m_aAllDirs.GetSize(), size_t(2 * nLevels + 1));
    EXPECT_TRUE(m_doc.m_scan.m_aProtectedDirs.empty());
    EXPECT_EQ(Records(), aExpected);
}
#endif

}  // namespace
}  // namespace zv
