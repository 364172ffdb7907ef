// The user's date and time conventions as reports print dates, and the
// platform's own text of a date serial. Windows reads them from the locale
// of the user; POSIX has none of its own, so reports there use the fixed
// forms that need no locale.
#pragma once

#include <string>

#include "platform/FileTime.h"

namespace zv::platform {

// The locale values a report date needs, as GetLocaleInfoW gives them.
struct CDateLocale {
    std::u16string m_strTimeSeparator;     // LOCALE_STIME
    std::u16string m_strDateSeparator;     // LOCALE_SDATE
    std::u16string m_strTimeFormat;        // LOCALE_STIMEFORMAT
    std::u16string m_strDateOrder;         // LOCALE_IDATE: "0" MDY, "1" DMY, "2" YMD
    std::u16string m_strTime24;            // LOCALE_ITIME: "1" for 24 hours
    std::u16string m_strCentury;           // LOCALE_ICENTURY: "0" for two-digit years
    std::u16string m_strDayLeadingZero;    // LOCALE_IDAYLZERO
    std::u16string m_strMonthLeadingZero;  // LOCALE_IMONLZERO
    std::u16string m_strAm;                // LOCALE_S1159
    std::u16string m_strPm;                // LOCALE_S2359
};

// False when any value cannot be read (always on POSIX).
bool ReadDateLocale(CDateLocale& locale);

// A local broken-down time as the platform writes a date serial in the
// user's locale (VarBstrFromDate on Windows). False where there is no such
// service or the time cannot be converted.
bool FormatDateSerial(const SYSTEMTIME& stLocal, std::u16string& strText);

}  // namespace zv::platform
