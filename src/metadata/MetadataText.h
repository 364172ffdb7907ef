// Value texts the metadata readers share: narrow file text to UTF-16, the
// printf forms of numbers, durations and dates.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "metadata/MetadataFields.h"
#include "platform/FileTime.h"

namespace zv {

// 8-bit text in the Windows-1252 code page, up to its first zero byte or
// the end. Every OS converts alike, so reports agree between them.
std::u16string NarrowText(std::string_view bytes);
std::u16string NarrowText(const unsigned char* pBytes, size_t uSize);
// Little-endian UTF-16 up to the first zero unit or the end.
std::u16string WideText(const unsigned char* pBytes, size_t uSize);

// printf into UTF-16; the texts formed are ASCII.
std::u16string FormatText(const char* pszFormat, ...);
// "%.Nf" that reads the same on every OS, "inf" and "nan" included.
std::u16string FormatFixed(double d, int nDecimals);

// Blanks, tabs and line ends off the right end.
void TrimRight(std::u16string& str);

// Hours, minutes and seconds of a duration: 3725 gives "1:02:05", 59 gives
// "0:00:59"; fractions are cut off.
std::u16string FormatDuration(double dSeconds);

// The date text of reports: "MM/DD/YYYY", with the time of day
// "MM/DD/YYYY hh:mm:ss: AM". DateText converts a UTC time to local time
// first, gives "(unknown)" for a zero time and "" when it cannot convert.
std::u16string SystemTimeText(const SYSTEMTIME& st, bool bWithTime);
// The decimal digits of uValue, with leading zeros up to nMinWidth (printf's
// "%0*u").
void AppendDecimal(std::u16string& str, uint64_t uValue, int nMinWidth = 0);
std::u16string DateText(FILETIME ftUtc, bool bWithTime);

// Appends a value of the field of the group's table; nothing when the table
// has no such field.
void AddValue(MetadataValueList& aValues, EMetadataGroup eGroup, int32_t nFieldId,
              std::u16string strValue);

}  // namespace zv
