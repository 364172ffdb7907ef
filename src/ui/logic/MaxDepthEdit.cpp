#include "ui/logic/MaxDepthEdit.h"

#include <algorithm>
#include <limits>

#include "platform/Text.h"

namespace zv {

std::u16string MaxDepthText(int32_t nDepth) {
    if (nDepth == -1) return std::u16string(kNoDepthText);
    return platform::U16(std::to_string(nDepth));
}

int32_t ReadLeadingNumber(std::u16string_view strText) {
    size_t i = 0;
    while (i < strText.size() &&
           (strText[i] == u' ' || (strText[i] >= u'\t' && strText[i] <= u'\r')))
        ++i;
    bool bNegative = false;
    if (i < strText.size() && (strText[i] == u'-' || strText[i] == u'+'))
        bNegative = strText[i++] == u'-';
    int64_t nValue = 0;
    constexpr int64_t nLimit = int64_t{std::numeric_limits<int32_t>::max()} + 1;
    for (; i < strText.size() && strText[i] >= u'0' && strText[i] <= u'9'; ++i)
        nValue = std::min(nValue * 10 + (strText[i] - u'0'), nLimit);
    if (bNegative) return static_cast<int32_t>(-nValue);
    return static_cast<int32_t>(std::min<int64_t>(nValue, std::numeric_limits<int32_t>::max()));
}

std::u16string ParseMaxDepth(std::u16string_view strText, bool bNoLimit, int32_t& nDepth) {
    const int32_t nValue = bNoLimit ? -1 : ReadLeadingNumber(strText);
    if (nValue < -1) return u"Maximum depth must be >= 0\n-1 means no limit";
    nDepth = nValue;
    return {};
}

}  // namespace zv
