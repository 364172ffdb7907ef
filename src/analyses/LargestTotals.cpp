#include "analyses/LargestTotals.h"

#include <algorithm>
#include <functional>
#include <string>

#include "core/document/Document.h"
#include "core/host/Host.h"
#include "core/host/ProgressDialog.h"
#include "platform/Text.h"

namespace zv {
namespace {

CTotalEntry& Add(CTotalEntry& entry, const CFileData& file) {
    ++entry.m_nFiles;
    entry.m_dSize += file.m_dSize;
    return entry;
}

// The entry of a key in a table sorted by key; a new one is inserted where
// the order stays. bAdded tells which.
CTotalEntry& FindOrInsert(CTotalTable& aTable, const std::u16string& strKey, bool& bAdded) {
    const auto it = std::lower_bound(
        aTable.begin(), aTable.end(), strKey,
        [](const std::unique_ptr<CTotalEntry>& pEntry, const std::u16string& strWanted) {
            return pEntry->m_strKey < strWanted;
        });
    bAdded = it == aTable.end() || (*it)->m_strKey != strKey;
    if (!bAdded) return **it;
    auto pEntry = std::make_unique<CTotalEntry>();
    pEntry->m_strKey = strKey;
    return **aTable.insert(it, std::move(pEntry));
}

std::u16string Number(size_t n) { return platform::U16(std::to_string(n)); }

// Adds every file of the scan under the progress dialog; Cancel keeps what
// was added so far.
void ComputeOverAllFiles(CWZorvaneDoc& doc, const std::u16string& strTitle,
                         const std::function<void(CFileData&)>& add) {
    CProgressDialog progress(true);
    progress.Open();
    progress.SetText(strTitle.c_str());
    CPercentTracker tracker;
    auto& aFiles = doc.m_scan.m_aAllFiles;
    const size_t nTotal = aFiles.GetSize();
    for (size_t i = 0; i < nTotal; ++i) {
        if (tracker.Update(double(i + 1), double(nTotal))) {
            const std::u16string strText = strTitle + u" %" + Number(tracker.GetPercent()) + u"  " +
                                           Number(i + 1) + u"/" + Number(nTotal);
            progress.SetTextAndPercent(strText.c_str(), tracker.GetPercent());
            if (progress.IsStopped()) break;
        }
        add(*aFiles[i]);
    }
}

}  // namespace

void AddOwnerTotals(CWZorvaneDoc& doc, CFileData& file) {
    CTotalTables& totals = doc.m_results.m_totals;
    const std::u16string& strOwner = file.GetOwner();
    if (totals.m_pLastOwnerEntry && totals.m_pLastOwnerEntry->m_strKey == strOwner) {
        Add(*totals.m_pLastOwnerEntry, file);
        return;
    }
    bool bAdded = false;
    CTotalEntry& entry = Add(FindOrInsert(totals.m_aOwners, strOwner, bAdded), file);
    totals.m_pLastOwnerEntry = bAdded ? nullptr : &entry;
}

void AddTypeTotals(CWZorvaneDoc& doc, CFileData& file) {
    bool bAdded = false;
    Add(FindOrInsert(doc.m_results.m_totals.m_aTypes, file.GetExtension(), bAdded), file);
}

void SortTotals(CTotalTable& aTable, int nSortCode) {
    using Entry = std::unique_ptr<CTotalEntry>;
    const auto Sort = [&aTable](auto less) {
        std::stable_sort(aTable.begin(), aTable.end(), less);
    };
    switch (nSortCode) {
        case TotalSortNameAsc:
            Sort([](const Entry& a, const Entry& b) { return a->m_strKey < b->m_strKey; });
            break;
        case TotalSortNameDesc:
            Sort([](const Entry& a, const Entry& b) { return a->m_strKey > b->m_strKey; });
            break;
        case TotalSortFilesAsc:
            Sort([](const Entry& a, const Entry& b) { return a->m_nFiles < b->m_nFiles; });
            break;
        case TotalSortFilesDesc:
            Sort([](const Entry& a, const Entry& b) { return a->m_nFiles > b->m_nFiles; });
            break;
        case TotalSortSizeAsc:
            Sort([](const Entry& a, const Entry& b) { return a->m_dSize < b->m_dSize; });
            break;
        case TotalSortSizeDesc:
            Sort([](const Entry& a, const Entry& b) { return a->m_dSize > b->m_dSize; });
            break;
        default:
            break;
    }
}

void SortTypeTable(CWZorvaneDoc& doc) {
    CTotalTables& totals = doc.m_results.m_totals;
    std::sort(totals.m_aTypes.begin(), totals.m_aTypes.end(),
              [](const std::unique_ptr<CTotalEntry>& a, const std::unique_ptr<CTotalEntry>& b) {
                  if (a->m_dSize != b->m_dSize) return a->m_dSize > b->m_dSize;
                  return a->m_strKey > b->m_strKey;
              });
    totals.m_nTypeSort = TotalSortSizeDesc;
}

bool PrepareLargestOwner(CWZorvaneDoc& doc) {
    CTotalTables& totals = doc.m_results.m_totals;
    if (totals.m_aOwners.empty()) {
        if (!Host().AskYesNo(u"The largest owners have not been computed\nDo you want to compute "
                             u"the largest owner?\nThis can take a long time",
                             false))
            return false;
        ComputeOverAllFiles(doc, u"Computing largest owner", [&doc](CFileData& file) {
            if (!file.IsStream()) AddOwnerTotals(doc, file);
        });
    }
    SortTotals(totals.m_aOwners, TotalSortSizeDesc);
    // The table is no longer sorted by name: a later addition must search.
    totals.m_pLastOwnerEntry = nullptr;
    return true;
}

void PrepareLargestType(CWZorvaneDoc& doc) {
    if (doc.m_results.m_totals.m_aTypes.empty())
        ComputeOverAllFiles(doc, u"Computing largest type",
                            [&doc](CFileData& file) { AddTypeTotals(doc, file); });
    SortTypeTable(doc);
}

void SubtractTotals(CWZorvaneDoc& doc, CFileData& file) {
    CTotalTables& totals = doc.m_results.m_totals;
    const std::u16string strType = file.GetExtension();
    for (auto it = totals.m_aTypes.begin(); it != totals.m_aTypes.end(); ++it) {
        CTotalEntry& entry = **it;
        if (entry.m_strKey != strType) continue;
        if (entry.m_nFiles) --entry.m_nFiles;
        entry.m_dSize -= file.m_dSize;
        if (entry.m_nFiles == 0) totals.m_aTypes.erase(it);
        break;
    }
    if (totals.m_aOwners.empty() || file.IsStream()) return;
    const std::u16string& strOwner = file.GetOwner();
    CTotalEntry* pEntry = totals.m_pLastOwnerEntry;
    if (!pEntry || pEntry->m_strKey != strOwner) {
        pEntry = nullptr;
        for (size_t i = totals.m_aOwners.size(); i-- > 0;) {
            if (totals.m_aOwners[i]->m_strKey == strOwner) {
                pEntry = totals.m_aOwners[i].get();
                break;
            }
        }
    }
    if (!pEntry) return;
    if (pEntry->m_nFiles) --pEntry->m_nFiles;
    pEntry->m_dSize -= file.m_dSize;
}

}  // namespace zv
