// Compiles the pattern into an array of exactly the usual capacity on the
// heap (so that AddressSanitizer sees any write past it), matches the text,
// and checks what holds for every pattern and text.
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "FuzzInput.h"
#include "filters/Regex.h"

namespace {

using namespace zv;

// The compiled nodes up to the end node are well formed.
void CheckNodes(const std::vector<CRegexNode>& aNodes) {
    size_t nEnd = 0;
    while (nEnd < aNodes.size() && aNodes[nEnd].m_nType != REGEX_END) ++nEnd;
    ZV_FUZZ_CHECK(nEnd < aNodes.size());
    for (size_t n = 0; n < nEnd; ++n) {
        const CRegexNode& node = aNodes[n];
        ZV_FUZZ_CHECK(node.m_nType == REGEX_CHAR || node.m_nType == REGEX_EOL ||
                      node.m_nType == REGEX_SET || node.m_nType == REGEX_STRING);
        ZV_FUZZ_CHECK(!(node.m_bStar && node.m_bPlus));
        ZV_FUZZ_CHECK(n == 0 || !node.m_bAnchored);
        ZV_FUZZ_CHECK(node.m_nType != REGEX_EOL || n + 1 == nEnd);
        if (node.m_nType == REGEX_STRING)
            ZV_FUZZ_CHECK(node.m_pString != nullptr && node.m_pString[0] != u'\0');
        if (node.m_nType == REGEX_SET) {
            const bool bHasMembers = node.m_pMembers != nullptr && node.m_pMembers[0] != u'\0';
            ZV_FUZZ_CHECK(bHasMembers || node.m_nRanges > 0);
            ZV_FUZZ_CHECK((node.m_nRanges > 0) == (node.m_pRanges != nullptr));
        }
        if (node.m_pStopAt != nullptr) {
            ZV_FUZZ_CHECK(node.m_nType == REGEX_SET && node.m_bNegated);
            ZV_FUZZ_CHECK(node.m_pStopAt > &node && node.m_pStopAt < &aNodes[nEnd]);
        }
    }
}

// A pattern of letters and digits only is found at its first occurrence.
bool IsLiteral(const std::u16string& strPattern) {
    if (strPattern.empty()) return false;
    for (const char16_t ch : strPattern)
        if (!((ch >= u'a' && ch <= u'z') || (ch >= u'A' && ch <= u'Z') ||
              (ch >= u'0' && ch <= u'9')))
            return false;
    return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pData, size_t nSize) {
    const fuzz::FuzzInput input = fuzz::SplitInput(pData, nSize);

    std::vector<CRegexNode> aNodes(REGEX_MAX_NODES);
    std::u16string strError;
    const bool bCompiled = RegexCompile(input.strPattern, aNodes, strError);
    ZV_FUZZ_CHECK(bCompiled == strError.empty());

    if (bCompiled) {
        CheckNodes(aNodes);
        int nStart = 0;
        int nEnd = 0;
        const int nLength = static_cast<int>(input.strText.size());
        if (RegexMatch(aNodes, input.strText, nStart, nEnd)) {
            ZV_FUZZ_CHECK(nStart >= 0 && nStart <= nLength);
            ZV_FUZZ_CHECK(nEnd >= nStart - 1 && nEnd < nLength);
            if (aNodes[0].m_bAnchored) ZV_FUZZ_CHECK(nStart == 0);
        }
        if (IsLiteral(input.strPattern)) {
            const size_t nFound = input.strText.find(input.strPattern);
            const bool bMatched = RegexMatch(aNodes, input.strText, nStart, nEnd);
            ZV_FUZZ_CHECK(bMatched == (nFound != std::u16string::npos));
            if (bMatched) {
                ZV_FUZZ_CHECK(nStart == static_cast<int>(nFound));
                ZV_FUZZ_CHECK(nEnd == nStart + static_cast<int>(input.strPattern.size()) - 1);
            }
        }
    }

    RegexFree(aNodes);
    ZV_FUZZ_CHECK(aNodes[0].m_nType == REGEX_END);
    RegexFree(aNodes);
    return 0;
}
