#include "filters/WildcardMatch.h"

#include <iterator>
#include <string>

#include "platform/Text.h"

namespace zv {

namespace {

enum class EStarOutcome { Match, NoMatch, Continue };

// Handles the '*' at nPattern. On Continue, nPattern and nText hold where the
// main walk goes on.
EStarOutcome MatchAfterStar(std::u16string_view strPattern, std::u16string_view strText,
                            size_t& nPattern, size_t& nText) {
    // Stars and question marks right after a star require nothing.
    while (nPattern < strPattern.size() &&
           (strPattern[nPattern] == u'*' || strPattern[nPattern] == u'?'))
        ++nPattern;
    if (nPattern == strPattern.size()) return EStarOutcome::Match;

    const char16_t chFirst = strPattern[nPattern];
    for (;; ++nText) {
        while (nText < strText.size() && strText[nText] != chFirst) ++nText;
        if (nText == strText.size()) return EStarOutcome::NoMatch;

        // Literal comparison up to the next star or the end of either text.
        size_t nP = nPattern;
        size_t nT = nText;
        while (nP < strPattern.size() && nT < strText.size() && strPattern[nP] != u'*' &&
               strPattern[nP] == strText[nT]) {
            ++nP;
            ++nT;
        }
        const bool bAtStar =
            nP < strPattern.size() && nT < strText.size() && strPattern[nP] == u'*';
        if (bAtStar && nP + 1 == strPattern.size()) return EStarOutcome::Match;
        if (bAtStar || nP == strPattern.size() || nT == strText.size()) {
            // The first full hit is final: the scan never resumes.
            nPattern = nP;
            nText = nT;
            return EStarOutcome::Continue;
        }
        // A difference: try the next text position.
    }
}

}  // namespace

bool WildcardMatch(std::u16string_view strPattern, std::u16string_view strText, bool bEscape) {
    if (strPattern.empty()) return strText.empty();
    // Names are short: upper-cased on the stack, as this runs for every row
    // of a report.
    char16_t aStack[256];
    std::u16string strHeap;
    char16_t* pUpper = aStack;
    if (strText.size() > std::size(aStack)) {
        strHeap.resize(strText.size());
        pUpper = strHeap.data();
    }
    for (size_t i = 0; i < strText.size(); ++i) pUpper[i] = platform::ToUpper(strText[i]);
    return WildcardMatchUpper(strPattern, std::u16string_view(pUpper, strText.size()), bEscape);
}

bool WildcardMatchUpper(std::u16string_view strPattern, std::u16string_view strUpper,
                        bool bEscape) {
    if (strPattern.empty()) return strUpper.empty();
    size_t nPattern = 0;
    size_t nText = 0;
    while (nText < strUpper.size()) {
        if (nPattern == strPattern.size()) return false;  // pattern used up, text left

        const char16_t ch = strPattern[nPattern];
        if (ch == u'*') {
            const EStarOutcome outcome = MatchAfterStar(strPattern, strUpper, nPattern, nText);
            if (outcome != EStarOutcome::Continue) return outcome == EStarOutcome::Match;
            continue;
        }
        if (ch == u'\\' && bEscape) {
            if (++nPattern == strPattern.size()) return false;
            if (strPattern[nPattern] != strUpper[nText]) return false;
        } else if (ch != u'?' && ch != strUpper[nText]) {
            return false;
        }
        ++nPattern;
        ++nText;
    }
    // The text is used up: only a single trailing star may be left.
    const size_t nLeft = strPattern.size() - nPattern;
    return nLeft == 0 || (nLeft == 1 && strPattern[nPattern] == u'*');
}

}  // namespace zv
