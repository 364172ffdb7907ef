// The duplicate directory finder on a generated forest, against groups
// computed here from each directory's files and subtree.
#include <gtest/gtest.h>

#include <map>

#include "AnalysesTestSupport.h"
#include "DuplicateFinderTestSupport.h"
#include "analyses/DuplicateDirFinder.h"

namespace zv {
namespace {

namespace fs = std::filesystem;
using test::CGroupSet;
using test::RandomBytes;

// Two equal trees (top1, top2) whose subdirectories are duplicates only
// because the tops are; two single-file directories equal to each other and,
// by checksum, to a third holding the same content under another name; and
// an empty pair.
class DuplicateDirFinderTest : public ::testing::Test {
protected:
    void SetUp() override {
        const std::string strA = RandomBytes(3000, 1), strB = RandomBytes(500, 2);
        for (const char* pszTop : {"top1", "top2"}) {
            Add(std::string(pszTop) + "/a", strA);
            Add(std::string(pszTop) + "/sub/b", strB);
            Add(std::string(pszTop) + "/sub/deeper/c", strA + strB);
        }
        Add("single1/x", strB + "!");
        Add("single2/x", strB + "!");
        Add("single3/renamed", strB + "!");
        Add("odd/x", strB + "?");
        fs::create_directories(m_tree.m_temp.Path() / "hollow1");
        fs::create_directories(m_tree.m_temp.Path() / "hollow2");
        m_tree.Scan();
    }
    void Add(const std::string& strName, const std::string& strContent) {
        m_tree.Write(strName, strContent);
        m_mapFiles[fs::path(strName).parent_path().generic_string()][strName] = strContent;
    }

    // The own files' contents, and the subtree's: each directory's
    // contents, then its children's, in name order.
    std::string OwnContent(const std::string& strDir) const {
        std::string s;
        const auto it = m_mapFiles.find(strDir);
        if (it != m_mapFiles.end())
            for (const auto& [name, content] : it->second) s += content + '\0';
        return s;
    }
    std::string TreeContent(const std::string& strDir) const {
        std::string s(1, '[');
        s += OwnContent(strDir);
        for (const auto& [dir, files] : m_mapFiles)
            if (fs::path(dir).parent_path().generic_string() == strDir) s += TreeContent(dir);
        if (strDir.empty()) s += "[][]";  // the two hollow directories
        return s + "]";
    }
    std::vector<std::string> Dirs() const {
        std::vector<std::string> a = {"", "hollow1", "hollow2"};
        for (const auto& [dir, files] : m_mapFiles) {
            for (fs::path p = dir; !p.empty(); p = p.parent_path())
                if (std::find(a.begin(), a.end(), p.generic_string()) == a.end())
                    a.push_back(p.generic_string());
        }
        return a;
    }
    CGroupSet Reference(bool bWithSubdirs) const {
        std::map<std::string, std::set<std::string>> mapGroups;
        for (const std::string& strDir : Dirs())
            mapGroups[bWithSubdirs ? TreeContent(strDir) : OwnContent(strDir)].insert(
                strDir.empty() ? "." : strDir);
        CGroupSet result;
        for (auto& [key, dirs] : mapGroups) {
            if (bWithSubdirs) {
                // A member whose parent is a member of some group goes.
                std::erase_if(dirs, [&](const std::string& d) {
                    const size_t nSlash = d.rfind('/');
                    const std::string strParent =
                        nSlash == std::string::npos ? std::string(".") : d.substr(0, nSlash);
                    for (const auto& [k, others] : mapGroups)
                        if (others.size() >= 2 && others.count(strParent)) return true;
                    return false;
                });
            }
            if (dirs.size() >= 2) result.insert(dirs);
        }
        return result;
    }
    CGroupSet Run(std::initializer_list<EDuplicateDirCriterion> aCriteria) {
        for (EDuplicateDirCriterion e : aCriteria)
            m_tree.m_doc.m_options.m_dupDirs.m_aCriteria[e] = 1;
        EXPECT_TRUE(FindDuplicateDirs(m_tree.m_doc));
        return m_tree.Result(m_tree.m_doc.m_results.m_aDuplicateDirGroups);
    }

    test::CScannedTree m_tree;
    std::map<std::string, std::map<std::string, std::string>> m_mapFiles;
};

TEST_F(DuplicateDirFinderTest, CrcWithSubdirectoriesReportsOnlyTheTops) {
    const CGroupSet result = Run({DupDirByCrcWithSubdirs});
    EXPECT_EQ(result, Reference(true));
    EXPECT_TRUE(result.count({"top1", "top2"}));
    for (const auto& dirs : m_tree.m_doc.m_results.m_aDuplicateDirGroups)
        for (const CDirectoryData* pDir : dirs) EXPECT_GE(pDir->m_nDuplicateGroup, 0);
}

TEST_F(DuplicateDirFinderTest, CrcAndSizeCompareOwnFilesOnly) {
    EXPECT_EQ(Run({DupDirByCrc, DupDirBySize}), Reference(false));
}

TEST_F(DuplicateDirFinderTest, NameAloneGroupsEqualNames) {
    EXPECT_EQ(Run({DupDirByName}),
              (CGroupSet{{"top1/sub", "top2/sub"}, {"top1/sub/deeper", "top2/sub/deeper"}}));
}

TEST_F(DuplicateDirFinderTest, FewerThanTwoDirectoriesGiveNoRun) {
    test::CScannedTree tree;
    tree.Scan();
    tree.m_doc.m_options.m_dupDirs.m_aCriteria[DupDirBySize] = 1;
    EXPECT_TRUE(FindDuplicateDirs(tree.m_doc));
    EXPECT_TRUE(tree.m_doc.m_results.m_aDuplicateDirGroups.empty());
}

}  // namespace
}  // namespace zv
