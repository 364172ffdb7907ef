#include "platform/UserStoreText.h"

namespace zv::platform {
namespace {

constexpr std::string_view kHeader = "# Zorvane remembered state\n";

std::u16string Escape(std::u16string_view text) {
    std::u16string strOut;
    strOut.reserve(text.size());
    for (const char16_t ch : text) {
        if (ch == u'\\') {
            strOut += u"\\\\";
        } else if (ch == u'\n') {
            strOut += u"\\n";
        } else if (ch == u'\r') {
            strOut += u"\\r";
        } else {
            strOut += ch;
        }
    }
    return strOut;
}

std::u16string Unescape(std::u16string_view text) {
    std::u16string strOut;
    strOut.reserve(text.size());
    for (size_t i = 0; i < text.size(); ++i) {
        const char16_t ch = text[i];
        if (ch != u'\\' || i + 1 == text.size()) {
            strOut += ch;
            continue;
        }
        const char16_t chNext = text[++i];
        if (chNext == u'n') {
            strOut += u'\n';
        } else if (chNext == u'r') {
            strOut += u'\r';
        } else if (chNext == u'\\') {
            strOut += u'\\';
        } else {
            strOut += u'\\';  // not an escape: kept as written
            strOut += chNext;
        }
    }
    return strOut;
}

}  // namespace

std::string FormatUserStoreText(const CUserStoreValues& aValues) {
    std::string strText(kHeader);
    for (const auto& [strName, strValue] : aValues) {
        strText += Utf16ToUtf8(Escape(strName));
        strText += '=';
        strText += Utf16ToUtf8(Escape(strValue));
        strText += '\n';
    }
    return strText;
}

CUserStoreValues ParseUserStoreText(std::string_view text) {
    CUserStoreValues aValues;
    while (!text.empty()) {
        const size_t nEnd = text.find('\n');
        std::string_view line = text.substr(0, nEnd);
        text.remove_prefix(nEnd == std::string_view::npos ? text.size() : nEnd + 1);
        if (!line.empty() && line.back() == '\r') line.remove_suffix(1);  // edited elsewhere
        const size_t nEquals = line.find('=');
        if (line.empty() || line.front() == '#' || nEquals == std::string_view::npos) continue;
        aValues[Unescape(Utf8ToUtf16(line.substr(0, nEquals)))] =
            Unescape(Utf8ToUtf16(line.substr(nEquals + 1)));
    }
    return aValues;
}

}  // namespace zv::platform
