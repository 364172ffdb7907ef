// The main menu as a table: each command's menu, text, number and the rule
// that enables and checks it. Commands whose work is not in the program yet
// stand in the menu, disabled.
#pragma once

#include <cstddef>
#include <span>

namespace zv {

class CWZorvaneDoc;

// Command numbers the views and the document share as update hints.
enum ECommand {
    CmdSortNameAsc = 32776,
    CmdSortNameDesc = 32777,
    CmdSortSizeAsc = 32778,
    CmdSortSizeDesc = 32779,
    CmdSortCrcAsc = 32783,
    CmdSortCrcDesc = 32784,
    CmdComputeCrc = 32785,
    CmdStop = 32787,
    CmdShowDirectory = 32792,
    CmdSortCreatedAsc = 32793,
    CmdSortCreatedDesc = 32794,
    CmdSortAccessedDesc = 32795,
    CmdSortAccessedAsc = 32796,
    CmdSelectAll = 32797,
    CmdInvertSelection = 32798,
    CmdUnselectAll = 32799,
    CmdSortExtensionAsc = 32831,
    CmdSortExtensionDesc = 32832,
    CmdSortModifiedAsc = 32835,
    CmdSortModifiedDesc = 32836,
    CmdSortCrcSubAsc = 32868,
    CmdSortCrcSubDesc = 32869,
    CmdSortSizeSubAsc = 32870,
    CmdSortSizeSubDesc = 32871,
    CmdNewFolder = 32931,
    CmdSortOwnerAsc = 32933,
    CmdSortOwnerDesc = 32934,
    CmdFind = 33033,
    CmdViewVersion = 33036,
    CmdSortVersionAsc = 33037,
    CmdSortVersionDesc = 33038,
    CmdLink = 33146,
    CmdSelectMatching = 33221,
    // Numbers of this program's own choosing from here on.
    CmdFirstOwn = 34000,
    CmdOpen = CmdFirstOwn,
    CmdSave,
    CmdPrint,
    CmdPrintPreview,
    CmdPrintSetup,
    CmdDeleteRecycle,
    CmdDeleteNoRecycle,
    CmdModifyDates,
    CmdMoveTo,
    CmdCopyTo,
    CmdRename,
    CmdMultiRename,
    CmdMp3Rename,
    CmdChangeOwner,
    CmdBreakupStreams,
    CmdSaveStream,
    CmdCheckStreams,
    CmdProperties,
    CmdDiffBinary,
    CmdDiffLineBlanks,
    CmdDiffLine,
    CmdLoadSettings,
    CmdSaveSettings,
    CmdExit,
    CmdFilterFileNames,
    CmdFilterFileNamesExclude,
    CmdFilterFullPathExclude,
    CmdFilterVersion,
    CmdFilterOffice,
    CmdFilterOwners,
    CmdFilterOwnersExclude,
    CmdFilterDirExclude,
    CmdFilterDir,
    CmdFilterDupFiles,
    CmdFilterDupDirs,
    CmdFilterSizeDate,
    CmdSelectRoots,
    CmdRescan,
    CmdOpenAllFolders,
    CmdCloseAllFolders,
    CmdDisplayParent,
    CmdScanSubdirs,
    CmdMaxDepth,
    CmdCompareDirs,
    CmdCompareDirsSub,
    CmdCompareModeSideBySide,
    CmdCompareModeIgnoreBlanks,
    CmdCompareModeBinary,
    CmdCompareModeNone,
    CmdOwnDiffProgram,
    CmdCut,
    CmdCopy,
    CmdPaste,
    CmdCheckClusterSize,
    CmdRemoveRegistry,
    CmdCrcHex,
    CmdCrcDecimal,
    CmdCrcFromFile,
    CmdStatusBar,
    CmdSizeBytes,
    CmdSizeKilobytes,
    CmdSizeMegabytes,
    CmdSizeGigabytes,
    CmdViewOwner,
    CmdViewAllFiles,
    CmdViewAllDirs,
    CmdFindDupFiles,
    CmdFindDupDirs,
    CmdDupOptions,
    CmdLargestFiles,
    CmdLargestDirs,
    CmdLargestOwner,
    CmdLargestType,
    CmdCascade,
    CmdTileHorizontal,
    CmdTileVertical,
    CmdPrintWidths,
    CmdPrintFonts,
    CmdPrintOptions,
    CmdAutoPrint,
    CmdHelp,
    CmdAbout,
    CmdLastOwn,
};

enum ERule {
    RuleNotBuilt,  // the work behind it is not in the program yet
    RuleAlways,
    RuleIdle,          // no scan runs
    RuleSelection,     // no scan, something selected in the file list
    RuleOneSelection,  // no scan, exactly one entry selected
    RuleRescan,        // a root exists, no scan
    RuleTreeItems,     // the tree has items
    RuleDirShown,      // a directory is shown, no scan
    RuleScanning,      // only while a scan runs
    RuleCrcShown,      // no scan, checksums shown
    RuleOwnerLive,     // no scan, owner column live
    RuleVersionLive,   // no scan, version column live
};

enum ECheck {
    CheckNone,
    CheckFileSort,  // m_nValue is the file sort code
    CheckScanSubdirs,
    CheckStreams,
    CheckShowCrc,
    CheckCrcHex,
    CheckCrcDecimal,
    CheckSizeUnit,     // m_nValue is the unit
    CheckCompareMode,  // m_nValue is the mode
    CheckOwners,
    CheckVersions,
    CheckStatusBar,
};

struct CCommandEntry {
    const char16_t* m_pszMenu;  // top-level menu
    int m_nId;                  // 0 for a separator
    const char16_t* m_pszText;
    ERule m_eRule;
    ECheck m_eCheck = CheckNone;
    int m_nValue = 0;
    const char16_t* m_pszSubmenu = nullptr;  // a submenu it stands in
};

std::span<const CCommandEntry> MainMenuCommands();

// Menu item numbers of the toolkit must stay below 0x7FFF: the commands
// live there shifted down by this much.
inline constexpr int kMenuIdOffset = 20000;
inline constexpr int MenuId(int nCommand) { return nCommand - kMenuIdOffset; }
inline constexpr int CommandOfMenuId(int nMenuId) { return nMenuId + kMenuIdOffset; }
const CCommandEntry* FindCommand(int nId);

// What the rules look at.
struct CCommandState {
    bool m_bScanning = false;
    bool m_bHasRoots = false;
    bool m_bTreeHasItems = false;
    bool m_bDirShown = false;
    size_t m_nSelected = 0;
    bool m_bShowCrc = false;
    bool m_bShowOwners = false;
    bool m_bShowVersions = false;
    bool m_bOwnerApi = false;
    bool m_bStatusBarShown = true;
};

bool IsCommandEnabled(const CCommandEntry& entry, const CCommandState& state);
bool IsCommandChecked(const CCommandEntry& entry, const CWZorvaneDoc& doc,
                      const CCommandState& state);

// The file and directory codes a Sort menu command sets; false for other
// commands. A command that leaves the directory sort alone returns the one
// given.
bool SortCodesOfCommand(int nId, unsigned char& nFileSort, unsigned char& nDirSort);

}  // namespace zv
