// A compact regular expression engine for the multi-rename search. A pattern
// compiles into a flat array of nodes, one per element plus an end node;
// matching walks the nodes once from each start position, with at most one
// element of look-ahead and no backtracking.
//
// Elements: a character (with '\' to escape, "\t" tab, "\f" form feed), '.'
// any character, "[...]" a set with ranges "a-z", "[^...]" a negated set,
// "{...}" a literal string, each optionally followed by '*' (zero or more) or
// '+' (one or more). '^' first anchors the match at the text's start, '$'
// last requires its end. A '*' first means one or more of any character.
// Text is compared one UTF-16 code unit at a time, without case folding.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace zv {

// CRegexNode::m_nType values.
inline constexpr int32_t REGEX_CHAR = 0;
inline constexpr int32_t REGEX_EOL = 2;
inline constexpr int32_t REGEX_SET = 3;
inline constexpr int32_t REGEX_STRING = 4;
inline constexpr int32_t REGEX_END = 5;

// Size of the node array callers provide; a pattern fits when it has at most
// REGEX_MAX_NODES - 1 elements.
inline constexpr size_t REGEX_MAX_NODES = 132;

// One element of a compiled pattern. A value-initialised node is a cleared
// one. The heap texts and ranges belong to the array and are released by
// RegexFree; m_pStopAt points into the same array, so a compiled array must
// stay where it is.
struct CRegexNode {
    int32_t m_nType = REGEX_CHAR;
    int32_t m_bStar = 0;      // may repeat zero or more times
    int32_t m_bPlus = 0;      // may repeat one or more times
    int32_t m_bAnchored = 0;  // must match at text position 0
    union {
        char16_t m_uChar;               // REGEX_CHAR: the code unit
        int32_t m_bNegated;             // REGEX_SET: matches what is not in the set
        char16_t* m_pString = nullptr;  // REGEX_STRING: zero-terminated group text
    };
    // Negated set: the element whose match ends this set's repetition.
    CRegexNode* m_pStopAt = nullptr;
    // REGEX_SET: the single characters, zero-terminated; null when none.
    char16_t* m_pMembers = nullptr;
    int32_t m_nRanges = 0;
    // REGEX_SET: m_nRanges pairs of code units, start then end.
    char16_t** m_pRanges = nullptr;
};

// Compiles strPattern into aNodes, which must hold no compiled pattern
// (cleared, or freed). On failure returns false with a message for the user
// in strError, and the node at which compiling stopped is made REGEX_END, so
// RegexFree releases the nodes before it. A pattern with more elements than
// the array has room for fails too; nothing is written past its end. The
// pattern ends at its first NUL code unit, as a text typed into a dialog
// field does.
bool RegexCompile(std::u16string_view strPattern, std::span<CRegexNode> aNodes,
                  std::u16string& strError);

// Searches strText from the left. On success nStart and nEnd are the first
// and last matched index; an empty match has nEnd == nStart - 1.
bool RegexMatch(std::span<const CRegexNode> aNodes, std::u16string_view strText, int& nStart,
                int& nEnd);

// Releases what the nodes up to REGEX_END own and makes the first node
// REGEX_END. Safe to call twice.
void RegexFree(std::span<CRegexNode> aNodes);

}  // namespace zv
