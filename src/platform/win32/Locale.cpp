#include <windows.h>

#include "platform/FileSystem.h"

namespace zv::platform {

// Read once per process: one character of HKEY_CURRENT_USER\Control
// Panel\International\sThousand; ',' when it cannot be read.
char16_t GetThousandsSeparator() {
    static const char16_t s_chSeparator = [] {
        HKEY hKey = nullptr;
        if (::RegOpenKeyExW(HKEY_CURRENT_USER, L"Control Panel\\International", 0, KEY_READ,
                            &hKey) != ERROR_SUCCESS) {
            return u',';
        }
        wchar_t aValue[2] = {0, 0};
        DWORD dwSize = sizeof(wchar_t);
        const LONG nResult = ::RegQueryValueExW(hKey, L"sThousand", nullptr, nullptr,
                                                reinterpret_cast<BYTE*>(aValue), &dwSize);
        ::RegCloseKey(hKey);
        return nResult == ERROR_SUCCESS && aValue[0] ? static_cast<char16_t>(aValue[0]) : u',';
    }();
    return s_chSeparator;
}

}  // namespace zv::platform

#include <oleauto.h>

#include "platform/DateLocale.h"

namespace zv::platform {

namespace {

bool ReadLocaleValue(LCTYPE type, std::u16string& strValue) {
    wchar_t aBuffer[100];
    const int nLength = ::GetLocaleInfoW(LOCALE_USER_DEFAULT, type, aBuffer, 100);
    if (nLength <= 0) return false;
    strValue.assign(reinterpret_cast<const char16_t*>(aBuffer), size_t(nLength - 1));
    return true;
}

}  // namespace

bool ReadDateLocale(CDateLocale& locale) {
    return ReadLocaleValue(LOCALE_STIME, locale.m_strTimeSeparator) &&
           ReadLocaleValue(LOCALE_SDATE, locale.m_strDateSeparator) &&
           ReadLocaleValue(LOCALE_STIMEFORMAT, locale.m_strTimeFormat) &&
           ReadLocaleValue(LOCALE_IDATE, locale.m_strDateOrder) &&
           ReadLocaleValue(LOCALE_ITIME, locale.m_strTime24) &&
           ReadLocaleValue(LOCALE_ICENTURY, locale.m_strCentury) &&
           ReadLocaleValue(LOCALE_IDAYLZERO, locale.m_strDayLeadingZero) &&
           ReadLocaleValue(LOCALE_IMONLZERO, locale.m_strMonthLeadingZero) &&
           ReadLocaleValue(LOCALE_S1159, locale.m_strAm) &&
           ReadLocaleValue(LOCALE_S2359, locale.m_strPm);
}

bool FormatDateSerial(const SYSTEMTIME& stLocal, std::u16string& strText) {
    ::SYSTEMTIME st{};
    st.wYear = stLocal.wYear;
    st.wMonth = stLocal.wMonth;
    st.wDay = stLocal.wDay;
    st.wDayOfWeek = stLocal.wDayOfWeek;
    st.wHour = stLocal.wHour;
    st.wMinute = stLocal.wMinute;
    st.wSecond = stLocal.wSecond;
    DOUBLE dSerial = 0;
    if (!::SystemTimeToVariantTime(&st, &dSerial)) return false;
    BSTR bstr = nullptr;
    if (FAILED(::VarBstrFromDate(dSerial, LOCALE_USER_DEFAULT, 0, &bstr)) || !bstr) return false;
    strText.assign(reinterpret_cast<const char16_t*>(bstr), ::SysStringLen(bstr));
    ::SysFreeString(bstr);
    return true;
}

}  // namespace zv::platform
