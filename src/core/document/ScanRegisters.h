// The forest of one scan and the lists that span all its trees.
#pragma once

#include <string>
#include <vector>

#include "core/records/DirectoryData.h"
#include "core/records/DriveList.h"
#include "core/records/PtrArray.h"

namespace zv {

struct CScanRegisters {
    CScanRegisters();

    // Roots in the user's order; owning.
    COwningPtrArray<CRootDirectoryData> m_aRoots;
    CDriveList m_aDrives;
    // Every directory (roots too) and every file (streams too), in scan
    // order; not owning.
    CPtrArray<CDirectoryData> m_aAllDirs;
    CPtrArray<CFileData> m_aAllFiles;
    // Full paths whose listing was refused.
    std::vector<std::u16string> m_aProtectedDirs;

    // Deletes the records of every root and empties the lists; the roots
    // themselves stay.
    void ClearScan();
};

}  // namespace zv
