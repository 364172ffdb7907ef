// The grouping step shared by the duplicate file and directory finders: the
// list is sorted for one pass, so equal records stand next to each other and
// one walk over neighbouring pairs forms the groups.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/host/ProgressDialog.h"
#include "platform/Text.h"

namespace zv {

// "<label> <percent>%, <done> / <total>"; the quick checksum's text has a
// slip in its format that shows as "5" where "%" belongs.
inline std::u16string ProgressText(const std::u16string& strLabel, int nPercent, size_t nDone,
                                   size_t nTotal, bool bQuickSlip = false) {
    auto Number = [](size_t n) { return platform::U16(std::to_string(n)); };
    return strLabel + u" " + Number(size_t(nPercent)) + (bQuickSlip ? u"5, " : u"%, ") +
           Number(nDone) + u" / " + Number(nTotal);
}

// Appends to aTarget a group for each run of neighbours that bEqual(a, b)
// finds equal; a pair that differs from the run's first record starts a new
// group. A record already grouped (uInGroupFlag) is not added twice. The
// progress counts nDone + pairs walked of nTotal; false when stopped.
template <class TRecord, class FEqual>
bool GroupSortedNeighbours(const std::vector<TRecord*>& aSource,
                           std::vector<std::vector<TRecord*>>& aTarget, uint32_t uInGroupFlag,
                           FEqual bEqual, CProgressDialog& dialog, const std::u16string& strLabel,
                           size_t nDone, size_t nTotal) {
    for (TRecord* pRecord : aSource) pRecord->m_uFlags &= ~uInGroupFlag;
    if (aSource.size() < 2) return true;

    CPercentTracker tracker;
    tracker.Update(double(nDone), double(nTotal));
    std::vector<TRecord*>* pCurrent = nullptr;
    TRecord* pRepresentative = nullptr;
    for (size_t i = 0; i + 1 < aSource.size(); ++i) {
        TRecord* a = aSource[i];
        TRecord* b = aSource[i + 1];
        if (tracker.Update(double(nDone + i + 1), double(nTotal))) {
            dialog.SetTextAndPercent(
                ProgressText(strLabel, tracker.GetPercent(), nDone + i + 1, nTotal).c_str(),
                tracker.GetPercent());
            if (dialog.IsStopped()) return false;
        }
        if (!bEqual(a, b)) {
            pCurrent = nullptr;
            pRepresentative = nullptr;
            continue;
        }
        if (pRepresentative) {
            if (!bEqual(a, pRepresentative)) {
                aTarget.emplace_back();
                pCurrent = &aTarget.back();
                pRepresentative = a;
            }
        } else {
            pRepresentative = a;
        }
        for (TRecord* pRecord : {a, b}) {
            if (pRecord->m_uFlags & uInGroupFlag) continue;
            if (!pCurrent) {
                aTarget.emplace_back();
                pCurrent = &aTarget.back();
            }
            pCurrent->push_back(pRecord);
            pRecord->m_uFlags |= uInGroupFlag;
        }
    }
    return true;
}

}  // namespace zv
