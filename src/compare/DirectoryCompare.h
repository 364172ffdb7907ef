// The directory compare: walks two directories of the scanned tree, with or
// without their subdirectories, and fills the document's compare list with
// one entry per name found on either side. No directory is read again;
// only the file pairs that sizes and known checksums cannot decide are
// opened. Progress and stop requests go through the host.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "compare/FilePairCompare.h"
#include "core/document/CompareList.h"
#include "core/host/ProgressDialog.h"
#include "core/records/ParallelReads.h"

namespace zv {

class CDirectoryData;
class CFileData;

class CDirectoryCompare {
public:
    // nMode: 0 and 1 line by line, 2 binary.
    CDirectoryCompare(CCompareList& list, int nMode);

    // Stores the inputs, empties the list and runs the walk. A stop request
    // ends it where it is, with the entries made so far.
    void Run(CDirectoryData* pLeft, CDirectoryData* pRight, bool bWithSubdirs);
    bool WasStopped() const { return m_bStopped; }

    // The status of a directory pair from counts and known checksums.
    static int32_t CompareDirectories(CDirectoryData* pA, CDirectoryData* pB);

private:
    void CompareRoots();
    void ComparePair(CDirectoryData* pLeft, CDirectoryData* pRight);
    void CompareFiles(CDirectoryData* pLeft, CDirectoryData* pRight,
                      std::vector<std::unique_ptr<CCompareEntry>>& aEntries);
    // Reads the pending pairs, on several threads, and gives their entries
    // their statuses.
    void SettlePending();
    void CompareSubdirs(CDirectoryData* pLeft, CDirectoryData* pRight);
    void AddDirEntry(CDirectoryData* pA, CDirectoryData* pB);
    // Counts a left file and updates the progress; false after a stop.
    bool CountFile();

    CCompareList& m_list;
    const int m_nMode;
    bool m_bWithSubdirs = false;
    bool m_bStopped = false;
    double m_dTotal = 0;
    double m_dDone = 0;
    std::u16string m_strTotal;
    CPercentTracker m_percent;
    std::unique_ptr<CProgressDialog> m_pProgress;
    // A batch ends at a count of pairs or of bytes, so that progress and a
    // stop request are not held up for long.
    static constexpr size_t kPendingBatch = 512;
    static constexpr double kPendingBytes = 64.0 * 1024 * 1024;
    // Entries already in the list or in the current directory's, whose
    // files are still to be compared.
    std::vector<CCompareEntry*> m_aPending;
    double m_dPendingBytes = 0;  // of the left files of the pending pairs
    CParallelReads m_reads;
};

}  // namespace zv
