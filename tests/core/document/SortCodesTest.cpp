#include <gtest/gtest.h>

#include "core/document/SortCodes.h"
#include "core/records/RecordTestSupport.h"

namespace zv {
namespace {

using test::AddDir;
using test::AddFile;
using test::MakeRoot;

FILETIME Ft(uint64_t u) { return FileTimeFromUInt64(u); }

int Sign(int n) { return (n > 0) - (n < 0); }

// R/alpha (created 3, owner zed): f1 apple.txt 100
// R/Beta (created 2, owner amy): f2 Banana 50, f3 APPLE.txt 100
class SortCodes : public ::testing::Test {
protected:
    void SetUp() override {
        Set(*m_pF1, 1, 5, 9, 2, u"bob", 5);
        Set(*m_pF2, 2, 4, 9, -1, u"Alice", 7);
        Set(*m_pF3, 1, 5, 9, 2, u"BOB", 5);
        m_pAlpha->m_ftCreated = Ft(3);
        m_pBeta->m_ftCreated = Ft(2);
        m_pAlpha->SetOwner(u"zed");
        m_pBeta->SetOwner(u"amy");
    }

    static void Set(CFileData& f, uint64_t c, uint64_t a, uint64_t m, int64_t nGroup,
                    std::u16string_view strOwner, uint32_t uCrc) {
        f.m_ftCreated = Ft(c);
        f.m_ftAccessed = Ft(a);
        f.m_ftModified = Ft(m);
        f.m_nDuplicateGroup = nGroup;
        f.SetOwner(strOwner);
        f.SetCrc(uCrc);
    }

    std::unique_ptr<CRootDirectoryData> m_pRoot = MakeRoot(u"R");
    CDirectoryData* m_pAlpha = AddDir(*m_pRoot, u"alpha");
    CDirectoryData* m_pBeta = AddDir(*m_pRoot, u"Beta");
    CFileData* m_pF1 = AddFile(*m_pAlpha, u"apple.txt", 100);
    CFileData* m_pF2 = AddFile(*m_pBeta, u"Banana", 50);
    CFileData* m_pF3 = AddFile(*m_pBeta, u"APPLE.txt", 100);
};

TEST_F(SortCodes, FileAndDirectoryComparisons) {
    struct Row {
        int nCode;
        int nFirst, nSecond;  // 1, 2, 3 for f1, f2, f3
        int nSign;
    };
    const Row aFileRows[] = {
        {1, 1, 2, -1},  {1, 1, 3, 0},   {2, 1, 2, 1},                 // names without case
        {4, 1, 2, 1},   {6, 1, 2, 1},   {5, 1, 2, -1}, {7, 1, 3, 1},  // 6 and 7 are 4 and 5
        {4, 1, 3, -1},  {5, 1, 3, 1},    // equal size: the path, reversed when descending
        {8, 1, 2, -1},  {9, 1, 2, 1},    // created
        {10, 1, 2, 1},                   // accessed
        {12, 1, 2, 1},  {13, 1, 2, 1},   // equal modified: size ascending either way
        {16, 1, 2, -1}, {17, 1, 2, 1},   // checksums
        {16, 1, 3, 0},                   // equal checksums: no tie break
        {19, 1, 2, -1}, {20, 1, 2, 1},   // directory path
        {19, 3, 2, -1},                  // same directory: the name
        {21, 1, 2, -1}, {22, 1, 2, -1},  // with an extension first either way
        {21, 1, 3, 0},  {23, 1, 2, 1},  {23, 1, 3, 0}, {24, 1, 2, -1},  // without case
        {25, 1, 2, 1},  {26, 1, 2, -1},                                 // duplicate groups, signed
        {99, 1, 2, 0}};
    CFileData* aFiles[] = {nullptr, m_pF1, m_pF2, m_pF3};
    for (const Row& r : aFileRows)
        EXPECT_EQ(Sign(CompareFilesByCode(r.nCode, aFiles[r.nFirst], aFiles[r.nSecond])), r.nSign)
            << "code " << r.nCode << ": f" << r.nFirst << " against f" << r.nSecond;

    AddFile(*m_pAlpha, u"extra", 1000);                // alpha: 1100 own, Beta: 150
    AddFile(*AddDir(*m_pBeta, u"sub"), u"big", 5000);  // Beta with subdirectories: 5150
    // Code, alpha against Beta.
    const std::pair<int, int> aDirRows[] = {{1, -1}, {2, 1},   {4, -1}, {5, 1},  {6, 1},
                                            {7, -1}, {8, -1},  {9, 1},  {10, 1}, {11, -1},
                                            {20, 1}, {21, -1}, {99, 0}};
    for (const auto& [nCode, nSign] : aDirRows)
        EXPECT_EQ(Sign(CompareDirsByCode(nCode, m_pAlpha, m_pBeta)), nSign) << "code " << nCode;
}

TEST_F(SortCodes, SortingIsStableAndRemembered) {
    SortFiles(*m_pBeta, 5);  // Banana 50, APPLE.txt 100 -> APPLE.txt first
    EXPECT_EQ(m_pBeta->m_aFiles[0], m_pF3);
    EXPECT_EQ(m_pBeta->m_nFileSort, 5);
    // Already sorted by that code: left as it is, even if changed since.
    std::swap(m_pBeta->m_aFiles.Items()[0], m_pBeta->m_aFiles.Items()[1]);
    SortFiles(*m_pBeta, 5);
    EXPECT_EQ(m_pBeta->m_aFiles[0], m_pF2);

    SortSubtree(*m_pRoot, 1, 2);
    EXPECT_EQ(m_pRoot->m_aChildren[0], m_pBeta);  // short name descending
    EXPECT_EQ(m_pBeta->m_aFiles[0], m_pF3);       // "APPLE.txt" before "Banana"

    // Equal keys keep their order.
    CDirectoryData* pSame = AddDir(*m_pRoot, u"same");
    CFileData* pX = AddFile(*pSame, u"x", 1);
    CFileData* pY = AddFile(*pSame, u"y", 1);
    SortFiles(*pSame, 16);  // both CRCs fail (no such files): equal
    EXPECT_EQ(pSame->m_aFiles[0], pX);
    EXPECT_EQ(pSame->m_aFiles[1], pY);
}

}  // namespace
}  // namespace zv
