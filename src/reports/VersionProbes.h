// Whether files have a version block, found on several threads at once. A
// report with the version columns on asks every file, and most have none:
// probed ahead, their rows find the answer in the records' status bits
// instead of opening the files one after another on the writing thread.
#pragma once

#include <vector>

namespace zv {

class CFileData;

// Whether the file's version block is still to be read for its row.
bool NeedsVersionProbe(const CFileData& file);
// Reads the version block of each file of the list once, setting the
// records' status bits. Each record must be in the list once, and no other
// thread may touch them until the call returns.
void ProbeVersionBlocks(const std::vector<CFileData*>& aFiles);

}  // namespace zv
