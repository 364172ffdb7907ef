// The rows of a result screen as it shows them: in its displayed order,
// with a row the user took out of the lists kept in place but marked
// removed until the screen is filled again. A save from the screen writes
// the rows that are not removed, in this order.
#pragma once

#include <cstddef>
#include <vector>

namespace zv {

class CFileData;
class CDirectoryData;
struct CTotalEntry;

template <typename TRecord>
class CResultViewRows {
public:
    void Clear() { m_aRows.clear(); }
    void Add(TRecord& record, bool bRemoved = false) { m_aRows.push_back({&record, bRemoved}); }
    // nIndex counts in displayed order, removed rows included.
    void MarkRemoved(size_t nIndex) { m_aRows.at(nIndex).bRemoved = true; }
    bool IsRemoved(size_t nIndex) const { return m_aRows.at(nIndex).bRemoved; }
    size_t GetSize() const { return m_aRows.size(); }

    // The rows a save writes.
    std::vector<TRecord*> Shown() const {
        std::vector<TRecord*> aShown;
        for (const CRow& row : m_aRows)
            if (!row.bRemoved) aShown.push_back(row.pRecord);
        return aShown;
    }

private:
    struct CRow {
        TRecord* pRecord;
        bool bRemoved;
    };
    std::vector<CRow> m_aRows;
};

// Duplicate files and largest files.
using CFileViewRows = CResultViewRows<CFileData>;
// Duplicate directories and largest directories.
using CDirViewRows = CResultViewRows<CDirectoryData>;
// Largest owner and largest type.
using CTotalViewRows = CResultViewRows<const CTotalEntry>;

}  // namespace zv
