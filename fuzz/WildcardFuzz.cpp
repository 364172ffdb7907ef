// Runs WildcardMatch on the pattern and text of each input, with and
// without escapes, and checks it against properties every answer must have.
// The first input byte chooses the escape mode.
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "FuzzInput.h"
#include "filters/WildcardMatch.h"
#include "platform/Text.h"

namespace {

using namespace zv;

// A textbook glob with full backtracking, over already upper-cased text.
bool TextbookGlob(std::u16string_view strPattern, std::u16string_view strText) {
    // aMatch[t]: the pattern so far matches the first t text characters.
    std::vector<bool> aMatch(strText.size() + 1, false);
    aMatch[0] = true;
    for (const char16_t ch : strPattern) {
        std::vector<bool> aNext(strText.size() + 1, false);
        for (size_t t = 0; t <= strText.size(); ++t) {
            if (ch == u'*')
                aNext[t] = aMatch[t] || (t > 0 && aNext[t - 1]);
            else if (t > 0)
                aNext[t] = aMatch[t - 1] && (ch == u'?' || ch == strText[t - 1]);
        }
        aMatch = std::move(aNext);
    }
    return aMatch[strText.size()];
}

// Patterns whose every "yes" a textbook glob shares: no '?' right after a
// star (it would require nothing) and no escapes.
bool AnswersLikeTextbook(std::u16string_view strPattern, bool bEscape) {
    bool bAfterStar = false;
    for (const char16_t ch : strPattern) {
        if (bEscape && ch == u'\\') return false;
        if (ch == u'?' && bAfterStar) return false;
        bAfterStar = ch == u'*' || (ch == u'?' && bAfterStar);
    }
    return true;
}

bool HasWildcards(std::u16string_view strPattern, bool bEscape) {
    for (const char16_t ch : strPattern)
        if (ch == u'*' || ch == u'?' || (bEscape && ch == u'\\')) return true;
    return false;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pData, size_t nSize) {
    if (nSize == 0) return 0;
    const bool bEscape = (pData[0] & 1) != 0;
    const fuzz::FuzzInput input = fuzz::SplitInput(pData + 1, nSize - 1);
    const std::u16string strUpperText = platform::ToUpperCopy(input.strText);

    const bool bMatch = WildcardMatch(input.strPattern, input.strText, bEscape);
    // Matching ignores the case of the text.
    ZV_FUZZ_CHECK(WildcardMatch(input.strPattern, strUpperText, bEscape) == bMatch);
    if (!HasWildcards(input.strPattern, bEscape))
        ZV_FUZZ_CHECK(bMatch == (input.strPattern == strUpperText));
    if (bMatch && AnswersLikeTextbook(input.strPattern, bEscape))
        ZV_FUZZ_CHECK(TextbookGlob(input.strPattern, strUpperText));
    if (input.strPattern == u"*") ZV_FUZZ_CHECK(bMatch);
    return 0;
}
