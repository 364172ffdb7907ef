#include "filters/ScanFilter.h"

#include "core/document/Document.h"
#include "core/records/OwnerNameCache.h"
#include "core/records/RecordPath.h"
#include "filters/FilterActive.h"
#include "filters/WildcardMatch.h"
#include "platform/FileSystem.h"
#include "platform/Text.h"

namespace zv {
namespace {

// Lists are walked from the last entry to the first and stop at the first hit.
bool AnyMatches(const std::vector<CFilterEntry>& aList, std::u16string_view strText, bool bEscape) {
    for (size_t i = aList.size(); i-- > 0;)
        if (WildcardMatch(aList[i].m_strUpper, strText, bEscape)) return true;
    return false;
}

std::u16string_view LastComponent(std::u16string_view strPath) {
    const size_t nSeparator = strPath.rfind(platform::kPathSeparator);
    return nSeparator == std::u16string_view::npos ? strPath : strPath.substr(nSeparator + 1);
}

// A date "after" test fails a time earlier than its value; a "before" test
// fails one later. A time equal to the value passes both.
bool PassesDatePair(FILETIME ftTime, const CDateFilter& after, const CDateFilter& before) {
    if (after.m_bAbsolute && CompareFileTime(ftTime, after.m_ftAbsolute) < 0) return false;
    if (after.m_bRelative && CompareFileTime(ftTime, after.m_ftResolved) < 0) return false;
    if (before.m_bAbsolute && CompareFileTime(ftTime, before.m_ftAbsolute) > 0) return false;
    if (before.m_bRelative && CompareFileTime(ftTime, before.m_ftResolved) > 0) return false;
    return true;
}

// High 32 bits zero, low ones not: an all-zero date does not count.
bool IsLowDate(FILETIME ft) { return ft.dwHighDateTime == 0 && ft.dwLowDateTime != 0; }

}  // namespace

CScanFilter::CScanFilter(CWZorvaneDoc& doc)
    : m_doc(doc), m_filters(doc.m_filters), m_duplicates(doc) {}

bool CScanFilter::IsActive() { return IsFilterActive(m_filters, m_doc.m_options); }

bool CScanFilter::HasDuplicateFilter() {
    return !m_filters.List(FilterDupFiles).empty() || !m_filters.List(FilterDupDirs).empty();
}

void CScanFilter::ResolveRelativeDates() { zv::ResolveRelativeDates(m_filters); }

bool CScanFilter::IsDirectoryExcluded(const std::u16string& strPath) {
    const auto& aList = m_filters.List(FilterDirExclude);
    return !aList.empty() && AnyMatches(aList, platform::ToUpperCopy(strPath), false);
}

bool CScanFilter::SkipsFilesOf(const std::u16string& strPath) {
    const auto& aList = m_filters.List(FilterDir);
    return !aList.empty() &&
           !AnyMatches(aList, platform::ToUpperCopy(LastComponent(strPath)), false);
}

bool CScanFilter::AdmitsFile(CFileCandidate& candidate) {
    const CDirEntry& entry = candidate.m_entry;
    const auto& aNameExcludes = m_filters.List(FilterFileNamesExclude);
    const auto& aPathExcludes = m_filters.List(FilterFullPathExclude);
    const auto& aNames = m_filters.List(FilterFileNames);
    // Upper-cased only when a name list needs it: most scans have none.
    std::u16string strUpperName;
    if (!aNameExcludes.empty() || !aNames.empty())
        strUpperName = platform::ToUpperCopy(entry.strName);

    if (!aNameExcludes.empty() && AnyMatches(aNameExcludes, strUpperName, true)) return false;
    if (!aPathExcludes.empty()) {
        const std::u16string strUpperPath =
            platform::ToUpperCopy(JoinPath(candidate.m_strDirectoryPath, entry.strName));
        for (size_t i = aPathExcludes.size(); i-- > 0;)
            if (aPathExcludes[i].m_strUpper == strUpperPath) return false;
    }
    if (!aNames.empty() && !AnyMatches(aNames, strUpperName, true)) return false;

    if (m_filters.m_bMaxSize && candidate.m_dSize > m_filters.m_dMaxSize) return false;
    if (m_filters.m_bMinSize && candidate.m_dSize < m_filters.m_dMinSize) return false;
    if (!PassesDates(candidate)) return false;
    // Streams are not enumerated here, so the has-streams test passes.
    if (!PassesAttributes(candidate)) return false;

    const CYesNoFilter& linked = m_filters.m_aAttributes[AttrFilterLinked];
    if (linked.m_bYes || linked.m_bNo) {
        const uint32_t uLinks =
            platform::GetLinkCount(JoinPath(candidate.m_strDirectoryPath, entry.strName));
        // A file that cannot be opened passes.
        if (uLinks != 0) {
            if (linked.m_bYes) {
                if (uLinks < 2) return false;
            } else if (uLinks >= 2) {
                return false;
            }
        }
    }

    if (m_filters.m_nPathLength > 0 &&
        candidate.m_strDirectoryPath.size() + 1 + entry.strName.size() <
            size_t(m_filters.m_nPathLength)) {
        return false;
    }
    if (!PassesOwners(candidate)) return false;
    return PassesDuplicateFilter(candidate);
}

bool CScanFilter::PassesDates(const CFileCandidate& candidate) const {
    const CDirEntry& entry = candidate.m_entry;
    const auto& aDates = m_filters.m_aDates;
    if (!PassesDatePair(entry.ftCreated, aDates[CreatedAfter], aDates[CreatedBefore])) return false;
    if (!PassesDatePair(entry.ftAccessed, aDates[AccessedAfter], aDates[AccessedBefore]))
        return false;
    if (!PassesDatePair(entry.ftModified, aDates[ModifiedAfter], aDates[ModifiedBefore]))
        return false;
    if (m_filters.m_bCreatedLater && CompareFileTime(entry.ftCreated, entry.ftAccessed) <= 0 &&
        CompareFileTime(entry.ftCreated, entry.ftModified) <= 0) {
        return false;
    }
    if (m_filters.m_bAnyDateLow && !IsLowDate(entry.ftCreated) && !IsLowDate(entry.ftAccessed) &&
        !IsLowDate(entry.ftModified)) {
        return false;
    }
    return true;
}

bool CScanFilter::PassesAttributes(const CFileCandidate& candidate) const {
    static const uint32_t kBits[] = {ATTR_SYSTEM,  ATTR_COMPRESSED, ATTR_ENCRYPTED,
                                     ATTR_ARCHIVE, ATTR_READONLY,   ATTR_HIDDEN};
    const uint32_t uAttributes = candidate.m_entry.uAttributes;
    for (int i = AttrFilterSystem; i <= AttrFilterHidden; ++i) {
        const CYesNoFilter& filter = m_filters.m_aAttributes[i];
        const bool bSet = (uAttributes & kBits[i]) != 0;
        // The yes flag takes precedence.
        if (filter.m_bYes) {
            if (!bSet) return false;
        } else if (filter.m_bNo && bSet) {
            return false;
        }
    }
    return true;
}

bool CScanFilter::PassesOwners(CFileCandidate& candidate) {
    const auto& aExcludes = m_filters.List(FilterOwnersExclude);
    const auto& aOwners = m_filters.List(FilterOwners);
    if (aExcludes.empty() && aOwners.empty()) return true;
    // The owner is looked up once; the record keeps it.
    std::u16string strOwner;
    OwnerNames().GetOwnerName(JoinPath(candidate.m_strDirectoryPath, candidate.m_entry.strName),
                              strOwner);
    candidate.m_bHasOwner = true;
    candidate.m_strOwner = strOwner;
    const std::u16string strUpper = platform::ToUpperCopy(strOwner);
    if (!aExcludes.empty() && AnyMatches(aExcludes, strUpper, true)) return false;
    return aOwners.empty() || AnyMatches(aOwners, strUpper, true);
}

bool CScanFilter::PassesDuplicateFilter(CFileCandidate& candidate) {
    return m_duplicates.Admits(candidate);
}

}  // namespace zv
