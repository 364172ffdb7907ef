// The Find dialog's search over the compare rows.
#include <gtest/gtest.h>

#include "compare/CompareFind.h"
#include "core/document/CompareList.h"
#include "core/records/RecordTestSupport.h"

namespace zv {
namespace {

// Rows: 0 file Alpha.txt|alpha.txt, 1 dir Docs|-, 2 file -|beta.TXT, 3 file gamma.c|-
class CompareFindTest : public ::testing::Test {
protected:
    CompareFindTest() {
        Add(test::AddFile(*m_pLeft, u"Alpha.txt", 1), test::AddFile(*m_pRight, u"alpha.txt", 1));
        auto pDir = std::make_unique<CCompareEntry>();
        pDir->m_bFile = false;
        pDir->m_pLeftDir = test::AddDir(*m_pLeft, u"Docs");
        m_aRows.push_back(pDir.get());
        m_aEntries.push_back(std::move(pDir));
        Add(nullptr, test::AddFile(*m_pRight, u"beta.TXT", 1));
        Add(test::AddFile(*m_pLeft, u"gamma.c", 1), nullptr);
    }
    void Add(CFileData* pLeft, CFileData* pRight) {
        auto pEntry = std::make_unique<CCompareEntry>();
        pEntry->m_pLeftFile = pLeft;
        pEntry->m_pRightFile = pRight;
        m_aRows.push_back(pEntry.get());
        m_aEntries.push_back(std::move(pEntry));
    }

    std::unique_ptr<CRootDirectoryData> m_pLeft = test::MakeRoot(u"L");
    std::unique_ptr<CRootDirectoryData> m_pRight = test::MakeRoot(u"R");
    std::vector<std::unique_ptr<CCompareEntry>> m_aEntries;
    std::vector<const CCompareEntry*> m_aRows;
};

TEST_F(CompareFindTest, NextGoesOnFromTheLastHitAndStartsOverAfterNotFound) {
    CCompareFinder finder;
    const auto kFile = CCompareFinder::FindFile;
    EXPECT_EQ(finder.FindNext(m_aRows, kFile, u"tXt"), 0);
    EXPECT_EQ(finder.FindNext(m_aRows, kFile, u"tXt"), 2);  // the right name only
    EXPECT_EQ(finder.FindNext(m_aRows, kFile, u"tXt"), -1);
    EXPECT_EQ(finder.FindNext(m_aRows, kFile, u"tXt"), 0);
    EXPECT_EQ(finder.FindPrev(m_aRows, kFile, u".c"), -1);
    EXPECT_EQ(finder.FindPrev(m_aRows, kFile, u"a"), 3);  // from the end after going round
    EXPECT_EQ(finder.FindPrev(m_aRows, kFile, u"a"), 2);
    EXPECT_EQ(finder.FindFromBeginning(m_aRows, kFile, u"GAMMA"), 3);
    EXPECT_EQ(finder.FindFromEnd(m_aRows, kFile, u"alpha"), 0);
}

TEST_F(CompareFindTest, FilesAndDirectoriesAreSearchedApart) {
    CCompareFinder finder;
    EXPECT_EQ(finder.FindNext(m_aRows, CCompareFinder::FindFile, u"docs"), -1);
    EXPECT_EQ(finder.FindNext(m_aRows, CCompareFinder::FindDirectory, u"docs"), 1);
    EXPECT_EQ(finder.FindNext(m_aRows, CCompareFinder::FindDirectory, u"alpha"), -1);
    EXPECT_EQ(CCompareFinder::Refusal(CCompareFinder::FindFile, u""), u"Please enter a file name");
    EXPECT_EQ(CCompareFinder::Refusal(CCompareFinder::FindDirectory, u""),
              u"Please enter a directory name");
    EXPECT_EQ(CCompareFinder::Refusal(CCompareFinder::FindFile, u"x"), u"");
}

}  // namespace
}  // namespace zv
