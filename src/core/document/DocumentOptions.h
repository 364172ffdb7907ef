// What the user sets outside the filters and the print settings: display,
// scan and analysis options of the main document, with their defaults.
#pragma once

#include <cstdint>
#include <string>

namespace zv {

// "[DIFF PROGRAM]": the built-in diff program, or the user's own with its
// options, and the options put before each of the two files.
struct CDiffProgramSettings {
    int32_t m_bUseDefaultDiff = 1;
    std::u16string m_strDiffProgram;
    std::u16string m_strDiffOptions;
    std::u16string m_strDiffFile1Options;
    std::u16string m_strDiffFile2Options;
};

// Criteria of the duplicate file search.
struct CDuplicateFileCriteria {
    int32_t m_bByName = 0;
    int32_t m_bBySize = 0;
    int32_t m_bByteByByte = 0;
    int32_t m_bByCrc = 0;
    int32_t m_bByCrcWithoutTags = 0;  // not kept in settings files

    bool Any() const {
        return m_bByName || m_bBySize || m_bByteByByte || m_bByCrc || m_bByCrcWithoutTags;
    }
};

// Criteria of the duplicate directory search, indexes into m_aCriteria.
enum EDuplicateDirCriterion {
    DupDirByName,
    DupDirBySize,
    DupDirBySizeWithSubdirs,
    DupDirByCrc,
    DupDirByCrcWithSubdirs,
    DupDirByTotalFiles,
    DupDirByTotalFilesWithSubdirs,
    DupDirCriterionCount
};

struct CDuplicateDirCriteria {
    int32_t m_aCriteria[DupDirCriterionCount] = {0, 0, 0, 0, 0, 0, 0};

    bool Any() const {
        for (int32_t b : m_aCriteria)
            if (b) return true;
        return false;
    }
};

struct CDocumentOptions {
    uint8_t m_nFileSort = 7;  // size with subdirectories, descending
    uint8_t m_nDirSort = 9;   // size with subdirectories, descending
    int32_t m_bShowCrc = 0;
    int32_t m_bCrcHex = 0;
    int32_t m_bCrcDecimal = 1;
    int32_t m_bShowOwners = 0;
    int32_t m_bShowVersions = 0;
    int32_t m_bCheckStreams = 0;
    int32_t m_bScanSubdirs = 1;
    int32_t m_nMaxDepth = -1;  // "Maximum dir depth", -1 no limit

    // Display unit of all sizes: 0 bytes, 1 KB, 2 MB, 3 GB.
    int32_t m_nSizeUnit = 0;
    std::u16string m_strSizeUnit = u"bytes";

    CDiffProgramSettings m_diff;
    int32_t m_bFindDupFilesAfterScan = 0;
    int32_t m_bFindDupDirsAfterScan = 0;
    int32_t m_nDefaultCompareMode = 2;  // 0 side by side, 1 ignoring blanks, 2 binary, 3 none
    CDuplicateFileCriteria m_dupFiles;
    CDuplicateDirCriteria m_dupDirs;
    int32_t m_bShowDupColor = 1;
    int32_t m_bOnlyDupFiles = 0;
    int32_t m_bDisableSaver = 0;
    int32_t m_bPlaySound = 0;
    std::u16string m_strSoundFile;

    int32_t m_bAllVersionFiles = 0;
    int32_t m_bLargestFiles = 1;
    int32_t m_nLargestFilesCount = -1;
    int32_t m_bLargestDirs = 1;
    int32_t m_nLargestDirsCount = -1;
    int32_t m_bLargestOwner = 0;
    int32_t m_bLargestType = 0;

    std::u16string m_strCrcFromFile;  // "CRC from file"
};

}  // namespace zv
