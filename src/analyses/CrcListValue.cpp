#include <cstdint>

#include "analyses/CrcListFormats.h"

namespace zv {
namespace {

int DigitValue(char16_t ch) {
    if (ch >= u'0' && ch <= u'9') return ch - u'0';
    if (ch >= u'a' && ch <= u'z') return ch - u'a' + 10;
    if (ch >= u'A' && ch <= u'Z') return ch - u'A' + 10;
    return 99;
}

bool IsBlank(char16_t ch) { return ch == u' ' || (ch >= u'\t' && ch <= u'\r'); }

// wcstoul with a 32-bit unsigned long, as on Windows.
uint32_t ToUnsigned32(std::u16string_view text, int nBase) {
    size_t i = 0;
    while (i < text.size() && IsBlank(text[i])) ++i;
    bool bNegative = false;
    if (i < text.size() && (text[i] == u'+' || text[i] == u'-')) bNegative = text[i++] == u'-';
    if (nBase == 16 && i + 1 < text.size() && text[i] == u'0' &&
        (text[i + 1] == u'x' || text[i + 1] == u'X') && i + 2 < text.size() &&
        DigitValue(text[i + 2]) < 16)
        i += 2;
    uint64_t uValue = 0;
    bool bOverflow = false;
    for (; i < text.size() && DigitValue(text[i]) < nBase; ++i) {
        uValue = uValue * unsigned(nBase) + unsigned(DigitValue(text[i]));
        if (uValue > 0xFFFFFFFFu) {
            bOverflow = true;
            uValue = 0xFFFFFFFFu;
        }
    }
    if (bOverflow) return 0xFFFFFFFFu;
    const auto uResult = static_cast<uint32_t>(uValue);
    return bNegative ? 0u - uResult : uResult;
}

}  // namespace

bool ParseCrcListValue(std::u16string_view strText, uint32_t& uValue) {
    if (strText == u"UNKNOWN") {
        uValue = 0;
        return false;
    }
    uValue = ToUnsigned32(strText, strText.starts_with(u"0x") ? 16 : 10);
    return true;
}

}  // namespace zv
