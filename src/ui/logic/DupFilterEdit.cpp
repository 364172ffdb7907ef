#include "ui/logic/DupFilterEdit.h"

#include "core/document/DupFilterRecords.h"
#include "core/host/Host.h"
#include "core/scan/RootSelection.h"
#include "filters/FilterChecks.h"
#include "ui/logic/FilterListEdit.h"

namespace zv {
namespace {

std::u16string_view TrimBlanks(std::u16string_view strText) {
    const size_t nFirst = strText.find_first_not_of(u" \t");
    if (nFirst == std::u16string_view::npos) return {};
    return strText.substr(nFirst, strText.find_last_not_of(u" \t") - nFirst + 1);
}

// The index of the file record of an entry of the duplicate files list;
// the record's name is the entry's text.
ptrdiff_t FindDupFileRecord(const CFilterSet& filters, std::u16string_view strEntry) {
    const auto& aRecords = filters.m_aDupFileRecords;
    for (size_t i = aRecords.GetSize(); i-- > 0;)
        if (aRecords[i]->m_strName == strEntry) return static_cast<ptrdiff_t>(i);
    return -1;
}

void DeleteRecordOf(CFilterSet& filters, EFilterList eList, std::u16string_view strEntry) {
    if (eList == FilterDupFiles) {
        const ptrdiff_t nRecord = FindDupFileRecord(filters, strEntry);
        if (nRecord >= 0) filters.m_aDupFileRecords.DeleteAt(static_cast<size_t>(nRecord));
    } else {
        const ptrdiff_t nTree = FindDupDirTree(filters, strEntry);
        if (nTree >= 0) filters.m_aDupDirTrees.DeleteAt(static_cast<size_t>(nTree));
    }
}

bool Refused(const CFilterSet& filters, EFilterList eList, std::u16string_view strText) {
    const std::u16string strRefusal = CheckNewFilterEntry(filters.List(eList), strText);
    if (strRefusal.empty()) return false;
    Host().ShowMessage(strRefusal);
    return true;
}

}  // namespace

std::u16string DupDirEntryText(std::u16string_view strPath, bool bWithSubdirs) {
    return (bWithSubdirs ? u"*" : u"") + std::u16string(strPath);
}

std::u16string_view DupDirEntryPath(std::u16string_view strEntry, bool& bWithSubdirs) {
    bWithSubdirs = strEntry.starts_with(u'*');
    return bWithSubdirs ? strEntry.substr(1) : strEntry;
}

ptrdiff_t FindDupDirTree(const CFilterSet& filters, std::u16string_view strEntry) {
    bool bWithSubdirs = false;
    const std::u16string_view strPath = DupDirEntryPath(strEntry, bWithSubdirs);
    const auto& aTrees = filters.m_aDupDirTrees;
    ptrdiff_t nSamePath = -1;
    for (size_t i = aTrees.GetSize(); i-- > 0;) {
        if (!(aTrees[i]->m_strName == strPath)) continue;
        if (aTrees[i]->m_aChildren.IsEmpty() != bWithSubdirs) return static_cast<ptrdiff_t>(i);
        if (nSamePath < 0) nSamePath = static_cast<ptrdiff_t>(i);
    }
    return nSamePath;
}

bool AddDupFilesEntry(CFilterSet& filters, std::u16string_view strText) {
    const std::u16string_view strPath = TrimBlanks(strText);
    if (strPath.empty() || Refused(filters, FilterDupFiles, strPath)) return false;
    return AddDupFileFilter(filters, strPath);
}

bool AddDupDirsEntry(CFilterSet& filters, std::u16string_view strText, bool bWithSubdirs) {
    const std::u16string_view strPath = WithoutTrailingSeparator(TrimBlanks(strText));
    if (strPath.empty()) return false;
    const std::u16string strEntry = DupDirEntryText(strPath, bWithSubdirs);
    if (Refused(filters, FilterDupDirs, strEntry)) return false;
    AddDupDirFilterTree(filters, strPath, bWithSubdirs);
    filters.AddEntry(FilterDupDirs, strEntry);
    return true;
}

void CommitDupFilterEdit(CFilterSet& filters, EFilterList eList) {
    for (const CFilterEntry& entry : filters.List(eList))
        if (entry.m_bRemoved) DeleteRecordOf(filters, eList, entry.m_strText);
    CommitFilterListEdit(filters.List(eList));
}

void CancelDupFilterEdit(CFilterSet& filters, EFilterList eList) {
    for (const CFilterEntry& entry : filters.List(eList))
        if (entry.m_bAdded) DeleteRecordOf(filters, eList, entry.m_strText);
    CancelFilterListEdit(filters.List(eList));
}

}  // namespace zv
