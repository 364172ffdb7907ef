#include <gtest/gtest.h>

#include <set>

#include "core/document/Document.h"
#include "ui/logic/CommandTable.h"
#include "ui/logic/ToolbarCommands.h"

namespace zv {
namespace {

const CCommandEntry& Command(int nId) {
    const CCommandEntry* pEntry = FindCommand(nId);
    EXPECT_NE(pEntry, nullptr) << nId;
    return *pEntry;
}

TEST(CommandTable, EveryCommandOnceAndWithinTheToolkitsRange) {
    std::set<int> ids;
    for (const CCommandEntry& entry : MainMenuCommands()) {
        if (entry.m_nId == 0) continue;
        EXPECT_TRUE(ids.insert(entry.m_nId).second) << entry.m_nId;
        EXPECT_GT(MenuId(entry.m_nId), 5999);  // above the toolkit's own numbers
        EXPECT_LT(MenuId(entry.m_nId), 0x7FFF);
    }
}

TEST(CommandTable, EnableRules) {
    CCommandState idle;
    idle.m_bHasRoots = true;
    idle.m_bDirShown = true;
    idle.m_bTreeHasItems = true;
    CCommandState scanning = idle;
    scanning.m_bScanning = true;
    CCommandState empty;
    CCommandState selected = idle;
    selected.m_nSelected = 2;

    const struct {
        int m_nId;
        const CCommandState& m_state;
        bool m_bEnabled;
    } aCases[] = {
        {CmdRescan, idle, true},
        {CmdRescan, scanning, false},
        {CmdRescan, empty, false},
        {CmdStop, scanning, true},
        {CmdStop, idle, false},
        {CmdSelectRoots, scanning, false},
        {CmdDisplayParent, empty, false},
        {CmdOpenAllFolders, scanning, true},
        {CmdOpenAllFolders, empty, false},
        {CmdOpen, idle, false},
        {CmdOpen, selected, true},
        {CmdSortNameAsc, idle, true},
        {CmdSortCrcAsc, idle, false},
        {CmdSortOwnerAsc, idle, false},
        {CmdExit, scanning, true},
        {CmdPrintWidths, idle, false},
        {CmdPrintOptions, idle, true},
        {CmdPrintOptions, scanning, false},
        {CmdCopy, idle, false},
        {CmdCopy, selected, true},
        {CmdFind, empty, false},
        {CmdSelectMatching, idle, true},
        {CmdLoadSettings, scanning, false},
        {CmdFilterDupFiles, idle, true},
        {CmdFilterDupDirs, scanning, false},
    };
    for (const auto& c : aCases)
        EXPECT_EQ(IsCommandEnabled(Command(c.m_nId), c.m_state), c.m_bEnabled) << c.m_nId;

    CCommandState crc = idle;
    crc.m_bShowCrc = true;
    EXPECT_TRUE(IsCommandEnabled(Command(CmdSortCrcSubDesc), crc));
}

TEST(CommandTable, ChecksFollowTheDocument) {
    CWZorvaneDoc doc;
    const CCommandState state;
    EXPECT_TRUE(IsCommandChecked(Command(CmdSortSizeSubDesc), doc, state));  // default 7
    EXPECT_FALSE(IsCommandChecked(Command(CmdSortNameAsc), doc, state));
    EXPECT_TRUE(IsCommandChecked(Command(CmdScanSubdirs), doc, state));
    EXPECT_TRUE(IsCommandChecked(Command(CmdCrcDecimal), doc, state));
    EXPECT_TRUE(IsCommandChecked(Command(CmdSizeBytes), doc, state));
    doc.m_options.m_nSizeUnit = 2;
    EXPECT_TRUE(IsCommandChecked(Command(CmdSizeMegabytes), doc, state));
    EXPECT_FALSE(IsCommandChecked(Command(CmdSizeBytes), doc, state));
}

TEST(CommandTable, SortCommandsSetBothCodes) {
    const struct {
        int m_nId;
        unsigned char m_nFile;
        unsigned char m_nDir;
    } aCases[] = {
        {CmdSortNameAsc, 1, 1},       {CmdSortSizeAsc, 4, 8},      {CmdSortSizeSubDesc, 7, 9},
        {CmdSortAccessedAsc, 10, 12}, {CmdSortCrcSubAsc, 16, 18},  {CmdSortOwnerDesc, 24, 21},
        {CmdSortExtensionAsc, 21, 5}, {CmdSortVersionDesc, 28, 5},
    };
    for (const auto& c : aCases) {
        unsigned char nFile = 0;
        unsigned char nDir = 5;
        ASSERT_TRUE(SortCodesOfCommand(c.m_nId, nFile, nDir));
        EXPECT_EQ(nFile, c.m_nFile) << c.m_nId;
        EXPECT_EQ(nDir, c.m_nDir) << c.m_nId;
    }
    unsigned char nFile = 0;
    unsigned char nDir = 0;
    EXPECT_FALSE(SortCodesOfCommand(CmdRescan, nFile, nDir));
}

// A button without a menu command would have no enable rule and no
// handler.
TEST(CommandTable, ToolbarButtonsAreMenuCommandsOnce) {
    std::set<int> ids;
    for (int nId : MainViewToolbarCommands()) {
        EXPECT_NE(FindCommand(nId), nullptr) << nId;
        EXPECT_TRUE(ids.insert(nId).second) << nId;
    }
    EXPECT_EQ(ids.size(), 13u);
}

}  // namespace
}  // namespace zv
