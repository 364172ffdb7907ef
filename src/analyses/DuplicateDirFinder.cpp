#include "analyses/DuplicateDirFinder.h"

#include <algorithm>

#include "analyses/NeighbourGroups.h"
#include "core/document/Document.h"
#include "platform/Text.h"

namespace zv {
namespace {

double SizeWithSub(const CDirectoryData* p) { return p->m_dFilesSize + p->m_dSubdirsSize; }

int NameOrder(const CDirectoryData* a, const CDirectoryData* b) {
    return platform::CompareNoCase(a->m_strName.View(), b->m_strName.View());
}

void SortForPass(EDirPass ePass, std::vector<CDirectoryData*>& aDirs) {
    auto Sort = [&aDirs](auto less) { std::sort(aDirs.begin(), aDirs.end(), less); };
    switch (ePass) {
        case EDirPass::SizeWithSub:
            return Sort([](const CDirectoryData* a, const CDirectoryData* b) {
                if (SizeWithSub(a) != SizeWithSub(b)) return SizeWithSub(a) > SizeWithSub(b);
                return NameOrder(a, b) > 0;
            });
        case EDirPass::Size:
            return Sort([](const CDirectoryData* a, const CDirectoryData* b) {
                if (a->m_dFilesSize != b->m_dFilesSize) return a->m_dFilesSize > b->m_dFilesSize;
                return NameOrder(a, b) > 0;
            });
        case EDirPass::FileCount:
            return Sort([](const CDirectoryData* a, const CDirectoryData* b) {
                return a->m_aFiles.GetSize() > b->m_aFiles.GetSize();
            });
        case EDirPass::FileCountWithSub:
            return Sort([](CDirectoryData* a, CDirectoryData* b) {
                return a->GetTotalFiles() > b->GetTotalFiles();
            });
        case EDirPass::Name:
            return Sort([](CDirectoryData* a, CDirectoryData* b) {
                return a->GetNameCrc() < b->GetNameCrc();
            });
        case EDirPass::CrcWithSub:
            return Sort([](CDirectoryData* a, CDirectoryData* b) {
                if (a->GetCrcWithSubdirs() != b->GetCrcWithSubdirs())
                    return a->GetCrcWithSubdirs() < b->GetCrcWithSubdirs();
                return NameOrder(a, b) < 0;
            });
        case EDirPass::Crc:
            return Sort([](CDirectoryData* a, CDirectoryData* b) {
                if (a->GetCrc() != b->GetCrc()) return a->GetCrc() < b->GetCrc();
                return NameOrder(a, b) < 0;
            });
    }
}

bool PairEqual(EDirPass ePass, CDirectoryData* a, CDirectoryData* b) {
    switch (ePass) {
        case EDirPass::SizeWithSub:
            return SizeWithSub(a) == SizeWithSub(b);
        case EDirPass::Size:
            return a->m_dFilesSize == b->m_dFilesSize;
        case EDirPass::FileCount:
            return a->m_aFiles.GetSize() == b->m_aFiles.GetSize();
        case EDirPass::FileCountWithSub:
            return a->GetTotalFiles() == b->GetTotalFiles();
        case EDirPass::Name:
            return a->GetNameCrc() == b->GetNameCrc();
        case EDirPass::CrcWithSub:
            return a->GetCrcWithSubdirs() == b->GetCrcWithSubdirs();
        case EDirPass::Crc:
            return a->GetCrc() == b->GetCrc();
    }
    return false;
}

void KeepPairsAndLarger(std::vector<CDuplicateDirGroup>& aGroups) {
    std::erase_if(aGroups, [](const CDuplicateDirGroup& group) { return group.size() < 2; });
}

void Number(std::vector<CDuplicateDirGroup>& aGroups) {
    for (size_t i = 0; i < aGroups.size(); ++i)
        for (CDirectoryData* pDir : aGroups[i]) pDir->m_nDuplicateGroup = int64_t(i);
}

}  // namespace

CDuplicateDirFinder::CDuplicateDirFinder(CWZorvaneDoc& doc)
    : m_doc(doc), m_aGroups(doc.m_results.m_aDuplicateDirGroups) {}

bool CDuplicateDirFinder::Run() {
    m_aGroups.clear();
    std::vector<CDirectoryData*>& aAll = m_doc.m_scan.m_aAllDirs.Items();
    if (aAll.size() < 2) return true;
    const std::vector<EDirPass> aPasses = BuildDirPassList(m_doc.m_options.m_dupDirs);
    if (aPasses.empty()) return true;
    m_dialog.Open();

    for (size_t p = 0; p < aPasses.size(); ++p) {
        m_strLabel = DirPassLabel(aPasses[p]);
        bool bGoOn = true;
        if (p == 0) {
            bGoOn = GroupDirsByKey(aPasses[p], aAll, m_aGroups, 0, aAll.size());
            KeepPairsAndLarger(m_aGroups);
        } else {
            size_t nTotal = 0, nDone = 0;
            for (const CDuplicateDirGroup& group : m_aGroups) nTotal += group.size();
            std::vector<CDuplicateDirGroup> aNew;
            for (CDuplicateDirGroup& group : m_aGroups) {
                bGoOn = GroupDirsByKey(aPasses[p], group, aNew, nDone, nTotal);
                if (!bGoOn) break;
                nDone += group.size();
            }
            KeepPairsAndLarger(aNew);
            m_aGroups = std::move(aNew);
        }
        if (!bGoOn) {
            m_aGroups.clear();
            return false;
        }
    }

    for (CDirectoryData* pDir : aAll) pDir->m_nDuplicateGroup = -1;
    Number(m_aGroups);
    if (m_doc.m_options.m_dupDirs.m_aCriteria[DupDirByCrcWithSubdirs]) RemoveNestedDuplicates();
    return true;
}

bool CDuplicateDirFinder::GroupDirsByKey(EDirPass ePass, std::vector<CDirectoryData*>& aSource,
                                         std::vector<CDuplicateDirGroup>& aTarget, size_t nDone,
                                         size_t nTotal) {
    SortForPass(ePass, aSource);
    return GroupSortedNeighbours(
        aSource, aTarget, DIR_IN_DUPLICATE_GROUP,
        [&](CDirectoryData* a, CDirectoryData* b) { return PairEqual(ePass, a, b); }, m_dialog,
        m_strLabel, nDone, nTotal);
}

void CDuplicateDirFinder::RemoveNestedDuplicates() {
    // When two trees are equal, only their tops are reported: a member whose
    // parent is in the same group as another member's parent goes.
    for (CDuplicateDirGroup& group : m_aGroups)
        for (CDirectoryData* pDir : group) pDir->m_uFlags &= ~DIR_NESTED_DUPLICATE;
    for (CDuplicateDirGroup& group : m_aGroups) {
        for (size_t i = 0; i < group.size(); ++i) {
            for (size_t j = i + 1; j < group.size(); ++j) {
                const CDirectoryData* pParentA = group[i]->m_pParent;
                const CDirectoryData* pParentB = group[j]->m_pParent;
                if (!pParentA || !pParentB || pParentA->m_nDuplicateGroup < 0 ||
                    pParentA->m_nDuplicateGroup != pParentB->m_nDuplicateGroup)
                    continue;
                group[i]->m_uFlags |= DIR_NESTED_DUPLICATE;
                group[j]->m_uFlags |= DIR_NESTED_DUPLICATE;
            }
        }
    }
    bool bRemoved = false;
    for (size_t g = m_aGroups.size(); g-- > 0;) {
        CDuplicateDirGroup& group = m_aGroups[g];
        const size_t nBefore = group.size();
        std::erase_if(group, [](CDirectoryData* p) {
            if (!(p->m_uFlags & DIR_NESTED_DUPLICATE)) return false;
            p->m_nDuplicateGroup = -1;
            return true;
        });
        if (group.size() != nBefore) bRemoved = true;
        if (group.size() < 2) {
            for (CDirectoryData* pDir : group) pDir->m_nDuplicateGroup = -1;
            m_aGroups.erase(m_aGroups.begin() + static_cast<std::ptrdiff_t>(g));
        }
    }
    if (bRemoved) Number(m_aGroups);
}

bool FindDuplicateDirs(CWZorvaneDoc& doc) {
    if (doc.m_scan.m_aAllDirs.GetSize() < 2) return true;
    return CDuplicateDirFinder(doc).Run();
}

}  // namespace zv
