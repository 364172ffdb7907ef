// Reads each input as a CRC list file and checks what every reading must
// give. The first input byte chooses the form: even the text form, odd the
// XML form; the rest is the file.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

#include "FuzzInput.h"
#include "analyses/CrcListFormats.h"
#include "platform/Text.h"

namespace {

using namespace zv;

// A checksum the list held reads back the same from both of its forms.
void CheckValueRoundTrip(const CCrcListEntry& entry) {
    if (!entry.m_bHasCrc) {
        ZV_FUZZ_CHECK(entry.m_uCrc == 0);
        return;
    }
    char szText[16];
    for (const char* pszFormat : {"%u", "0x%X", "0x%x"}) {
        std::snprintf(szText, sizeof szText, pszFormat, static_cast<unsigned>(entry.m_uCrc));
        uint32_t uValue = 0;
        ZV_FUZZ_CHECK(ParseCrcListValue(platform::U16(szText), uValue));
        ZV_FUZZ_CHECK(uValue == entry.m_uCrc);
    }
}

void FuzzText(std::string_view bytes) {
    std::vector<CCrcListEntry> aEntries(1);
    ReadCrcListText(bytes, aEntries);
    for (const CCrcListEntry& entry : aEntries) {
        // A path is one header read, stripped of its line end.
        ZV_FUZZ_CHECK(entry.m_strPath.size() <= 270);
        ZV_FUZZ_CHECK(!entry.m_strPath.starts_with(u"Directory: "));
        ZV_FUZZ_CHECK(entry.m_strPath.find(u'\n') == std::u16string::npos);
        ZV_FUZZ_CHECK(!entry.m_bMatched);
        CheckValueRoundTrip(entry);
    }
}

void FuzzXml(std::string_view bytes) {
    std::vector<CCrcListEntry> aEntries(3);
    const std::u16string strError = ReadCrcListXml(bytes, aEntries);
    if (!strError.empty()) {
        // A failed reading leaves the earlier entries alone.
        ZV_FUZZ_CHECK(aEntries.size() == 3);
        ZV_FUZZ_CHECK(strError.starts_with(u"XML Parse Error ") ||
                      strError == u"XML file has no file data");
        return;
    }
    // The walk empties the list at every node, so the last node's one
    // entry at most remains.
    ZV_FUZZ_CHECK(aEntries.size() <= 1);
    for (const CCrcListEntry& entry : aEntries) {
        ZV_FUZZ_CHECK(!entry.m_strPath.empty());
        CheckValueRoundTrip(entry);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pData, size_t nSize) {
    if (nSize == 0) return 0;
    const std::string_view bytes(reinterpret_cast<const char*>(pData + 1), nSize - 1);
    if (pData[0] & 1)
        FuzzXml(bytes);
    else
        FuzzText(bytes);
    return 0;
}
