#include "core/scan/TreeBuilding.h"

#include <algorithm>
#include <unordered_set>

#include "core/document/Document.h"
#include "core/host/Host.h"
#include "core/records/SubtreeWalk.h"
#include "core/scan/ScanHooks.h"

namespace zv {
namespace {

void CollectSubtree(CDirectoryData& dir, std::unordered_set<const CDirectoryData*>& setDeleted) {
    ForEachInSubtree(dir, [&setDeleted](CDirectoryData& each) { setDeleted.insert(&each); });
}

void PruneDirectoriesWithoutFiles(CDirectoryData& top,
                                  std::unordered_set<const CDirectoryData*>& setDeleted) {
    // Each directory loses its children without files before the walk goes on into the others.
    ForEachInSubtree(top, [&setDeleted](CDirectoryData& dir) {
        for (size_t i = dir.m_aChildren.GetSize(); i-- > 0;) {
            CDirectoryData* pChild = dir.m_aChildren[i];
            if (pChild->GetTotalFiles() == 0) {
                CollectSubtree(*pChild, setDeleted);
                dir.m_aChildren.DeleteAt(i);
            }
        }
    });
}

}  // namespace

bool BuildTreeData(CWZorvaneDoc& doc) {
    CScanRegisters& scan = doc.m_scan;
    const bool bFilterActive = doc.m_bFilterActive != 0;
    bool bAnyItem = false;
    if (!bFilterActive || !scan.m_aAllFiles.IsEmpty()) {
        std::unordered_set<const CDirectoryData*> setDeleted;
        for (CRootDirectoryData* pRoot : scan.m_aRoots) {
            if (bFilterActive) {
                pRoot->RecomputeTotals();
                PruneDirectoriesWithoutFiles(*pRoot, setDeleted);
            }
            bAnyItem = true;
        }
        if (!setDeleted.empty()) {
            auto& aDirs = scan.m_aAllDirs.Items();
            aDirs.erase(std::remove_if(aDirs.begin(), aDirs.end(),
                                       [&](CDirectoryData* p) { return setDeleted.count(p) != 0; }),
                        aDirs.end());
        }
    }
    if (bFilterActive) {
        for (CRootDirectoryData* pRoot : scan.m_aRoots) pRoot->CompactArrays();
        scan.m_aAllFiles.FreeExtra();
        scan.m_aAllDirs.FreeExtra();
    }
    return bAnyItem;
}

void IScanSteps::BuildTree() {
    Host().SetStatusText(u"");
    if (m_pDocument && !BuildTreeData(*m_pDocument)) Host().ShowMessage(u"No files/folders found");
}

}  // namespace zv
