// The remembered lists and hints in the program's key, through an in-memory
// store: the merge that keeps the newest entries in front, reading with
// gaps, deleting, the order in which a scan saves, and the hint values.
#include <gtest/gtest.h>

#include "core/document/Document.h"
#include "core/host/ScriptedHost.h"
#include "core/state/AppKey.h"
#include "core/state/Hints.h"
#include "core/state/MemoryUserStore.h"
#include "core/state/RememberedLists.h"
#include "platform/Text.h"

namespace zv {
namespace {

using Strings = std::vector<std::u16string>;

Strings Numbered(std::u16string_view strPrefix, int nCount) {
    Strings aList;
    for (int i = 0; i < nCount; ++i)
        aList.push_back(std::u16string(strPrefix) + platform::U16(std::to_string(i)));
    return aList;
}

Strings Read(std::u16string_view strBase) {
    Strings aList{u"stale"};
    ReadList(strBase, aList);
    return aList;
}

class RememberedListsTest : public ::testing::Test {
protected:
    test::CMemoryUserStore m_store;
};

TEST_F(RememberedListsTest, MergePutsCurrentFirstAndKeeps32) {
    Strings aNewAndOld = Numbered(u"old", 31);
    aNewAndOld.insert(aNewAndOld.begin(), u"new");
    const struct {
        Strings aCurrent, aPrevious, aExpected;
    } aCases[] = {{{u"new"}, Numbered(u"old", 32), aNewAndOld},  // the 33rd, oldest, is gone
                  {Numbered(u"cur", 40), Numbered(u"old", 5), Numbered(u"cur", 32)},
                  // A choice differing only in case moves to the front as chosen.
                  {{u"d:\\music"},
                   {u"C:\\Data", u"D:\\Music", u"E:\\Work"},
                   {u"d:\\music", u"C:\\Data", u"E:\\Work"}}};
    for (const auto& c : aCases) {
        m_store.m_aValues.clear();
        SaveList(c.aCurrent, c.aPrevious, u"Dir");
        EXPECT_EQ(Read(u"Dir"), c.aExpected);
    }
}

TEST_F(RememberedListsTest, ReadSkipsGapsAndOverlongValuesAndASaveLeavesHigherIndexes) {
    m_store.m_aValues = {{u"Owner0", u"first"},
                         {u"Owner5", u"second"},
                         {u"Owner7", std::u16string(261, u'x')},  // does not fit the read
                         {u"Owner8", std::u16string(260, u'y')},
                         {u"Owner32", u"beyond the list"}};
    EXPECT_EQ(Read(u"Owner"), (Strings{u"first", u"second", std::u16string(260, u'y')}));

    // Two entries are written; the higher indexes stay as they were.
    SaveList({u"B"}, {u"first"}, u"Owner");
    EXPECT_EQ(Read(u"Owner"), (Strings{u"B", u"first", u"second", std::u16string(260, u'y')}));
}

TEST_F(RememberedListsTest, DeletingEntriesAndLists) {
    m_store.m_aValues = {{u"Dir2", u"Same"}, {u"Dir4", u"Same"}};
    EXPECT_FALSE(DeleteListEntry(u"Dir", u"same"));  // case counts here
    EXPECT_TRUE(DeleteListEntry(u"Dir", u"Same"));   // the first match only
    EXPECT_FALSE(m_store.Has(u"Dir2"));
    EXPECT_TRUE(m_store.Has(u"Dir4"));
    EXPECT_TRUE(DeleteListEntry(u"Dir", u"Same"));
    EXPECT_FALSE(DeleteListEntry(u"Dir", u"Same"));

    SaveList(Numbered(u"x", 32), {}, u"Owner");
    m_store.m_aValues[u"Owner32"] = u"not in the list";
    m_store.m_aValues[u"OwnerExclude0"] = u"another list";
    DeleteList(u"Owner");
    EXPECT_EQ(m_store.m_aValues.size(), 2u);
}

TEST_F(RememberedListsTest, AKeyThatCannotBeOpenedMakesEveryOperationDoNothing) {
    m_store.m_aValues[u"Dir0"] = u"kept";
    m_store.m_bFailOpen = true;
    EXPECT_TRUE(Read(u"Dir").empty());
    SaveList({u"new"}, {}, u"Dir");
    EXPECT_FALSE(DeleteListEntry(u"Dir", u"kept"));
    DeleteList(u"Dir");
    EXPECT_FALSE(IsHintWanted(kHintAdministrator));  // a hint that cannot be read is not shown
    EXPECT_EQ(m_store.m_aValues, (platform::CUserStoreValues{{u"Dir0", u"kept"}}));
}

TEST_F(RememberedListsTest, AScanSavesTheListsInUseInTheFixedOrder) {
    CWZorvaneDoc doc;
    doc.m_scan.m_aRoots.Add(new CRootDirectoryData(u"/data"));
    doc.m_scan.m_aRoots.Add(new CRootDirectoryData(u"/gone"));
    doc.m_scan.m_aRoots[1]->m_bRemovePending = 1;
    for (int nList = 0; nList < FilterListCount; ++nList)
        doc.m_filters.AddEntry(EFilterList(nList), u"entry");
    doc.m_filters.AddEntry(FilterFileNames, u"removed in the dialog");
    doc.m_filters.List(FilterFileNames).back().m_bRemoved = 1;
    m_store.m_aValues[u"RootDir0"] = u"/earlier";

    SaveRememberedLists(doc);
    EXPECT_EQ(m_store.m_nOpens, 1);
    Strings aFirstWrites;
    for (const std::u16string& strName : m_store.m_aWriteOrder)
        if (strName.ends_with(u'0')) aFirstWrites.push_back(strName);
    EXPECT_EQ(aFirstWrites,
              (Strings{u"RootDir0", u"FileName0", u"FileNameExclude0", u"FileNameFullPathExclude0",
                       u"Owner0", u"OwnerExclude0", u"DirExclude0", u"Dir0", u"FileVersion0",
                       u"DupFilesFilter0", u"DupDirsFilter0"}));
    EXPECT_EQ(Read(u"RootDir"), (Strings{u"/data", u"/earlier"}));
    EXPECT_EQ(Read(u"FileName"), (Strings{u"entry"}));
    EXPECT_FALSE(m_store.Has(u"OfficeExtensions0"));  // saved only by its own dialog
}

class HintsTest : public ::testing::Test {
protected:
    test::CMemoryUserStore m_store;
    test::CScriptedHost m_host;
};

TEST_F(HintsTest, AHintIsWantedWhileAbsentOrStartingWithOne) {
    const std::pair<const char16_t*, bool> aCases[] = {
        {nullptr, true}, {u"1", true}, {u"1x", true}, {u"0", false}, {u"", false}, {u"yes", false}};
    for (const auto& [pszValue, bWanted] : aCases) {
        m_store.m_aValues.clear();
        if (pszValue) m_store.m_aValues[std::u16string(kHintDupFiles)] = pszValue;
        EXPECT_EQ(IsHintWanted(kHintDupFiles), bWanted)
            << (pszValue ? platform::Utf16ToUtf8(pszValue) : "absent");
    }
}

TEST_F(HintsTest, OnceOnlyHints) {
    SuppressHintOnce(kHintDupDirs);
    EXPECT_EQ(m_store.Value(kHintDupDirs), u"0");
    RestoreHint(kHintDupDirs);
    SuppressHintOnce(kHintDupDirs);  // only the first time in a process
    EXPECT_EQ(m_store.Value(kHintDupDirs), u"1");

    EXPECT_TRUE(TakeDiffedFilesHint());
    EXPECT_EQ(m_store.Value(kHintDiffedFiles), u"0");
    EXPECT_FALSE(TakeDiffedFilesHint());
    m_store.m_aValues[std::u16string(kHintDiffedFiles)] = u"1";  // only absence counts
    EXPECT_FALSE(TakeDiffedFilesHint());
}

TEST_F(HintsTest, StartupHintsRepeatUntilAnsweredNo) {
    int nAboutShown = 0;
    auto ShowAbout = [&nAboutShown] { return ++nAboutShown < 0; };  // counts; box unticked
    m_host.m_aAnswers = {true};
    ShowStartupHints(ShowAbout);
    ShowStartupHints(ShowAbout);  // unanswered: the safe answer repeats it
    EXPECT_EQ(m_host.m_aQuestions,
              Strings(2,
                      u"Zorvane can find more files if run as an administrator.\n"
                      u"Repeat this message?"));
    EXPECT_FALSE(m_store.Has(kHintAdministrator));

    m_host.m_aAnswers = {false};
    ShowStartupHints([] { return true; });  // the about box's check box is ticked
    EXPECT_EQ(m_store.Value(kHintAdministrator), u"0");
    EXPECT_EQ(m_store.Value(kHintHelpAbout), u"0");
    ShowStartupHints(ShowAbout);
    EXPECT_EQ(m_host.m_aQuestions.size(), 3u);
    EXPECT_EQ(nAboutShown, 2);
}

TEST_F(HintsTest, RemoveAllEntriesAsksAndKeepsTheVersionFilters) {
    SaveList(Numbered(u"e", 32), {}, kRootDirList);
    for (int nList = 0; nList < FilterListCount; ++nList)
        SaveList(Numbered(u"e", 32), {}, FilterListNames(EFilterList(nList)).m_pszRegistryList);
    for (const std::u16string_view strHint : {kHintAdministrator, kHintDiffedFiles, kHintDupDirs,
                                              kHintDupFiles, kHintPrintingOptions, kHintHelpAbout})
        NeverShowHint(strHint);
    const size_t nValues = m_store.m_aValues.size();

    m_host.m_aAnswers = {false};
    EXPECT_FALSE(RemoveAllRegistryEntries());
    EXPECT_EQ(m_store.m_aValues.size(), nValues);
    EXPECT_EQ(m_host.m_aQuestions.back(),
              u"This will remove from the registry all entries for Zorvane\nAre You Sure?");
    m_host.m_aAnswers = {true};
    EXPECT_TRUE(RemoveAllRegistryEntries());
    EXPECT_EQ(m_store.m_aValues.size(), 32u);
    EXPECT_EQ(Read(u"FileVersion").size(), 32u);
    EXPECT_TRUE(IsHintWanted(kHintAdministrator));  // asked again at the next start
    EXPECT_TRUE(TakeDiffedFilesHint());
}

}  // namespace
}  // namespace zv
