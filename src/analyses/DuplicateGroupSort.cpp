#include "analyses/DuplicateGroupSort.h"

#include <algorithm>
#include <string>

#include "core/document/DocumentOptions.h"
#include "platform/Text.h"

namespace zv {
namespace {

// A member with what its order needs, the full path built once.
template <typename Record>
struct CSortEntry {
    Record* p;
    std::u16string strPath;
};

template <typename Record, typename Less>
void SortGroups(std::vector<std::vector<Record*>>& aGroups, Less less) {
    using Entry = CSortEntry<Record>;
    std::vector<std::vector<Entry>> aSorted;
    aSorted.reserve(aGroups.size());
    for (std::vector<Record*>& group : aGroups) {
        std::vector<Entry> aEntries;
        aEntries.reserve(group.size());
        for (Record* p : group) aEntries.push_back({p, p->GetFullPath()});
        std::sort(aEntries.begin(), aEntries.end(), less);
        aSorted.push_back(std::move(aEntries));
    }
    // An empty group sorts behind.
    std::sort(aSorted.begin(), aSorted.end(),
              [&less](const std::vector<Entry>& a, const std::vector<Entry>& b) {
                  if (a.empty() || b.empty()) return !a.empty() && b.empty();
                  return less(a[0], b[0]);
              });
    for (size_t i = 0; i < aSorted.size(); ++i) {
        aGroups[i].clear();
        for (const Entry& entry : aSorted[i]) {
            entry.p->m_nDuplicateGroup = int64_t(i);
            aGroups[i].push_back(entry.p);
        }
    }
}

template <typename Entry>
bool PathLess(const Entry& a, const Entry& b) {
    return platform::CompareNoCase(a.strPath, b.strPath) < 0;
}

// Descending by a number, ties by path.
template <typename Record, typename Key>
auto Descending(Key key) {
    return [key](const CSortEntry<Record>& a, const CSortEntry<Record>& b) {
        const auto ka = key(a.p), kb = key(b.p);
        if (ka != kb) return ka > kb;
        return PathLess(a, b);
    };
}

template <typename Record>
bool NameLess(const CSortEntry<Record>& a, const CSortEntry<Record>& b) {
    const int n = platform::CompareNoCase(a.p->m_strName.View(), b.p->m_strName.View());
    return n != 0 ? n < 0 : PathLess(a, b);
}

}  // namespace

void SortDuplicateGroups(std::vector<CDuplicateGroup>& aGroups,
                         const CDuplicateFileCriteria& criteria) {
    if (criteria.m_bBySize || criteria.m_bByCrc || criteria.m_bByCrcWithoutTags ||
        criteria.m_bByteByByte)
        SortGroups(aGroups, Descending<CFileData>([](const CFileData* p) { return p->m_dSize; }));
    else
        SortGroups(aGroups, NameLess<CFileData>);
}

void SortDuplicateDirGroups(std::vector<CDuplicateDirGroup>& aGroups,
                            const CDuplicateDirCriteria& criteria) {
    const int32_t* a = criteria.m_aCriteria;
    if (a[DupDirByCrc] || a[DupDirByCrcWithSubdirs] || a[DupDirBySize])
        SortGroups(aGroups, Descending<CDirectoryData>(
                                [](const CDirectoryData* p) { return p->m_dFilesSize; }));
    else if (a[DupDirByName])
        SortGroups(aGroups, NameLess<CDirectoryData>);
    else if (a[DupDirBySizeWithSubdirs])
        SortGroups(aGroups, Descending<CDirectoryData>([](const CDirectoryData* p) {
                       return p->m_dFilesSize + p->m_dSubdirsSize;
                   }));
    else if (a[DupDirByTotalFiles])
        SortGroups(aGroups, Descending<CDirectoryData>(
                                [](const CDirectoryData* p) { return p->m_aFiles.GetSize(); }));
    else
        SortGroups(aGroups, Descending<CDirectoryData>([](const CDirectoryData* p) {
                       return const_cast<CDirectoryData*>(p)->GetTotalFiles();
                   }));
}

}  // namespace zv
