// Before a result view sorts by a CRC column it makes sure the checksums
// exist, computing them in batches on the thread pool under a progress
// dialog with a Cancel button. Each function returns false when the user
// cancelled, and the sort is then given up; it returns true at once, with
// no dialog, when every row already has its checksum.
#pragma once

#include <vector>

namespace zv {

class CFileData;
class CDirectoryData;

// The rows of a file view such as the largest files. Batches hold
// max(1% of the rows, 20) files; a last, smaller batch is left to the sort.
bool PrepareFileCrcSort(const std::vector<CFileData*>& aRows);

// The duplicate files view: as soon as a batch would be full, the whole
// list goes to the pool in one batch and the walk ends; the bar stays at 0,
// and with fewer rows than a batch nothing is computed ahead.
bool PrepareDuplicateFileCrcSort(const std::vector<CFileData*>& aRows);

// Directory views: the files of all rows are batched as above, then every
// row's own checksum is computed.
bool PrepareDirCrcSort(const std::vector<CDirectoryData*>& aRows);

// A sort by CRC with subdirectories: row after row, without the pool.
bool PrepareDirCrcWithSubdirsSort(const std::vector<CDirectoryData*>& aRows);

}  // namespace zv
