#include "app/DateArgument.h"

#include <cstdio>
#include <string>

namespace zv {

bool ParseLocalDateArgument(std::string_view strText, FILETIME& ftUtc) {
    const std::string str(strText);
    int nYear = 0, nMonth = 0, nDay = 0, nHour = 0, nMinute = 0, nSecond = 0;
    char chSeparator = 0;
    int nUsed = 0;
    if (std::sscanf(str.c_str(), "%4d-%2d-%2d%n", &nYear, &nMonth, &nDay, &nUsed) != 3 ||
        nUsed != 10)
        return false;
    if (str.size() > 10) {
        int nTimeUsed = 0;
        const int nFields = std::sscanf(str.c_str() + 10, "%c%2d:%2d%n:%2d%n", &chSeparator, &nHour,
                                        &nMinute, &nTimeUsed, &nSecond, &nTimeUsed);
        if (nFields < 3 || (chSeparator != 'T' && chSeparator != ' ') ||
            size_t(10 + nTimeUsed) != str.size()) {
            return false;
        }
    }
    SYSTEMTIME st;
    st.wYear = uint16_t(nYear);
    st.wMonth = uint16_t(nMonth);
    st.wDay = uint16_t(nDay);
    st.wHour = uint16_t(nHour);
    st.wMinute = uint16_t(nMinute);
    st.wSecond = uint16_t(nSecond);
    FILETIME ftLocal;
    return platform::SystemTimeToFileTime(st, ftLocal) &&
           platform::LocalFileTimeToFileTime(ftLocal, ftUtc);
}

}  // namespace zv
