// The root selection dialog's model: adding, refusing a root already
// chosen, pending removal, new roots, previous choices, OK and Cancel.
#include <gtest/gtest.h>

#include <filesystem>

#include "MemoryUserStore.h"
#include "ScriptedHost.h"
#include "core/Document.h"
#include "core/RememberedLists.h"
#include "core/RootSelection.h"
#include "platform/FileSystem.h"
#include "platform/Text.h"
#include "support/TempDir.h"

namespace zv {
namespace {

namespace fs = std::filesystem;
using Strings = std::vector<std::u16string>;

class RootSelectionTest : public ::testing::Test {
protected:
    std::u16string Dir(const std::string& strName) {
        fs::create_directories(m_temp.Path() / strName);
        return (m_temp.Path() / strName).u16string();
    }

    Strings Shown(const CRootSelection& selection) const {
        Strings aPaths;
        for (const CRootDirectoryData* pRoot : selection.ShownRoots())
            aPaths.push_back(pRoot->m_strName.Str());
        return aPaths;
    }

    // A root as a finished dialog leaves it: prepared.
    CRootDirectoryData* AddPrepared(const std::u16string& strPath) {
        auto* pRoot = new CRootDirectoryData(strPath);
        pRoot->Prepare(m_doc.m_scan.m_aDrives);
        m_doc.m_scan.m_aRoots.Add(pRoot);
        return pRoot;
    }

    const std::u16string kChosen = u"That directory has already been chosen";
    test::CTempDir m_temp;
    test::CMemoryUserStore m_store;
    test::CScriptedHost m_host;
    CWZorvaneDoc m_doc;
};

TEST_F(RootSelectionTest, ADirectoryIsChosenOnceWithoutRegardToCase) {
    const std::u16string strA = Dir("Alpha");
    CRootSelection selection(m_doc);
    EXPECT_TRUE(selection.AddBrowsed(strA + platform::kPathSeparator));  // trailing separator goes
    EXPECT_FALSE(selection.AddBrowsed(platform::ToUpperCopy(strA)));
    EXPECT_FALSE(selection.AddTyped(u"  " + strA + u"\t"));
    EXPECT_FALSE(selection.AddTyped(u"   "));
    EXPECT_EQ(Shown(selection), Strings{strA});
    EXPECT_EQ(m_host.m_aMessages, (Strings{kChosen, kChosen}));
    const CRootDirectoryData& root = *m_doc.m_scan.m_aRoots[0];
    EXPECT_EQ(root.m_bNewRoot, 1);
    EXPECT_TRUE(root.m_uAttributes & ATTR_DIRECTORY);
    EXPECT_FALSE(IsZero(root.m_ftModified));
    EXPECT_TRUE(m_doc.m_scan.m_aDrives.GetEntries().empty());  // prepared only on OK
}

TEST_F(RootSelectionTest, FileSystemAndDriveRootsKeepTheirSeparator) {
    CRootSelection selection(m_doc);
    EXPECT_TRUE(selection.AddBrowsed(u"/"));
    EXPECT_TRUE(selection.AddTyped(u"C:\\"));
    EXPECT_TRUE(selection.AddTyped(u"C:\\Work\\ "));
    EXPECT_EQ(Shown(selection), (Strings{u"/", u"C:\\", u"C:\\Work"}));
}

TEST_F(RootSelectionTest, DeletedRootsStayUntilOkAndCanBeChosenAgain) {
    const std::u16string strA = Dir("a"), strB = Dir("b");
    AddPrepared(strA);
    AddPrepared(strB);
    CRootSelection selection(m_doc);
    selection.DeleteRoots({0});
    EXPECT_EQ(Shown(selection), Strings{strB});
    EXPECT_EQ(m_doc.m_scan.m_aRoots.GetSize(), 2u);
    EXPECT_EQ(selection.EditBoxTextOf(0), strB);
    EXPECT_TRUE(selection.AddBrowsed(strA));  // a marked root does not count as chosen

    selection.Ok(u"");
    ASSERT_EQ(m_doc.m_scan.m_aRoots.GetSize(), 2u);
    EXPECT_EQ(m_doc.m_scan.m_aRoots[0]->m_strName.Str(), strB);
    EXPECT_EQ(m_doc.m_scan.m_aRoots[1]->m_strName.Str(), strA);
    EXPECT_EQ(m_doc.m_scan.m_aRoots[1]->m_bNewRoot, 0);
    ASSERT_EQ(m_doc.m_scan.m_aDrives.GetEntries().size(), 1u);
    EXPECT_EQ(m_doc.m_scan.m_aDrives.GetEntries()[0].m_uRefCount, 2u);
}

TEST_F(RootSelectionTest, CancelDropsNewRootsAndKeepsRemovalMarks) {
    const std::u16string strA = Dir("a");
    CRootDirectoryData* pKept = AddPrepared(strA);
    CRootSelection selection(m_doc);
    selection.AddBrowsed(Dir("new"));
    selection.DeleteAllRoots();
    EXPECT_TRUE(Shown(selection).empty());
    selection.Cancel();
    ASSERT_EQ(m_doc.m_scan.m_aRoots.GetSize(), 1u);
    EXPECT_EQ(m_doc.m_scan.m_aRoots[0], pKept);
    EXPECT_EQ(pKept->m_bRemovePending, 1);
}

TEST_F(RootSelectionTest, OkWithAnEmptyListOffersTheEditBox) {
    const std::u16string strA = Dir("typed");
    {
        CRootSelection selection(m_doc);
        m_host.m_aAnswers = {false};
        selection.Ok(strA);
        EXPECT_TRUE(m_doc.m_scan.m_aRoots.IsEmpty());
    }
    CRootSelection selection(m_doc);
    m_host.m_aAnswers = {true};
    selection.Ok(strA);
    EXPECT_EQ(m_host.m_aQuestions, (Strings{u"Add " + strA + u" to list of root directories ?",
                                            u"Add " + strA + u" to list of root directories ?"}));
    ASSERT_EQ(m_doc.m_scan.m_aRoots.GetSize(), 1u);
    EXPECT_EQ(m_doc.m_scan.m_aRoots[0]->m_bNewRoot, 0);

    selection.Ok(u"ignored while a root is shown");
    EXPECT_EQ(m_host.m_aQuestions.size(), 2u);
}

TEST_F(RootSelectionTest, OkAfterARemovalEmptiesTheScannedForest) {
    CRootDirectoryData* pRoot = AddPrepared(Dir("a"));
    AddPrepared(Dir("b"));
    auto* pChild = new CDirectoryData(pRoot, u"child", {}, {}, {}, ATTR_DIRECTORY);
    pRoot->m_aChildren.Add(pChild);
    m_doc.m_scan.m_aAllDirs.Add(pChild);
    m_doc.m_pCurrentDir = pChild;
    CRootSelection selection(m_doc);
    selection.DeleteRoots({0, 7});
    selection.Ok(u"");
    EXPECT_EQ(m_doc.m_scan.m_aRoots.GetSize(), 1u);
    EXPECT_TRUE(m_doc.m_scan.m_aAllDirs.IsEmpty());
    EXPECT_EQ(m_doc.m_pCurrentDir, nullptr);
    ASSERT_EQ(m_doc.m_scan.m_aDrives.GetEntries().size(), 1u);
    EXPECT_EQ(m_doc.m_scan.m_aDrives.GetEntries()[0].m_uRefCount, 1u);
}

TEST_F(RootSelectionTest, PreviousChoicesComeFromTheRememberedList) {
    const std::u16string strA = Dir("a"), strB = Dir("b"), strC = Dir("c");
    SaveList({strA, strB, strC}, {}, kRootDirList);
    AddPrepared(strB);
    CRootSelection selection(m_doc);
    EXPECT_EQ(selection.PreviousChoices(), (Strings{strA, strB, strC}));

    selection.AddPrevious({1});  // double click: with the message
    EXPECT_EQ(m_host.m_aMessages, Strings{kChosen});
    selection.AddAllPreviousQuietly();  // the popup: silently
    EXPECT_EQ(m_host.m_aMessages.size(), 1u);
    EXPECT_EQ(Shown(selection), (Strings{strB, strA, strC}));

    selection.RemovePrevious({2, 0});
    EXPECT_EQ(selection.PreviousChoices(), Strings{strB});
    Strings aRemembered;
    ReadList(kRootDirList, aRemembered);
    EXPECT_EQ(aRemembered, Strings{strB});
    selection.RemoveAllPrevious();
    EXPECT_TRUE(selection.PreviousChoices().empty());
    ReadList(kRootDirList, aRemembered);
    EXPECT_TRUE(aRemembered.empty());
}

}  // namespace
}  // namespace zv
