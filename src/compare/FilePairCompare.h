// The compare of one file pair inside a directory compare: the binary
// compare in blocks, and the line compare of both line modes. Each opens
// only the two files it is given.
#pragma once

#include <cstdint>
#include <string>

namespace zv {

class CProgressDialog;
class CFileData;

struct CPairResult {
    int32_t m_nStatus = 0;  // a CompareStatus
    double m_dValue = 0;    // the byte or line of a difference
};

// Progress of one pair goes to line 3 of the dialog, when there is one:
// the file name, a blank, the percent and "%".
CPairResult CompareFilesBinary(const std::u16string& strLeft, const std::u16string& strRight,
                               double dLeftSize, CProgressDialog* pProgress);
CPairResult CompareFilesByLines(const std::u16string& strLeft, const std::u16string& strRight,
                                double dLeftSize, CProgressDialog* pProgress);

// Whether the files themselves decide the pair: sizes agree and their
// checksums are not both known.
bool MustReadPair(const CFileData& left, const CFileData& right);

// The whole rule for a pair of records: sizes, then checksums both already
// known, then the files in nMode (0 and 1 lines, 2 binary).
CPairResult CompareFilesOfPair(CFileData& left, CFileData& right, int nMode,
                               CProgressDialog* pProgress);

}  // namespace zv
