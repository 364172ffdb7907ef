// How a value becomes report text: dates, the scan time, attributes,
// directory checksums, free space, XML sizes, and the comma-separated and
// markup escapes. Sizes and grouped numbers are the document's own
// (core/document/SizeText.h).
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/FileTime.h"

namespace zv {

class CWZorvaneDoc;

// "(unknown)" for a zero time; otherwise the local time by FormatSystemTime,
// or an empty text when it cannot be converted.
std::u16string FormatReportDate(FILETIME ftDate, bool bWithTime);
// The user's short date (and time) form; without a locale, "MM/DD/YYYY" and
// "hh:mm:ss: AM".
std::u16string FormatSystemTime(const SYSTEMTIME& st, bool bWithTime);
// The time of a scan (seconds since the Unix epoch) as the platform writes a
// date serial; "Invalid DateTime" when it cannot be converted.
std::u16string FormatScanTime(int64_t tTime);
// Three characters: H, A, R or a blank each.
std::u16string FormatAttributes(uint32_t uAttributes);
// "0x" and upper-case hexadecimal, or unsigned decimal.
std::u16string FormatCrcDir(uint32_t uCrc, bool bHex);
// Upper-case hexadecimal without "0x", for the formats that print it.
std::u16string HexDigits(uint32_t uValue);
// The free bytes of the roots' drives with units and " free".
std::u16string FormatFreeSpace(const CWZorvaneDoc& doc);
// A size as XML attributes carry it: "%.0f" in bytes, else the ceiling in
// the unit, ungrouped.
std::u16string FormatXmlSize(const CWZorvaneDoc& doc, double dSize);
// "%.0f": whole bytes, ungrouped.
std::u16string FormatXmlSizeInBytes(double dSize);

// `"` (or `,"` after a first field), the value with `"` made `'`, `"`.
void CsvAppendFirst(std::u16string& strLine, std::u16string_view strValue);
void CsvAppend(std::u16string& strLine, std::u16string_view strValue);

// The five markup characters as entities, and everything from code 127 on
// as a hexadecimal character reference of its UTF-16 unit.
std::u16string XmlEscape(std::u16string_view strText);
// &, <, > and " as entities; the rest unchanged.
std::u16string HtmlEscape(std::u16string_view strText);

// Right-aligned in a field of nWidth characters, as "%14s" does.
std::u16string PadLeft(std::u16string_view strText, size_t nWidth);
// Decimal text of a number, as "%d", "%u" and "%lld" print it.
std::u16string DecimalText(int64_t nValue);

// Whether reports read the user's locale for dates and the scan time.
// Off, they use the fixed forms on every platform; tests switch it off so
// that their expected files hold on any machine.
void UseDateLocale(bool bUse);

}  // namespace zv
