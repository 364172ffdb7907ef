#include <gtest/gtest.h>

#include "core/document/Document.h"
#include "core/records/RecordTestSupport.h"
#include "ui/logic/FileListColumns.h"
#include "ui/logic/StatusTexts.h"

namespace zv {
namespace {

using test::AddDir;
using test::AddFile;
using test::MakeRoot;

struct HeaderClickCase {
    EListColumn m_eColumn;
    CSortCodes m_before;
    CSortCodes m_after;
};

// The header click table: the first click takes the ascending pair, a
// second one the descending pair; the version column keeps the directory
// code.
TEST(FileListColumns, HeaderClickSetsOrReversesTheSort) {
    const HeaderClickCase aCases[] = {
        {ColName, {7, 9}, {1, 1}},
        {ColName, {1, 1}, {2, 2}},
        {ColName, {2, 2}, {1, 1}},
        {ColSize, {7, 9}, {4, 6}},
        {ColSize, {4, 6}, {5, 7}},
        {ColSizeWithSubdirs, {7, 9}, {6, 8}},
        {ColSizeWithSubdirs, {6, 8}, {7, 9}},
        {ColCreated, {1, 1}, {8, 10}},
        {ColAccessed, {10, 12}, {11, 13}},
        {ColModified, {12, 14}, {13, 15}},
        {ColCrc, {16, 18}, {16, 16}},
        {ColCrcWithSubdirs, {16, 16}, {16, 18}},
        {ColCrcWithSubdirs, {16, 18}, {17, 19}},
        {ColOwner, {23, 20}, {24, 21}},
        {ColVersion, {1, 5}, {27, 5}},
        {ColVersion, {27, 5}, {28, 5}},
    };
    for (const HeaderClickCase& c : aCases) {
        const CSortCodes after = SortForHeaderClick(c.m_eColumn, c.m_before);
        EXPECT_EQ(after.m_nFileSort, c.m_after.m_nFileSort) << c.m_eColumn;
        EXPECT_EQ(after.m_nDirSort, c.m_after.m_nDirSort) << c.m_eColumn;
    }
}

TEST(FileListColumns, SortArrowFollowsTheCodes) {
    const struct {
        CSortCodes m_codes;
        EListColumn m_eColumn;
        bool m_bAscending;
    } aCases[] = {
        {{7, 9}, ColSizeWithSubdirs, false},  // the default sort
        {{1, 1}, ColName, true},
        {{4, 6}, ColSize, true},
        {{16, 18}, ColCrcWithSubdirs, true},
        {{17, 17}, ColCrc, false},
        {{28, 9}, ColVersion, false},
    };
    for (const auto& c : aCases) {
        const CSortArrow arrow = SortArrowFor(c.m_codes);
        EXPECT_TRUE(arrow.m_bFound);
        EXPECT_EQ(arrow.m_eColumn, c.m_eColumn) << int(c.m_codes.m_nFileSort);
        EXPECT_EQ(arrow.m_bAscending, c.m_bAscending) << int(c.m_codes.m_nFileSort);
    }
    EXPECT_FALSE(SortArrowFor({3, 1}).m_bFound);  // name checksum: no column
}

TEST(FileListColumns, OptionalColumnsFollowInTheOrderSwitchedOn) {
    CFileListColumns columns;
    EXPECT_EQ(columns.Count(), 6u);
    EXPECT_EQ(columns.IndexOf(ColOwner), -1);
    EXPECT_EQ(columns.Show(ColOwner), 6);
    EXPECT_EQ(columns.Show(ColCrc), 7);
    EXPECT_EQ(columns.Show(ColOwner), 6);
    columns.Hide(ColOwner);
    EXPECT_EQ(columns.IndexOf(ColCrc), 6);
    columns.Hide(ColName);  // the fixed columns stay
    EXPECT_EQ(columns.IndexOf(ColName), 0);
    EXPECT_EQ(CFileListColumns::Title(ColSizeWithSubdirs), u"Size wSub");
}

class ListTexts : public ::testing::Test {
protected:
    ListTexts() : m_pRoot(MakeRoot(u"/r", 100)) {
        m_pSub = AddDir(*m_pRoot, u"sub");
        AddFile(*m_pSub, u"inner.bin", 250);
        m_pFile = AddFile(*m_pRoot, u"big.txt", 1536);
        m_pRoot->RecomputeTotals();
    }

    CWZorvaneDoc m_doc;
    std::unique_ptr<CRootDirectoryData> m_pRoot;
    CDirectoryData* m_pSub;
    CFileData* m_pFile;
};

TEST_F(ListTexts, CellsOfFilesAndDirectories) {
    const CListRow file{nullptr, m_pFile};
    const CListRow dir{m_pSub, nullptr};
    EXPECT_EQ(CellText(m_doc, ColName, file), u"big.txt");
    EXPECT_EQ(CellText(m_doc, ColSize, file), u"1,536");
    EXPECT_EQ(CellText(m_doc, ColSizeWithSubdirs, file), u"");
    EXPECT_EQ(CellText(m_doc, ColSizeWithSubdirs, dir), u"250");
    EXPECT_EQ(CellText(m_doc, ColCreated, file), u"(unknown)");
    EXPECT_EQ(CellText(m_doc, ColVersion, file), u"");
    m_doc.m_options.m_nSizeUnit = 1;
    EXPECT_EQ(CellText(m_doc, ColSize, file), u"1");
}

TEST_F(ListTexts, RowsAreSubdirectoriesThenFiles) {
    EXPECT_EQ(RowOf(m_pRoot.get(), 0).m_pDir, m_pSub);
    EXPECT_EQ(RowOf(m_pRoot.get(), 1).m_pFile, m_pFile);
    const CListRow past = RowOf(m_pRoot.get(), 2);
    EXPECT_TRUE(past.m_pDir == nullptr && past.m_pFile == nullptr);
}

TEST_F(ListTexts, StatusPanesForDirectoryAndSelection) {
    CSelectionTexts texts = SelectionTexts(m_doc, nullptr, {});
    EXPECT_EQ(texts.m_strObjects, u"0 object(s)");
    EXPECT_EQ(texts.m_strSize, u"");

    texts = SelectionTexts(m_doc, m_pRoot.get(), {});
    EXPECT_EQ(texts.m_strObjects, u"2 object(s)");
    EXPECT_EQ(texts.m_strSize, u"1,786 bytes");
    // Rounded up to the root's 100-byte clusters.
    EXPECT_EQ(texts.m_strActual, u"1,900 actual bytes");

    texts = SelectionTexts(m_doc, m_pRoot.get(), {{m_pSub, nullptr}});
    EXPECT_EQ(texts.m_strObjects, u"1 object(s) selected");
    EXPECT_EQ(texts.m_strSize, u"250 bytes");
    EXPECT_EQ(texts.m_strActual, u"300 actual bytes");
}

}  // namespace
}  // namespace zv
