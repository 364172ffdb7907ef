// The rows of a directory comparison and the inputs that made them. The
// entries point into the scanned tree and own no record, so a new compare
// or a new scan empties the list.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace zv {

class CFileData;
class CDirectoryData;

// One file or directory name found on either side. A file entry (m_bFile)
// uses the file pointers, a directory entry the directory pointers; a side
// with no record has null there. The parents are the directories compared
// when the entry was made.
struct CCompareEntry {
    CFileData* m_pLeftFile = nullptr;
    CDirectoryData* m_pLeftDir = nullptr;
    CDirectoryData* m_pLeftParent = nullptr;
    CFileData* m_pRightFile = nullptr;
    CDirectoryData* m_pRightDir = nullptr;
    CDirectoryData* m_pRightParent = nullptr;
    int32_t m_nStatus = 0;
    double m_dValue = 0;  // the byte or line of a difference found in the files
    bool m_bFile = true;

    bool HasLeft() const { return m_pLeftFile || m_pLeftDir; }
    bool HasRight() const { return m_pRightFile || m_pRightDir; }
    // Name and full path of a side's record; empty without one.
    std::u16string LeftName() const;
    std::u16string RightName() const;
    std::u16string LeftPath() const;
    std::u16string RightPath() const;
};

struct CCompareList {
    CDirectoryData* m_pLeft = nullptr;
    CDirectoryData* m_pRight = nullptr;
    int32_t m_bCompareWithSubdirs = 0;
    std::vector<std::unique_ptr<CCompareEntry>> m_aEntries;

    void Clear();
};

}  // namespace zv
