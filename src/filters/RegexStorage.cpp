#include "filters/RegexStorage.h"

#include <algorithm>
#include <new>

namespace zv {

char16_t* NewRegexText(std::u16string_view strText) {
    char16_t* pText = new (std::nothrow) char16_t[strText.size() + 1];
    if (pText == nullptr) return nullptr;
    std::copy(strText.begin(), strText.end(), pText);
    pText[strText.size()] = u'\0';
    return pText;
}

char16_t** NewRegexRanges(std::span<const RegexRange> aRanges) {
    char16_t** pRanges = new (std::nothrow) char16_t*[aRanges.size()]();
    if (pRanges == nullptr) return nullptr;
    for (size_t n = 0; n < aRanges.size(); ++n) {
        pRanges[n] = new (std::nothrow) char16_t[2]{aRanges[n][0], aRanges[n][1]};
        if (pRanges[n] == nullptr) {
            for (size_t nDone = 0; nDone < n; ++nDone) delete[] pRanges[nDone];
            delete[] pRanges;
            return nullptr;
        }
    }
    return pRanges;
}

void ReleaseRegexNode(CRegexNode& node) {
    delete[] node.m_pMembers;
    node.m_pMembers = nullptr;
    for (int32_t n = 0; n < node.m_nRanges; ++n) delete[] node.m_pRanges[n];
    delete[] node.m_pRanges;
    node.m_pRanges = nullptr;
    node.m_nRanges = 0;
    if (node.m_nType == REGEX_STRING) {
        delete[] node.m_pString;
        node.m_pString = nullptr;
    }
}

void RegexFree(std::span<CRegexNode> aNodes) {
    if (aNodes.empty()) return;
    for (CRegexNode& node : aNodes) {
        if (node.m_nType == REGEX_END) break;
        ReleaseRegexNode(node);
    }
    aNodes[0].m_nType = REGEX_END;
}

}  // namespace zv
