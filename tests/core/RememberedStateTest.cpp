// The remembered lists and hints in the program's key, through an in-memory
// store: the merge that keeps the newest entries in front, reading with
// gaps, deleting, the order in which a scan saves, and the hint values.
#include <gtest/gtest.h>

#include "MemoryUserStore.h"
#include "ScriptedHost.h"
#include "core/AppKey.h"
#include "core/Document.h"
#include "core/Hints.h"
#include "core/RememberedLists.h"
#include "platform/Text.h"

namespace zv {
namespace {

using platform::U16;
using Strings = std::vector<std::u16string>;

std::u16string Name(std::u16string_view strBase, int nIndex) {
    return std::u16string(strBase) + U16(std::to_string(nIndex));
}

Strings Numbered(std::u16string_view strPrefix, int nCount) {
    Strings aList;
    for (int i = 0; i < nCount; ++i) aList.push_back(Name(strPrefix, i));
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

TEST_F(RememberedListsTest, MergePutsCurrentFirstAndDropsOldestBeyond32) {
    const Strings aPrevious = Numbered(u"old", 32);
    SaveList({u"new"}, aPrevious, u"FileName");
    Strings aExpected{u"new"};
    aExpected.insert(aExpected.end(), aPrevious.begin(), aPrevious.end() - 1);
    EXPECT_EQ(Read(u"FileName"), aExpected);  // the 33rd, oldest, is gone
}

TEST_F(RememberedListsTest, MergeKeepsAtMost32CurrentEntries) {
    SaveList(Numbered(u"cur", 40), Numbered(u"old", 5), u"Dir");
    EXPECT_EQ(Read(u"Dir"), Numbered(u"cur", 32));
}

TEST_F(RememberedListsTest, ChoiceDifferingOnlyInCaseMovesToTheFront) {
    SaveList({u"C:\\Data", u"D:\\Music", u"E:\\Work"}, {}, u"RootDir");
    SaveList({u"d:\\music"}, Read(u"RootDir"), u"RootDir");
    EXPECT_EQ(Read(u"RootDir"), (Strings{u"d:\\music", u"C:\\Data", u"E:\\Work"}));
}

TEST_F(RememberedListsTest, ReadSkipsGapsAndOverlongValues) {
    m_store.m_aValues[u"Owner0"] = u"first";
    m_store.m_aValues[u"Owner5"] = u"second";
    m_store.m_aValues[u"Owner7"] = std::u16string(261, u'x');  // does not fit the read
    m_store.m_aValues[u"Owner8"] = std::u16string(260, u'y');
    m_store.m_aValues[u"Owner32"] = u"beyond the list";
    EXPECT_EQ(Read(u"Owner"), (Strings{u"first", u"second", std::u16string(260, u'y')}));
}

TEST_F(RememberedListsTest, SavingFewerEntriesLeavesHigherIndexesInPlace) {
    m_store.m_aValues[u"Dir0"] = u"a";
    m_store.m_aValues[u"Dir1"] = u"b";
    m_store.m_aValues[u"Dir7"] = u"z";
    SaveList({u"B"}, {u"a"}, u"Dir");
    EXPECT_EQ(m_store.Value(u"Dir0"), u"B");
    EXPECT_EQ(m_store.Value(u"Dir1"), u"a");
    EXPECT_EQ(m_store.Value(u"Dir7"), u"z");
}

TEST_F(RememberedListsTest, DeleteListEntryTakesTheFirstExactMatch) {
    m_store.m_aValues[u"Dir2"] = u"Same";
    m_store.m_aValues[u"Dir4"] = u"Same";
    EXPECT_FALSE(DeleteListEntry(u"Dir", u"same"));  // case counts here
    EXPECT_TRUE(DeleteListEntry(u"Dir", u"Same"));
    EXPECT_FALSE(m_store.Has(u"Dir2"));
    EXPECT_TRUE(m_store.Has(u"Dir4"));
    EXPECT_TRUE(DeleteListEntry(u"Dir", u"Same"));
    EXPECT_FALSE(DeleteListEntry(u"Dir", u"Same"));
}

TEST_F(RememberedListsTest, DeleteListRemovesAll32AndNothingElse) {
    SaveList(Numbered(u"x", 32), {}, u"Owner");
    m_store.m_aValues[u"Owner32"] = u"not in the list";
    m_store.m_aValues[u"OwnerExclude0"] = u"another list";
    DeleteList(u"Owner");
    EXPECT_EQ(m_store.m_aValues.size(), 2u);
    EXPECT_TRUE(Read(u"Owner").empty());
}

TEST_F(RememberedListsTest, AKeyThatCannotBeOpenedMakesEveryOperationDoNothing) {
    m_store.m_aValues[u"Dir0"] = u"kept";
    m_store.m_bFailOpen = true;
    EXPECT_TRUE(Read(u"Dir").empty());
    SaveList({u"new"}, {}, u"Dir");
    EXPECT_FALSE(DeleteListEntry(u"Dir", u"kept"));
    DeleteList(u"Dir");
    EXPECT_FALSE(IsHintWanted(kHintAdministrator));  // a hint that cannot be read is not shown
    EXPECT_EQ(m_store.Value(u"Dir0"), u"kept");
    EXPECT_EQ(m_store.m_aValues.size(), 1u);
}

TEST_F(RememberedListsTest, AScanSavesTheListsInUseInTheFixedOrder) {
    CWZorvaneDoc doc;
    auto* pRoot = new CRootDirectoryData(u"/data");
    doc.m_scan.m_aRoots.Add(pRoot);
    auto* pGone = new CRootDirectoryData(u"/gone");
    pGone->m_bRemovePending = 1;
    doc.m_scan.m_aRoots.Add(pGone);
    for (int nList = 0; nList < FilterListCount; ++nList)
        doc.m_filters.AddEntry(static_cast<EFilterList>(nList), u"entry");
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
    struct {
        const char16_t* m_pszValue;  // null: absent
        bool m_bWanted;
    } const kCases[] = {{nullptr, true}, {u"1", true}, {u"1x", true},
                        {u"0", false},   {u"", false}, {u"yes", false}};
    for (const auto& c : kCases) {
        m_store.m_aValues.clear();
        if (c.m_pszValue) m_store.m_aValues[std::u16string(kHintDupFiles)] = c.m_pszValue;
        EXPECT_EQ(IsHintWanted(kHintDupFiles), c.m_bWanted)
            << (c.m_pszValue ? platform::Utf16ToUtf8(c.m_pszValue) : "absent");
    }
}

TEST_F(HintsTest, SuppressHintOnceWritesOnlyTheFirstTimeInAProcess) {
    SuppressHintOnce(kHintDupDirs);
    EXPECT_EQ(m_store.Value(std::u16string(kHintDupDirs)), u"0");
    RestoreHint(kHintDupDirs);
    SuppressHintOnce(kHintDupDirs);
    EXPECT_EQ(m_store.Value(std::u16string(kHintDupDirs)), u"1");
}

TEST_F(HintsTest, TheDiffHintShowsOnceWhileItsValueIsAbsent) {
    EXPECT_TRUE(TakeDiffedFilesHint());
    EXPECT_EQ(m_store.Value(std::u16string(kHintDiffedFiles)), u"0");
    EXPECT_FALSE(TakeDiffedFilesHint());
    m_store.m_aValues[std::u16string(kHintDiffedFiles)] = u"1";  // only absence counts
    EXPECT_FALSE(TakeDiffedFilesHint());
}

TEST_F(HintsTest, StartupHintsRepeatUntilAnsweredNo) {
    int nAboutShown = 0;
    auto ShowAbout = [&nAboutShown] {
        ++nAboutShown;
        return false;
    };
    m_host.m_aAnswers = {true};
    ShowStartupHints(ShowAbout);
    ShowStartupHints(ShowAbout);  // unanswered: the safe answer repeats it
    EXPECT_EQ(m_host.m_aQuestions.size(), 2u);
    EXPECT_EQ(m_host.m_aQuestions[0],
              u"Zorvane can find more files if run as an administrator.\nRepeat this message?");
    EXPECT_FALSE(m_store.Has(std::u16string(kHintAdministrator)));

    m_host.m_aAnswers = {false};
    ShowStartupHints([] { return true; });  // the about box's check box is ticked
    EXPECT_EQ(m_store.Value(std::u16string(kHintAdministrator)), u"0");
    EXPECT_EQ(m_store.Value(std::u16string(kHintHelpAbout)), u"0");

    ShowStartupHints(ShowAbout);
    EXPECT_EQ(m_host.m_aQuestions.size(), 3u);
    EXPECT_EQ(nAboutShown, 2);
}

TEST_F(HintsTest, RemoveAllEntriesAsksAndKeepsTheVersionFilters) {
    const Strings aLists{u"Dir",
                         u"DirExclude",
                         u"DupFilesFilter",
                         u"DupDirsFilter",
                         u"FileName",
                         u"FileNameExclude",
                         u"FileNameFullPathExclude",
                         u"OfficeExtensions",
                         u"Owner",
                         u"OwnerExclude",
                         u"RootDir",
                         u"FileVersion"};
    for (const std::u16string& strBase : aLists) SaveList(Numbered(u"e", 32), {}, strBase);
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
