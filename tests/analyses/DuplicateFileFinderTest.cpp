// The duplicate file finder on generated trees, against groups computed
// here from the files' content, sizes and names.
#include <gtest/gtest.h>

#include <map>
#include <tuple>

#include "AnalysesTestSupport.h"
#include "DuplicateFinderTestSupport.h"
#include "analyses/DuplicateFileFinder.h"
#include "analyses/DuplicateOptionChecks.h"
#include "analyses/DuplicatePasses.h"

namespace zv {
namespace {

namespace fs = std::filesystem;
using test::CGroupSet;
using test::RandomBytes;

std::string Upper(std::string s) {
    for (char& ch : s) ch = static_cast<char>(std::toupper(static_cast<unsigned char>(ch)));
    return s;
}

// An MP3 body between an ID3v2 tag and an ID3v1 trailer. The checksum
// without tags starts at the declared tag size (the 10-byte header is not
// counted), so tags that differ only in their first bytes leave it equal.
std::string Mp3(const std::string& strBody, char chTag) {
    std::string strTag = std::string("ID3\x03\x00\x00\x00\x00\x00\x14", 10);
    strTag += std::string(10, chTag) + std::string(10, '\0');
    return strTag + strBody + "TAG" + std::string(125, chTag);
}

std::string WithoutTags(const std::string& strName, const std::string& s) {
    if (strName.size() < 4 || strName.substr(strName.size() - 4) != ".mp3") return s;
    size_t nBegin = s.compare(0, 3, "ID3") == 0 ? 0x14 : 0;
    size_t nEnd =
        s.size() >= 128 && s.compare(s.size() - 128, 3, "TAG") == 0 ? s.size() - 128 : s.size();
    return nBegin < nEnd ? s.substr(nBegin, nEnd - nBegin) : std::string();
}

struct CCriteriaCase {
    const char* pszName;
    bool bSize, bName, bCrc, bMp3, bBytes;
};

class DuplicateFileFinderTest : public ::testing::TestWithParam<CCriteriaCase> {
protected:
    void SetUp() override {
        const std::string strTwin = RandomBytes(5000, 1);
        const std::string strBig = RandomBytes(70000, 2);
        std::string strLast = RandomBytes(9000, 3), strFirst = strLast;
        strLast.back() ^= 1;
        strFirst.front() ^= 1;
        const std::string strMp3Body = RandomBytes(3000, 4);
        Add("size/one", RandomBytes(1000, 5));
        Add("size/two", RandomBytes(1000, 6));
        Add("names/a.bin", strTwin);
        Add("names/deep/zz.dat", strTwin);
        for (int i = 0; i < 3; ++i) Add(test::Numbered("three/t", i), strBig);
        for (int i = 0; i < 9; ++i) Add(test::Numbered("many/m", i), RandomBytes(20000, 7));
        // Equal sizes but for the last or first byte: the middle block, and
        // so the quick checksum, is the same for all four.
        Add("edge/base", RandomBytes(9000, 3));
        Add("edge/last", strLast);
        Add("edge/first", strFirst);
        Add("edge/base2", RandomBytes(9000, 3));
        Add("empty/e1", "");
        Add("empty/e2", "");
        Add("text/readme.txt", "one");
        Add("other/README.TXT", "three");
        Add("mp3/a.mp3", Mp3(strMp3Body, 'a'));
        Add("mp3/b.mp3", Mp3(strMp3Body, 'b'));
        Add("mp3/c.mp3", Mp3(RandomBytes(3000, 8), 'a'));
        // Many groups of equal size, so that the checksum stages batch.
        for (int i = 0; i < 60; ++i)
            Add(test::Numbered("batch/b", i), RandomBytes(300, 100 + unsigned(i % 25)));
#ifndef _WIN32
        fs::create_hard_link(m_tree.m_temp.Path() / "size/one", m_tree.m_temp.Path() / "hardlink");
        m_aFiles["hardlink"] = m_aFiles["size/one"];
#endif
        m_tree.Scan();
    }
    void Add(const std::string& strName, const std::string& strContent) {
        m_tree.Write(strName, strContent);
        m_aFiles[strName] = strContent;
    }

    // Groups of two or more files that agree on every ticked criterion.
    CGroupSet Reference(const CCriteriaCase& c) const {
        std::map<std::tuple<size_t, std::string, std::string, std::string>, std::set<std::string>>
            mapGroups;
        for (const auto& [strPath, strContent] : m_aFiles) {
            const std::string strName = fs::path(strPath).filename().string();
            mapGroups[{c.bSize ? strContent.size() : 0, c.bName ? Upper(strName) : "",
                       c.bCrc || c.bBytes ? strContent : "",
                       c.bMp3 ? WithoutTags(strName, strContent) : ""}]
                .insert(strPath);
        }
        CGroupSet result;
        for (const auto& [key, names] : mapGroups)
            if (names.size() >= 2) result.insert(names);
        return result;
    }

    test::CScannedTree m_tree;
    std::map<std::string, std::string> m_aFiles;
};

TEST_P(DuplicateFileFinderTest, GroupsEqualTheReference) {
    const CCriteriaCase& c = GetParam();
    CDuplicateFileCriteria& criteria = m_tree.m_doc.m_options.m_dupFiles;
    criteria.m_bBySize = c.bSize;
    criteria.m_bByName = c.bName;
    criteria.m_bByCrc = c.bCrc;
    criteria.m_bByCrcWithoutTags = c.bMp3;
    criteria.m_bByteByByte = c.bBytes;
    ASSERT_TRUE(FindDuplicateFiles(m_tree.m_doc));
    const auto& aGroups = m_tree.m_doc.m_results.m_aDuplicateGroups;
    EXPECT_EQ(m_tree.Result(aGroups), Reference(c));
    for (const CDuplicateGroup& group : aGroups)
        for (const CFileData* pFile : group) EXPECT_TRUE(pFile->m_uFlags & FILE_IN_DUPLICATE_GROUP);
}

INSTANTIATE_TEST_SUITE_P(
    Criteria, DuplicateFileFinderTest,
    ::testing::Values(CCriteriaCase{"Size", true, false, false, false, false},
                      CCriteriaCase{"Name", false, true, false, false, false},
                      CCriteriaCase{"Crc", false, false, true, false, false},
                      CCriteriaCase{"SizeCrc", true, false, true, false, false},
                      CCriteriaCase{"Bytes", false, false, false, false, true},
                      CCriteriaCase{"CrcBytes", false, false, true, false, true},
                      CCriteriaCase{"NameSize", true, true, false, false, false},
                      CCriteriaCase{"Mp3Crc", false, false, false, true, false},
                      CCriteriaCase{"All", true, true, true, false, true}),
    [](const auto& info) { return std::string(info.param.pszName); });

TEST(DuplicatePassListTest, ExamplesOfTheCriteria) {
    using E = EPassMethod;
    struct CCase {
        bool bSize, bName, bCrc, bMp3, bBytes, bCrcList;
        std::vector<E> aExpected;
    };
    const CCase aCases[] = {
        {true,
         false,
         true,
         false,
         false,
         false,
         {E::Size, E::SmallGroupsCrc, E::QuickCrc, E::SmallGroupsCrc, E::FullCrc}},
        {true, false, true, false, false, true, {E::Size, E::SmallGroupsCrc, E::FullCrc}},
        {false, true, false, false, false, false, {E::Name}},
        {false,
         false,
         false,
         false,
         true,
         false,
         {E::Size, E::SmallGroups, E::QuickCrc, E::SmallGroups, E::ByteCompare}},
        {true,
         false,
         false,
         false,
         true,
         false,
         {E::Size, E::SmallGroups, E::QuickCrc, E::SmallGroups, E::ByteCompare}},
        {false,
         false,
         true,
         false,
         true,
         false,
         {E::Size, E::SmallGroupsCrc, E::QuickCrc, E::SmallGroupsCrc, E::FullCrc, E::ByteCompare,
          E::Size, E::SmallGroups, E::QuickCrc, E::SmallGroups, E::ByteCompare}},
        {false, true, false, true, false, false, {E::Name, E::Mp3Crc}},
        {false, false, false, false, false, false, {}},
    };
    for (const CCase& c : aCases) {
        CDuplicateFileCriteria criteria;
        criteria.m_bBySize = c.bSize;
        criteria.m_bByName = c.bName;
        criteria.m_bByCrc = c.bCrc;
        criteria.m_bByCrcWithoutTags = c.bMp3;
        criteria.m_bByteByByte = c.bBytes;
        EXPECT_EQ(BuildPassList(criteria, c.bCrcList), c.aExpected);
    }
}

// Empty files: two are a pair; three are settled by the small-group stage,
// which leaves none; four pass it and are confirmed by their checksums.
TEST(DuplicateFileEdgeTest, EmptyFilesBySizeAndCrc) {
    const std::pair<int, int> aCases[] = {{2, 1}, {3, 0}, {4, 1}};
    for (const auto& [nFiles, nExpected] : aCases) {
        test::CScannedTree tree;
        for (int i = 0; i < nFiles; ++i) tree.Write(test::Numbered("e", i), "");
        tree.Scan();
        tree.m_doc.m_options.m_dupFiles.m_bBySize = tree.m_doc.m_options.m_dupFiles.m_bByCrc = 1;
        ASSERT_TRUE(FindDuplicateFiles(tree.m_doc));
        EXPECT_EQ(tree.m_doc.m_results.m_aDuplicateGroups.size(), size_t(nExpected)) << nFiles;
    }
}

// A file that vanishes or cannot be read after the scan leaves its group,
// in the small-group stages and in the checksum and byte stages alike.
TEST(DuplicateFileEdgeTest, VanishedOrUnreadableFilesAreDropped) {
    struct CCase {
        int nCopies;
        bool bBytes;
        bool bUnreadable;
    };
    for (const CCase c : {CCase{3, false, false}, CCase{5, false, false}, CCase{5, true, false},
                          CCase{3, true, true}, CCase{5, false, true}}) {
#ifdef _WIN32
        if (c.bUnreadable) continue;  // permission bits do not lock a file here
#endif
        test::CScannedTree tree;
        const std::string strContent = RandomBytes(10000, 9);
        for (int i = 0; i < c.nCopies; ++i) tree.Write(test::Numbered("f", i), strContent);
        tree.Scan();
        const fs::path victim = tree.m_temp.Path() / "f0";
        if (c.bUnreadable)
            fs::permissions(victim, fs::perms::none);
        else
            fs::remove(victim);
        auto& criteria = tree.m_doc.m_options.m_dupFiles;
        criteria.m_bBySize = 1;
        (c.bBytes ? criteria.m_bByteByByte : criteria.m_bByCrc) = 1;
        ASSERT_TRUE(FindDuplicateFiles(tree.m_doc));
        std::set<std::string> expected;
        for (int i = 1; i < c.nCopies; ++i) expected.insert(test::Numbered("f", i));
        EXPECT_EQ(tree.Result(tree.m_doc.m_results.m_aDuplicateGroups), CGroupSet{expected})
            << c.nCopies << c.bBytes << c.bUnreadable;
        if (c.bUnreadable) fs::permissions(victim, fs::perms::owner_all);
    }
}

// Cancel at the first progress report: no groups, and the run says so.
TEST(DuplicateFileEdgeTest, StopLeavesNoGroups) {
    test::CRecordingHost host;
    test::CScannedTree tree;
    for (int i = 0; i < 40; ++i) tree.Write(test::Numbered("f", i), RandomBytes(100, i % 10));
    tree.Scan();
    host.m_onPump = [&host] {
        if (host.m_pDialog) host.m_pDialog->OnCancel();
    };
    tree.m_doc.m_options.m_dupFiles.m_bBySize = tree.m_doc.m_options.m_dupFiles.m_bByCrc = 1;
    EXPECT_FALSE(FindDuplicateFiles(tree.m_doc));
    EXPECT_TRUE(tree.m_doc.m_results.m_aDuplicateGroups.empty());
}

}  // namespace
}  // namespace zv

namespace zv {
namespace {

TEST(DuplicateOptionChecksTest, RefusalsInTheirOrder) {
    struct CCase {
        bool bAutoFiles, bFileCriterion, bAutoDirs, bDirCriterion, bSound, bSoundFile;
        const char16_t* pszExpected;
    };
    const CCase aCases[] = {
        {true, false, true, false, true, false,
         u"Please select the method to detect duplicate files"},
        {true, true, true, false, true, false,
         u"Please select the method to detect duplicate directories"},
        {false, false, false, false, true, false,
         u"Please select a sound file to play when finished"},
        {false, false, true, true, true, true, u""},
    };
    for (const CCase& c : aCases) {
        CDocumentOptions options;
        options.m_bFindDupFilesAfterScan = c.bAutoFiles;
        options.m_dupFiles.m_bByName = c.bFileCriterion;
        options.m_bFindDupDirsAfterScan = c.bAutoDirs;
        options.m_dupDirs.m_aCriteria[DupDirByName] = c.bDirCriterion;
        options.m_bPlaySound = c.bSound;
        options.m_strSoundFile = c.bSoundFile ? u"ding.wav" : u"";
        EXPECT_EQ(CheckDuplicateOptions(options), c.pszExpected);
    }
}

}  // namespace
}  // namespace zv
