#include "reports/ValueText.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <ctime>
#include <optional>

#include "core/document/Document.h"
#include "core/document/SizeText.h"
#include "metadata/MetadataText.h"
#include "platform/DateLocale.h"
#include "platform/FileSystem.h"
#include "platform/Text.h"

namespace zv {
namespace {

bool s_bUseLocale = true;

// Read once per process; empty when the locale path is off.
const std::optional<platform::CDateLocale>& DateLocale() {
    static const std::optional<platform::CDateLocale> s_locale =
        []() -> std::optional<platform::CDateLocale> {
        platform::CDateLocale locale;
        if (!platform::ReadDateLocale(locale)) return std::nullopt;
        return locale;
    }();
    static const std::optional<platform::CDateLocale> s_none;
    return s_bUseLocale ? s_locale : s_none;
}

std::u16string Digits(unsigned nValue, int nWidth) {
    std::u16string strText;
    AppendDecimal(strText, nValue, nWidth);
    return strText;
}

std::u16string LocaleDateTime(const platform::CDateLocale& loc, const SYSTEMTIME& st,
                              bool bWithTime) {
    const std::u16string strDay = Digits(st.wDay, loc.m_strDayLeadingZero == u"0" ? 1 : 2);
    const std::u16string strMonth = Digits(st.wMonth, loc.m_strMonthLeadingZero == u"0" ? 1 : 2);
    const std::u16string strYear =
        loc.m_strCentury == u"0" ? Digits(st.wYear % 100, 2) : Digits(st.wYear, 4);
    const std::u16string& sep = loc.m_strDateSeparator;
    std::u16string strText;
    if (loc.m_strDateOrder == u"1")
        strText = strDay + sep + strMonth + sep + strYear;
    else if (loc.m_strDateOrder == u"2")
        strText = strYear + sep + strMonth + sep + strDay;
    else
        strText = strMonth + sep + strDay + sep + strYear;
    if (!bWithTime) return strText;

    const bool b24 = loc.m_strTime24 == u"1";
    const bool bHourZero = loc.m_strTimeFormat.size() > 1 &&
                           (loc.m_strTimeFormat[1] == u'h' || loc.m_strTimeFormat[1] == u'H');
    unsigned nHour = st.wHour;
    if (!b24) nHour = nHour == 0 ? 12 : (nHour > 12 ? nHour - 12 : nHour);
    const std::u16string& tsep = loc.m_strTimeSeparator;
    strText += u' ';
    strText += Digits(nHour, bHourZero ? 2 : 1) + tsep + Digits(st.wMinute, 2) + tsep +
               Digits(st.wSecond, 2);
    if (!b24) {
        strText += u' ';
        strText += st.wHour < 12 ? loc.m_strAm : loc.m_strPm;
    }
    return strText;
}

void AppendCsvQuoted(std::u16string& strLine, std::u16string_view strValue) {
    const size_t nAt = strLine.size();
    strLine.resize(nAt + strValue.size() + 2);
    char16_t* pOut = strLine.data() + nAt;
    *pOut++ = u'"';
    for (char16_t ch : strValue) *pOut++ = ch == u'"' ? u'\'' : ch;
    *pOut = u'"';
}

}  // namespace

void UseDateLocale(bool bUse) { s_bUseLocale = bUse; }

std::u16string FormatSystemTime(const SYSTEMTIME& st, bool bWithTime) {
    if (const auto& locale = DateLocale()) return LocaleDateTime(*locale, st, bWithTime);
    return SystemTimeText(st, bWithTime);
}

std::u16string FormatReportDate(FILETIME ftDate, bool bWithTime) {
    if (IsZero(ftDate)) return u"(unknown)";
    FILETIME ftLocal;
    SYSTEMTIME st;
    if (!platform::FileTimeToLocalFileTime(ftDate, ftLocal) ||
        !platform::FileTimeToSystemTime(ftLocal, st))
        return {};
    return FormatSystemTime(st, bWithTime);
}

std::u16string FormatScanTime(int64_t tTime) {
    const FILETIME ftUtc = platform::FileTimeFromUnix(tTime, 0);
    FILETIME ftLocal;
    SYSTEMTIME st;
    if (tTime < 0 || !platform::FileTimeToLocalFileTime(ftUtc, ftLocal) ||
        !platform::FileTimeToSystemTime(ftLocal, st) || st.wYear < 100 || st.wYear > 9999)
        return u"Invalid DateTime";
    std::u16string strText;
    if (s_bUseLocale && platform::FormatDateSerial(st, strText)) return strText;
    // A date serial's text in the default convention: month/day/year, and
    // the time on a 12-hour clock unless it is midnight.
    char szText[64];
    int n = std::snprintf(szText, sizeof szText, "%u/%u/%u", st.wMonth, st.wDay, st.wYear);
    if (st.wHour || st.wMinute || st.wSecond)
        std::snprintf(szText + n, sizeof szText - size_t(n), " %u:%02u:%02u %s",
                      st.wHour % 12 == 0 ? 12u : st.wHour % 12u, st.wMinute, st.wSecond,
                      st.wHour < 12 ? "AM" : "PM");
    return platform::U16(szText);
}

std::u16string FormatAttributes(uint32_t uAttributes) {
    std::u16string strText(3, u' ');
    if (uAttributes & ATTR_HIDDEN) strText[0] = u'H';
    if (uAttributes & ATTR_ARCHIVE) strText[1] = u'A';
    if (uAttributes & ATTR_READONLY) strText[2] = u'R';
    return strText;
}

std::u16string HexDigits(uint32_t uValue) {
    char szText[16];
    const char* pEnd = std::to_chars(szText, szText + sizeof szText, uValue, 16).ptr;
    std::u16string strText;
    for (const char* p = szText; p != pEnd; ++p)
        strText += *p >= 'a' ? char16_t(*p - 'a' + 'A') : char16_t(*p);
    return strText;
}

std::u16string FormatCrcDir(uint32_t uCrc, bool bHex) {
    return bHex ? u"0x" + HexDigits(uCrc) : DecimalText(uCrc);
}

std::u16string FormatFreeSpace(const CWZorvaneDoc& doc) { return FreeSpaceText(doc); }

std::u16string FormatXmlSize(const CWZorvaneDoc& doc, double dSize) {
    static const double kScale[] = {1.0, 0x1p-10, 0x1p-20, 0x1p-30};
    const int nUnit = doc.m_options.m_nSizeUnit;
    char szText[40];
    if (nUnit >= 1 && nUnit <= 3)
        std::snprintf(szText, sizeof szText, "%d", int(std::ceil(dSize * kScale[nUnit])));
    else
        std::snprintf(szText, sizeof szText, "%.0f", dSize);
    return platform::U16(szText);
}

std::u16string FormatXmlSizeInBytes(double dSize) {
    char szText[40];
    std::snprintf(szText, sizeof szText, "%.0f", dSize);
    return platform::U16(szText);
}

void CsvAppendFirst(std::u16string& strLine, std::u16string_view strValue) {
    if (!strLine.empty()) strLine += u',';
    AppendCsvQuoted(strLine, strValue);
}

void CsvAppend(std::u16string& strLine, std::u16string_view strValue) {
    strLine += u',';
    AppendCsvQuoted(strLine, strValue);
}

namespace {

// The four characters both markups escape; false for any other.
bool AppendMarkupEntity(std::u16string& strOut, char16_t ch) {
    switch (ch) {
        case u'"':
            strOut += u"&quot;";
            return true;
        case u'&':
            strOut += u"&amp;";
            return true;
        case u'<':
            strOut += u"&lt;";
            return true;
        case u'>':
            strOut += u"&gt;";
            return true;
        default:
            return false;
    }
}

}  // namespace

std::u16string XmlEscape(std::u16string_view strText) {
    std::u16string strOut;
    strOut.reserve(strText.size());
    for (char16_t ch : strText) {
        if (ch >= 127) {
            char szRef[16];
            std::snprintf(szRef, sizeof szRef, "&#x%X;", unsigned(ch));
            strOut += platform::U16(szRef);
        } else if (ch == u'\'') {
            strOut += u"&apos;";
        } else if (!AppendMarkupEntity(strOut, ch)) {
            strOut += ch;
        }
    }
    return strOut;
}

std::u16string HtmlEscape(std::u16string_view strText) {
    std::u16string strOut;
    strOut.reserve(strText.size());
    for (char16_t ch : strText)
        if (!AppendMarkupEntity(strOut, ch)) strOut += ch;
    return strOut;
}

std::u16string PadLeft(std::u16string_view strText, size_t nWidth) {
    std::u16string strOut;
    if (strText.size() < nWidth) strOut.assign(nWidth - strText.size(), u' ');
    strOut += strText;
    return strOut;
}

std::u16string DecimalText(int64_t nValue) {
    char szText[24];
    const char* pEnd = std::to_chars(szText, szText + sizeof szText, nValue).ptr;
    return std::u16string(static_cast<const char*>(szText), pEnd);
}

}  // namespace zv
