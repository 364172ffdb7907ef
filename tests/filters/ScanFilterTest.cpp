#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <memory>
#include <set>

#include "core/document/Document.h"
#include "core/host/Host.h"
#include "core/scan/Scanner.h"
#include "filters/FilterActive.h"
#include "filters/ScanFilter.h"
#include "platform/FileSystem.h"
#include "platform/Text.h"
#include "support/TempDir.h"

namespace zv {
namespace {

FILETIME Days(int nDays) {
    return FileTimeFromUInt64(kUnixEpochTicks + uint64_t(nDays) * 86400 * kTicksPerSecond);
}

constexpr FILETIME kLowDate{5, 0}, kHighDate{5, 1};

std::u16string Sep() { return std::u16string(1, platform::kPathSeparator); }

void SetDate(CDateFilter& date, int nDays, bool bRelative = false) {
    (bRelative ? date.m_bRelative : date.m_bAbsolute) = 1;
    (bRelative ? date.m_ftResolved : date.m_ftAbsolute) = Days(nDays);
}

void YesNo(CYesNoFilter& filter, int nYes, int nNo) {
    filter.m_bYes = nYes;
    filter.m_bNo = nNo;
}

// The listing entry of "D/f.txt", hidden, 100 bytes, created on day 10,
// accessed on day 20 and modified on day 30.
class FileTests : public ::testing::Test {
protected:
    CWZorvaneDoc m_doc;
    CDirEntry m_entry{u"f.txt", 100, 0, Days(10), Days(20), Days(30), ATTR_HIDDEN};
    CDirectoryData m_dir{nullptr, u"D", {}, {}, {}, ATTR_DIRECTORY};
    std::u16string m_strDir = u"D";
};

TEST_F(FileTests, EachTestAlone) {
    using F = CFilterSet;
    using E = CDirEntry;
    const std::pair<void (*)(F&, E&), bool> aCases[] = {
        {[](F& f, E&) { f.AddEntry(FilterFileNames, u"*.TXT"); }, true},
        {[](F& f, E&) { f.AddEntry(FilterFileNames, u"*.doc"); }, false},
        {[](F& f, E&) { f.AddEntry(FilterFileNamesExclude, u"F.*"); }, false},
        {[](F& f, E&) { f.AddEntry(FilterFullPathExclude, u"d" + Sep() + u"F.TXT"); }, false},
        {[](F& f, E&) { f.AddEntry(FilterFullPathExclude, u"*"); }, true},  // no pattern
        // Size bounds and the path length include their value.
        {[](F& f, E&) { f.m_bMinSize = 1, f.m_dMinSize = 100; }, true},
        {[](F& f, E&) { f.m_bMinSize = 1, f.m_dMinSize = 101; }, false},
        {[](F& f, E&) { f.m_bMaxSize = 1, f.m_dMaxSize = 100; }, true},
        {[](F& f, E&) { f.m_bMaxSize = 1, f.m_dMaxSize = 99; }, false},
        {[](F& f, E&) { f.m_nPathLength = 7; }, true},
        {[](F& f, E&) { f.m_nPathLength = 8; }, false},
        // Each date against its own time (a mix-up passes), its value
        // included; a relative date uses the time resolved when the scan
        // starts.
        {[](F& f, E&) { SetDate(f.m_aDates[CreatedAfter], 11); }, false},
        {[](F& f, E&) { SetDate(f.m_aDates[AccessedAfter], 20); }, true},
        {[](F& f, E&) { SetDate(f.m_aDates[AccessedBefore], 19); }, false},
        {[](F& f, E&) { SetDate(f.m_aDates[ModifiedBefore], 29); }, false},
        {[](F& f, E&) { SetDate(f.m_aDates[ModifiedAfter], 31, true); }, false},
        {[](F& f, E&) { SetDate(f.m_aDates[ModifiedBefore], 29, true); }, false},
        // Created later than the access or the modification, not equal.
        {[](F& f, E&) { f.m_bCreatedLater = 1; }, false},
        {[](F& f, E& e) { f.m_bCreatedLater = 1, e.ftCreated = e.ftAccessed; }, false},
        {[](F& f, E& e) { f.m_bCreatedLater = 1, e.ftCreated = Days(25); }, true},
        // "filter any dates EQ 0": a date with a zero high part and a
        // non-zero low part; an all-zero date does not count.
        {[](F& f, E& e) {
             f.m_bAnyDateLow = 1, e.ftCreated = e.ftAccessed = e.ftModified = FILETIME();
         },
         false},
        {[](F& f, E& e) { f.m_bAnyDateLow = 1, e.ftCreated = kLowDate; }, true},
        {[](F& f, E& e) { f.m_bAnyDateLow = 1, e.ftAccessed = kLowDate; }, true},
        {[](F& f, E& e) { f.m_bAnyDateLow = 1, e.ftModified = kLowDate; }, true},
        {[](F& f, E& e) { f.m_bAnyDateLow = 1, e.ftAccessed = kHighDate; }, false},
        // Attributes (the file is hidden): yes wins over no.
        {[](F& f, E&) { YesNo(f.m_aAttributes[AttrFilterHidden], 1, 1); }, true},
        {[](F& f, E&) { YesNo(f.m_aAttributes[AttrFilterHidden], 0, 1); }, false},
        {[](F& f, E&) { YesNo(f.m_aAttributes[AttrFilterReadOnly], 1, 0); }, false},
        // The owner of a file that cannot be looked up is empty.
        {[](F& f, E&) { f.AddEntry(FilterOwners, u"*"); }, true},
        {[](F& f, E&) { f.AddEntry(FilterOwners, u"?*"); }, false},
        {[](F& f, E&) { f.AddEntry(FilterOwnersExclude, u"*"); }, false},
    };
    for (size_t i = 0; i < std::size(aCases); ++i) {
        CWZorvaneDoc doc;
        CDirEntry entry = m_entry;
        aCases[i].first(doc.m_filters, entry);
        CFileCandidate candidate(entry, m_dir, m_strDir, entry.Size());
        EXPECT_EQ(CScanFilter(doc).AdmitsFile(candidate), aCases[i].second) << "case " << i;
    }
}

TEST_F(FileTests, AFileExcludedByNameIsNotAskedForItsOwner) {
    m_doc.m_filters.AddEntry(FilterFileNamesExclude, u"*.me");
    m_doc.m_filters.AddEntry(FilterOwners, u"*");
    for (const auto& [pszName, bKept] : {std::pair(u"skip.me", false), {u"keep.txt", true}}) {
        m_entry.strName = pszName;
        CFileCandidate candidate(m_entry, m_dir, m_strDir, 0);
        EXPECT_EQ(CScanFilter(m_doc).AdmitsFile(candidate), bKept);
        EXPECT_EQ(candidate.m_bHasOwner, bKept);  // the owner test comes last
    }
}

// root/ old.txt (300 bytes, modified on day 10), new.txt, src/main.cpp,
// src/tmp/scratch.txt, docs/guide.txt (1 byte each, modified now).
class ScanFilterTest : public ::testing::Test {
protected:
    void SetUp() override {
        SetHost(&m_host);
        std::filesystem::create_directories(m_temp.Path() / "src" / "tmp");
        std::filesystem::create_directories(m_temp.Path() / "docs");
        for (const char* pszName :
             {"new.txt", "src/main.cpp", "src/tmp/scratch.txt", "docs/guide.txt"})
            m_temp.WriteFile(pszName, "x");
        const std::u16string strOld =
            m_temp.WriteFile("old.txt", std::string(300, 'x')).u16string();
        ASSERT_TRUE(platform::SetFileTimes(strOld, {}, Days(10), Days(10)));
    }
    void TearDown() override {
        SetMainDocument(nullptr);
        SetHost(nullptr);
    }

    // Scans a fresh document with the filters set by configure; the names
    // of the files kept.
    std::set<std::string> Kept(const std::function<void(CFilterSet&)>& configure) {
        m_pDoc = std::make_unique<CWZorvaneDoc>();
        SetMainDocument(m_pDoc.get());
        auto* pRoot = new CRootDirectoryData(m_temp.Path().u16string());
        pRoot->Prepare(m_pDoc->m_scan.m_aDrives);
        m_pDoc->m_scan.m_aRoots.Add(pRoot);
        configure(m_pDoc->m_filters);
        CScanFilter filter(*m_pDoc);
        CScanner(*m_pDoc, &filter).Rescan();
        std::set<std::string> setNames;
        for (CFileData* pFile : m_pDoc->m_scan.m_aAllFiles)
            setNames.insert(platform::Utf16ToUtf8(pFile->m_strName.View()));
        return setNames;
    }

    test::CTempDir m_temp;
    CQuietHost m_host;
    std::unique_ptr<CWZorvaneDoc> m_pDoc;
};

using Names = std::set<std::string>;

TEST_F(ScanFilterTest, TheScanHandsSizesAndTimesToTheFileTests) {
    EXPECT_EQ(Kept([](CFilterSet& f) { f.m_bMinSize = 1, f.m_dMinSize = 300; }), Names{"old.txt"});
    // Relative dates are resolved from now when the scan starts.
    EXPECT_EQ(Kept([](CFilterSet& f) {
                  f.m_aDates[ModifiedAfter].m_bRelative = 1;
                  f.m_aDates[ModifiedAfter].m_nDays = -30;
              }),
              (Names{"new.txt", "main.cpp", "scratch.txt", "guide.txt"}));
    const uint64_t uResolved =
        FileTimeToUInt64(m_pDoc->m_filters.m_aDates[ModifiedAfter].m_ftResolved);
    const uint64_t uThirtyDaysAgo =
        FileTimeToUInt64(platform::GetSystemTimeAsFileTime()) - 30ULL * 86400 * kTicksPerSecond;
    EXPECT_LE(uResolved, uThirtyDaysAgo);
    EXPECT_GT(uResolved, uThirtyDaysAgo - 600 * kTicksPerSecond);
}

TEST_F(ScanFilterTest, DirectoryExcludeDirectoryFilterAndAFilterThatAdmitsNothing) {
    // Excluded directories are not seen, even for files a name filter wants;
    // with nothing admitted the tree gets no item.
    EXPECT_EQ(Kept([](CFilterSet& f) {
                  f.AddEntry(FilterDirExclude, u"*" + Sep() + u"SRC");
                  f.AddEntry(FilterFileNames, u"*.cpp");
              }),
              Names{});
    EXPECT_EQ(m_host.m_aMessages.back(), u"No files/folders found");
    EXPECT_EQ(m_pDoc->m_scan.m_aAllDirs.GetSize(), 0u);
    // A directory filter skips the files of directories that fail it (the
    // root included) but still walks their subdirectories.
    EXPECT_EQ(Kept([](CFilterSet& f) { f.AddEntry(FilterDir, u"tmp"); }), (Names{"scratch.txt"}));
    EXPECT_NE(m_pDoc->m_scan.m_aRoots[0]->m_aChildren.GetSize(), 0u);  // src stays as its parent
    // Directories left empty are pruned.
    EXPECT_EQ(Kept([](CFilterSet& f) { f.AddEntry(FilterFileNames, u"guide.txt"); }),
              (Names{"guide.txt"}));
    ASSERT_EQ(m_pDoc->m_scan.m_aRoots[0]->m_aChildren.GetSize(), 1u);
    EXPECT_EQ(m_pDoc->m_scan.m_aAllDirs.GetSize(), 2u);
}

TEST_F(ScanFilterTest, OwnersAreLookedUpAndKept) {
    std::u16string strOwner;
    ASSERT_TRUE(platform::LookupOwnerName(m_temp.Path().u16string(), strOwner));
    EXPECT_EQ(Kept([&](CFilterSet& f) { f.AddEntry(FilterOwnersExclude, strOwner); }), Names{});
    EXPECT_EQ(Kept([&](CFilterSet& f) {
                  f.AddEntry(FilterOwners, u"*");
                  f.AddEntry(FilterFileNames, u"new.txt");
              }),
              (Names{"new.txt"}));
    EXPECT_EQ(m_pDoc->m_scan.m_aAllFiles[0]->m_uFlags & FILE_OWNER_VALID, FILE_OWNER_VALID);
    EXPECT_EQ(m_pDoc->m_scan.m_aAllFiles[0]->GetOwner(), strOwner);
}

// Version and Office lists do not count; "only duplicate files" counts
// with "find duplicates after the scan".
TEST(FilterActive, ListsDatesAndFlagsCountButVersionAndOfficeDoNot) {
    CWZorvaneDoc doc;
    doc.m_filters.AddEntry(FilterVersionFiles, u"*.exe");
    doc.m_filters.AddEntry(FilterOfficeExtensions, u"*.doc");
    doc.m_options.m_bOnlyDupFiles = 1;
    EXPECT_FALSE(IsFilterActive(doc.m_filters, doc.m_options));
    doc.m_filters.m_aAttributes[AttrFilterLinked].m_bNo = 1;
    EXPECT_TRUE(IsFilterActive(doc.m_filters, doc.m_options));
    doc.m_filters.m_aAttributes[AttrFilterLinked].m_bNo = 0;
    doc.m_options.m_bFindDupFilesAfterScan = 1;
    UpdateFilterActive(doc);
    EXPECT_EQ(doc.m_bFilterActive, 1);
}

}  // namespace
}  // namespace zv
