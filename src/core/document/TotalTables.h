// The largest owner and largest type tables: per owner name or per file
// type, how many files and how many bytes. The document owns the entries;
// the analyses fill and sort them.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace zv {

struct CTotalEntry {
    std::u16string m_strKey;  // owner name or type; empty for none
    uint32_t m_nFiles = 0;
    double m_dSize = 0;
};

// Sort codes of both tables; size descending is the default.
enum ETotalSort {
    TotalSortNameAsc,
    TotalSortNameDesc,
    TotalSortFilesAsc,
    TotalSortFilesDesc,
    TotalSortSizeAsc,
    TotalSortSizeDesc,
};

using CTotalTable = std::vector<std::unique_ptr<CTotalEntry>>;

struct CTotalTables {
    CTotalTable m_aOwners;
    // The entry hit last: consecutive files mostly share an owner.
    CTotalEntry* m_pLastOwnerEntry = nullptr;
    CTotalTable m_aTypes;
    int m_nTypeSort = TotalSortSizeDesc;  // the type view's sort column

    void Clear() {
        m_aOwners.clear();
        m_pLastOwnerEntry = nullptr;
        m_aTypes.clear();
        m_nTypeSort = TotalSortSizeDesc;
    }
};

}  // namespace zv
