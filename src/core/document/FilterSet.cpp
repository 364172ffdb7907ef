#include "core/document/FilterSet.h"

#include "platform/Text.h"

namespace zv {

const CFilterListNames& FilterListNames(EFilterList eList) {
    static const CFilterListNames s_aNames[FilterListCount] = {
        {u"File Name Filters", u"FileName", u"[FILTER FILE NAMES]"},
        {u"File Name Exclude Filters", u"FileNameExclude", u"[FILTER FILE NAMES EXCLUDE]"},
        {u"File Name Exclude (full path) Filters", u"FileNameFullPathExclude",
         u"[FILTER FILE NAMES FULL PATH EXCLUDE]"},
        {u"File Name Version Information Filters", u"FileVersion", u"[FILTER FILE NAME VERSION]"},
        {u"Office extensions", u"OfficeExtensions", u"[FILTER OFFICE EXTENSIONS]"},
        {u"File Owner Filters", u"Owner", u"[FILTER OWNERS]"},
        {u"File Owner Exclude Filters", u"OwnerExclude", u"[FILTER OWNERS EXCLUDE]"},
        {u"Directory Exclude Filters", u"DirExclude", u"[FILTER DIR EXCLUDE]"},
        {u"Directory Filters", u"Dir", u"[FILTER DIR]"},
        {u"Duplicate files filter", u"DupFilesFilter", u"[FILTER DUP FILES]"},
        {u"Duplicate directories filter", u"DupDirsFilter", u"[FILTER DUP DIRS]"},
    };
    return s_aNames[eList];
}

CFilterSet::CFilterSet() = default;

void CFilterSet::AddEntry(EFilterList eList, std::u16string_view strText, bool bAdded) {
    CFilterEntry entry;
    entry.m_bAdded = bAdded ? 1 : 0;
    entry.m_strText = strText;
    entry.m_strUpper = platform::ToUpperCopy(strText);
    m_aLists[eList].push_back(std::move(entry));
}

}  // namespace zv
