#include "core/settings/SettingsValues.h"

#include <charconv>
#include <limits>
#include <string>

namespace zv {
namespace {

bool IsSpace(char16_t ch) { return ch == u' ' || (ch >= u'\t' && ch <= u'\r'); }
bool IsDigit(char16_t ch) { return ch >= u'0' && ch <= u'9'; }
char16_t Lower(char16_t ch) { return ch >= u'A' && ch <= u'Z' ? char16_t(ch + 32) : ch; }

std::u16string_view SkipSpace(std::u16string_view text) {
    while (!text.empty() && IsSpace(text.front())) text.remove_prefix(1);
    return text;
}

bool StartsWithNoCase(std::u16string_view text, std::u16string_view word) {
    if (text.size() < word.size()) return false;
    for (size_t i = 0; i < word.size(); ++i)
        if (Lower(text[i]) != word[i]) return false;
    return true;
}

// The longest prefix that is a decimal number, as ASCII; empty when none.
std::string NumberPrefix(std::u16string_view text) {
    std::string strNumber;
    size_t i = 0;
    auto TakeDigits = [&] {
        size_t nDigits = 0;
        for (; i < text.size() && IsDigit(text[i]); ++i, ++nDigits)
            strNumber += static_cast<char>(text[i]);
        return nDigits;
    };
    size_t nDigits = TakeDigits();
    if (i < text.size() && text[i] == u'.') {
        strNumber += '.';
        ++i;
        nDigits += TakeDigits();
    }
    if (nDigits == 0) return {};
    if (i < text.size() && (text[i] == u'e' || text[i] == u'E')) {
        size_t nExponent = i + 1;
        if (nExponent < text.size() && (text[nExponent] == u'+' || text[nExponent] == u'-'))
            ++nExponent;
        if (nExponent < text.size() && IsDigit(text[nExponent])) {
            for (; i < nExponent; ++i) strNumber += static_cast<char>(text[i]);
            TakeDigits();
        }
    }
    return strNumber;
}

}  // namespace

int32_t ParseSettingsInteger(std::u16string_view text) {
    text = SkipSpace(text);
    bool bNegative = false;
    if (!text.empty() && (text.front() == u'+' || text.front() == u'-')) {
        bNegative = text.front() == u'-';
        text.remove_prefix(1);
    }
    constexpr int64_t kMax = std::numeric_limits<int32_t>::max();
    int64_t nValue = 0;
    for (; !text.empty() && IsDigit(text.front()); text.remove_prefix(1))
        if (nValue <= kMax + 1) nValue = nValue * 10 + (text.front() - u'0');
    if (bNegative) return nValue > kMax ? std::numeric_limits<int32_t>::min() : int32_t(-nValue);
    return nValue > kMax ? std::numeric_limits<int32_t>::max() : int32_t(nValue);
}

double ParseSettingsReal(std::u16string_view text) {
    text = SkipSpace(text);
    bool bNegative = false;
    if (!text.empty() && (text.front() == u'+' || text.front() == u'-')) {
        bNegative = text.front() == u'-';
        text.remove_prefix(1);
    }
    double dValue = 0;
    if (StartsWithNoCase(text, u"inf")) {
        dValue = std::numeric_limits<double>::infinity();
    } else if (StartsWithNoCase(text, u"nan")) {
        dValue = std::numeric_limits<double>::quiet_NaN();
    } else {
        const std::string strNumber = NumberPrefix(text);
        // Out of range gives infinity or zero, as strtod does.
        if (std::from_chars(strNumber.data(), strNumber.data() + strNumber.size(), dValue).ec ==
            std::errc::result_out_of_range) {
            const bool bHuge = strNumber.find_first_of("eE") == std::string::npos ||
                               strNumber[strNumber.find_first_of("eE") + 1] != '-';
            dValue = bHuge ? std::numeric_limits<double>::infinity() : 0.0;
        }
    }
    return bNegative ? -dValue : dValue;
}

std::u16string FormatSettingsInteger(int64_t nValue) {
    const std::string strText = std::to_string(nValue);
    return std::u16string(strText.begin(), strText.end());
}

std::u16string FormatSettingsReal(double dValue) {
    char aBuffer[400];  // the largest double has 309 digits before the point
    const auto result =
        std::to_chars(aBuffer, aBuffer + sizeof aBuffer, dValue, std::chars_format::fixed, 6);
    return std::u16string(aBuffer, result.ptr);
}

}  // namespace zv
