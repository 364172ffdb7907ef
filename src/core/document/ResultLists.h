// Lists of record pointers that analyses compute from a scan. They own no
// record and are valid until the next scan.
#pragma once

#include <vector>

#include "core/document/CompareList.h"
#include "core/document/TotalTables.h"
#include "core/records/DirectoryData.h"

namespace zv {

using CDuplicateGroup = std::vector<CFileData*>;
using CDuplicateDirGroup = std::vector<CDirectoryData*>;

struct CResultLists {
    CResultLists();

    std::vector<CFileData*> m_aLargestFiles;  // largest first
    double m_dLargestFilesFloor = 0;
    std::vector<CDirectoryData*> m_aLargestDirs;
    double m_dLargestDirsFloor = 0;
    std::vector<CDuplicateGroup> m_aDuplicateGroups;
    std::vector<CDuplicateDirGroup> m_aDuplicateDirGroups;
    CTotalTables m_totals;  // largest owner and largest type
    CCompareList m_compare;

    void Clear();
};

}  // namespace zv
