// The filter set of the main document: what a scan keeps. This is the data;
// the tests that apply it live with the filters.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/records/DirectoryData.h"
#include "core/records/FileData.h"
#include "core/records/PtrArray.h"
#include "platform/FileTime.h"

namespace zv {

// One pattern of a filter list. Tests use the upper-cased text.
struct CFilterEntry {
    int32_t m_bAdded = 0;    // new since the list's dialog last closed with OK
    int32_t m_bRemoved = 0;  // marked for removal in the dialog
    std::u16string m_strText;
    std::u16string m_strUpper;
};

enum EFilterList {
    FilterFileNames,
    FilterFileNamesExclude,
    FilterFullPathExclude,
    FilterVersionFiles,
    FilterOfficeExtensions,
    FilterOwners,
    FilterOwnersExclude,
    FilterDirExclude,
    FilterDir,
    FilterDupFiles,
    FilterDupDirs,
    FilterListCount
};

// The names a list goes by: its dialog, its registry list and its settings
// section.
struct CFilterListNames {
    const char16_t* m_pszDialogTitle;
    const char16_t* m_pszRegistryList;
    const char16_t* m_pszSettingsSection;
};
const CFilterListNames& FilterListNames(EFilterList eList);

enum EDateFilter {
    CreatedBefore,
    CreatedAfter,
    AccessedBefore,
    AccessedAfter,
    ModifiedBefore,
    ModifiedAfter,
    DateFilterCount
};

// One date test, with an absolute and a relative form that are independent.
struct CDateFilter {
    int32_t m_bAbsolute = 0;
    FILETIME m_ftAbsolute;
    int32_t m_bRelative = 0;
    int32_t m_nDays = 0;
    int32_t m_nHours = 0;
    int32_t m_nMinutes = 0;
    int32_t m_nSeconds = 0;
    FILETIME m_ftResolved;  // now + the offset, at the start of each scan
};

// Attribute tests in the order a scan applies them; linked comes apart.
enum EAttributeFilter {
    AttrFilterSystem,
    AttrFilterCompressed,
    AttrFilterEncrypted,
    AttrFilterArchive,
    AttrFilterReadOnly,
    AttrFilterHidden,
    AttrFilterLinked,
    AttributeFilterCount
};

struct CYesNoFilter {
    int32_t m_bYes = 0;
    int32_t m_bNo = 0;
};

struct CFilterSet {
    CFilterSet();
    CFilterSet(const CFilterSet&) = delete;
    CFilterSet& operator=(const CFilterSet&) = delete;

    std::array<std::vector<CFilterEntry>, FilterListCount> m_aLists;
    std::array<CDateFilter, DateFilterCount> m_aDates;
    int32_t m_bCreatedLater = 0;  // "filter created date > accessed date"
    int32_t m_bAnyDateLow = 0;    // "filter any dates EQ 0"
    int32_t m_bMinSize = 0;
    double m_dMinSize = 0;
    int32_t m_bMaxSize = 0;
    double m_dMaxSize = 0;
    int32_t m_bHasStreams = 0;
    std::array<CYesNoFilter, AttributeFilterCount> m_aAttributes;
    int32_t m_nPathLength = 0;  // 0 = off

    // Beside the duplicate files list, one record per entry (whole path as
    // name, size, checksum); beside the duplicate directories list, the
    // trees of those directories.
    COwningPtrArray<CFileData> m_aDupFileRecords;
    COwningPtrArray<CDirectoryData> m_aDupDirTrees;

    std::vector<CFilterEntry>& List(EFilterList eList) { return m_aLists[eList]; }
    const std::vector<CFilterEntry>& List(EFilterList eList) const { return m_aLists[eList]; }
    // Appends an entry, its upper-cased form beside it.
    void AddEntry(EFilterList eList, std::u16string_view strText, bool bAdded = true);
};

}  // namespace zv
