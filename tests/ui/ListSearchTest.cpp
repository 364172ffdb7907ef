#include <gtest/gtest.h>

#include "core/records/RecordTestSupport.h"
#include "platform/Text.h"
#include "ui/logic/ListSearch.h"

namespace zv {
namespace {

using test::AddDir;
using test::AddFile;
using test::MakeRoot;

// Rows: 0 "Alpha", 1 "notes" (directories), 2 "readme.TXT", 3 "b.txt",
// 4 "Alpha.doc" (files).
class ListSearch : public ::testing::Test {
protected:
    ListSearch() : m_pRoot(MakeRoot(u"/r")) {
        AddDir(*m_pRoot, u"Alpha");
        AddDir(*m_pRoot, u"notes");
        AddFile(*m_pRoot, u"readme.TXT", 1);
        AddFile(*m_pRoot, u"b.txt", 2);
        AddFile(*m_pRoot, u"Alpha.doc", 3);
    }
    std::unique_ptr<CRootDirectoryData> m_pRoot;
};

TEST_F(ListSearch, SelectMatchingTakesNamesOfBothKindsWithoutRegardToCase) {
    EXPECT_EQ(MatchingRows(m_pRoot.get(), u"*.txt"), (std::vector<size_t>{2, 3}));
    EXPECT_EQ(MatchingRows(m_pRoot.get(), u"al*"), (std::vector<size_t>{0, 4}));
    EXPECT_EQ(MatchingRows(m_pRoot.get(), u"?otes"), (std::vector<size_t>{1}));
    EXPECT_TRUE(MatchingRows(m_pRoot.get(), u"").empty());
    EXPECT_TRUE(MatchingRows(nullptr, u"*").empty());
}

TEST_F(ListSearch, FindGoesByKindDirectionAndCase) {
    const struct {
        EFindWhat m_eWhat;
        const char16_t* m_pszText;
        bool m_bCase;
        EFindFrom m_eFrom;
        long m_nCurrent;
        long m_nFound;
    } aCases[] = {
        {FindAFile, u"alpha", false, FindFromBeginning, 3, 4},  // directory rows passed over
        {FindADirectory, u"alpha", false, FindFromBeginning, 3, 0},
        {FindADirectory, u"alpha", true, FindFromBeginning, -1, -1},
        {FindADirectory, u"Alpha", true, FindFromBeginning, -1, 0},
        {FindADirectory, u"r", false, FindFromEnd, -1, 1},  // the full path is searched
        {FindAFile, u"txt", false, FindNext, -1, 2},
        {FindAFile, u"txt", false, FindNext, 2, 3},
        {FindAFile, u"txt", false, FindNext, 3, -1},
        {FindAFile, u"txt", false, FindPrev, 3, 2},
        {FindAFile, u"readme", false, FindPrev, 2, -1},
        {FindAFile, u"txt", false, FindFromEnd, 0, 3},
    };
    for (const auto& c : aCases) {
        const CFindRequest request{c.m_eWhat, c.m_pszText, c.m_bCase};
        EXPECT_EQ(FindRow(m_pRoot.get(), request, c.m_eFrom, c.m_nCurrent), c.m_nFound)
            << platform::Utf16ToUtf8(c.m_pszText) << " from " << c.m_eFrom;
    }
    EXPECT_EQ(FindRequestProblem({FindAFile, u"", false}), u"Please enter a file name");
    EXPECT_EQ(FindRequestProblem({FindADirectory, u"", false}), u"Please enter a directory name");
    EXPECT_TRUE(FindRequestProblem({FindAFile, u"x", false}).empty());
}

TEST_F(ListSearch, CopyAndDragCarryFullPaths) {
    const std::u16string strRoot = m_pRoot->GetFullPath();
    const auto aPaths = FullPathsOf({RowOf(m_pRoot.get(), 1), RowOf(m_pRoot.get(), 3)});
    ASSERT_EQ(aPaths.size(), 2u);
    EXPECT_EQ(aPaths[0], m_pRoot->m_aChildren[1]->GetFullPath());
    EXPECT_EQ(aPaths[1], m_pRoot->m_aFiles[1]->GetFullPath());
    EXPECT_NE(aPaths[1].find(u"b.txt"), std::u16string::npos);
    EXPECT_EQ(aPaths[1].rfind(strRoot, 0), 0u);
}

}  // namespace
}  // namespace zv
