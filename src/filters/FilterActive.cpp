#include "filters/FilterActive.h"

#include "core/document/Document.h"
#include "platform/FileTime.h"

namespace zv {

bool IsFilterActive(const CFilterSet& filters, const CDocumentOptions& options) {
    if (options.m_bOnlyDupFiles && options.m_bFindDupFilesAfterScan) return true;
    for (EFilterList eList :
         {FilterFileNames, FilterOwners, FilterOwnersExclude, FilterFileNamesExclude,
          FilterFullPathExclude, FilterDirExclude, FilterDir, FilterDupFiles, FilterDupDirs}) {
        if (!filters.List(eList).empty()) return true;
    }
    for (const CDateFilter& date : filters.m_aDates)
        if (date.m_bAbsolute || date.m_bRelative) return true;
    for (const CYesNoFilter& attribute : filters.m_aAttributes)
        if (attribute.m_bYes || attribute.m_bNo) return true;
    return filters.m_bCreatedLater || filters.m_bAnyDateLow || filters.m_bMinSize ||
           filters.m_bMaxSize || filters.m_bHasStreams || filters.m_nPathLength != 0;
}

void UpdateFilterActive(CWZorvaneDoc& doc) {
    doc.m_bFilterActive = IsFilterActive(doc.m_filters, doc.m_options) ? 1 : 0;
}

void ResolveRelativeDates(CFilterSet& filters) {
    for (CDateFilter& date : filters.m_aDates) {
        if (!date.m_bRelative) continue;
        const int64_t nSeconds =
            ((int64_t(date.m_nDays) * 24 + date.m_nHours) * 60 + date.m_nMinutes) * 60 +
            date.m_nSeconds;
        const uint64_t uNow = FileTimeToUInt64(platform::GetSystemTimeAsFileTime());
        date.m_ftResolved =
            FileTimeFromUInt64(uNow + uint64_t(nSeconds * int64_t(kTicksPerSecond)));
    }
}

}  // namespace zv
