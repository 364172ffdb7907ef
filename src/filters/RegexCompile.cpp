#include <new>
#include <string>
#include <vector>

#include "filters/Regex.h"
#include "filters/RegexStorage.h"

namespace zv {

namespace {

// The range of the any-character set: its start lies above its end, so no
// character is in it and the negated set matches every one.
constexpr RegexRange ANY_CHARACTER_RANGE = {0x7F, 0x00};

constexpr std::u16string_view NOT_ENOUGH_MEMORY = u"Not enough memory";

enum class EStep { Next, Finished, Failed };

std::u16string TooLongMessage(size_t nMaxElements) {
    std::u16string strMessage = u"Pattern too long (at most ";
    for (const char ch : std::to_string(nMaxElements)) strMessage += static_cast<char16_t>(ch);
    return strMessage + u" elements)";
}

// One pass over the pattern. m_nPos is the pattern character being handled
// and m_nNode the node the next element goes into (or the open [] or {}
// group); a step that consumes more than one character moves m_nPos past
// all but the last of them.
class CRegexCompiler {
public:
    CRegexCompiler(std::u16string_view strPattern, std::span<CRegexNode> aNodes,
                   std::u16string& strError)
        : m_strPattern(strPattern), m_aNodes(aNodes), m_strError(strError) {}

    bool Compile() {
        try {
            for (;; ++m_nPos) {
                const EStep step = Step();
                if (step != EStep::Next) return step == EStep::Finished;
            }
        } catch (const std::bad_alloc&) {
            Fail(NOT_ENOUGH_MEMORY);
            return false;
        }
    }

private:
    EStep Step() {
        if (m_nPos == m_strPattern.size()) return OnEnd();
        const char16_t ch = m_strPattern[m_nPos];
        switch (ch) {
            case u'\\':
                return OnEscape();
            case u'.':
                return OnDot();
            case u'*':
                return m_nPos == 0 ? OnLeadingStar() : OnStar();
            case u'+':
                return OnPlus();
            case u'^':
                return OnCaret();
            case u'$':
                return OnDollar();
            case u'[':
                return OnOpenSet();
            case u']':
                return OnCloseSet();
            case u'{':
                return OnOpenString();
            case u'}':
                return OnCloseString();
            case u'-':
                return OnDash();
            default:
                return OnOrdinary(ch);
        }
    }

    bool IsLast() const { return m_nPos + 1 == m_strPattern.size(); }
    bool NextIs(char16_t ch) const {
        return m_nPos + 1 < m_strPattern.size() && m_strPattern[m_nPos + 1] == ch;
    }
    CRegexNode& Current() { return m_aNodes[m_nNode]; }

    // The current node ends the pattern.
    EStep Finish() {
        Current() = CRegexNode{};
        Current().m_nType = REGEX_END;
        return EStep::Finished;
    }

    EStep Fail(std::u16string_view strMessage) {
        m_strError = strMessage;
        Finish();
        return EStep::Failed;
    }

    // Starts an element in the current node, which takes over a pending
    // anchor. Fails when the end node would no longer fit after it.
    bool StartNode(int32_t nType) {
        if (m_nNode + 1 >= m_aNodes.size()) {
            Fail(TooLongMessage(m_aNodes.size() - 1));
            return false;
        }
        Current() = CRegexNode{};
        Current().m_nType = nType;
        Current().m_bAnchored = m_bAnchorPending ? 1 : 0;
        m_bAnchorPending = false;
        return true;
    }

    // Gives the negated sets directly before the finished element, back to
    // the first one that already has an end, their end of repetition.
    void Link(size_t nFinished) {
        CRegexNode* pFinished = &m_aNodes[nFinished];
        for (size_t n = nFinished; n-- > 0;) {
            CRegexNode& node = m_aNodes[n];
            if (node.m_nType != REGEX_SET || !node.m_bNegated || node.m_pStopAt != nullptr) break;
            node.m_pStopAt = pFinished;
        }
    }

    // The element a '*' or '+' repeats, or null when there is none.
    CRegexNode* RepeatableElement() {
        if (m_nNode == 0) return nullptr;
        CRegexNode& previous = m_aNodes[m_nNode - 1];
        const bool bRepeatable = previous.m_nType == REGEX_CHAR || previous.m_nType == REGEX_SET ||
                                 previous.m_nType == REGEX_STRING;
        return bRepeatable ? &previous : nullptr;
    }

    EStep AddAnyCharacterSet(bool bPlus) {
        if (!StartNode(REGEX_SET)) return EStep::Failed;
        CRegexNode& node = Current();
        node.m_bNegated = 1;
        node.m_bPlus = bPlus ? 1 : 0;
        node.m_pRanges = NewRegexRanges({&ANY_CHARACTER_RANGE, 1});
        if (node.m_pRanges == nullptr) return Fail(NOT_ENOUGH_MEMORY);
        node.m_nRanges = 1;
        ++m_nNode;
        return EStep::Next;
    }

    EStep OnEnd() {
        if (m_bInString) return Fail(u"Missing }");
        if (m_bInSet) return Fail(u"Missing ]");
        return Finish();
    }

    EStep OnEscape() {
        if (IsLast()) return Fail(u"Unexpected end of string (after \\)");
        ++m_nPos;
        char16_t ch = m_strPattern[m_nPos];
        if (ch == u't')
            ch = u'\t';
        else if (ch == u'f')
            ch = u'\f';
        return OnOrdinary(ch);
    }

    EStep OnDot() {
        if (m_bInSet) return Fail(u". not allowed in [] group (use \\.)");
        if (m_bInString) return Fail(u". not allowed in {} group (use \\.)");
        if (IsLast()) return Fail(u". must not be last character (use \\.)");
        return AddAnyCharacterSet(false);
    }

    // A leading star is one or more of any character; alone (or before '$')
    // it matches every text with an empty match at its start.
    EStep OnLeadingStar() {
        if (IsLast() || NextIs(u'$')) return Finish();
        if (NextIs(u'*')) return Fail(u"** is not allowed");
        if (NextIs(u'.')) return Fail(u"*. is not allowed use \\.");
        return AddAnyCharacterSet(true);
    }

    EStep OnStar() {
        if (m_bInSet) return Fail(u"* not allowed in [] group (use \\*)");
        if (m_bInString) return Fail(u"* not allowed in {} group (use \\*)");
        if (m_bAnchorPending) return Fail(u"^* not allowed (use \\*)");
        // A final star applies to nothing: "a*" at the end behaves as "a".
        if (IsLast()) return Finish();
        CRegexNode* pElement = RepeatableElement();
        if (pElement == nullptr)
            return Fail(u"* only allowed after a character, [] group or {} group");
        if (pElement->m_bStar) return Fail(u"** not allowed (use \\*)");
        if (pElement->m_bPlus) return Fail(u"+* not allowed (use \\*)");
        pElement->m_bStar = 1;
        return EStep::Next;
    }

    EStep OnPlus() {
        if (m_nPos == 0) return Fail(u"+ cannot be the first character (use \\+)");
        if (m_bInSet) return Fail(u"+ not allowed in [] group (use \\+)");
        if (m_bInString) return Fail(u"+ not allowed in {} group (use \\+)");
        if (m_bAnchorPending) return Fail(u"^+ not allowed (use \\+)");
        CRegexNode* pElement = RepeatableElement();
        if (pElement == nullptr)
            return Fail(u"+ only allowed after a character, [] group or {} group");
        if (pElement->m_bStar) return Fail(u"*+ not allowed (use \\+)");
        if (pElement->m_bPlus) return Fail(u"++ not allowed (use \\+)");
        pElement->m_bPlus = 1;
        return EStep::Next;
    }

    EStep OnCaret() {
        if (m_bInSet) return Fail(u"^ not allowed in [] (use \\^)");
        if (m_nPos != 0) return Fail(u"^ must be the first character");
        m_bAnchorPending = true;
        return EStep::Next;
    }

    EStep OnDollar() {
        if (!IsLast()) return Fail(u"$ must be the last character");
        if (m_nPos == 0) return Fail(u"$ cannot be the first character");
        if (m_bAnchorPending) return Fail(u"^$ is not allowed");
        // In an open group the pattern now ends with the group unclosed.
        if (m_bInSet || m_bInString) return EStep::Next;
        if (!StartNode(REGEX_EOL)) return EStep::Failed;
        ++m_nNode;
        return EStep::Next;
    }

    EStep OnOpenSet() {
        if (m_bInSet) return Fail(u"Embedded [ not allowed (use \\[)");
        if (m_bInString) return Fail(u"[ not allowed in {} (use \\[)");
        if (!StartNode(REGEX_SET)) return EStep::Failed;
        m_bInSet = true;
        m_strGroup.clear();
        m_aRanges.clear();
        if (NextIs(u'^')) {
            Current().m_bNegated = 1;
            ++m_nPos;
        }
        return EStep::Next;
    }

    EStep OnCloseSet() {
        if (!m_bInSet) return Fail(u"Missing [");
        if (m_strGroup.empty() && m_aRanges.empty()) return Fail(u"Empty [] group");
        if (m_bRangePending) return Fail(u"End range character not specified (use \\-)");

        char16_t* pMembers = nullptr;
        if (!m_strGroup.empty()) {
            pMembers = NewRegexText(m_strGroup);
            if (pMembers == nullptr) return Fail(NOT_ENOUGH_MEMORY);
        }
        char16_t** pRanges = nullptr;
        if (!m_aRanges.empty()) {
            pRanges = NewRegexRanges(m_aRanges);
            if (pRanges == nullptr) {
                delete[] pMembers;
                return Fail(NOT_ENOUGH_MEMORY);
            }
        }
        CRegexNode& node = Current();
        node.m_pMembers = pMembers;
        node.m_pRanges = pRanges;
        node.m_nRanges = static_cast<int32_t>(m_aRanges.size());
        m_bInSet = false;
        const size_t nSet = m_nNode++;
        if (!node.m_bNegated) Link(nSet);
        return EStep::Next;
    }

    EStep OnOpenString() {
        if (m_bInString) return Fail(u"Embedded { not allowed (use \\{)");
        if (m_bInSet) return Fail(u"{ not allowed in [] (use \\{)");
        if (!StartNode(REGEX_STRING)) return EStep::Failed;
        m_bInString = true;
        m_strGroup.clear();
        return EStep::Next;
    }

    EStep OnCloseString() {
        if (!m_bInString) return Fail(u"Missing {");
        if (m_strGroup.empty()) return Fail(u"Empty {} group");
        char16_t* pText = NewRegexText(m_strGroup);
        if (pText == nullptr) return Fail(NOT_ENOUGH_MEMORY);
        Current().m_pString = pText;
        m_bInString = false;
        Link(m_nNode);
        ++m_nNode;
        return EStep::Next;
    }

    // The last member becomes the start of a range whose end comes next.
    EStep OnDash() {
        if (!m_bInSet) return Fail(u"- only allowed in [] (use \\-)");
        if (m_strGroup.empty()) return Fail(u"Start range character not specified (use \\-)");
        m_aRanges.push_back({m_strGroup.back(), 0});
        m_strGroup.pop_back();
        m_bRangePending = true;
        return EStep::Next;
    }

    EStep OnOrdinary(char16_t ch) {
        if (m_bRangePending) {
            m_bRangePending = false;
            RegexRange& range = m_aRanges.back();
            range[1] = ch;
            if (range[0] > range[1]) return Fail(u"Start range > End Range");
            return EStep::Next;
        }
        if (m_bInSet || m_bInString) {
            m_strGroup += ch;
            return EStep::Next;
        }
        if (!StartNode(REGEX_CHAR)) return EStep::Failed;
        Current().m_uChar = ch;
        // A character that a star will repeat does not end a negated set's
        // repetition; a final star applies to nothing, so it does not count.
        const bool bStarFollows = NextIs(u'*') && m_nPos + 2 < m_strPattern.size();
        if (!bStarFollows) Link(m_nNode);
        ++m_nNode;
        return EStep::Next;
    }

    std::u16string_view m_strPattern;
    std::span<CRegexNode> m_aNodes;
    std::u16string& m_strError;
    size_t m_nPos = 0;
    size_t m_nNode = 0;
    bool m_bInSet = false;
    bool m_bInString = false;
    bool m_bRangePending = false;
    bool m_bAnchorPending = false;
    std::u16string m_strGroup;          // members of the open set, or text of the open group
    std::vector<RegexRange> m_aRanges;  // ranges of the open set
};

}  // namespace

bool RegexCompile(std::u16string_view strPattern, std::span<CRegexNode> aNodes,
                  std::u16string& strError) {
    strError.clear();
    if (aNodes.empty()) {
        strError = TooLongMessage(0);
        return false;
    }
    // Node texts are zero-terminated, so the pattern ends at its first NUL.
    strPattern = strPattern.substr(0, strPattern.find(u'\0'));
    return CRegexCompiler(strPattern, aNodes, strError).Compile();
}

}  // namespace zv
