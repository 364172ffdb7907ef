#include "analyses/DuplicateTrace.h"

#include <cstdlib>
#include <cstring>

#include "platform/FileContents.h"
#include "platform/Text.h"

namespace zv {

std::u16string ElapsedText(double dSeconds) {
    long long nRest = static_cast<long long>(dSeconds);
    const long long nDays = nRest / 86400;
    nRest %= 86400;
    const long long aParts[4] = {nDays, nRest / 3600, nRest % 3600 / 60, nRest % 60};
    const char* aUnits[4] = {" days", " hours", " minutes", " seconds"};
    std::string strText = " (time = ";
    for (int i = 0; i < 4; ++i)
        if (aParts[i] != 0) {
            strText += ' ';
            strText += std::to_string(aParts[i]);
            strText += aUnits[i];
        }
    return platform::U16(strText + ")");
}

CDuplicateTrace::CDuplicateTrace(bool bUnicode) : m_bUnicode(bUnicode) {
    const char* pszValue = std::getenv("ZorvaneDupTracing");
    m_bOn = pszValue && std::strcmp(pszValue, "1") == 0;
    if (m_bOn) Flush();  // the file exists, empty, from the start
}

const char16_t* CDuplicateTrace::Path() {
#ifdef _WIN32
    return u"c:\\temp\\ZorvaneDupTracing.txt";
#else
    return u"/tmp/ZorvaneDupTracing.txt";
#endif
}

void CDuplicateTrace::Write(std::u16string_view strText) {
    if (m_bOn) m_strText += strText;
}

void CDuplicateTrace::Flush() {
    if (!m_bOn) return;
    std::string strBytes;
    if (m_bUnicode) {
        strBytes = "\xFF\xFE";
        for (char16_t ch : m_strText) {
            strBytes += static_cast<char>(ch & 0xFF);
            strBytes += static_cast<char>(ch >> 8);
        }
    } else {
        strBytes = platform::Utf16ToUtf8(m_strText);
    }
    platform::WriteFileContents(Path(), strBytes);
}

}  // namespace zv
