#include "ui/logic/SizeDateFilterEdit.h"

#include <charconv>
#include <cstdio>
#include <string>

#include "platform/FileTime.h"
#include "platform/Text.h"

namespace zv {

namespace {

// The before and after tests of one date, and what a before date later
// than its after date says.
struct CDatePair {
    EDateFilter m_eBefore;
    EDateFilter m_eAfter;
    const char16_t* m_pszMessage;
};

constexpr CDatePair kDatePairs[] = {
    {CreatedBefore, CreatedAfter, u"created-before date > created-after date"},
    {AccessedBefore, AccessedAfter, u"accessed-before date > accessed-ater date"},
    {ModifiedBefore, ModifiedAfter, u"modify-before date > modify-after date"},
};

bool IsBlank(std::u16string_view strText) {
    return strText.find_first_not_of(u" \t") == std::u16string_view::npos;
}

}  // namespace

CSizeDateFilterValues ReadSizeDateFilters(const CFilterSet& filters) {
    CSizeDateFilterValues values;
    values.m_aDates = filters.m_aDates;
    values.m_bCreatedLater = filters.m_bCreatedLater;
    values.m_bAnyDateLow = filters.m_bAnyDateLow;
    values.m_bMinSize = filters.m_bMinSize;
    values.m_strMinSize = filters.m_bMinSize ? SizeFieldText(filters.m_dMinSize) : u"";
    values.m_bMaxSize = filters.m_bMaxSize;
    values.m_strMaxSize = filters.m_bMaxSize ? SizeFieldText(filters.m_dMaxSize) : u"";
    values.m_bHasStreams = filters.m_bHasStreams;
    values.m_aAttributes = filters.m_aAttributes;
    values.m_nPathLength = filters.m_nPathLength;
    return values;
}

void ApplySizeDateFilters(const CSizeDateFilterValues& values, CFilterSet& filters) {
    filters.m_aDates = values.m_aDates;
    filters.m_bCreatedLater = values.m_bCreatedLater;
    filters.m_bAnyDateLow = values.m_bAnyDateLow;
    filters.m_bMinSize = values.m_bMinSize;
    filters.m_dMinSize = values.m_bMinSize ? ReadSizeField(values.m_strMinSize) : 0;
    filters.m_bMaxSize = values.m_bMaxSize;
    filters.m_dMaxSize = values.m_bMaxSize ? ReadSizeField(values.m_strMaxSize) : 0;
    filters.m_bHasStreams = values.m_bHasStreams;
    filters.m_aAttributes = values.m_aAttributes;
    filters.m_nPathLength = values.m_nPathLength > 0 ? values.m_nPathLength : 0;
}

std::u16string CheckSizeDateFilters(const CSizeDateFilterValues& values) {
    for (const CDatePair& pair : kDatePairs) {
        const CDateFilter& before = values.m_aDates[pair.m_eBefore];
        const CDateFilter& after = values.m_aDates[pair.m_eAfter];
        if (before.m_bAbsolute && after.m_bAbsolute &&
            CompareFileTime(before.m_ftAbsolute, after.m_ftAbsolute) > 0)
            return pair.m_pszMessage;
    }
    if (values.m_bMinSize && IsBlank(values.m_strMinSize))
        return u"Minimum file size is enable, but there is no number entered";
    if (values.m_bMaxSize && IsBlank(values.m_strMaxSize))
        return u"Maximum file size is enable, but there is no number entered";
    if (values.m_bMinSize && values.m_bMaxSize &&
        ReadSizeField(values.m_strMinSize) > ReadSizeField(values.m_strMaxSize))
        return u"Min Size > Max Size";
    return {};
}

double ReadSizeField(std::u16string_view strText) {
    const std::string strNarrow = platform::Utf16ToUtf8(strText);
    const size_t nStart = strNarrow.find_first_not_of(" \t+");
    if (nStart == std::string::npos) return 0;
    double dValue = 0;
    std::from_chars(strNarrow.data() + nStart, strNarrow.data() + strNarrow.size(), dValue);
    return dValue;
}

std::u16string SizeFieldText(double dSize) {
    char szText[64];
    std::snprintf(szText, sizeof szText, "%.15g", dSize);
    return platform::U16(szText);
}

void TickAttribute(CYesNoFilter& filter, bool bYes, bool bTicked) {
    (bYes ? filter.m_bYes : filter.m_bNo) = bTicked;
    if (bTicked) (bYes ? filter.m_bNo : filter.m_bYes) = 0;
}

std::u16string RelativeDateText(const CDateFilter& date) {
    return platform::U16(std::to_string(date.m_nDays) + "D " + std::to_string(date.m_nHours) +
                         "H " + std::to_string(date.m_nMinutes) + "M ");
}

void SetRelativeDate(CDateFilter& date, int32_t nDays, int32_t nHours, int32_t nMinutes,
                     int32_t nSeconds) {
    if (!nDays && !nHours && !nMinutes && !nSeconds) return;
    date.m_nDays = nDays;
    date.m_nHours = nHours;
    date.m_nMinutes = nMinutes;
    date.m_nSeconds = nSeconds;
}

FILETIME LocalDayToFileTime(int nYear, int nMonth, int nDay) {
    SYSTEMTIME st;
    st.wYear = static_cast<uint16_t>(nYear);
    st.wMonth = static_cast<uint16_t>(nMonth);
    st.wDay = static_cast<uint16_t>(nDay);
    FILETIME ftLocal, ftUtc;
    if (!platform::SystemTimeToFileTime(st, ftLocal) ||
        !platform::LocalFileTimeToFileTime(ftLocal, ftUtc))
        return FILETIME{};
    return ftUtc;
}

bool FileTimeToLocalDay(FILETIME ft, int& nYear, int& nMonth, int& nDay) {
    FILETIME ftLocal;
    SYSTEMTIME st;
    if (!platform::FileTimeToLocalFileTime(ft, ftLocal) ||
        !platform::FileTimeToSystemTime(ftLocal, st))
        return false;
    nYear = st.wYear;
    nMonth = st.wMonth;
    nDay = st.wDay;
    return true;
}

std::u16string AbsoluteDateText(FILETIME ft) {
    int nYear = 0, nMonth = 0, nDay = 0;
    if (IsZero(ft) || !FileTimeToLocalDay(ft, nYear, nMonth, nDay)) return {};
    char szText[32];
    std::snprintf(szText, sizeof szText, "%04d-%02d-%02d", nYear, nMonth, nDay);
    return platform::U16(szText);
}

std::u16string_view AbsoluteDateTitle(EDateFilter eDate) {
    static constexpr std::u16string_view kTitles[DateFilterCount] = {
        u"Select Created Before Date", u"Select Created After Date", u"Select Accessed Before Date",
        u"Select Accessed After Date", u"Select Modify Before Date", u"Select Modify After Date"};
    return kTitles[eDate];
}

std::u16string_view RelativeDateTitle(EDateFilter eDate) {
    static constexpr std::u16string_view kTitles[DateFilterCount] = {
        u"Created Before - Relative Date",  u"Created After - Relative Date",
        u"Accessed Before - Relative Date", u"Accessed After - Relative Date",
        u"Modify before - Relative Date",   u"Modify before - Relative Date"};
    return kTitles[eDate];
}

}  // namespace zv
