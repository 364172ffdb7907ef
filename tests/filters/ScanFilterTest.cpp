#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <set>

#include "core/Document.h"
#include "core/Host.h"
#include "core/Scanner.h"
#include "filters/FilterActive.h"
#include "filters/ScanFilter.h"
#include "platform/FileSystem.h"
#include "platform/Text.h"
#include "support/TempDir.h"

namespace zv {
namespace {

namespace fs = std::filesystem;
using platform::U16;

FILETIME Days(int nDays) {
    return FileTimeFromUInt64(kUnixEpochTicks + uint64_t(nDays) * 86400 * kTicksPerSecond);
}

// root/
//   report.txt 100   notes.TXT 2000   image.png 50000   big.bin 100000
//   src/ main.cpp 10   src/tmp/ scratch.txt 1
//   build/ out.txt 5
//   docs/ guide.txt 300
class ScanFilterTest : public ::testing::Test {
protected:
    void SetUp() override {
        SetHost(&m_host);
        SetMainDocument(&m_doc);
        Write("report.txt", 100, 10);
        Write("notes.TXT", 2000, 20);
        Write("image.png", 50000, 30);
        Write("big.bin", 100000, 40);
        Write("src/main.cpp", 10, 50);
        Write("src/tmp/scratch.txt", 1, 60);
        Write("build/out.txt", 5, 70);
        Write("docs/guide.txt", 300, 80);
    }
    void TearDown() override {
        SetMainDocument(nullptr);
        SetHost(nullptr);
    }

    // A file whose modification time is a given number of days after 1970.
    void Write(const std::string& strRelative, size_t nSize, int nDays) {
        const fs::path path = m_temp.Path() / strRelative;
        fs::create_directories(path.parent_path());
        std::ofstream(path, std::ios::binary) << std::string(nSize, 'x');
        ASSERT_TRUE(platform::SetFileTimes(platform::Utf8ToUtf16(path.string()), {}, Days(nDays),
                                           Days(nDays)));
    }

    std::u16string RootPath() const { return platform::Utf8ToUtf16(m_temp.Path().string()); }
    std::u16string Sep() const { return std::u16string(1, platform::kPathSeparator); }

    // Scans with the filters set by configure; the names of the files kept,
    // relative to the root, with '/' between components.
    std::set<std::string> Kept(const std::function<void(CFilterSet&)>& configure) {
        m_doc.m_scan.m_aRoots.DeleteAll();
        auto* pRoot = new CRootDirectoryData(RootPath());
        pRoot->Prepare(m_doc.m_scan.m_aDrives);
        m_doc.m_scan.m_aRoots.Add(pRoot);
        for (auto& aList : m_doc.m_filters.m_aLists) aList.clear();
        m_doc.m_filters.m_aDates = {};
        m_doc.m_filters.m_bMinSize = m_doc.m_filters.m_bMaxSize = 0;
        m_doc.m_filters.m_nPathLength = 0;
        configure(m_doc.m_filters);
        CScanFilter filter(m_doc);
        CScanner(m_doc, &filter).Rescan();
        std::set<std::string> setNames;
        const std::u16string strPrefix = pRoot->GetFullPath() + Sep();
        for (CFileData* pFile : m_doc.m_scan.m_aAllFiles) {
            std::string strName =
                platform::Utf16ToUtf8(pFile->GetFullPath().substr(strPrefix.size()));
            std::replace(strName.begin(), strName.end(), '\\', '/');
            setNames.insert(strName);
        }
        return setNames;
    }

    test::CTempDir m_temp;
    CQuietHost m_host;
    CWZorvaneDoc m_doc;
};

using Names = std::set<std::string>;

TEST_F(ScanFilterTest, NamePatternsAndExcludes) {
    EXPECT_EQ(Kept([](CFilterSet& f) { f.AddEntry(FilterFileNames, u"*.txt"); }),
              (Names{"report.txt", "notes.TXT", "src/tmp/scratch.txt", "build/out.txt",
                     "docs/guide.txt"}));
    EXPECT_EQ(Kept([](CFilterSet& f) {
                  f.AddEntry(FilterFileNames, u"*.txt");
                  f.AddEntry(FilterFileNamesExclude, u"*e*.txt");  // report, notes, guide
                  f.AddEntry(FilterFileNamesExclude, u"scratch.*");
              }),
              (Names{"build/out.txt"}));
    EXPECT_EQ(Kept([&](CFilterSet& f) {
                  f.AddEntry(FilterFullPathExclude, RootPath() + Sep() + u"BIG.BIN");
                  f.AddEntry(FilterFileNames, u"*.bin");
              }),
              Names{});
}

TEST_F(ScanFilterTest, DirectoryExcludeAndDirectoryFilter) {
    // Excluded directories are not seen, even for files a name filter wants.
    EXPECT_EQ(Kept([&](CFilterSet& f) {
                  f.AddEntry(FilterDirExclude, u"*" + Sep() + u"SRC");
                  f.AddEntry(FilterFileNames, u"*.cpp");
              }),
              Names{});
    // A directory filter skips the files of directories that fail it (the
    // root included) but still walks their subdirectories.
    EXPECT_EQ(Kept([](CFilterSet& f) { f.AddEntry(FilterDir, u"tmp"); }),
              (Names{"src/tmp/scratch.txt"}));
    EXPECT_NE(m_doc.m_scan.m_aRoots[0]->m_aChildren.GetSize(), 0u);  // src stays as its parent
}

TEST_F(ScanFilterTest, SizeBoundsIncludeTheirValue) {
    EXPECT_EQ(Kept([](CFilterSet& f) {
                  f.m_bMinSize = 100;
                  f.m_dMinSize = 100;
                  f.m_bMaxSize = 1;
                  f.m_dMaxSize = 2000;
              }),
              (Names{"report.txt", "notes.TXT", "docs/guide.txt"}));
}

TEST_F(ScanFilterTest, DatesBeforeAndAfterIncludeTheirValue) {
    EXPECT_EQ(Kept([](CFilterSet& f) {
                  f.m_aDates[ModifiedAfter].m_bAbsolute = 1;
                  f.m_aDates[ModifiedAfter].m_ftAbsolute = Days(30);
                  f.m_aDates[ModifiedBefore].m_bAbsolute = 1;
                  f.m_aDates[ModifiedBefore].m_ftAbsolute = Days(50);
              }),
              (Names{"image.png", "big.bin", "src/main.cpp"}));
    // Relative: everything was modified long before 30 days ago.
    EXPECT_EQ(Kept([](CFilterSet& f) {
                  f.m_aDates[ModifiedAfter].m_bRelative = 1;
                  f.m_aDates[ModifiedAfter].m_nDays = -30;
              }),
              Names{});
    const FILETIME ftResolved = m_doc.m_filters.m_aDates[ModifiedAfter].m_ftResolved;
    const uint64_t uNow = FileTimeToUInt64(platform::GetSystemTimeAsFileTime());
    const uint64_t uThirtyDays = 30ULL * 86400 * kTicksPerSecond;
    EXPECT_LE(FileTimeToUInt64(ftResolved), uNow - uThirtyDays);
    EXPECT_GT(FileTimeToUInt64(ftResolved), uNow - uThirtyDays - 600 * kTicksPerSecond);
}

TEST_F(ScanFilterTest, AFilterThatAdmitsNothingLeavesAnEmptyTree) {
    EXPECT_EQ(Kept([](CFilterSet& f) { f.AddEntry(FilterFileNames, u"*.none"); }), Names{});
    EXPECT_EQ(m_host.m_aMessages.back(), u"No files/folders found");
    EXPECT_EQ(m_doc.m_scan.m_aAllDirs.GetSize(), 0u);  // the tree gets no item
}

TEST_F(ScanFilterTest, EmptyDirectoriesArePrunedUnderAFilter) {
    EXPECT_EQ(Kept([](CFilterSet& f) { f.AddEntry(FilterFileNames, u"guide.txt"); }),
              (Names{"docs/guide.txt"}));
    CRootDirectoryData& root = *m_doc.m_scan.m_aRoots[0];
    ASSERT_EQ(root.m_aChildren.GetSize(), 1u);
    EXPECT_EQ(root.m_aChildren[0]->m_strName.View(), u"docs");
    EXPECT_EQ(m_doc.m_scan.m_aAllDirs.GetSize(), 2u);
}

TEST_F(ScanFilterTest, PathLengthAndOwners) {
    const size_t nRoot = RootPath().size();
    // "report.txt" and "notes.TXT"-long paths: a path exactly as long passes.
    EXPECT_EQ(Kept([&](CFilterSet& f) {
                  f.m_nPathLength = int32_t(nRoot + 1 + std::string("src/tmp/scratch.txt").size());
              }),
              (Names{"src/tmp/scratch.txt"}));
    std::u16string strOwner;
    ASSERT_TRUE(platform::LookupOwnerName(RootPath(), strOwner));
    EXPECT_EQ(Kept([&](CFilterSet& f) { f.AddEntry(FilterOwnersExclude, strOwner); }), Names{});
    EXPECT_EQ(Kept([&](CFilterSet& f) {
                  f.AddEntry(FilterOwners, u"*");
                  f.AddEntry(FilterFileNames, u"big.bin");
              }),
              (Names{"big.bin"}));
    EXPECT_EQ(m_doc.m_scan.m_aAllFiles[0]->m_uFlags & FILE_OWNER_VALID, FILE_OWNER_VALID);
    EXPECT_EQ(m_doc.m_scan.m_aAllFiles[0]->GetOwner(), strOwner);
}

// The file tests one by one against listing entries, without a disk.
class FileTests : public ::testing::Test {
protected:
    bool Admits(const CDirEntry& entry) {
        CFileCandidate candidate(entry, m_dir, m_strDir, entry.Size());
        return CScanFilter(m_doc).AdmitsFile(candidate);
    }
    CWZorvaneDoc m_doc;
    CDirectoryData m_dir{nullptr, u"D", {}, {}, {}, ATTR_DIRECTORY};
    std::u16string m_strDir = u"D";
};

TEST_F(FileTests, AttributesYesWinsOverNo) {
    CDirEntry entry;
    entry.strName = u"f";
    entry.uAttributes = ATTR_HIDDEN | ATTR_ARCHIVE;
    CFilterSet& f = m_doc.m_filters;
    f.m_aAttributes[AttrFilterHidden] = {1, 1};
    EXPECT_TRUE(Admits(entry));
    f.m_aAttributes[AttrFilterHidden] = {0, 1};
    EXPECT_FALSE(Admits(entry));
    f.m_aAttributes[AttrFilterHidden] = {};
    f.m_aAttributes[AttrFilterReadOnly] = {1, 0};
    EXPECT_FALSE(Admits(entry));
    entry.uAttributes |= ATTR_READONLY;
    EXPECT_TRUE(Admits(entry));
}

TEST_F(FileTests, DateRelationsAndLowDates) {
    CDirEntry entry;
    entry.strName = u"f";
    CFilterSet& f = m_doc.m_filters;
    f.m_bAnyDateLow = 1;
    EXPECT_FALSE(Admits(entry));  // all-zero dates do not count
    entry.ftAccessed = FILETIME{5, 0};
    EXPECT_TRUE(Admits(entry));
    entry.ftAccessed = FILETIME{5, 1};
    EXPECT_FALSE(Admits(entry));
    f.m_bAnyDateLow = 0;

    f.m_bCreatedLater = 1;
    entry.ftCreated = Days(10);
    entry.ftAccessed = Days(10);
    entry.ftModified = Days(12);
    EXPECT_FALSE(Admits(entry));
    entry.ftAccessed = Days(9);
    EXPECT_TRUE(Admits(entry));
}

TEST_F(FileTests, TheFirstFailingTestSkipsTheFileBeforeLaterOnesRun) {
    // The owner is read only by the owner tests, near the end: a file that
    // an earlier test excludes never has its security information read.
    CFilterSet& f = m_doc.m_filters;
    f.AddEntry(FilterFileNamesExclude, u"*.me");
    f.AddEntry(FilterOwners, u"*");
    CDirEntry entry;
    entry.strName = u"skip.me";
    CFileCandidate excluded(entry, m_dir, m_strDir, 0);
    EXPECT_FALSE(CScanFilter(m_doc).AdmitsFile(excluded));
    EXPECT_FALSE(excluded.m_bHasOwner);

    entry.strName = u"keep.txt";
    CFileCandidate kept(entry, m_dir, m_strDir, 0);
    CScanFilter(m_doc).AdmitsFile(kept);
    EXPECT_TRUE(kept.m_bHasOwner);  // reached the owner test
}

TEST(FilterActive, ListsDatesAndFlagsCountButVersionAndOfficeDoNot) {
    CWZorvaneDoc doc;
    EXPECT_FALSE(IsFilterActive(doc.m_filters, doc.m_options));
    doc.m_filters.AddEntry(FilterVersionFiles, u"*.exe");
    doc.m_filters.AddEntry(FilterOfficeExtensions, u"*.doc");
    EXPECT_FALSE(IsFilterActive(doc.m_filters, doc.m_options));
    doc.m_filters.m_aAttributes[AttrFilterLinked].m_bNo = 1;
    EXPECT_TRUE(IsFilterActive(doc.m_filters, doc.m_options));
    doc.m_filters.m_aAttributes[AttrFilterLinked].m_bNo = 0;
    doc.m_options.m_bOnlyDupFiles = 1;
    EXPECT_FALSE(IsFilterActive(doc.m_filters, doc.m_options));
    doc.m_options.m_bFindDupFilesAfterScan = 1;
    UpdateFilterActive(doc);
    EXPECT_EQ(doc.m_bFilterActive, 1);
}

}  // namespace
}  // namespace zv
