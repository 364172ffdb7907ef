// The scanner walks the trees; what it keeps and what follows a walk
// belongs to subsystems above the core. They plug in here.
#pragma once

#include <cstdint>
#include <string>

#include "platform/FileSystem.h"

namespace zv {

class CWZorvaneDoc;
class CDirectoryData;
class CFileData;

// One file entry before it gets a record. Tests that had to read the owner
// or the checksum leave them here, so the record keeps them.
struct CFileCandidate {
    CFileCandidate(const CDirEntry& entry, CDirectoryData& directory,
                   const std::u16string& strDirectoryPath, double dSize)
        : m_entry(entry),
          m_directory(directory),
          m_strDirectoryPath(strDirectoryPath),
          m_dSize(dSize) {}

    const CDirEntry& m_entry;
    CDirectoryData& m_directory;
    const std::u16string& m_strDirectoryPath;
    double m_dSize;
    bool m_bHasOwner = false;
    std::u16string m_strOwner;
    bool m_bHasCrc = false;
    uint32_t m_uCrc = 0;
};

// The filter set as the scanner applies it.
class IScanFilter {
public:
    virtual ~IScanFilter() = default;
    // Whether any filter is active for this scan.
    virtual bool IsActive() = 0;
    // Whether a duplicate files or directories filter is set.
    virtual bool HasDuplicateFilter() = 0;
    // Turns the relative date filters into times, from now.
    virtual void ResolveRelativeDates() = 0;
    // True when the directory is not to be listed at all.
    virtual bool IsDirectoryExcluded(const std::u16string& strPath) = 0;
    // True when the directory's own files are skipped (its subdirectories
    // are still walked).
    virtual bool SkipsFilesOf(const std::u16string& strPath) = 0;
    // The file tests in their fixed order.
    virtual bool AdmitsFile(CFileCandidate& candidate) = 0;
};

// The steps around a walk that later subsystems and the front ends fill.
// The defaults do nothing, except BuildTree, which does the headless part
// of building the tree (see CScanner::BuildTreeData).
class IScanSteps {
public:
    virtual ~IScanSteps() = default;

    // During the walk.
    virtual void OfferLargestFile(CFileData&) {}
    virtual void OfferLargestDirectory(CDirectoryData&) {}
    virtual void AddToTypeTable(CFileData&) {}
    virtual void AddToOwnerTable(CFileData&) {}

    // Around the walk, in the order the scanner calls them.
    virtual void CloseResultScreens() {}
    virtual void ClearTables() {}
    virtual void SaveRemembered() {}
    // A duplicate filter without a criterion: ask for one; false stops.
    virtual bool ChooseDuplicateCriteria() { return false; }
    virtual void SortTypeTable() {}
    virtual void ApplyCrcList() {}
    // The Auto Print reports, in their fixed order.
    virtual void RunAutoPrint() {}
    // Ends the process when "Exit program after printing" is set.
    virtual void ExitAfterPrinting() {}
    virtual void FindDuplicates() {}
    virtual void BuildTree();
    virtual void RestoreSelection() {}
    virtual void ShowProtectedDirectories() {}

    CWZorvaneDoc* m_pDocument = nullptr;  // set by the scanner
};

}  // namespace zv
