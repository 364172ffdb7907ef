// The status of a compare entry, its text, and the six show flags that pick
// which entries a list or report shows.
#pragma once

#include <cstdint>
#include <string>

namespace zv {

struct CCompareEntry;

enum CompareStatus : int32_t {
    CompareIdentical = 0,
    CompareBlanksOnly = 1,
    CompareFileSize = 2,
    CompareFileCrc = 3,
    CompareAtByte = 4,
    CompareAtLine = 5,
    CompareLeftFileMissing = 6,
    CompareRightFileMissing = 7,
    CompareLeftUnreadable = 8,
    CompareRightUnreadable = 9,
    CompareLeftDirMissing = 10,
    CompareRightDirMissing = 11,
    CompareDirSize = 12,
    CompareDirSizeWithSubdirs = 13,
    CompareDirFiles = 14,
    CompareDirFilesWithSubdirs = 15,
    CompareDirSubdirs = 16,
    CompareDirSubdirsAllLevels = 17,
    CompareDirCrc = 18,
    CompareDirCrcWithSubdirs = 19,
};

// The text lists and reports show; dValue fills the byte and line texts.
std::u16string GetCompareStatusText(int32_t nStatus, double dValue);
std::u16string GetCompareStatusText(const CCompareEntry& entry);

// The check boxes above the compare list, all on at first.
struct CCompareShowFlags {
    bool m_bDifferentFiles = true;
    bool m_bIdenticalFiles = true;
    bool m_bFilesNotFound = true;
    bool m_bDifferentDirs = true;
    bool m_bIdenticalDirs = true;
    bool m_bDirsNotFound = true;

    bool Shows(const CCompareEntry& entry) const;
};

}  // namespace zv
