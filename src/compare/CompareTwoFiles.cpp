#include "compare/CompareTwoFiles.h"

#include "compare/DiffProgram.h"
#include "compare/FileCompare.h"
#include "core/host/Host.h"
#include "core/records/FileData.h"

namespace zv {

void CompareTwoFiles(const CFileData& a, const CFileData& b, int nMode,
                     const CDiffProgramSettings& diff) {
    const std::u16string strA = a.GetFullPath(), strB = b.GetFullPath();
    if (nMode == 2) {
        Host().ShowMessage(CompareTwoFilesBinary(strA, strB, a.m_dSize).m_strMessage);
        return;
    }
    StartDiffProgram(diff, nMode, strA, strB, nullptr);
}

}  // namespace zv
