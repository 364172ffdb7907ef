// The sort codes of file and directory lists, shared by every list and
// report. Each directory remembers the codes its arrays are sorted by.
#pragma once

#include <cstdint>

namespace zv {

class CFileData;
class CDirectoryData;

// Negative, zero or positive, as a file list ordered by nCode wants a
// before b. Codes without a meaning compare as equal.
int CompareFilesByCode(int nCode, CFileData* pA, CFileData* pB);
int CompareDirsByCode(int nCode, CDirectoryData* pA, CDirectoryData* pB);

// Sorts a directory's files or subdirectories by a code, unless they are
// sorted by it already; equal entries keep their order.
void SortFiles(CDirectoryData& dir, uint8_t nCode);
void SortChildren(CDirectoryData& dir, uint8_t nCode);
// Both, over a whole subtree.
void SortSubtree(CDirectoryData& dir, uint8_t nFileCode, uint8_t nDirCode);

}  // namespace zv
