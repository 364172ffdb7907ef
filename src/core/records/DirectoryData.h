// One directory of a scanned tree, and the root of such a tree.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/records/FileData.h"
#include "core/records/PtrArray.h"
#include "core/records/RecordName.h"
#include "platform/FileTime.h"

namespace zv {

class CRootDirectoryData;
class CDriveList;

// Status bits of CDirectoryData::m_uFlags.
inline constexpr uint16_t DIR_IS_ROOT = 0x0002;
inline constexpr uint16_t DIR_CUT_MARK = 0x0008;
inline constexpr uint16_t DIR_COMPARE_VISITED = 0x0010;
inline constexpr uint16_t DIR_PROTECTED = 0x0020;
inline constexpr uint16_t DIR_IN_DUPLICATE_GROUP = 0x0040;
inline constexpr uint16_t DIR_NAME_CRC_VALID = 0x0100;
inline constexpr uint16_t DIR_CRC_VALID = 0x0200;
inline constexpr uint16_t DIR_CRC_SUBDIRS_VALID = 0x0400;
inline constexpr uint16_t DIR_OWNER_VALID = 0x0800;
inline constexpr uint16_t DIR_NESTED_DUPLICATE = 0x1000;

// The handle of a directory's item in the desktop tree control; the core
// only stores it.
using TreeItemHandle = void*;

class CDirectoryData {
public:
    CDirectoryData(CDirectoryData* pParent, std::u16string_view strName, FILETIME ftCreated,
                   FILETIME ftAccessed, FILETIME ftModified, uint32_t uAttributes);
    // Deletes the files and the subdirectories, last first. Not virtual: a
    // root is always deleted through its own type, and a child never is one.
    ~CDirectoryData();
    CDirectoryData(const CDirectoryData&) = delete;
    CDirectoryData& operator=(const CDirectoryData&) = delete;

    // The names from the root down joined with the native separator; the
    // root's name is its full path already.
    std::u16string GetFullPath() const;
    // Orders by path, component by component and without regard to case; a
    // directory sorts after its own descendants. Equal pointers give 0.
    static int ComparePath(const CDirectoryData* pA, const CDirectoryData* pB);

    bool IsRoot() const { return (m_uFlags & DIR_IS_ROOT) != 0; }
    // The root this directory lies under (itself for a root); null for a
    // tree that was never prepared as a root.
    CRootDirectoryData* GetRoot();
    const CRootDirectoryData* GetRoot() const;

    uint32_t GetNameCrc();
    const std::u16string& GetOwner();
    void SetOwner(std::u16string_view strOwner);
    // Lazy directory checksums: of the files here, in m_aFiles order, and
    // of the whole subtree.
    uint32_t GetCrc();
    uint32_t GetCrcWithSubdirs();

    // Creates a file record and rolls its size up: to this directory, then
    // to every ancestor, rounded with the cluster size given.
    void AddFile(CFileData* pFile, double dClusterSize);
    // The same for a walk that rolls each finished subtree up once
    // (AddSubtreeTotals) instead of touching every ancestor for each file:
    // only this directory's own totals change here.
    void AddScannedFile(CFileData* pFile, double dClusterSize);
    // Adds a finished child's files and subdirectories to this directory's
    // subdirectory totals. Sizes are whole numbers of bytes, exact in a
    // double up to 2^53, so the sums equal those made file by file.
    void AddSubtreeTotals(const CDirectoryData& child);
    // Finds the record here or below, takes its size out of every total and
    // deletes it. False when it is not in this subtree.
    bool RemoveFile(CFileData* pFile);

    // Clears checksums and size totals before a new walk.
    void ResetForScan();
    // This directory, then the subtrees of its children, last child first.
    void Flatten(std::vector<CDirectoryData*>& aList);
    // Files first, then children in order; pNames may be null.
    void CollectFiles(std::vector<std::u16string>* pNames, std::vector<CDirectoryData*>& aDirs,
                      std::vector<CFileData*>& aFiles);
    bool HasFiles() const;

    int64_t GetTotalFiles();
    int64_t GetTotalDirs();
    void RecomputeTotals();
    void DecrementFileTotal();
    void DecrementDirTotal();
    // Releases spare array capacity over the whole subtree.
    void CompactArrays();

    double GetSizeWithSubdirs() const { return m_dFilesSize + m_dSubdirsSize; }
    double GetActualWithSubdirs() const { return m_dFilesActual + m_dSubdirsActual; }

    uint16_t m_uFlags;
    uint8_t m_nFileSort;
    uint8_t m_nDirSort;
    uint32_t m_nLevel;
    TreeItemHandle m_hTreeItem;
    double m_dFilesSize;
    double m_dFilesActual;
    double m_dSubdirsSize;
    double m_dSubdirsActual;
    CRecordName m_strName;
    CDirectoryData* m_pParent;
    COwningPtrArray<CDirectoryData> m_aChildren;
    COwningPtrArray<CFileData> m_aFiles;
    FILETIME m_ftCreated;
    FILETIME m_ftAccessed;
    FILETIME m_ftModified;
    uint32_t m_uAttributes;
    uint32_t m_uCumulativeCount;
    int64_t m_nDuplicateGroup;
    uint32_t m_uNameCrc;
    uint32_t m_uCrc;
    uint32_t m_uCrcWithSubdirs;
    uint8_t m_bTotalsValid;
    const std::u16string* m_pOwner;
    int64_t m_nTotalFiles;
    int64_t m_nTotalDirs;

private:
    void ComputeTotals();
    void InvalidateTotals();
};

class CRootDirectoryData : public CDirectoryData {
public:
    // A root made from a path as the user gave it; Prepare completes it.
    CRootDirectoryData(std::u16string_view strPath, FILETIME ftCreated = {},
                       FILETIME ftAccessed = {}, FILETIME ftModified = {},
                       uint32_t uAttributes = 0);

    // Done once when the root is added: full path as the name, the drive,
    // the file system, the cluster size, and the drive list entry.
    void Prepare(CDriveList& driveList);

    double m_dClusterSize = 0;
    std::u16string m_strDrive;
    std::u16string m_strFileSystem;
    double m_dManualClusterSize = 0;
    int32_t m_bVolumeInfoValid = 0;
    int32_t m_bUseManualClusterSize = 0;
    int32_t m_bRemovePending = 0;
    int32_t m_bNewRoot = 1;
};

}  // namespace zv
