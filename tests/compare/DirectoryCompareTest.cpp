// The directory compare on generated pairs of trees: every status of a file
// pair and of a directory pair, the order of the entries with and without
// subdirectories, and a stop request.
#include <gtest/gtest.h>

#include "compare/CompareStatus.h"
#include "compare/CompareTreeSupport.h"

namespace zv {
namespace {

using test::CTreePair;
using test::CTreeSpec;

std::string Big(size_t nBytes, size_t nChangedAt = std::string::npos) {
    std::string s(nBytes, 'x');
    if (nChangedAt < nBytes) s[nChangedAt] = 'y';
    return s;
}

const CCompareEntry* FindFile(const CCompareList& list, const std::u16string& strName) {
    for (const auto& pEntry : list.m_aEntries)
        if (pEntry->m_bFile && (platform::EqualsNoCase(pEntry->LeftName(), strName) ||
                                platform::EqualsNoCase(pEntry->RightName(), strName)))
            return pEntry.get();
    return nullptr;
}

enum class ECrc { None, Differ, Equal };
enum class ELock { None, Left, Right, Both };

struct CFilePairCase {
    const char* pszName;
    const char* pszLeftName;  // null: no file on that side
    std::string strLeft;
    const char* pszRightName;
    std::string strRight;
    int nMode;
    int32_t nStatus;
    double dValue;
    ECrc eCrc = ECrc::None;
    ELock eLock = ELock::None;
};

const std::string kLongLine(10239, 'a');

const CFilePairCase kFileCases[] = {
    {"identical", "f", "same\n", "f", "same\n", 2, CompareIdentical, 0},
    {"identical_lines", "f", "same\n", "f", "same\n", 0, CompareIdentical, 0},
    {"empty_binary", "f", "", "f", "", 2, CompareIdentical, 0},
    {"empty_lines", "f", "", "f", "", 0, CompareIdentical, 0},
    {"names_differ_in_case", "F", "1", "f", "1", 2, CompareIdentical, 0},
    {"blanks_only", "f", " a \nb\n", "f", "\ta\t\nb\n", 0, CompareBlanksOnly, 0},
    {"blanks_only_mode_1", "f", " a \nb\n", "f", "\ta\t\nb\n", 1, CompareBlanksOnly, 0},
    // Cutting a trailing blank cuts the line feed after it too.
    {"trailing_blank_against_leading", "f", "a \n", "f", " a\n", 0, CompareAtLine, 1},
    {"crlf_reads_as_lf", "f", "a\r\nb\n", "f", "a\nb\r\n", 0, CompareIdentical, 0},
    {"size", "f", "a", "f", "ab", 2, CompareFileSize, 0},
    {"crc", "f", "a", "f", "b", 2, CompareFileCrc, 0, ECrc::Differ},
    {"byte_in_first_block", "f", Big(100), "f", Big(100, 6), 2, CompareAtByte, 3},
    {"byte_in_second_block", "f", Big(9000), "f", Big(9000, 8202), 2, CompareAtByte, 8197},
    {"byte_in_odd_last_unit", "f", Big(5), "f", Big(5, 4), 2, CompareAtByte, 2},
    {"line", "f", "a\nb\nc\n", "f", "a\nX\nc\n", 0, CompareAtLine, 2},
    {"long_line_in_pieces", "f", kLongLine + "b\n", "f", kLongLine + "c\n", 1, CompareAtLine, 2},
    {"left_missing", nullptr, "", "f", "1", 2, CompareLeftFileMissing, 0},
    {"right_missing", "f", "1", nullptr, "", 2, CompareRightFileMissing, 0},
#ifndef _WIN32
    {"left_unreadable", "f", "1", "f", "1", 2, CompareLeftUnreadable, 0, ECrc::None, ELock::Left},
    {"right_unreadable", "f", "1", "f", "1", 0, CompareRightUnreadable, 0, ECrc::None,
     ELock::Right},
    // Known equal checksums decide without opening either file.
    {"known_crcs_open_nothing", "f", "a", "f", "b", 2, CompareIdentical, 0, ECrc::Equal,
     ELock::Both},
#endif
};

class FilePairStatus : public ::testing::TestWithParam<CFilePairCase> {};

TEST_P(FilePairStatus, GivesTheStatusOfTheTable) {
    const CFilePairCase& c = GetParam();
    CTreePair trees;
    CTreeSpec left, right;
    if (c.pszLeftName) left.emplace_back(c.pszLeftName, c.strLeft);
    if (c.pszRightName) right.emplace_back(c.pszRightName, c.strRight);
    trees.Make(left, right);
    trees.Scan();
    if (c.eCrc != ECrc::None) {
        CFileData* pLeft = trees.LeftRoot().m_aFiles[0];
        CFileData* pRight = trees.RightRoot().m_aFiles[0];
        pLeft->SetCrc(1);
        pRight->SetCrc(c.eCrc == ECrc::Equal ? 1 : 2);
    }
    if (c.eLock == ELock::Left || c.eLock == ELock::Both) trees.Lock(trees.Left() / c.pszLeftName);
    if (c.eLock == ELock::Right || c.eLock == ELock::Both)
        trees.Lock(trees.Right() / c.pszRightName);

    const CCompareList& list = trees.Compare(false, c.nMode);
    const CCompareEntry* pEntry = FindFile(list, u"f");
    ASSERT_NE(pEntry, nullptr);
    EXPECT_EQ(pEntry->m_nStatus, c.nStatus) << platform::Utf16ToUtf8(GetCompareStatusText(*pEntry));
    EXPECT_EQ(pEntry->m_dValue, c.dValue);
    EXPECT_EQ(pEntry->m_pLeftParent, &trees.LeftRoot());
    EXPECT_EQ(pEntry->m_pRightParent, &trees.RightRoot());
}

INSTANTIATE_TEST_SUITE_P(Compare, FilePairStatus, ::testing::ValuesIn(kFileCases),
                         [](const auto& info) { return std::string(info.param.pszName); });

struct CDirPairCase {
    const char* pszName;
    CTreeSpec left, right;
    int32_t nRootStatus;
    uint16_t uCrcFlag = 0;  // set on both roots, with checksums 1 and 2
};

const CDirPairCase kDirCases[] = {
    // Counts alone decide: different contents still count as identical.
    {"same_counts", {{"a", "1"}, {"d/", ""}}, {{"a", "2"}, {"d/", ""}}, CompareIdentical},
    {"files", {{"a", "1"}, {"b", "1"}}, {{"a", "1"}}, CompareDirFiles},
    {"subdirs", {{"d/", ""}, {"e/", ""}}, {{"d/", ""}}, CompareDirSubdirs},
    {"files_with_subdirs",
     {{"d/a", "1"}, {"d/b", "1"}},
     {{"d/a", "1"}},
     CompareDirFilesWithSubdirs},
    {"subdirs_all_levels", {{"d/e/f/", ""}}, {{"d/e/", ""}}, CompareDirSubdirsAllLevels},
    {"crc", {{"a", "1"}}, {{"a", "1"}}, CompareDirCrc, DIR_CRC_VALID},
    {"crc_with_subdirs",
     {{"a", "1"}},
     {{"a", "1"}},
     CompareDirCrcWithSubdirs,
     DIR_CRC_VALID | DIR_CRC_SUBDIRS_VALID},
};

class DirPairStatus : public ::testing::TestWithParam<CDirPairCase> {};

TEST_P(DirPairStatus, GivesTheStatusOfTheTable) {
    const CDirPairCase& c = GetParam();
    CTreePair trees;
    trees.Make(c.left, c.right);
    trees.Scan();
    if (c.uCrcFlag) {
        for (CDirectoryData* pRoot : {static_cast<CDirectoryData*>(&trees.LeftRoot()),
                                      static_cast<CDirectoryData*>(&trees.RightRoot())}) {
            pRoot->m_uFlags |= c.uCrcFlag;
            pRoot->m_uCrc = pRoot->m_uCrcWithSubdirs = pRoot == &trees.LeftRoot() ? 1 : 2;
        }
    }
    const CCompareList& list = trees.Compare(false);
    ASSERT_FALSE(list.m_aEntries.empty());
    EXPECT_FALSE(list.m_aEntries[0]->m_bFile);
    EXPECT_EQ(list.m_aEntries[0]->m_nStatus, c.nRootStatus);
}

INSTANTIATE_TEST_SUITE_P(Compare, DirPairStatus, ::testing::ValuesIn(kDirCases),
                         [](const auto& info) { return std::string(info.param.pszName); });

// Kind, left name, right name and status of every entry, one per line.
std::string Listing(const CCompareList& list) {
    std::string strOut;
    for (const auto& pEntry : list.m_aEntries) {
        const std::u16string strLeft =
            pEntry->HasLeft() && !pEntry->m_pLeftParent && !pEntry->m_bFile ? u"L"
                                                                            : pEntry->LeftName();
        const std::u16string strRight =
            pEntry->HasRight() && !pEntry->m_pRightParent && !pEntry->m_bFile ? u"R"
                                                                              : pEntry->RightName();
        strOut += std::string(pEntry->m_bFile ? "file " : "dir ") + platform::Utf16ToUtf8(strLeft) +
                  "|" + platform::Utf16ToUtf8(strRight) + " " + std::to_string(pEntry->m_nStatus) +
                  "\n";
    }
    return strOut;
}

const CTreeSpec kOrderLeft = {{"b", "1"}, {"A", "1"}, {"d1/x", "1"}, {"d2/y", "1"}, {"d2/z/", ""}};
const CTreeSpec kOrderRight = {{"a", "1"}, {"c", "1"}, {"d1/x", "1"}, {"d3/", ""}};

TEST(DirectoryCompare, ListsEntriesInTheWalkOrderWithSubdirectories) {
    CTreePair trees;
    trees.Make(kOrderLeft, kOrderRight);
    trees.Scan();
    EXPECT_EQ(Listing(trees.Compare(true)),
              "dir L|R 15\n"
              "file A|a 0\n"
              "file b| 7\n"
              "file |c 6\n"
              "dir d1|d1 0\n"
              "file x|x 0\n"
              "dir d2| 11\n"
              "file y| 7\n"
              "dir z| 11\n"
              "dir |d3 10\n");
}

TEST(DirectoryCompare, GivesSubdirectoriesAnEntryWithoutEnteringThem) {
    CTreePair trees;
    trees.Make(kOrderLeft, kOrderRight);
    trees.Scan();
    EXPECT_EQ(Listing(trees.Compare(false)),
              "dir L|R 15\n"
              "file A|a 0\n"
              "file b| 7\n"
              "file |c 6\n"
              "dir d1|d1 0\n"
              "dir d2| 11\n"
              "dir |d3 10\n");
}

// Cancels the progress dialog at its nth update.
class CCancellingHost : public CQuietHost {
public:
    std::unique_ptr<IProgressView> OpenProgress(CProgressDialog& dialog) override {
        m_pDialog = &dialog;
        return nullptr;
    }
    void PumpMessages() override {
        if (m_pDialog && ++m_nPumps == m_nCancelAt) m_pDialog->OnCancel();
    }
    CProgressDialog* m_pDialog = nullptr;
    int m_nPumps = 0;
    int m_nCancelAt = 0;
};

TEST(DirectoryCompare, StopsWhereItIsAndKeepsTheEntriesSoFar) {
    CTreePair trees;
    trees.Make({{"a", "1"}, {"b", "1"}, {"d/c", "1"}}, {{"a", "1"}, {"b", "1"}, {"d/c", "1"}});
    trees.Scan();
    CCancellingHost host;
    SetHost(&host);
    host.m_nCancelAt = 2;  // the first text, then the left path
    CDirectoryCompare compare(trees.m_doc.m_results.m_compare, 2);
    compare.Run(&trees.LeftRoot(), &trees.RightRoot(), true);
    EXPECT_TRUE(compare.WasStopped());
    // The root entry only: the root's own file entries are left out.
    EXPECT_EQ(trees.m_doc.m_results.m_compare.m_aEntries.size(), 1u);
}

TEST(CompareStatus, TextsAndShowFlagsFollowTheTable) {
    const std::pair<int32_t, const char16_t*> aTexts[] = {
        {0, u"Identical"},
        {1, u"Different in blanks only"},
        {2, u"Different in size"},
        {3, u"Different in CRC"},
        {4, u"Different at byte: 12"},
        {5, u"Different at line: 12"},
        {6, u"Left file not found"},
        {7, u"Right file not found"},
        {8, u"Cannot read left file"},
        {9, u"Cannot read right file"},
        {10, u"Left directory not found"},
        {11, u"Right directory not found"},
        {12, u"Different in size"},
        {13, u"Different in size (with sub)"},
        {14, u"Different in number of files"},
        {15, u"Different in number of files (with sub)"},
        {16, u"Different in number of subdirectories"},
        {17, u"Different in number of subdirectories (with sub)"},
        {18, u"Different in CRC"},
        {19, u"Different in CRC (with sub)"},
        {20, u"Unknown status"},
        {-1, u"Unknown status"}};
    for (const auto& [nStatus, pszText] : aTexts)
        EXPECT_EQ(GetCompareStatusText(nStatus, 12), pszText) << nStatus;

    // Which flag shows an entry: 0 different, 1 identical, 2 not found.
    struct CShowCase {
        bool bFile;
        int32_t nStatus;
        int nFlag;  // -1: no flag shows it
    };
    const CShowCase aShow[] = {{true, 0, 1},   {true, 3, 0},   {true, 6, 2},   {true, 9, 2},
                               {true, 11, -1}, {false, 0, 1},  {false, 10, 2}, {false, 11, 2},
                               {false, 12, 0}, {false, 19, 0}, {false, 5, -1}};
    for (const CShowCase& c : aShow) {
        CCompareEntry entry;
        entry.m_bFile = c.bFile;
        entry.m_nStatus = c.nStatus;
        for (int nFlag = 0; nFlag < 3; ++nFlag) {
            CCompareShowFlags show{false, false, false, false, false, false};
            bool* aFlags[2][3] = {
                {&show.m_bDifferentFiles, &show.m_bIdenticalFiles, &show.m_bFilesNotFound},
                {&show.m_bDifferentDirs, &show.m_bIdenticalDirs, &show.m_bDirsNotFound}};
            *aFlags[c.bFile ? 0 : 1][nFlag] = true;
            EXPECT_EQ(show.Shows(entry), nFlag == c.nFlag)
                << c.bFile << " " << c.nStatus << " " << nFlag;
        }
    }
}

}  // namespace
}  // namespace zv
