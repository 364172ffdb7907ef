// The duplicate filters' dialogs without windows: each entry's record is
// made with the entry and leaves with it, whichever way the dialog closes.
#include <gtest/gtest.h>

#include <filesystem>

#include "core/document/FilterSet.h"
#include "core/host/Host.h"
#include "platform/FileSystem.h"
#include "support/TempDir.h"
#include "ui/logic/DupFilterEdit.h"

namespace zv {
namespace {

namespace fs = std::filesystem;

class DupFilterEditTest : public ::testing::Test {
protected:
    DupFilterEditTest() { SetHost(&m_host); }
    ~DupFilterEditTest() override { SetHost(nullptr); }

    std::u16string Path(const char* pszName) const { return (m_temp.Path() / pszName).u16string(); }
    std::vector<std::u16string> Texts(EFilterList eList) const {
        std::vector<std::u16string> aTexts;
        for (const CFilterEntry& entry : m_filters.List(eList)) aTexts.push_back(entry.m_strText);
        return aTexts;
    }
    void MarkRemoved(EFilterList eList, size_t nIndex) {
        m_filters.List(eList)[nIndex].m_bRemoved = 1;
    }

    CQuietHost m_host;
    test::CTempDir m_temp;
    CFilterSet m_filters;
};

TEST(DupDirEntry, TheStarMarksSubdirectoriesBothWays) {
    const struct {
        std::u16string_view m_strPath;
        bool m_bWithSubdirs;
        std::u16string_view m_strEntry;
    } aCases[] = {{u"C:\\data", true, u"*C:\\data"},
                  {u"C:\\data", false, u"C:\\data"},
                  {u"/srv/*odd", false, u"/srv/*odd"}};
    for (const auto& c : aCases) {
        EXPECT_EQ(DupDirEntryText(c.m_strPath, c.m_bWithSubdirs), c.m_strEntry);
        bool bWithSubdirs = !c.m_bWithSubdirs;
        EXPECT_EQ(DupDirEntryPath(c.m_strEntry, bWithSubdirs), c.m_strPath);
        EXPECT_EQ(bWithSubdirs, c.m_bWithSubdirs);
    }
}

TEST_F(DupFilterEditTest, FileEntriesAndTheirRecordsComeAndGoTogether) {
    m_temp.WriteFile("kept", "kept content");
    m_temp.WriteFile("new", "new content");
    ASSERT_TRUE(AddDupFilesEntry(m_filters, u"  " + Path("kept") + u" "));
    CommitDupFilterEdit(m_filters, FilterDupFiles);

    // Refused: the same text in other case, and a file that is not there.
    std::u16string strUpper = Path("kept");
    for (char16_t& ch : strUpper) ch = ch >= u'a' && ch <= u'z' ? ch - 32 : ch;
    EXPECT_FALSE(AddDupFilesEntry(m_filters, strUpper));
    EXPECT_FALSE(AddDupFilesEntry(m_filters, Path("missing")));
    ASSERT_EQ(m_host.m_aMessages.size(), 2u);
    EXPECT_EQ(m_host.m_aMessages[0], u"That filter has already been chosen");
    EXPECT_EQ(m_host.m_aMessages[1], u"Cannot open file: " + Path("missing"));

    // Cancel drops what was added since the last OK, and keeps a removal mark.
    ASSERT_TRUE(AddDupFilesEntry(m_filters, Path("new")));
    MarkRemoved(FilterDupFiles, 0);
    CancelDupFilterEdit(m_filters, FilterDupFiles);
    EXPECT_EQ(Texts(FilterDupFiles), std::vector<std::u16string>{Path("kept")});
    ASSERT_EQ(m_filters.m_aDupFileRecords.GetSize(), 1u);
    EXPECT_EQ(m_filters.m_aDupFileRecords[0]->m_strName.View(), Path("kept"));
    EXPECT_EQ(m_filters.m_aDupFileRecords[0]->m_dSize, 12.0);

    // OK with the mark still there removes entry and record.
    ASSERT_TRUE(AddDupFilesEntry(m_filters, Path("new")));
    CommitDupFilterEdit(m_filters, FilterDupFiles);
    EXPECT_EQ(Texts(FilterDupFiles), std::vector<std::u16string>{Path("new")});
    ASSERT_EQ(m_filters.m_aDupFileRecords.GetSize(), 1u);
    EXPECT_EQ(m_filters.m_aDupFileRecords[0]->m_strName.View(), Path("new"));
}

TEST_F(DupFilterEditTest, DirectoryEntriesScanTheirTreeAndTakeTheirOwnTreeAlong) {
    fs::create_directories(m_temp.Path() / "dir" / "sub");
    m_temp.WriteFile("dir/a", "a");
    m_temp.WriteFile("dir/sub/b", "b");
    const std::u16string strDir = Path("dir");
    // A tree a settings file loaded: in the forest without an entry.
    m_filters.m_aDupDirTrees.Add(new CDirectoryData(nullptr, strDir, {}, {}, {}, 0));

    ASSERT_TRUE(AddDupDirsEntry(m_filters, strDir + platform::kPathSeparator, true));
    ASSERT_TRUE(AddDupDirsEntry(m_filters, strDir, false));
    EXPECT_FALSE(AddDupDirsEntry(m_filters, strDir, true));
    EXPECT_EQ(m_host.m_aMessages,
              std::vector<std::u16string>{u"That filter has already been chosen"});
    EXPECT_EQ(Texts(FilterDupDirs), (std::vector<std::u16string>{u"*" + strDir, strDir}));
    ASSERT_EQ(m_filters.m_aDupDirTrees.GetSize(), 3u);
    const CDirectoryData* pWithSubdirs = m_filters.m_aDupDirTrees[1];
    EXPECT_EQ(pWithSubdirs->m_strName.View(), strDir);
    EXPECT_EQ(pWithSubdirs->m_aFiles.GetSize(), 1u);
    ASSERT_EQ(pWithSubdirs->m_aChildren.GetSize(), 1u);
    EXPECT_EQ(pWithSubdirs->m_aChildren[0]->m_aFiles.GetSize(), 1u);
    EXPECT_TRUE(m_filters.m_aDupDirTrees[2]->m_aChildren.IsEmpty());
    CommitDupFilterEdit(m_filters, FilterDupDirs);

    // Removing the "*" entry takes the tree with the subdirectories.
    MarkRemoved(FilterDupDirs, 0);
    CommitDupFilterEdit(m_filters, FilterDupDirs);
    EXPECT_EQ(Texts(FilterDupDirs), std::vector<std::u16string>{strDir});
    ASSERT_EQ(m_filters.m_aDupDirTrees.GetSize(), 2u);
    EXPECT_NE(m_filters.m_aDupDirTrees[0], pWithSubdirs);
    EXPECT_NE(m_filters.m_aDupDirTrees[1], pWithSubdirs);

    // Cancel of a new entry takes its tree and leaves the loaded one.
    ASSERT_TRUE(AddDupDirsEntry(m_filters, strDir, true));
    CancelDupFilterEdit(m_filters, FilterDupDirs);
    EXPECT_EQ(m_filters.m_aDupDirTrees.GetSize(), 2u);
}

}  // namespace
}  // namespace zv
