// The root selection dialog's model: adding, refusing a root already
// chosen, pending removal, new roots, previous choices, OK and Cancel.
#include <gtest/gtest.h>

#include <filesystem>

#include "core/document/Document.h"
#include "core/host/ScriptedHost.h"
#include "core/scan/RootSelection.h"
#include "core/state/MemoryUserStore.h"
#include "core/state/RememberedLists.h"
#include "platform/FileSystem.h"
#include "platform/Text.h"
#include "support/TempDir.h"

namespace zv {
namespace {

using Strings = std::vector<std::u16string>;

class RootSelectionTest : public ::testing::Test {
protected:
    std::u16string Dir(const std::string& strName) {
        std::filesystem::create_directories(m_temp.Path() / strName);
        return (m_temp.Path() / strName).u16string();
    }

    static Strings Paths(const auto& aRoots) {
        Strings aPaths;
        for (const CRootDirectoryData* pRoot : aRoots) aPaths.push_back(pRoot->m_strName.Str());
        return aPaths;
    }
    Strings Shown(const CRootSelection& selection) const { return Paths(selection.ShownRoots()); }
    Strings Roots() const { return Paths(m_doc.m_scan.m_aRoots); }

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

TEST_F(RootSelectionTest, AddingTrimsAndRefusesADirectoryChosenInAnyCase) {
    const std::u16string strA = Dir("Alpha");
    CRootSelection selection(m_doc);
    EXPECT_TRUE(selection.AddBrowsed(strA + platform::kPathSeparator));  // trailing separator goes
    EXPECT_FALSE(selection.AddBrowsed(platform::ToUpperCopy(strA)));
    EXPECT_FALSE(selection.AddTyped(u"  " + strA + u"\t"));
    EXPECT_FALSE(selection.AddTyped(u"   "));
    EXPECT_EQ(m_host.m_aMessages, (Strings{kChosen, kChosen}));
    // File-system and drive roots keep their separator.
    EXPECT_TRUE(selection.AddBrowsed(u"/"));
    EXPECT_TRUE(selection.AddTyped(u"C:\\"));
    EXPECT_TRUE(selection.AddTyped(u"C:\\Work\\ "));
    EXPECT_EQ(Shown(selection), (Strings{strA, u"/", u"C:\\", u"C:\\Work"}));
    const CRootDirectoryData& root = *m_doc.m_scan.m_aRoots[0];
    EXPECT_EQ(root.m_bNewRoot, 1);
    EXPECT_TRUE(root.m_uAttributes & ATTR_DIRECTORY);
    EXPECT_FALSE(IsZero(root.m_ftModified));
    EXPECT_TRUE(m_doc.m_scan.m_aDrives.GetEntries().empty());  // prepared only on OK
}

TEST_F(RootSelectionTest, DeletedRootsStayUntilOkWhichEmptiesTheScannedForest) {
    const std::u16string strA = Dir("a"), strB = Dir("b");
    CRootDirectoryData* pRoot = AddPrepared(strA);
    AddPrepared(strB);
    auto* pChild = new CDirectoryData(pRoot, u"child", {}, {}, {}, ATTR_DIRECTORY);
    pRoot->m_aChildren.Add(pChild);
    m_doc.m_scan.m_aAllDirs.Add(pChild);
    m_doc.m_pCurrentDir = pChild;

    CRootSelection selection(m_doc);
    selection.DeleteRoots({0, 7});
    EXPECT_EQ(Shown(selection), Strings{strB});
    EXPECT_EQ(Roots(), (Strings{strA, strB}));
    EXPECT_EQ(selection.EditBoxTextOf(0), strB);
    EXPECT_TRUE(selection.AddBrowsed(strA));  // a marked root does not count as chosen

    selection.Ok(u"");
    EXPECT_EQ(Roots(), (Strings{strB, strA}));
    EXPECT_EQ(m_doc.m_scan.m_aRoots[1]->m_bNewRoot, 0);
    EXPECT_TRUE(m_doc.m_scan.m_aAllDirs.IsEmpty());
    EXPECT_EQ(m_doc.m_pCurrentDir, nullptr);
    ASSERT_EQ(m_doc.m_scan.m_aDrives.GetEntries().size(), 1u);
    EXPECT_EQ(m_doc.m_scan.m_aDrives.GetEntries()[0].m_uRefCount, 2u);
}

TEST_F(RootSelectionTest, CancelDropsNewRootsAndKeepsRemovalMarks) {
    CRootDirectoryData* pKept = AddPrepared(Dir("a"));
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
    const std::u16string strQuestion = u"Add " + strA + u" to list of root directories ?";
    CRootSelection(m_doc).Ok(strA);  // refused: the safe answer
    EXPECT_TRUE(m_doc.m_scan.m_aRoots.IsEmpty());
    CRootSelection selection(m_doc);
    m_host.m_aAnswers = {true};
    selection.Ok(strA);
    EXPECT_EQ(m_host.m_aQuestions, Strings(2, strQuestion));
    EXPECT_EQ(Roots(), Strings{strA});
    EXPECT_EQ(m_doc.m_scan.m_aRoots[0]->m_bNewRoot, 0);
    selection.Ok(u"ignored while a root is shown");
    EXPECT_EQ(m_host.m_aQuestions.size(), 2u);
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

    Strings aRemembered;  // removals reach the remembered list at once
    selection.RemovePrevious({2, 0});
    ReadList(kRootDirList, aRemembered);
    EXPECT_EQ(aRemembered, Strings{strB});
    EXPECT_EQ(selection.PreviousChoices(), Strings{strB});
    selection.RemoveAllPrevious();
    ReadList(kRootDirList, aRemembered);
    EXPECT_TRUE(aRemembered.empty() && selection.PreviousChoices().empty());
}

}  // namespace
}  // namespace zv
