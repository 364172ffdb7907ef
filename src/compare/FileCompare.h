// The binary compare of two files the user picked ("Diff (Binary mode)"):
// finds the first differing byte and says what it found in the words of
// the "File Compare" result.
#pragma once

#include <string>

namespace zv {

struct CFileCompareOutcome {
    bool m_bOpened = false;     // false: m_strMessage is the open failure
    bool m_bDifferent = false;  // a differing byte, or bytes left in one file
    std::u16string m_strMessage;
};

// dSize1 is the size of file 1, for the percentage. The progress dialog
// opens through the host; a stop ends the compare as if the files had
// ended there.
CFileCompareOutcome CompareTwoFilesBinary(const std::u16string& strFile1,
                                          const std::u16string& strFile2, double dSize1);

}  // namespace zv
