// What the size, date and other filters dialog edits, free of windows: the
// values as the dialog holds them (sizes as typed), the checks its OK makes
// and the texts it shows.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "core/document/FilterSet.h"

namespace zv {

struct CSizeDateFilterValues {
    std::array<CDateFilter, DateFilterCount> m_aDates;
    int32_t m_bCreatedLater = 0;
    int32_t m_bAnyDateLow = 0;
    int32_t m_bMinSize = 0;
    std::u16string m_strMinSize;
    int32_t m_bMaxSize = 0;
    std::u16string m_strMaxSize;
    int32_t m_bHasStreams = 0;
    std::array<CYesNoFilter, AttributeFilterCount> m_aAttributes;
    int32_t m_nPathLength = 0;
};

CSizeDateFilterValues ReadSizeDateFilters(const CFilterSet& filters);
// Stores the values; the sizes are read as numbers of bytes.
void ApplySizeDateFilters(const CSizeDateFilterValues& values, CFilterSet& filters);

// The checks of OK, in their order: the message that keeps the dialog
// open, or an empty text.
std::u16string CheckSizeDateFilters(const CSizeDateFilterValues& values);

// A size field as a floating point number of bytes; text that is not a
// number reads as 0.
double ReadSizeField(std::u16string_view strText);
std::u16string SizeFieldText(double dSize);

// Ticking the yes or the no box of one attribute clears the other.
void TickAttribute(CYesNoFilter& filter, bool bYes, bool bTicked);

// A relative date as days, hours and minutes: "-30D 0H 0M ".
std::u16string RelativeDateText(const CDateFilter& date);
// The relative date dialog's OK: all four fields 0 leave the test as it was.
void SetRelativeDate(CDateFilter& date, int32_t nDays, int32_t nHours, int32_t nMinutes,
                     int32_t nSeconds);

// An absolute date as the calendar picks it: the start of a local day, kept
// in UTC; and its text, the local day as "YYYY-MM-DD".
FILETIME LocalDayToFileTime(int nYear, int nMonth, int nDay);
bool FileTimeToLocalDay(FILETIME ft, int& nYear, int& nMonth, int& nDay);
std::u16string AbsoluteDateText(FILETIME ft);

// The titles of the calendar dialog of each date button.
std::u16string_view AbsoluteDateTitle(EDateFilter eDate);
std::u16string_view RelativeDateTitle(EDateFilter eDate);

inline constexpr std::u16string_view kStreamsOffWarning =
    u"This will not work unless you turn on checking for streams\nby selecting menu\nFile / "
    u"Check for streams";

}  // namespace zv
