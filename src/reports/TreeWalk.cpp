#include "reports/TreeWalk.h"

#include <vector>

#include "reports/ReportContext.h"
#include "reports/ReportProgress.h"

namespace zv {

void WalkTree(CReportContext& ctx, CDirectoryData& root,
              const std::function<void(CDirectoryData&)>& writeBlock) {
    ctx.BeginWalk();
    std::vector<CDirectoryData*> aStack{&root};
    while (!aStack.empty() && !ctx.Stopped()) {
        CDirectoryData& dir = *aStack.back();
        aStack.pop_back();
        ctx.PrepareRows(dir, aStack);
        writeBlock(dir);
        for (size_t i = dir.m_aChildren.GetSize(); i-- > 0;) aStack.push_back(dir.m_aChildren[i]);
    }
}

void StepOverFiles(const CDirectoryData& dir) {
    for (size_t i = 0; i < dir.m_aFiles.GetSize(); ++i) ReportProgressStep();
}

}  // namespace zv
