#include "core/settings/TextFile.h"

#include "platform/Text.h"

namespace zv {
namespace {

std::u16string DecodeUtf16(std::string_view bytes, bool bBigEndian) {
    std::u16string strText;
    strText.reserve(bytes.size() / 2);
    for (size_t i = 0; i + 1 < bytes.size(); i += 2) {  // an odd last byte is dropped
        const auto uFirst = static_cast<unsigned char>(bytes[i]);
        const auto uSecond = static_cast<unsigned char>(bytes[i + 1]);
        strText += bBigEndian ? char16_t(uFirst << 8 | uSecond) : char16_t(uSecond << 8 | uFirst);
    }
    return strText;
}

}  // namespace

std::u16string DecodeTextFile(std::string_view bytes) {
    std::u16string strText;
    if (bytes.starts_with("\xFF\xFE")) {
        strText = DecodeUtf16(bytes.substr(2), false);
    } else if (bytes.starts_with("\xFE\xFF")) {
        strText = DecodeUtf16(bytes.substr(2), true);
    } else {
        if (bytes.starts_with("\xEF\xBB\xBF")) bytes.remove_prefix(3);
        strText = platform::Utf8ToUtf16(bytes);
    }
    // Text mode: a CR before an LF goes; a lone CR stays.
    std::u16string strOut;
    strOut.reserve(strText.size());
    for (size_t i = 0; i < strText.size(); ++i)
        if (!(strText[i] == u'\r' && i + 1 < strText.size() && strText[i + 1] == u'\n'))
            strOut += strText[i];
    return strOut;
}

}  // namespace zv
