#include "reports/AutoPrintNames.h"

#include <cstdio>

#include "core/document/PrintSettings.h"
#include "platform/FileTime.h"
#include "platform/Text.h"

namespace zv {
namespace {

bool EndsWithNoCase(std::u16string_view strName, std::u16string_view strEnd) {
    if (strName.size() < strEnd.size()) return false;
    const std::u16string_view strTail = strName.substr(strName.size() - strEnd.size());
    for (size_t i = 0; i < strEnd.size(); ++i) {
        char16_t c = strTail[i];
        if (c >= u'a' && c <= u'z') c = char16_t(c - u'a' + u'A');
        if (c != strEnd[i]) return false;
    }
    return true;
}

}  // namespace

std::u16string CheckAutoPrintExtension(std::u16string_view strPrefix, int nType,
                                       std::u16string_view strName) {
    const char16_t* pszAdvice = nullptr;
    switch (nType) {
        case PrintTypeText:
            if (!EndsWithNoCase(strName, u".TXT"))
                pszAdvice = u"Text files should have a .txt extension\nDo you want to correct it?";
            break;
        case PrintTypeExcel:
            if (!EndsWithNoCase(strName, u".CSV"))
                pszAdvice = u"Excel files should have a .csv extension\nDo you want to correct it?";
            break;
        case PrintTypeHtml:
            if (!EndsWithNoCase(strName, u".HTM") && !EndsWithNoCase(strName, u".HTML"))
                pszAdvice =
                    u"HTML files should have a .htm or .html extension\nDo you want to correct it?";
            break;
        case PrintTypeXml:
            // Only the letters: "report_xml" passes.
            if (!EndsWithNoCase(strName, u"XML"))
                pszAdvice = u"XML files should have an .xml extension\nDo you want to correct it?";
            break;
        default:
            break;
    }
    if (!pszAdvice) return {};
    return std::u16string(strPrefix) + std::u16string(strName) + u"\n" + pszAdvice;
}

std::u16string DateStamp() {
    FILETIME ftLocal{};
    SYSTEMTIME st;
    if (!platform::FileTimeToLocalFileTime(platform::GetSystemTimeAsFileTime(), ftLocal) ||
        !platform::FileTimeToSystemTime(ftLocal, st))
        return {};
    char szStamp[32];
    std::snprintf(szStamp, sizeof szStamp, "_%d_%02d_%02d", int(st.wYear), int(st.wMonth),
                  int(st.wDay));
    return platform::U16(szStamp);
}

std::u16string AppendDateToName(std::u16string_view strName) {
    return AppendDateToName(strName, DateStamp());
}

std::u16string AppendDateToName(std::u16string_view strName, std::u16string_view strStamp) {
    std::u16string strOut(strName);
    const size_t nDot = strOut.rfind(u'.');
    strOut.insert(nDot == std::u16string::npos ? strOut.size() : nDot, strStamp);
    return strOut;
}

}  // namespace zv
