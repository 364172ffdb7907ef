#include "core/settings/SettingsText.h"

#include "platform/Text.h"

namespace zv {
namespace {

bool IsTrailingSpace(char16_t ch) {
    return ch == u' ' || ch == u'\t' || ch == u'\n' || ch == u'\r' || ch == u'\v' || ch == u'\f';
}

}  // namespace

std::vector<std::u16string> SplitSettingsLines(std::u16string_view text) {
    std::vector<std::u16string> aLines;
    while (!text.empty()) {
        // One read: up to the line end (taken with it) or up to the limit.
        size_t nTake = text.find(u'\n');
        nTake = nTake == std::u16string_view::npos ? text.size() : nTake + 1;
        if (nTake > kSettingsLineLimit) nTake = kSettingsLineLimit;
        std::u16string_view line = text.substr(0, nTake);
        text.remove_prefix(nTake);
        line = line.substr(0, line.find(u'\0'));  // the line is a C string
        while (!line.empty() && IsTrailingSpace(line.back())) line.remove_suffix(1);
        aLines.emplace_back(line);
    }
    return aLines;
}

std::string EncodeSettingsText(const std::vector<std::u16string>& aLines) {
    std::string strBytes("\xFF\xFE");
    auto Put = [&strBytes](char16_t ch) {
        strBytes += static_cast<char>(ch & 0xFF);
        strBytes += static_cast<char>(ch >> 8);
    };
    for (const std::u16string& strLine : aLines) {
        for (const char16_t ch : strLine) Put(ch);
        Put(u'\r');
        Put(u'\n');
    }
    return strBytes;
}

}  // namespace zv
