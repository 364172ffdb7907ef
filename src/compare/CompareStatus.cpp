#include "compare/CompareStatus.h"

#include <cstdio>

#include "core/document/CompareList.h"
#include "platform/Text.h"

namespace zv {

namespace {

std::u16string WithNumber(const char* pszFormat, double dValue) {
    char szText[64];
    std::snprintf(szText, sizeof szText, pszFormat, dValue);
    return platform::U16(szText);
}

}  // namespace

std::u16string GetCompareStatusText(int32_t nStatus, double dValue) {
    switch (nStatus) {
        case CompareIdentical:
            return u"Identical";
        case CompareBlanksOnly:
            return u"Different in blanks only";
        case CompareFileSize:
            return u"Different in size";
        case CompareFileCrc:
            return u"Different in CRC";
        case CompareAtByte:
            return WithNumber("Different at byte: %.0f", dValue);
        case CompareAtLine:
            return WithNumber("Different at line: %.0f", dValue);
        case CompareLeftFileMissing:
            return u"Left file not found";
        case CompareRightFileMissing:
            return u"Right file not found";
        case CompareLeftUnreadable:
            return u"Cannot read left file";
        case CompareRightUnreadable:
            return u"Cannot read right file";
        case CompareLeftDirMissing:
            return u"Left directory not found";
        case CompareRightDirMissing:
            return u"Right directory not found";
        case CompareDirSize:
            return u"Different in size";
        case CompareDirSizeWithSubdirs:
            return u"Different in size (with sub)";
        case CompareDirFiles:
            return u"Different in number of files";
        case CompareDirFilesWithSubdirs:
            return u"Different in number of files (with sub)";
        case CompareDirSubdirs:
            return u"Different in number of subdirectories";
        case CompareDirSubdirsAllLevels:
            return u"Different in number of subdirectories (with sub)";
        case CompareDirCrc:
            return u"Different in CRC";
        case CompareDirCrcWithSubdirs:
            return u"Different in CRC (with sub)";
        default:
            return u"Unknown status";
    }
}

std::u16string GetCompareStatusText(const CCompareEntry& entry) {
    return GetCompareStatusText(entry.m_nStatus, entry.m_dValue);
}

bool CCompareShowFlags::Shows(const CCompareEntry& entry) const {
    const int32_t n = entry.m_nStatus;
    if (entry.m_bFile) {
        if (n == CompareIdentical) return m_bIdenticalFiles;
        if (n >= CompareBlanksOnly && n <= CompareAtLine) return m_bDifferentFiles;
        if (n >= CompareLeftFileMissing && n <= CompareRightUnreadable) return m_bFilesNotFound;
        return false;
    }
    if (n == CompareIdentical) return m_bIdenticalDirs;
    if (n >= CompareDirSize && n <= CompareDirCrcWithSubdirs) return m_bDifferentDirs;
    if (n == CompareLeftDirMissing || n == CompareRightDirMissing) return m_bDirsNotFound;
    return false;
}

}  // namespace zv
