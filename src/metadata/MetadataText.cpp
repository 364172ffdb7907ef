#include "metadata/MetadataText.h"

#include <charconv>
#include <cmath>
#include <cstdarg>
#include <cstdio>

namespace zv {
namespace {

// 0x80..0x9F of Windows-1252; the five unassigned bytes map to themselves,
// as the Windows conversion maps them.
constexpr char16_t kCp1252High[32] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

std::u16string Ascii(const char* psz) {
    std::u16string str;
    for (; *psz; ++psz) str += char16_t(static_cast<unsigned char>(*psz));
    return str;
}

}  // namespace

std::u16string NarrowText(const unsigned char* pBytes, size_t uSize) {
    std::u16string str;
    for (size_t n = 0; n < uSize && pBytes[n]; ++n) {
        const unsigned char c = pBytes[n];
        str += c >= 0x80 && c < 0xA0 ? kCp1252High[c - 0x80] : char16_t(c);
    }
    return str;
}

std::u16string NarrowText(std::string_view bytes) {
    return NarrowText(reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size());
}

std::u16string WideText(const unsigned char* pBytes, size_t uSize) {
    std::u16string str;
    for (size_t n = 0; n + 1 < uSize; n += 2) {
        const char16_t c = char16_t(pBytes[n] | pBytes[n + 1] << 8);
        if (!c) break;
        str += c;
    }
    return str;
}

std::u16string FormatText(const char* pszFormat, ...) {
    char szText[128];
    va_list args;
    va_start(args, pszFormat);
    std::vsnprintf(szText, sizeof szText, pszFormat, args);
    va_end(args);
    return Ascii(szText);
}

std::u16string FormatFixed(double d, int nDecimals) {
    if (std::isnan(d)) return u"nan";
    if (std::isinf(d)) return d < 0 ? u"-inf" : u"inf";
    // Wider than any buffer: the digits of huge values are of no interest.
    if (std::fabs(d) >= 1e30) return FormatText("%.*e", nDecimals, d);
    return FormatText("%.*f", nDecimals, d);
}

void TrimRight(std::u16string& str) {
    while (!str.empty() && (str.back() == u' ' || (str.back() >= u'\t' && str.back() <= u'\r')))
        str.pop_back();
}

std::u16string FormatDuration(double dSeconds) {
    if (!std::isfinite(dSeconds) || dSeconds < 0 || dSeconds >= 1e15) {
        // An AVI of scale 0 comes here: the text says what the number is.
        const std::u16string strValue = FormatFixed(dSeconds, 0);
        return strValue + u":" + strValue + u":" + strValue;
    }
    const int64_t nTotal = static_cast<int64_t>(dSeconds);
    const int64_t nHours = nTotal / 3600;
    return Ascii(std::to_string(nHours).c_str()) +
           FormatText(":%02d:%02d", int((nTotal % 3600) / 60), int(nTotal % 60));
}

void AppendDecimal(std::u16string& str, uint64_t uValue, int nMinWidth) {
    char szDigits[24];
    const char* pEnd = std::to_chars(szDigits, szDigits + sizeof szDigits, uValue).ptr;
    for (int n = int(pEnd - szDigits); n < nMinWidth; ++n) str += u'0';
    for (const char* p = szDigits; p != pEnd; ++p) str += char16_t(*p);
}

std::u16string SystemTimeText(const SYSTEMTIME& st, bool bWithTime) {
    // Written digit by digit: a report prints three dates a row.
    std::u16string str;
    str.reserve(bWithTime ? 24 : 10);
    AppendDecimal(str, st.wMonth, 2);
    str += u'/';
    AppendDecimal(str, st.wDay, 2);
    str += u'/';
    AppendDecimal(str, st.wYear, 4);
    if (bWithTime) {
        str += u' ';
        AppendDecimal(str, st.wHour % 12 == 0 ? 12u : st.wHour % 12u, 2);
        str += u':';
        AppendDecimal(str, st.wMinute, 2);
        str += u':';
        AppendDecimal(str, st.wSecond, 2);
        str += st.wHour < 12 ? u": AM" : u": PM";
    }
    return str;
}

std::u16string DateText(FILETIME ftUtc, bool bWithTime) {
    if (IsZero(ftUtc)) return u"(unknown)";
    FILETIME ftLocal;
    SYSTEMTIME st;
    if (!platform::FileTimeToLocalFileTime(ftUtc, ftLocal) ||
        !platform::FileTimeToSystemTime(ftLocal, st))
        return {};
    return SystemTimeText(st, bWithTime);
}

void AddValue(MetadataValueList& aValues, EMetadataGroup eGroup, int32_t nFieldId,
              std::u16string strValue) {
    const MetadataFieldDef* pDef = MetadataTable(eGroup).Find(nFieldId);
    if (!pDef) return;
    aValues.push_back(MetadataValue{pDef, std::move(strValue)});
}

}  // namespace zv
