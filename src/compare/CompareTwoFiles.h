// The three Diff commands on two files: the binary compare inside the
// program (mode 2), whose result the host shows, or the diff program in
// line mode (0) or ignoring leading and trailing blanks (1).
#pragma once

namespace zv {

class CFileData;
struct CDiffProgramSettings;

void CompareTwoFiles(const CFileData& a, const CFileData& b, int nMode,
                     const CDiffProgramSettings& diff);

}  // namespace zv
