#include <gtest/gtest.h>

#include <filesystem>
#include <set>

#include "core/document/Document.h"
#include "core/records/FileData.h"
#include "core/records/RecordTestSupport.h"
#include "fileops/NewFolder.h"
#include "fileops/RenameOnDisk.h"
#include "platform/Text.h"
#include "support/TempDir.h"

namespace zv {
namespace {

TEST(NewFolder, FirstFreeNameFillsGaps) {
    std::set<std::u16string> taken;
    auto bTaken = [&](std::u16string_view s) { return taken.count(std::u16string(s)) > 0; };
    EXPECT_EQ(FirstFreeFolderName(bTaken), u"New Folder");
    taken = {u"New Folder", u"New Folder (3)"};
    EXPECT_EQ(FirstFreeFolderName(bTaken), u"New Folder (2)");
    taken.insert(u"New Folder (2)");
    EXPECT_EQ(FirstFreeFolderName(bTaken), u"New Folder (4)");
}

TEST(RenameOnDisk, NumberedCandidates) {
    EXPECT_EQ(NumberedFileName(u"a.tar.gz", 2), u"a_2.tar.gz");  // the first period
    EXPECT_EQ(NumberedFileName(u"README", 1), u"README_1");
    EXPECT_EQ(NumberedDirectoryName(u"v1.2", 3), u"v1.2_3");
}

class DiskChanges : public ::testing::Test {
protected:
    DiskChanges() : m_pRoot(test::MakeRoot(platform::Utf8ToUtf16(m_temp.Path().string()))) {
        m_temp.WriteFile("a.txt", "a");
        m_temp.WriteFile("b.txt", "b");
        m_pFile = test::AddFile(*m_pRoot, u"a.txt", 1);
    }
    bool Exists(const char* pszName) const {
        return std::filesystem::exists(m_temp.Path() / pszName);
    }

    test::CTempDir m_temp;
    std::unique_ptr<CRootDirectoryData> m_pRoot;
    CFileData* m_pFile;
};

TEST_F(DiskChanges, RenameNumbersATakenNameAndKeepsTheOther) {
    EXPECT_TRUE(RenameFileOnDisk(*m_pFile, u"a.txt"));  // the same name: nothing done
    EXPECT_TRUE(RenameFileOnDisk(*m_pFile, u"b.txt"));
    EXPECT_EQ(m_pFile->m_strName.Str(), u"b_1.txt");
    EXPECT_TRUE(Exists("b_1.txt"));
    EXPECT_TRUE(Exists("b.txt"));
    EXPECT_FALSE(Exists("a.txt"));
}

TEST_F(DiskChanges, NewFolderOnDiskAndInTheRecords) {
    CWZorvaneDoc doc;
    std::filesystem::create_directory(m_temp.Path() / "New Folder");
    CDirectoryData* pFolder = CreateNewFolder(doc, *m_pRoot);
    ASSERT_NE(pFolder, nullptr);
    EXPECT_EQ(pFolder->m_strName.Str(), u"New Folder (2)");
    EXPECT_TRUE(Exists("New Folder (2)"));
    EXPECT_EQ(pFolder->m_pParent, m_pRoot.get());
    EXPECT_EQ(doc.m_scan.m_aAllDirs.GetSize(), 1u);
    EXPECT_TRUE(RenameDirectoryOnDisk(*pFolder, u"kept"));
    EXPECT_TRUE(Exists("kept"));
}

}  // namespace
}  // namespace zv
