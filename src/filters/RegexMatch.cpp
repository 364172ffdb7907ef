#include "filters/Regex.h"

namespace zv {

namespace {

bool InSet(const CRegexNode& node, char16_t ch) {
    if (node.m_pMembers != nullptr)
        for (const char16_t* p = node.m_pMembers; *p != u'\0'; ++p)
            if (*p == ch) return true;
    for (int32_t n = 0; n < node.m_nRanges; ++n)
        if (node.m_pRanges[n][0] <= ch && ch <= node.m_pRanges[n][1]) return true;
    return false;
}

// Length of the element's match at nPos, 0 when it does not match there.
size_t ElementLength(const CRegexNode& node, std::u16string_view strText, size_t nPos) {
    switch (node.m_nType) {
        case REGEX_CHAR:
            return strText[nPos] == node.m_uChar ? 1 : 0;
        case REGEX_SET:
            return InSet(node, strText[nPos]) != static_cast<bool>(node.m_bNegated) ? 1 : 0;
        case REGEX_STRING: {
            const std::u16string_view strGroup =
                node.m_pString != nullptr ? node.m_pString : std::u16string_view();
            return strText.substr(nPos).starts_with(strGroup) ? strGroup.size() : 0;
        }
        default:
            return 0;
    }
}

enum class EStep { NextNode, Restarted, Failed };

// One left-to-right search. m_nBase is the current start candidate; a
// restart moves it on by one and walks the pattern again from there.
class CRegexMatcher {
public:
    CRegexMatcher(std::span<const CRegexNode> aNodes, std::u16string_view strText, int& nStart)
        : m_aNodes(aNodes), m_strText(strText), m_nStart(nStart) {}

    bool Match(int& nEnd) {
        while (m_nPos < m_strText.size()) {
            if (m_nNode >= m_aNodes.size()) return false;  // no end node
            const CRegexNode& node = m_aNodes[m_nNode];
            EStep step;
            if (node.m_nType == REGEX_END) {
                // Whatever text remains.
                nEnd = static_cast<int>(m_nPos) - 1;
                return true;
            } else if (node.m_nType == REGEX_EOL) {
                step = Restart(true);  // text is left after the end of line
            } else if (node.m_bPlus) {
                step = MatchPlus(node);
            } else if (node.m_bStar) {
                step = MatchStar(node);
            } else {
                step = MatchOnce(node);
            }
            if (step == EStep::Failed) return false;
            if (step == EStep::NextNode) ++m_nNode;
        }
        // The text is used up; an element left over fails, even a starred one.
        if (m_nNode >= m_aNodes.size()) return false;
        const int32_t nType = m_aNodes[m_nNode].m_nType;
        if (nType != REGEX_END && nType != REGEX_EOL) return false;
        nEnd = static_cast<int>(m_nPos) - 1;
        return true;
    }

private:
    bool Anchored(const CRegexNode& node) const { return node.m_bAnchored || m_bAnchorDeferred; }
    size_t LengthHere(const CRegexNode& node) const {
        return ElementLength(node, m_strText, m_nPos);
    }
    // A negated set's repetition ends where the element after it matches.
    bool StopsHere(const CRegexNode& node) const {
        return node.m_nType == REGEX_SET && node.m_bNegated && node.m_pStopAt != nullptr &&
               LengthHere(*node.m_pStopAt) > 0;
    }

    EStep Restart(bool bIgnoreAnchor) {
        if (!bIgnoreAnchor && m_aNodes[0].m_bAnchored) return EStep::Failed;
        ++m_nBase;
        m_nStart = static_cast<int>(m_nBase);
        m_nPos = m_nBase;
        m_nNode = 0;
        m_bAnchorDeferred = false;
        return EStep::Restarted;
    }

    EStep MatchOnce(const CRegexNode& node) {
        if (Anchored(node)) {
            if (m_nPos != 0) return EStep::Failed;
            const size_t nLength = LengthHere(node);
            if (nLength == 0) return EStep::Failed;
            m_nPos = nLength;
            m_bAnchorDeferred = false;
            return EStep::NextNode;
        }
        const size_t nLength = LengthHere(node);
        if (nLength == 0) return Restart(false);
        m_nPos += nLength;
        return EStep::NextNode;
    }

    EStep MatchPlus(const CRegexNode& node) {
        if (Anchored(node) && m_nPos != 0) return EStep::Failed;
        size_t nCount = 0;
        while (m_nPos < m_strText.size()) {
            if (nCount > 0 && StopsHere(node)) break;
            const size_t nLength = LengthHere(node);
            if (nLength == 0) {
                if (nCount == 0) return Restart(false);
                break;
            }
            m_nPos += nLength;
            ++nCount;
        }
        m_bAnchorDeferred = false;
        return EStep::NextNode;
    }

    // An anchored repetition that matches nothing at position 0 hands its
    // anchor on to the next element.
    EStep MatchStar(const CRegexNode& node) {
        const bool bAnchored = Anchored(node);
        size_t nCount = 0;
        if (!bAnchored || m_nPos == 0) {
            while (m_nPos < m_strText.size() && !StopsHere(node)) {
                const size_t nLength = LengthHere(node);
                if (nLength == 0) break;
                m_nPos += nLength;
                ++nCount;
            }
        }
        m_bAnchorDeferred = bAnchored && nCount == 0;
        return EStep::NextNode;
    }

    std::span<const CRegexNode> m_aNodes;
    std::u16string_view m_strText;
    int& m_nStart;
    size_t m_nBase = 0;
    size_t m_nPos = 0;
    size_t m_nNode = 0;
    bool m_bAnchorDeferred = false;
};

}  // namespace

bool RegexMatch(std::span<const CRegexNode> aNodes, std::u16string_view strText, int& nStart,
                int& nEnd) {
    nStart = 0;
    nEnd = 0;
    if (aNodes.empty()) return false;
    if (strText.empty()) {
        const int32_t nType = aNodes[0].m_nType;
        if (nType != REGEX_END && nType != REGEX_EOL) return false;
        nEnd = -1;
        return true;
    }
    return CRegexMatcher(aNodes, strText, nStart).Match(nEnd);
}

}  // namespace zv
