#include "ui/logic/FilterListEdit.h"

#include <algorithm>

namespace zv {

std::vector<size_t> ShownFilterEntries(const std::vector<CFilterEntry>& aList) {
    std::vector<size_t> aShown;
    for (size_t i = 0; i < aList.size(); ++i)
        if (!aList[i].m_bRemoved) aShown.push_back(i);
    return aShown;
}

void CommitFilterListEdit(std::vector<CFilterEntry>& aList) {
    std::erase_if(aList, [](const CFilterEntry& entry) { return entry.m_bRemoved != 0; });
    for (CFilterEntry& entry : aList) entry.m_bAdded = 0;
}

void CancelFilterListEdit(std::vector<CFilterEntry>& aList) {
    std::erase_if(aList, [](const CFilterEntry& entry) { return entry.m_bAdded != 0; });
}

bool IsPlainFilterList(EFilterList eList) { return eList < FilterDupFiles; }

}  // namespace zv
