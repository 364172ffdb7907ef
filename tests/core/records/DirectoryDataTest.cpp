// Directory records over a small built tree: roll-ups, removal, paths,
// ordering, totals and checksum folds; the CRC-32 itself; roots and the
// drive list.
#include <gtest/gtest.h>

#include <stdexcept>

#include "core/records/Crc32.h"
#include "core/records/DirectoryData.h"
#include "core/records/DriveList.h"
#include "core/records/NameCrc.h"
#include "core/records/RecordTestSupport.h"
#include "platform/Text.h"
#include "support/TempDir.h"

namespace zv {
namespace {

using test::AddDir;
using test::AddFile;
using test::MakeRoot;
using Dirs = std::vector<CDirectoryData*>;

TEST(Crc32, KnownVectorsPiecesAndFolds) {
    const std::pair<std::string, uint32_t> aCases[] = {
        {"", 0},
        {"123456789", 0xCBF43926u},
        {"a", 0xE8B7BE43u},
        {"The quick brown fox jumps over the lazy dog", 0x414FA339u},
        {std::string(1, '\0'), 0xD202EF8Du}};
    for (const auto& [strData, uExpected] : aCases)
        EXPECT_EQ(Crc32Buffer(strData.data(), strData.size()), uExpected) << strData;
    EXPECT_EQ(Crc32Final(Crc32Update(Crc32Update(Crc32Init(), "1234", 4), "56789", 5)),
              0xCBF43926u);
    // A fold runs the four bytes of its data, low first, through the register.
    const unsigned char aBytes[] = {1, 2, 3, 4};
    EXPECT_EQ(Crc32Fold(0x04030201u, 0x12345678u), Crc32Update(0x12345678u, aBytes, 4));
    EXPECT_EQ(Crc32Final(Crc32Fold(0x04030201u, Crc32Init())), Crc32Buffer(aBytes, 4));
}

TEST(NameCrc, UpperCasesAndTakesTwoBytesPerCodeUnit) {
    // U+00E9 upper-cases to U+00C9; U+0416 stays; both bytes of each unit count.
    const unsigned char aBytes[] = {'A', 0, 0xC9, 0x00, 0x16, 0x04};
    EXPECT_EQ(NameCrc(u"a\u00e9\u0416"), Crc32Buffer(aBytes, sizeof aBytes));
    EXPECT_EQ(NameCrc(u""), 0u);
}

// R (cluster 4096): a.txt 100, sub/ (b.bin 5000, deep/ (c.dat 0, d.dat 4096)), empty/
struct CSmallTree {
    std::unique_ptr<CRootDirectoryData> pRoot = MakeRoot(u"R");
    CFileData* pA = AddFile(*pRoot, u"a.txt", 100);
    CDirectoryData* pSub = AddDir(*pRoot, u"sub");
    CFileData* pB = AddFile(*pSub, u"b.bin", 5000);
    CDirectoryData* pDeep = AddDir(*pSub, u"deep");
    CFileData* pC = AddFile(*pDeep, u"c.dat", 0);
    CFileData* pD = AddFile(*pDeep, u"d.dat", 4096);
    CDirectoryData* pEmpty = AddDir(*pRoot, u"empty");
};

// Own size and actual size, those of the subdirectories, and the file count.
void ExpectTotals(const CDirectoryData& dir, double dFiles, double dFilesActual, double dSubdirs,
                  double dSubdirsActual, uint32_t uCount) {
    SCOPED_TRACE(platform::Utf16ToUtf8(dir.m_strName.View()));
    EXPECT_EQ(dir.m_dFilesSize, dFiles);
    EXPECT_EQ(dir.m_dFilesActual, dFilesActual);
    EXPECT_EQ(dir.m_dSubdirsSize, dSubdirs);
    EXPECT_EQ(dir.m_dSubdirsActual, dSubdirsActual);
    EXPECT_EQ(dir.m_uCumulativeCount, uCount);
}

TEST(DirectoryData, FilesRollUpToEveryAncestorAndRemovalTakesThemOut) {
    CSmallTree t;
    ExpectTotals(*t.pRoot, 100, 4096, 9096, 12288, 4);
    ExpectTotals(*t.pSub, 5000, 8192, 4096, 4096, 3);
    ExpectTotals(*t.pDeep, 4096, 4096, 0, 0, 2);
    ExpectTotals(*t.pEmpty, 0, 0, 0, 0, 0);
    EXPECT_EQ(t.pRoot->GetActualWithSubdirs(), 16384);
    EXPECT_EQ(t.pDeep->m_nLevel, 2u);

    EXPECT_TRUE(t.pRoot->RemoveFile(t.pD));  // found two levels down
    ExpectTotals(*t.pRoot, 100, 4096, 5000, 8192, 3);
    ExpectTotals(*t.pSub, 5000, 8192, 0, 0, 2);
    ExpectTotals(*t.pDeep, 0, 0, 0, 0, 1);
    EXPECT_EQ(t.pDeep->m_aFiles.Items(), std::vector<CFileData*>{t.pC});
    EXPECT_FALSE(t.pDeep->RemoveFile(t.pA));  // only this subtree is searched
    CFileData stranger(u"x", 1, {}, {}, {}, 0, nullptr, false, nullptr);
    EXPECT_FALSE(t.pRoot->RemoveFile(&stranger));
}

TEST(DirectoryData, FullPathJoinsNamesWithTheNativeSeparator) {
    const std::u16string kSep(1, platform::kPathSeparator);
    CSmallTree t;
    EXPECT_EQ(t.pRoot->GetFullPath(), u"R");
    EXPECT_EQ(t.pD->GetFullPath(), u"R" + kSep + u"sub" + kSep + u"deep" + kSep + u"d.dat");
    auto pVolume = MakeRoot(kSep);  // a volume root already ends in the separator
    EXPECT_EQ(AddDir(*pVolume, u"usr")->GetFullPath(), kSep + u"usr");
}

TEST(DirectoryData, ComparePathOrdersByComponentsWithoutCase) {
    auto pRoot = MakeRoot(u"root");
    CDirectoryData* pAlpha = AddDir(*pRoot, u"alpha");
    CDirectoryData* pAlphaChild = AddDir(*pAlpha, u"zeta");
    CDirectoryData* pBeta = AddDir(*pRoot, u"Beta");
    CDirectoryData* pAlphaUpper = AddDir(*pRoot, u"ALPHA");
    auto pOtherRoot = MakeRoot(u"ROOT");
    const std::tuple<CDirectoryData*, CDirectoryData*, int> aCases[] = {
        {pAlpha, pAlpha, 0},
        {pAlpha, pBeta, -1},
        {pBeta, pAlpha, 1},
        {pAlpha, pAlphaUpper, 0},                  // same path in other case
        {pBeta, AddDir(*pOtherRoot, u"beta"), 0},  // roots differ in case only
        {pAlphaChild, pBeta, -1},                  // decided by the first components
        {pAlpha, pAlphaChild, 1},                  // a directory after its descendants
        {pAlphaChild, pAlpha, -1},
        {pRoot.get(), pAlpha, 1}};
    for (const auto& [pA, pB, nSign] : aCases) {
        const int n = CDirectoryData::ComparePath(pA, pB);
        EXPECT_EQ((n > 0) - (n < 0), nSign) << platform::Utf16ToUtf8(pA->GetFullPath()) << " vs "
                                            << platform::Utf16ToUtf8(pB->GetFullPath());
    }

    // Chains of 20 levels and more are compared from allocated arrays.
    CDirectoryData *pA = pRoot.get(), *pB = pRoot.get();
    for (int i = 0; i < 30; ++i) {
        pA = AddDir(*pA, u"level");
        pB = AddDir(*pB, i == 25 ? u"LEVEM" : u"LEVEL");
        const int n = CDirectoryData::ComparePath(pA, pB);
        EXPECT_TRUE(i < 25 ? n == 0 : n < 0) << i;
    }
    EXPECT_GT(CDirectoryData::ComparePath(pA->m_pParent, pA), 0);
    EXPECT_LT(CDirectoryData::ComparePath(pA, pA->m_pParent), 0);
}

// Totals are stored until recomputed, and a view's removal adjusts them.
TEST(DirectoryData, TotalsListsAndReset) {
    CSmallTree t;
    EXPECT_EQ(t.pRoot->GetTotalFiles(), 4);
    EXPECT_EQ(t.pRoot->GetTotalDirs(), 3);
    EXPECT_EQ(t.pSub->GetTotalFiles(), 3);
    EXPECT_EQ(t.pSub->GetTotalDirs(), 1);
    CFileData* pLate = AddFile(*t.pDeep, u"late", 1);
    t.pRoot->DecrementFileTotal();
    t.pRoot->DecrementDirTotal();
    EXPECT_EQ(t.pRoot->GetTotalFiles(), 3);
    EXPECT_EQ(t.pRoot->GetTotalDirs(), 2);
    t.pRoot->RecomputeTotals();
    EXPECT_EQ(t.pRoot->GetTotalFiles(), 5);
    EXPECT_EQ(t.pDeep->GetTotalFiles(), 3);

    Dirs aFlat, aDirs;
    t.pRoot->Flatten(aFlat);
    EXPECT_EQ(aFlat, (Dirs{t.pRoot.get(), t.pEmpty, t.pSub, t.pDeep}));
    std::vector<std::u16string> aNames;
    std::vector<CFileData*> aFiles;
    t.pSub->CollectFiles(&aNames, aDirs, aFiles);
    EXPECT_EQ(aFiles, (std::vector<CFileData*>{t.pB, t.pC, t.pD, pLate}));
    EXPECT_EQ(aDirs, (Dirs{t.pSub, t.pDeep, t.pDeep, t.pDeep}));
    EXPECT_EQ(aNames, (std::vector<std::u16string>{u"b.bin", u"c.dat", u"d.dat", u"late"}));
    t.pRoot->CollectFiles(nullptr, aDirs, aFiles);  // appends
    EXPECT_EQ(aFiles.size(), 9u);
    EXPECT_TRUE(t.pSub->HasFiles());
    EXPECT_FALSE(t.pEmpty->HasFiles());
    EXPECT_THROW(t.pEmpty->m_aFiles[0], std::invalid_argument);

    t.pRoot->ResetForScan();
    EXPECT_FALSE(t.pDeep->m_bTotalsValid);
    EXPECT_EQ(t.pRoot->m_dSubdirsSize, 0);
    EXPECT_EQ(t.pRoot->m_uCumulativeCount, 0u);
    t.pRoot->CompactArrays();
    EXPECT_EQ(t.pRoot->m_aChildren.GetSize(), 2u);
}

class DirectoryCrc : public ::testing::Test {
protected:
    CDirectoryData* Dir(std::u16string_view strName, std::vector<uint32_t> aCrcs) {
        CDirectoryData* pDir = AddDir(*m_pRoot, strName);
        for (const uint32_t uCrc : aCrcs) {
            CFileData* pFile = AddFile(*pDir, platform::U16(std::to_string(uCrc)), 10);
            m_services.m_mapCrc[pFile->GetFullPath()] = uCrc;
        }
        return pDir;
    }
    test::CTableServices m_services;
    std::unique_ptr<CRootDirectoryData> m_pRoot = MakeRoot(u"R");
};

TEST_F(DirectoryCrc, FoldsFileChecksumsInListOrderOnce) {
    CDirectoryData* pNone = Dir(u"none", {});
    CDirectoryData* pOne = Dir(u"one", {0xDEADBEEF});
    CDirectoryData* pTwo = Dir(u"two", {0x11111111, 0x22222222});
    EXPECT_EQ(pNone->GetCrc(), 0u);
    EXPECT_EQ(pOne->GetCrc(), 0xDEADBEEFu);  // one file: its checksum unchanged
    const uint32_t uTwo = ~Crc32Fold(Crc32Fold(0xFFFFFFFF, 0x11111111), 0x22222222);
    EXPECT_EQ(pTwo->GetCrc(), uTwo);
    std::swap(pTwo->m_aFiles.Items()[0], pTwo->m_aFiles.Items()[1]);
    pTwo->ResetForScan();
    EXPECT_NE(pTwo->GetCrc(), uTwo);

    // Kept after a removal until reset.
    const int nReads = m_services.m_nReads;
    EXPECT_TRUE(pOne->RemoveFile(pOne->m_aFiles[0]));
    EXPECT_EQ(pOne->GetCrc(), 0xDEADBEEFu);
    EXPECT_EQ(m_services.m_nReads, nReads);
    pOne->ResetForScan();
    EXPECT_EQ(pOne->GetCrc(), 0u);
}

TEST_F(DirectoryCrc, WithSubdirectoriesFoldsChildrenInArrayOrder) {
    CDirectoryData* pLeaf = Dir(u"leaf", {0x0A0B0C0D});
    CDirectoryData* pBare = Dir(u"bare", {});
    m_services.m_mapCrc[AddFile(*m_pRoot, u"top", 10)->GetFullPath()] = 0x01020304;
    EXPECT_EQ(pLeaf->GetCrcWithSubdirs(), pLeaf->GetCrc());  // no children
    EXPECT_EQ(pBare->GetCrcWithSubdirs(), 0u);
    const uint32_t uRunning = Crc32Fold(Crc32Fold(0xFFFFFFFF, 0x01020304), 0x0A0B0C0D);
    EXPECT_EQ(m_pRoot->GetCrcWithSubdirs(), ~Crc32Fold(uRunning, 0));
}

TEST(RootDirectoryData, PrepareFillsPathDriveVolumeAndDriveList) {
    test::CTempDir temp;
    const std::u16string strPath = platform::Utf8ToUtf16(temp.Path().string());
    CDriveList drives;
    CRootDirectoryData root(strPath), manual(strPath);
    EXPECT_EQ(root.m_bNewRoot, 1);
    root.Prepare(drives);
    EXPECT_EQ(root.m_bNewRoot, 0);
    EXPECT_EQ(root.GetFullPath(), platform::GetFullPathName(strPath));
    EXPECT_FALSE(root.m_strDrive.empty());
    EXPECT_GT(root.m_dClusterSize, 0);
    manual.m_bUseManualClusterSize = 1;
    manual.m_dManualClusterSize = 65536;
    manual.Prepare(drives);
    EXPECT_EQ(manual.m_dClusterSize, 65536);
    ASSERT_EQ(drives.GetEntries().size(), 1u);
    EXPECT_EQ(drives.GetEntries()[0].m_uRefCount, 2u);
}

TEST(DriveList, CountsRootsPerDriveWithoutRegardToCase) {
    CDriveList drives;
    for (const char16_t* pszDrive : {u"C:", u"c:", u"\\\\server"}) drives.AddDrive(pszDrive);
    ASSERT_EQ(drives.GetEntries().size(), 2u);
    EXPECT_EQ(drives.GetEntries()[0].m_strDrive, u"C:");
    EXPECT_EQ(drives.GetEntries()[0].m_uRefCount, 2u);
    drives.RemoveDrive(u"C:");
    ASSERT_EQ(drives.GetEntries().size(), 2u);
    EXPECT_EQ(drives.GetEntries()[0].m_uRefCount, 1u);
    drives.RemoveDrive(u"D:");  // not listed: nothing happens
    drives.RemoveDrive(u"c:");
    ASSERT_EQ(drives.GetEntries().size(), 1u);
    EXPECT_EQ(drives.GetEntries()[0].m_strDrive, u"\\\\server");
}

}  // namespace
}  // namespace zv
