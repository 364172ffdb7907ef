#include "ui/logic/CommandTable.h"

#include <algorithm>

#include "core/document/Document.h"

namespace zv {

namespace {

constexpr CCommandEntry kCommands[] = {
    {u"&File", CmdOpen, u"Open", RuleSelection},
    {u"&File", CmdNewFolder, u"New Folder", RuleDirShown},
    {u"&File", CmdSave, u"Save\tCtrl+S", RuleNotBuilt},
    {u"&File", 0, nullptr, RuleAlways},
    {u"&File", CmdPrint, u"&Print...\tCtrl+P", RuleNotBuilt},
    {u"&File", CmdPrintPreview, u"Print Pre&view", RuleNotBuilt},
    {u"&File", CmdPrintSetup, u"P&rint Setup...", RuleNotBuilt},
    {u"&File", 0, nullptr, RuleAlways},
    {u"&File", CmdDeleteRecycle, u"&Delete (to recycle bin)\tDel", RuleNotBuilt},
    {u"&File", CmdDeleteNoRecycle, u"Delete  (NO recycle bin)\tShift+Del", RuleNotBuilt},
    {u"&File", CmdModifyDates, u"Modify Dates...\tF6", RuleNotBuilt},
    {u"&File", CmdMoveTo, u"Move To...", RuleNotBuilt},
    {u"&File", CmdCopyTo, u"Copy To...", RuleNotBuilt},
    {u"&File", CmdRename, u"Rename\tF2", RuleOneSelection},
    {u"&File", CmdMultiRename, u"Multi Rename...\tF3", RuleNotBuilt},
    {u"&File", CmdMp3Rename, u"MP3 Rename...", RuleNotBuilt},
    {u"&File", CmdChangeOwner, u"Change Owner...", RuleNotBuilt},
    {u"&File", CmdBreakupStreams, u"Breakup streamed file", RuleNotBuilt},
    {u"&File", CmdSaveStream, u"Save stream to file", RuleNotBuilt},
    {u"&File", CmdCheckStreams, u"Check for streams", RuleIdle, CheckStreams},
    {u"&File", CmdProperties, u"Properties\tF9", RuleNotBuilt},
    {u"&File", 0, nullptr, RuleAlways},
    {u"&File", CmdDiffBinary, u"Diff (Binary mode)\tF10", RuleNotBuilt},
    {u"&File", CmdDiffLineBlanks, u"Diff (Line mode, Ignore leading/trailing blanks)\tF11",
     RuleNotBuilt},
    {u"&File", CmdDiffLine, u"Diff (Line mode)\tF12", RuleNotBuilt},
    {u"&File", 0, nullptr, RuleAlways},
    {u"&File", CmdLoadSettings, u"Load Settings", RuleIdle},
    {u"&File", CmdSaveSettings, u"Save Settings", RuleIdle},
    {u"&File", 0, nullptr, RuleAlways},
    {u"&File", CmdExit, u"E&xit", RuleAlways},

    {u"F&ilters", CmdFilterFileNames, u"File Name Filters...", RuleIdle},
    {u"F&ilters", CmdFilterFileNamesExclude, u"File Name Exclude Filters...", RuleIdle},
    {u"F&ilters", CmdFilterFullPathExclude, u"File Name Exclude (full path) Filters...", RuleIdle},
    {u"F&ilters", CmdFilterVersion, u"File Name Version Filters...", RuleIdle},
    {u"F&ilters", CmdFilterOffice, u"Office Extensions...", RuleIdle},
    {u"F&ilters", CmdFilterOwners, u"File Owner Filter...", RuleIdle},
    {u"F&ilters", CmdFilterOwnersExclude, u"File Owner Exclude Filter...", RuleIdle},
    {u"F&ilters", CmdFilterDirExclude, u"Directory Exclude Filter...", RuleIdle},
    {u"F&ilters", CmdFilterDir, u"Directory Filter...", RuleIdle},
    {u"F&ilters", CmdFilterDupFiles, u"Duplicate Files Filter...", RuleIdle},
    {u"F&ilters", CmdFilterDupDirs, u"Duplicate Directories Filter...", RuleIdle},
    {u"F&ilters", CmdFilterSizeDate, u"Size and Date Filters...", RuleIdle},

    {u"&Directory", CmdSelectRoots, u"&Select starting directory...", RuleIdle},
    {u"&Directory", CmdRescan, u"&Rescan starting directory", RuleRescan},
    {u"&Directory", CmdStop, u"Stop scanning", RuleScanning},
    {u"&Directory", 0, nullptr, RuleAlways},
    {u"&Directory", CmdOpenAllFolders, u"Open &all directory folders", RuleTreeItems},
    {u"&Directory", CmdCloseAllFolders, u"Close all directory folders", RuleTreeItems},
    {u"&Directory", CmdDisplayParent, u"Display &parent directory", RuleDirShown},
    {u"&Directory", 0, nullptr, RuleAlways},
    {u"&Directory", CmdScanSubdirs, u"Scan subdirectories", RuleIdle, CheckScanSubdirs},
    {u"&Directory", CmdMaxDepth, u"Set maximum directory scanning depth", RuleIdle},

    {u"&Compare", CmdCompareDirs, u"Compare Directories...\tF7", RuleNotBuilt},
    {u"&Compare", CmdCompareDirsSub, u"Compare Directories (with subdirectories)...\tF8",
     RuleNotBuilt},
    {u"&Compare", CmdCompareModeSideBySide, u"Side by side", RuleNotBuilt, CheckCompareMode, 0,
     u"Set default compare mode"},
    {u"&Compare", CmdCompareModeIgnoreBlanks, u"Side by side, ignore leading/trailing blanks",
     RuleNotBuilt, CheckCompareMode, 1, u"Set default compare mode"},
    {u"&Compare", CmdCompareModeBinary, u"Binary", RuleNotBuilt, CheckCompareMode, 2,
     u"Set default compare mode"},
    {u"&Compare", CmdCompareModeNone, u"None", RuleNotBuilt, CheckCompareMode, 3,
     u"Set default compare mode"},
    {u"&Compare", CmdOwnDiffProgram, u"Use your own diff program...", RuleNotBuilt},

    {u"&Edit", CmdCut, u"Cut\tCtrl+X", RuleNotBuilt},
    {u"&Edit", CmdCopy, u"Copy\tCtrl+C", RuleSelection},
    {u"&Edit", CmdPaste, u"Paste\tCtrl+V", RuleNotBuilt},
    {u"&Edit", CmdLink, u"Link\tCtrl+L", RuleNotBuilt},
    {u"&Edit", 0, nullptr, RuleAlways},
    {u"&Edit", CmdSelectAll, u"Select &All\tCtrl+A", RuleDirShown},
    {u"&Edit", CmdSelectMatching, u"Select &Matching", RuleDirShown},
    {u"&Edit", CmdInvertSelection, u"&Invert Selection", RuleDirShown},
    {u"&Edit", CmdUnselectAll, u"&Unselect All", RuleDirShown},
    {u"&Edit", CmdFind, u"Find...\tCtrl+F", RuleDirShown},

    {u"&Sort", CmdSortNameAsc, u"Sort by Name Ascending", RuleIdle, CheckFileSort, 1},
    {u"&Sort", CmdSortNameDesc, u"Sort by Name Descending", RuleIdle, CheckFileSort, 2},
    {u"&Sort", CmdSortExtensionAsc, u"Sort by Extension Ascending", RuleIdle, CheckFileSort, 21},
    {u"&Sort", CmdSortExtensionDesc, u"Sort by Extension Descending", RuleIdle, CheckFileSort, 22},
    {u"&Sort", CmdSortSizeAsc, u"Sort by Size Ascending", RuleIdle, CheckFileSort, 4},
    {u"&Sort", CmdSortSizeDesc, u"Sort by Size Descending", RuleIdle, CheckFileSort, 5},
    {u"&Sort", CmdSortSizeSubAsc, u"Sort by Size with Subdirectories Ascending", RuleIdle,
     CheckFileSort, 6},
    {u"&Sort", CmdSortSizeSubDesc, u"Sort by Size with Subdirectories Descending", RuleIdle,
     CheckFileSort, 7},
    {u"&Sort", CmdSortCreatedAsc, u"Sort by Created Date Ascending", RuleIdle, CheckFileSort, 8},
    {u"&Sort", CmdSortCreatedDesc, u"Sort by Created Date Descending", RuleIdle, CheckFileSort, 9},
    {u"&Sort", CmdSortAccessedAsc, u"Sort by Access Date Ascending", RuleIdle, CheckFileSort, 10},
    {u"&Sort", CmdSortAccessedDesc, u"Sort by Access Date Descending", RuleIdle, CheckFileSort, 11},
    {u"&Sort", CmdSortModifiedAsc, u"Sort by Modified Date Ascending", RuleIdle, CheckFileSort, 12},
    {u"&Sort", CmdSortModifiedDesc, u"Sort by Modified Date Descending", RuleIdle, CheckFileSort,
     13},
    {u"&Sort", CmdSortCrcAsc, u"Sort by CRC Ascending", RuleCrcShown, CheckFileSort, 16},
    {u"&Sort", CmdSortCrcDesc, u"Sort by CRC Descending", RuleCrcShown, CheckFileSort, 17},
    {u"&Sort", CmdSortCrcSubAsc, u"Sort by CRC with Subdirectories Ascending", RuleCrcShown,
     CheckFileSort, 16},
    {u"&Sort", CmdSortCrcSubDesc, u"Sort by CRC with Subdirectories Descending", RuleCrcShown,
     CheckFileSort, 17},
    {u"&Sort", CmdSortOwnerAsc, u"Sort by Owner Ascending", RuleOwnerLive, CheckFileSort, 23},
    {u"&Sort", CmdSortOwnerDesc, u"Sort by Owner Descending", RuleOwnerLive, CheckFileSort, 24},
    {u"&Sort", CmdSortVersionAsc, u"Sort by Version Ascending", RuleVersionLive, CheckFileSort, 27},
    {u"&Sort", CmdSortVersionDesc, u"Sort by Version Descending", RuleVersionLive, CheckFileSort,
     28},

    {u"&Misc", CmdCheckClusterSize, u"&Check Cluster Size...", RuleNotBuilt},
    {u"&Misc", CmdRemoveRegistry, u"Remove all registry entries", RuleNotBuilt},

    {u"C&RC", CmdComputeCrc, u"&Compute CRC", RuleNotBuilt, CheckShowCrc},
    {u"C&RC", CmdCrcHex, u"Show CRC in &Hexadecimal", RuleIdle, CheckCrcHex},
    {u"C&RC", CmdCrcDecimal, u"Show CRC in &Decimal", RuleIdle, CheckCrcDecimal},
    {u"C&RC", CmdCrcFromFile, u"Get CRCs from a file", RuleNotBuilt},

    {u"&View", CmdStatusBar, u"&Status Bar", RuleAlways, CheckStatusBar},
    {u"&View", 0, nullptr, RuleAlways},
    {u"&View", CmdSizeBytes, u"Show size in bytes", RuleIdle, CheckSizeUnit, 0},
    {u"&View", CmdSizeKilobytes, u"Show size in Kilobytes", RuleIdle, CheckSizeUnit, 1},
    {u"&View", CmdSizeMegabytes, u"Show size in Megabytes", RuleIdle, CheckSizeUnit, 2},
    {u"&View", CmdSizeGigabytes, u"Show size in Giga bytes", RuleIdle, CheckSizeUnit, 3},
    {u"&View", 0, nullptr, RuleAlways},
    {u"&View", CmdViewOwner, u"View &Owner", RuleNotBuilt, CheckOwners},
    {u"&View", CmdViewVersion, u"View &Version", RuleNotBuilt, CheckVersions},
    {u"&View", CmdViewAllFiles, u"View all files", RuleNotBuilt},
    {u"&View", CmdViewAllDirs, u"View all directories", RuleNotBuilt},

    {u"D&uplicates", CmdFindDupFiles, u"Find Duplicate Files", RuleNotBuilt},
    {u"D&uplicates", CmdFindDupDirs, u"Find Duplicate Directories", RuleNotBuilt},
    {u"D&uplicates", CmdDupOptions, u"Duplicate Options...", RuleIdle},

    {u"&Largest", CmdLargestFiles, u"Largest Files", RuleNotBuilt},
    {u"&Largest", CmdLargestDirs, u"Largest Directories", RuleNotBuilt},
    {u"&Largest", CmdLargestOwner, u"Largest Owner", RuleNotBuilt},
    {u"&Largest", CmdLargestType, u"Largest Type", RuleNotBuilt},

    {u"&Window", CmdCascade, u"&Cascade", RuleAlways},
    {u"&Window", CmdTileHorizontal, u"Window Tile Horizontally", RuleAlways},
    {u"&Window", CmdTileVertical, u"Window Tile &Vertically", RuleAlways},

    {u"&Print", CmdPrintWidths, u"Set Printing Widths...", RuleNotBuilt},
    {u"&Print", CmdPrintFonts, u"Select Printing Fonts...", RuleNotBuilt},
    {u"&Print", CmdPrintOptions, u"Set Printing Options...", RuleIdle},
    {u"&Print", CmdAutoPrint, u"Auto Print ...", RuleNotBuilt},

    {u"&Help", CmdHelp, u"&Help\tF1", RuleNotBuilt},
    {u"&Help", CmdAbout, u"&About Zorvane...", RuleAlways},
};

struct CSortCommand {
    int m_nId;
    unsigned char m_nFileSort;
    unsigned char m_nDirSort;  // 0: the directory sort stays
};

constexpr CSortCommand kSortCommands[] = {
    {CmdSortNameAsc, 1, 1},        {CmdSortNameDesc, 2, 2},       {CmdSortExtensionAsc, 21, 0},
    {CmdSortExtensionDesc, 22, 0}, {CmdSortSizeAsc, 4, 8},        {CmdSortSizeDesc, 5, 9},
    {CmdSortSizeSubAsc, 6, 8},     {CmdSortSizeSubDesc, 7, 9},    {CmdSortCreatedAsc, 8, 10},
    {CmdSortCreatedDesc, 9, 11},   {CmdSortAccessedAsc, 10, 12},  {CmdSortAccessedDesc, 11, 13},
    {CmdSortModifiedAsc, 12, 14},  {CmdSortModifiedDesc, 13, 15}, {CmdSortCrcAsc, 16, 16},
    {CmdSortCrcDesc, 17, 17},      {CmdSortCrcSubAsc, 16, 18},    {CmdSortCrcSubDesc, 17, 19},
    {CmdSortOwnerAsc, 23, 20},     {CmdSortOwnerDesc, 24, 21},    {CmdSortVersionAsc, 27, 0},
    {CmdSortVersionDesc, 28, 0},
};

}  // namespace

std::span<const CCommandEntry> MainMenuCommands() { return kCommands; }

const CCommandEntry* FindCommand(int nId) {
    for (const CCommandEntry& entry : kCommands)
        if (entry.m_nId == nId && nId != 0) return &entry;
    return nullptr;
}

bool IsCommandEnabled(const CCommandEntry& entry, const CCommandState& state) {
    const bool bIdle = !state.m_bScanning;
    switch (entry.m_eRule) {
        case RuleNotBuilt:
            return false;
        case RuleAlways:
            return true;
        case RuleIdle:
            return bIdle;
        case RuleSelection:
            return bIdle && state.m_nSelected > 0;
        case RuleOneSelection:
            return bIdle && state.m_nSelected == 1;
        case RuleRescan:
            return bIdle && state.m_bHasRoots;
        case RuleTreeItems:
            return state.m_bTreeHasItems;
        case RuleDirShown:
            return bIdle && state.m_bDirShown;
        case RuleScanning:
            return state.m_bScanning;
        case RuleCrcShown:
            return bIdle && state.m_bShowCrc;
        case RuleOwnerLive:
            return bIdle && state.m_bShowOwners;
        case RuleVersionLive:
            return bIdle && state.m_bShowVersions;
    }
    return false;
}

bool IsCommandChecked(const CCommandEntry& entry, const CWZorvaneDoc& doc,
                      const CCommandState& state) {
    const CDocumentOptions& options = doc.m_options;
    switch (entry.m_eCheck) {
        case CheckNone:
            return false;
        case CheckFileSort:
            return options.m_nFileSort == entry.m_nValue;
        case CheckScanSubdirs:
            return options.m_bScanSubdirs != 0;
        case CheckStreams:
            return options.m_bCheckStreams != 0;
        case CheckShowCrc:
            return options.m_bShowCrc != 0;
        case CheckCrcHex:
            return options.m_bCrcHex != 0;
        case CheckCrcDecimal:
            return options.m_bCrcDecimal != 0;
        case CheckSizeUnit:
            return options.m_nSizeUnit == entry.m_nValue;
        case CheckCompareMode:
            return options.m_nDefaultCompareMode == entry.m_nValue;
        case CheckOwners:
            return options.m_bShowOwners != 0;
        case CheckVersions:
            return options.m_bShowVersions != 0;
        case CheckStatusBar:
            return state.m_bStatusBarShown;
    }
    return false;
}

bool SortCodesOfCommand(int nId, unsigned char& nFileSort, unsigned char& nDirSort) {
    const auto it = std::find_if(std::begin(kSortCommands), std::end(kSortCommands),
                                 [nId](const CSortCommand& c) { return c.m_nId == nId; });
    if (it == std::end(kSortCommands)) return false;
    nFileSort = it->m_nFileSort;
    if (it->m_nDirSort) nDirSort = it->m_nDirSort;
    return true;
}

}  // namespace zv
