#include <gtest/gtest.h>

#include <stdexcept>

#include "core/Crc32.h"
#include "core/DirectoryData.h"
#include "core/DriveList.h"
#include "core/RecordTestSupport.h"
#include "platform/Text.h"
#include "support/TempDir.h"

namespace zv {
namespace {

using test::AddDir;
using test::AddFile;
using test::MakeRoot;

const std::u16string kSep(1, platform::kPathSeparator);

// root (cluster 4096)
//   a.txt 100
//   sub
//     b.bin 5000
//     deep
//       c.dat 0
//       d.dat 4096
//   empty
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

struct Totals {
    double dFiles, dFilesActual, dSubdirs, dSubdirsActual;
    uint32_t uCount;
};

void ExpectTotals(const CDirectoryData& dir, const Totals& t) {
    SCOPED_TRACE(platform::Utf16ToUtf8(dir.m_strName.View()));
    EXPECT_EQ(dir.m_dFilesSize, t.dFiles);
    EXPECT_EQ(dir.m_dFilesActual, t.dFilesActual);
    EXPECT_EQ(dir.m_dSubdirsSize, t.dSubdirs);
    EXPECT_EQ(dir.m_dSubdirsActual, t.dSubdirsActual);
    EXPECT_EQ(dir.m_uCumulativeCount, t.uCount);
}

TEST(DirectoryData, AddingFilesRollsSizesUpToEveryAncestor) {
    CSmallTree t;
    ExpectTotals(*t.pRoot, {100, 4096, 9096, 8192 + 4096, 4});
    ExpectTotals(*t.pSub, {5000, 8192, 4096, 4096, 3});
    ExpectTotals(*t.pDeep, {4096, 4096, 0, 0, 2});
    ExpectTotals(*t.pEmpty, {0, 0, 0, 0, 0});
    EXPECT_EQ(t.pRoot->GetSizeWithSubdirs(), 9196);
    EXPECT_EQ(t.pRoot->GetActualWithSubdirs(), 16384);
    EXPECT_EQ(t.pDeep->m_nLevel, 2u);
}

TEST(DirectoryData, RemovingAFileTakesItOutOfEveryTotal) {
    CSmallTree t;
    EXPECT_TRUE(t.pRoot->RemoveFile(t.pD));  // found two levels down
    ExpectTotals(*t.pRoot, {100, 4096, 5000, 8192, 3});
    ExpectTotals(*t.pSub, {5000, 8192, 0, 0, 2});
    ExpectTotals(*t.pDeep, {0, 0, 0, 0, 1});
    ASSERT_EQ(t.pDeep->m_aFiles.GetSize(), 1u);
    EXPECT_EQ(t.pDeep->m_aFiles[0], t.pC);

    EXPECT_TRUE(t.pSub->RemoveFile(t.pB));
    ExpectTotals(*t.pRoot, {100, 4096, 0, 0, 2});

    CFileData stranger(u"x", 1, {}, {}, {}, 0, nullptr, false, nullptr);
    EXPECT_FALSE(t.pRoot->RemoveFile(&stranger));
    EXPECT_FALSE(t.pDeep->RemoveFile(t.pA));  // only this subtree is searched
}

TEST(DirectoryData, FullPathJoinsNamesWithTheNativeSeparator) {
    CSmallTree t;
    EXPECT_EQ(t.pRoot->GetFullPath(), u"R");
    EXPECT_EQ(t.pDeep->GetFullPath(), u"R" + kSep + u"sub" + kSep + u"deep");
    EXPECT_EQ(t.pD->GetFullPath(), u"R" + kSep + u"sub" + kSep + u"deep" + kSep + u"d.dat");

    // A volume root already ends in the separator.
    auto pVolume = MakeRoot(kSep);
    CDirectoryData* pDir = AddDir(*pVolume, u"usr");
    EXPECT_EQ(pDir->GetFullPath(), kSep + u"usr");
}

TEST(DirectoryData, ComparePathOrdersByComponentsWithoutCase) {
    auto pRoot = MakeRoot(u"root");
    CDirectoryData* pAlpha = AddDir(*pRoot, u"alpha");
    CDirectoryData* pAlphaChild = AddDir(*pAlpha, u"zeta");
    CDirectoryData* pBeta = AddDir(*pRoot, u"Beta");
    CDirectoryData* pAlphaUpper = AddDir(*pRoot, u"ALPHA");
    auto pOtherRoot = MakeRoot(u"ROOT");
    CDirectoryData* pOtherBeta = AddDir(*pOtherRoot, u"beta");

    struct Case {
        const CDirectoryData* pA;
        const CDirectoryData* pB;
        int nSign;
    };
    const Case aCases[] = {
        {pAlpha, pAlpha, 0},       {pAlpha, pBeta, -1},
        {pBeta, pAlpha, 1},        {pAlpha, pAlphaUpper, 0},  // same path in other case
        {pBeta, pOtherBeta, 0},                               // roots differ in case only
        {pAlphaChild, pBeta, -1},                             // decided by the first components
        {pAlpha, pAlphaChild, 1},                             // a directory after its descendants
        {pAlphaChild, pAlpha, -1}, {pRoot.get(), pAlpha, 1},
    };
    for (const Case& c : aCases) {
        const int n = CDirectoryData::ComparePath(c.pA, c.pB);
        EXPECT_EQ((n > 0) - (n < 0), c.nSign)
            << platform::Utf16ToUtf8(c.pA->GetFullPath()) << " vs "
            << platform::Utf16ToUtf8(c.pB->GetFullPath());
    }
}

TEST(DirectoryData, ComparePathGivesTheSameOrderForDeepChains) {
    // Chains of 20 levels and more are compared from allocated arrays.
    auto pRoot = MakeRoot(u"root");
    CDirectoryData* pA = pRoot.get();
    CDirectoryData* pB = pRoot.get();
    for (int i = 0; i < 30; ++i) {
        pA = AddDir(*pA, u"level");
        pB = AddDir(*pB, i == 25 ? u"LEVEM" : u"LEVEL");
        if (i == 17 || i == 18 || i == 19 || i == 25 || i == 29) {
            SCOPED_TRACE(i);
            const int n = CDirectoryData::ComparePath(pA, pB);
            EXPECT_EQ(n < 0, i >= 25);
            EXPECT_EQ(n == 0, i < 25);
        }
    }
    EXPECT_GT(CDirectoryData::ComparePath(pA->m_pParent, pA), 0);
    EXPECT_LT(CDirectoryData::ComparePath(pA, pA->m_pParent), 0);
}

TEST(DirectoryData, TotalsCountRecordsAndDirectoriesBelow) {
    CSmallTree t;
    EXPECT_EQ(t.pRoot->GetTotalFiles(), 4);
    EXPECT_EQ(t.pRoot->GetTotalDirs(), 3);
    EXPECT_EQ(t.pSub->GetTotalFiles(), 3);
    EXPECT_EQ(t.pSub->GetTotalDirs(), 1);

    // Stored until recomputed; a view's removal adjusts the stored value.
    AddFile(*t.pDeep, u"late", 1);
    EXPECT_EQ(t.pRoot->GetTotalFiles(), 4);
    t.pRoot->DecrementFileTotal();
    t.pRoot->DecrementDirTotal();
    EXPECT_EQ(t.pRoot->GetTotalFiles(), 3);
    EXPECT_EQ(t.pRoot->GetTotalDirs(), 2);
    t.pRoot->RecomputeTotals();
    EXPECT_EQ(t.pRoot->GetTotalFiles(), 5);
    EXPECT_EQ(t.pDeep->GetTotalFiles(), 3);

    t.pRoot->ResetForScan();
    EXPECT_FALSE(t.pDeep->m_bTotalsValid);
    EXPECT_EQ(t.pRoot->m_dSubdirsSize, 0);
    EXPECT_EQ(t.pRoot->m_uCumulativeCount, 0u);
}

TEST(DirectoryData, FlattenCollectFilesAndHasFiles) {
    CSmallTree t;
    std::vector<CDirectoryData*> aFlat;
    t.pRoot->Flatten(aFlat);
    const std::vector<CDirectoryData*> aFlatExpected = {t.pRoot.get(), t.pEmpty, t.pSub, t.pDeep};
    EXPECT_EQ(aFlat, aFlatExpected);

    std::vector<std::u16string> aNames;
    std::vector<CDirectoryData*> aDirs;
    std::vector<CFileData*> aFiles;
    t.pRoot->CollectFiles(&aNames, aDirs, aFiles);
    EXPECT_EQ(aFiles, (std::vector<CFileData*>{t.pA, t.pB, t.pC, t.pD}));
    EXPECT_EQ(aDirs, (std::vector<CDirectoryData*>{t.pRoot.get(), t.pSub, t.pDeep, t.pDeep}));
    EXPECT_EQ(aNames, (std::vector<std::u16string>{u"a.txt", u"b.bin", u"c.dat", u"d.dat"}));
    t.pSub->CollectFiles(nullptr, aDirs, aFiles);
    EXPECT_EQ(aFiles.size(), 7u);

    EXPECT_TRUE(t.pRoot->HasFiles());
    EXPECT_TRUE(t.pSub->HasFiles());
    EXPECT_FALSE(t.pEmpty->HasFiles());
    t.pRoot->CompactArrays();
    EXPECT_EQ(t.pRoot->m_aChildren.GetSize(), 2u);
}

TEST(DirectoryData, IndexOutOfRangeIsAProgrammingError) {
    CSmallTree t;
    EXPECT_THROW(t.pEmpty->m_aFiles[0], std::invalid_argument);
    EXPECT_THROW(t.pRoot->m_aChildren[2], std::invalid_argument);
}

class DirectoryCrc : public ::testing::Test {
protected:
    test::CTableServices m_services;
    std::unique_ptr<CRootDirectoryData> m_pRoot = MakeRoot(u"R");

    CFileData* File(CDirectoryData& dir, std::u16string_view strName, uint32_t uCrc) {
        CFileData* pFile = AddFile(dir, strName, 10);
        m_services.m_mapCrc[pFile->GetFullPath()] = uCrc;
        return pFile;
    }
};

TEST_F(DirectoryCrc, FoldsFileChecksumsInListOrder) {
    CDirectoryData* pNone = AddDir(*m_pRoot, u"none");
    CDirectoryData* pOne = AddDir(*m_pRoot, u"one");
    CDirectoryData* pTwo = AddDir(*m_pRoot, u"two");
    File(*pOne, u"f", 0xDEADBEEF);
    File(*pTwo, u"f", 0x11111111);
    File(*pTwo, u"g", 0x22222222);

    EXPECT_EQ(pNone->GetCrc(), 0u);
    EXPECT_EQ(pOne->GetCrc(), 0xDEADBEEFu);  // one file: its checksum unchanged
    const uint32_t uTwo = ~Crc32Fold(Crc32Fold(0xFFFFFFFF, 0x11111111), 0x22222222);
    EXPECT_EQ(pTwo->GetCrc(), uTwo);
    EXPECT_TRUE(pTwo->m_uFlags & DIR_CRC_VALID);

    // The order of the file list decides the value.
    std::swap(pTwo->m_aFiles.Items()[0], pTwo->m_aFiles.Items()[1]);
    pTwo->ResetForScan();
    EXPECT_NE(pTwo->GetCrc(), uTwo);
}

TEST_F(DirectoryCrc, WithSubdirectoriesFoldsChildrenInArrayOrder) {
    CDirectoryData* pLeaf = AddDir(*m_pRoot, u"leaf");
    CDirectoryData* pBare = AddDir(*m_pRoot, u"bare");
    File(*m_pRoot, u"top", 0x01020304);
    File(*pLeaf, u"x", 0x0A0B0C0D);

    EXPECT_EQ(pLeaf->GetCrcWithSubdirs(), pLeaf->GetCrc());  // no children
    EXPECT_EQ(pBare->GetCrcWithSubdirs(), 0u);
    uint32_t uRunning = Crc32Fold(0xFFFFFFFF, 0x01020304);
    uRunning = Crc32Fold(uRunning, 0x0A0B0C0D);
    uRunning = Crc32Fold(uRunning, 0);
    EXPECT_EQ(m_pRoot->GetCrcWithSubdirs(), ~uRunning);
}

TEST_F(DirectoryCrc, IsComputedOnceAndKeptAfterRemoval) {
    CDirectoryData* pDir = AddDir(*m_pRoot, u"d");
    CFileData* pOnly = File(*pDir, u"only", 0x12345678);
    EXPECT_EQ(pDir->GetCrc(), 0x12345678u);
    EXPECT_EQ(m_services.m_nBatches, 1);
    EXPECT_TRUE(pDir->RemoveFile(pOnly));
    EXPECT_EQ(pDir->GetCrc(), 0x12345678u);  // until the checksum is reset
    EXPECT_EQ(m_services.m_nBatches, 1);
    pDir->ResetForScan();
    EXPECT_EQ(pDir->GetCrc(), 0u);
}

TEST(RootDirectoryData, PrepareFillsPathDriveVolumeAndDriveList) {
    test::CTempDir temp;
    const std::u16string strPath = platform::Utf8ToUtf16(temp.Path().string());
    CDriveList drives;

    CRootDirectoryData root(strPath);
    EXPECT_EQ(root.m_bNewRoot, 1);
    root.Prepare(drives);
    EXPECT_EQ(root.m_bNewRoot, 0);
    EXPECT_TRUE(root.IsRoot());
    EXPECT_EQ(root.GetFullPath(), platform::GetFullPathName(strPath));
    EXPECT_FALSE(root.m_strDrive.empty());
    EXPECT_GT(root.m_dClusterSize, 0);
    ASSERT_EQ(drives.GetEntries().size(), 1u);

    CRootDirectoryData manual(strPath);
    manual.m_bUseManualClusterSize = 1;
    manual.m_dManualClusterSize = 65536;
    manual.Prepare(drives);
    EXPECT_EQ(manual.m_dClusterSize, 65536);
    ASSERT_EQ(drives.GetEntries().size(), 1u);
    EXPECT_EQ(drives.GetEntries()[0].m_uRefCount, 2u);
}

}  // namespace
}  // namespace zv
