#include <gtest/gtest.h>

#include <array>
#include <span>
#include <string>
#include <string_view>

#include "filters/Regex.h"
#include "platform/Text.h"

namespace zv {
namespace {

using platform::Utf16ToUtf8;

// A pattern compiled into a node array of the usual capacity, freed at the end.
struct CompiledPattern {
    explicit CompiledPattern(std::u16string_view strPattern)
        : bCompiled(RegexCompile(strPattern, aNodes, strError)) {}
    ~CompiledPattern() { RegexFree(aNodes); }
    CompiledPattern(const CompiledPattern&) = delete;
    CompiledPattern& operator=(const CompiledPattern&) = delete;

    std::array<CRegexNode, REGEX_MAX_NODES> aNodes{};
    std::u16string strError;
    bool bCompiled;
};

std::u16string_view Members(const CRegexNode& node) {
    return node.m_pMembers != nullptr ? node.m_pMembers : std::u16string_view();
}

TEST(RegexCompile, ReportsEachMistakeWithItsMessage) {
    struct Case {
        std::u16string_view strPattern;
        std::u16string_view strMessage;
    };
    const Case aCases[] = {
        {u"{ab", u"Missing }"},
        {u"[ab", u"Missing ]"},
        {u"ab\\", u"Unexpected end of string (after \\)"},
        {u"[a.]", u". not allowed in [] group (use \\.)"},
        {u"[^.]", u". not allowed in [] group (use \\.)"},
        {u"{a.}", u". not allowed in {} group (use \\.)"},
        {u"ab.", u". must not be last character (use \\.)"},
        {u"**a", u"** is not allowed"},
        {u"*.txt", u"*. is not allowed use \\."},
        {u"[a*]", u"* not allowed in [] group (use \\*)"},
        {u"{a*}", u"* not allowed in {} group (use \\*)"},
        {u"^*a", u"^* not allowed (use \\*)"},
        {u"a**b", u"** not allowed (use \\*)"},
        {u"a+*b", u"+* not allowed (use \\*)"},
        {u"+a", u"+ cannot be the first character (use \\+)"},
        {u"[a+]", u"+ not allowed in [] group (use \\+)"},
        {u"{a+}", u"+ not allowed in {} group (use \\+)"},
        {u"^+a", u"^+ not allowed (use \\+)"},
        {u"a*+b", u"*+ not allowed (use \\+)"},
        {u"a++", u"++ not allowed (use \\+)"},
        {u"*+a", u"++ not allowed (use \\+)"},  // a leading star is already "one or more"
        {u"[a^]", u"^ not allowed in [] (use \\^)"},
        {u"a^", u"^ must be the first character"},
        {u"a$b", u"$ must be the last character"},
        {u"[a$]", u"$ must be the last character"},
        {u"$", u"$ cannot be the first character"},
        {u"^$", u"^$ is not allowed"},
        {u"[a[]", u"Embedded [ not allowed (use \\[)"},
        {u"{a[}", u"[ not allowed in {} (use \\[)"},
        {u"a]", u"Missing ["},
        {u"{a]}", u"Missing ["},
        {u"[]", u"Empty [] group"},
        {u"[^]", u"Empty [] group"},
        {u"[a-]", u"End range character not specified (use \\-)"},
        {u"{a{}", u"Embedded { not allowed (use \\{)"},
        {u"[a{]", u"{ not allowed in [] (use \\{)"},
        {u"a}", u"Missing {"},
        {u"{}", u"Empty {} group"},
        {u"a-b", u"- only allowed in [] (use \\-)"},
        {u"[-a]", u"Start range character not specified (use \\-)"},
        {u"[z-a]", u"Start range > End Range"},
    };
    for (const Case& c : aCases) {
        CompiledPattern pattern(c.strPattern);
        EXPECT_FALSE(pattern.bCompiled) << Utf16ToUtf8(c.strPattern);
        EXPECT_EQ(Utf16ToUtf8(pattern.strError), Utf16ToUtf8(c.strMessage))
            << Utf16ToUtf8(c.strPattern);
    }
}

TEST(RegexCompile, FailureEndsTheArrayAtTheFailingNode) {
    CompiledPattern pattern(u"ab[cd");
    ASSERT_FALSE(pattern.bCompiled);
    EXPECT_EQ(pattern.aNodes[0].m_nType, REGEX_CHAR);
    EXPECT_EQ(pattern.aNodes[1].m_nType, REGEX_CHAR);
    EXPECT_EQ(pattern.aNodes[2].m_nType, REGEX_END);
}

TEST(RegexCompile, SetsHoldMembersAndRanges) {
    CompiledPattern range(u"[a-c]");
    ASSERT_TRUE(range.bCompiled) << Utf16ToUtf8(range.strError);
    EXPECT_EQ(range.strError, u"");
    const CRegexNode& set = range.aNodes[0];
    EXPECT_EQ(set.m_nType, REGEX_SET);
    EXPECT_FALSE(set.m_bNegated);
    EXPECT_EQ(Members(set), u"");
    ASSERT_EQ(set.m_nRanges, 1);
    EXPECT_EQ(set.m_pRanges[0][0], u'a');
    EXPECT_EQ(set.m_pRanges[0][1], u'c');
    EXPECT_EQ(range.aNodes[1].m_nType, REGEX_END);

    CompiledPattern mixed(u"[^a-cx0-9\\-]");
    ASSERT_TRUE(mixed.bCompiled) << Utf16ToUtf8(mixed.strError);
    EXPECT_TRUE(mixed.aNodes[0].m_bNegated);
    EXPECT_EQ(Members(mixed.aNodes[0]), u"x-");
    ASSERT_EQ(mixed.aNodes[0].m_nRanges, 2);
    EXPECT_EQ(mixed.aNodes[0].m_pRanges[1][0], u'0');
    EXPECT_EQ(mixed.aNodes[0].m_pRanges[1][1], u'9');
}

TEST(RegexCompile, ElementsAndTheirFlags) {
    CompiledPattern pattern(u"^.{ab}+c*\\t\\f\\.d$");
    ASSERT_TRUE(pattern.bCompiled) << Utf16ToUtf8(pattern.strError);
    const auto& aNodes = pattern.aNodes;
    EXPECT_EQ(aNodes[0].m_nType, REGEX_SET);
    EXPECT_TRUE(aNodes[0].m_bAnchored);
    EXPECT_TRUE(aNodes[0].m_bNegated);
    EXPECT_EQ(aNodes[1].m_nType, REGEX_STRING);
    EXPECT_EQ(std::u16string_view(aNodes[1].m_pString), u"ab");
    EXPECT_TRUE(aNodes[1].m_bPlus);
    EXPECT_FALSE(aNodes[1].m_bAnchored);
    EXPECT_EQ(aNodes[2].m_uChar, u'c');
    EXPECT_TRUE(aNodes[2].m_bStar);
    EXPECT_EQ(aNodes[3].m_uChar, u'\t');
    EXPECT_EQ(aNodes[4].m_uChar, u'\f');
    EXPECT_EQ(aNodes[5].m_uChar, u'.');
    EXPECT_EQ(aNodes[6].m_uChar, u'd');
    EXPECT_EQ(aNodes[7].m_nType, REGEX_EOL);
    EXPECT_EQ(aNodes[8].m_nType, REGEX_END);
}

TEST(RegexCompile, StarsThatEndThePattern) {
    // A final star applies to nothing.
    CompiledPattern final(u"a*");
    ASSERT_TRUE(final.bCompiled);
    EXPECT_EQ(final.aNodes[0].m_nType, REGEX_CHAR);
    EXPECT_FALSE(final.aNodes[0].m_bStar);
    EXPECT_EQ(final.aNodes[1].m_nType, REGEX_END);

    for (std::u16string_view strAnything : {u"*", u"*$"}) {
        CompiledPattern anything(strAnything);
        ASSERT_TRUE(anything.bCompiled);
        EXPECT_EQ(anything.aNodes[0].m_nType, REGEX_END);
    }

    // A leading star before more pattern is one or more of any character.
    CompiledPattern leading(u"*abc");
    ASSERT_TRUE(leading.bCompiled);
    EXPECT_EQ(leading.aNodes[0].m_nType, REGEX_SET);
    EXPECT_TRUE(leading.aNodes[0].m_bNegated);
    EXPECT_TRUE(leading.aNodes[0].m_bPlus);
    EXPECT_FALSE(leading.aNodes[0].m_bStar);
}

TEST(RegexCompile, NegatedSetsStopAtTheElementThatFollows) {
    struct Case {
        std::u16string_view strPattern;
        int nSet;
        int nStopAt;  // -1: no stop
    };
    const Case aCases[] = {
        {u"[^a]*c", 0, 1},
        {u"[^a]+[xy]", 0, 1},
        {u"[^a]*{bc}", 0, 1},
        {u".*x", 0, 1},
        {u"*x", 0, 1},
        // Every negated set of a run stops at the element after the run.
        {u"[^a]*[^b]*c", 0, 2},
        {u"[^a]*[^b]*c", 1, 2},
        // A starred character does not stop a repetition, a final star does not count.
        {u"[^a]*b*c", 0, -1},
        {u"[^a]*b*", 0, 1},
        // Negated sets ('.' among them) and the end of line end no repetition;
        // the element after a run of negated sets ends all of them.
        {u"[^a]*[^b]", 0, -1},
        {u"[^a]*.*", 0, -1},
        {u"[^a]*$", 0, -1},
        {u"[^a]*.x", 0, 2},
        {u"x[^a]*b", 1, 2},
    };
    for (const Case& c : aCases) {
        CompiledPattern pattern(c.strPattern);
        ASSERT_TRUE(pattern.bCompiled) << Utf16ToUtf8(c.strPattern);
        const CRegexNode* pExpected = c.nStopAt < 0 ? nullptr : &pattern.aNodes[c.nStopAt];
        EXPECT_EQ(pattern.aNodes[c.nSet].m_pStopAt, pExpected) << Utf16ToUtf8(c.strPattern);
    }
}

TEST(RegexCompile, PatternEndsAtNul) {
    CompiledPattern pattern(std::u16string_view(u"ab\0+", 4));
    ASSERT_TRUE(pattern.bCompiled);
    EXPECT_EQ(pattern.aNodes[2].m_nType, REGEX_END);
}

TEST(RegexCompile, RefusesPatternsTooLongForTheArray) {
    const std::u16string strFits(REGEX_MAX_NODES - 1, u'a');
    CompiledPattern fits(strFits);
    EXPECT_TRUE(fits.bCompiled);
    EXPECT_EQ(fits.aNodes[REGEX_MAX_NODES - 1].m_nType, REGEX_END);

    CompiledPattern tooLong(strFits + u"[b]");
    EXPECT_FALSE(tooLong.bCompiled);
    EXPECT_EQ(tooLong.strError, u"Pattern too long (at most 131 elements)");
    EXPECT_EQ(tooLong.aNodes[REGEX_MAX_NODES - 1].m_nType, REGEX_END);

    // Members of a set take no nodes of their own.
    CompiledPattern wideSet(u"[" + std::u16string(500, u'x') + u"]");
    EXPECT_TRUE(wideSet.bCompiled);

    // Nothing is written past the array handed in.
    std::array<CRegexNode, 5> aNodes{};
    aNodes[4].m_nType = 99;
    std::u16string strError;
    EXPECT_TRUE(RegexCompile(u"a.[b]", std::span(aNodes).first(4), strError));
    RegexFree(std::span(aNodes).first(4));
    for (std::u16string_view strPattern : {u"abcd", u"a.[b]c", u"{a}{b}{c}{d}", u"abc$"}) {
        EXPECT_FALSE(RegexCompile(strPattern, std::span(aNodes).first(4), strError));
        EXPECT_EQ(strError, u"Pattern too long (at most 3 elements)");
        EXPECT_EQ(aNodes[3].m_nType, REGEX_END);
        EXPECT_EQ(aNodes[4].m_nType, 99);
        RegexFree(std::span(aNodes).first(4));
    }
}

TEST(RegexFree, IsSafeToCallTwice) {
    std::array<CRegexNode, REGEX_MAX_NODES> aNodes{};
    std::u16string strError;
    ASSERT_TRUE(RegexCompile(u"[a-cx]{abc}.y[^0-9]+", aNodes, strError));
    RegexFree(aNodes);
    EXPECT_EQ(aNodes[0].m_nType, REGEX_END);
    RegexFree(aNodes);
    EXPECT_EQ(aNodes[0].m_nType, REGEX_END);

    // An array freed after a failed compile can take the next pattern.
    aNodes = {};
    EXPECT_FALSE(RegexCompile(u"{ab}[cd", aNodes, strError));
    RegexFree(aNodes);
    aNodes = {};
    EXPECT_TRUE(RegexCompile(u"b", aNodes, strError));
    int nStart = 0;
    int nEnd = 0;
    EXPECT_TRUE(RegexMatch(aNodes, u"abc", nStart, nEnd));
    EXPECT_EQ(nStart, 1);
    RegexFree(aNodes);
}

struct MatchCase {
    std::u16string_view strPattern;
    std::u16string_view strText;
    bool bMatch;
    int nStart = 0;
    int nEnd = 0;
};

void ExpectMatches(std::span<const MatchCase> aCases) {
    for (const MatchCase& c : aCases) {
        CompiledPattern pattern(c.strPattern);
        ASSERT_TRUE(pattern.bCompiled)
            << Utf16ToUtf8(c.strPattern) << ": " << Utf16ToUtf8(pattern.strError);
        int nStart = -7;
        int nEnd = -7;
        const bool bMatch = RegexMatch(pattern.aNodes, c.strText, nStart, nEnd);
        const std::string strWhat =
            "pattern \"" + Utf16ToUtf8(c.strPattern) + "\" text \"" + Utf16ToUtf8(c.strText) + "\"";
        EXPECT_EQ(bMatch, c.bMatch) << strWhat;
        if (bMatch && c.bMatch) {
            EXPECT_EQ(nStart, c.nStart) << strWhat;
            EXPECT_EQ(nEnd, c.nEnd) << strWhat;
        }
    }
}

TEST(RegexMatch, FindsTheFirstMatchFromTheLeft) {
    const MatchCase aCases[] = {
        {u"abc", u"xxabcxx", true, 2, 4},
        {u"ab", u"abzzz", true, 0, 1},
        {u"a", u"", false},
        {u"a", u"A", false},
        {u"a.c", u"xabc", true, 1, 3},
        {u"\\.", u"a.b", true, 1, 1},
        {u"\\t", u"a\tb", true, 1, 1},
        {u"{abc}", u"aabc", true, 1, 3},
        {u"{abc}", u"ab", false},
        {u"[xa-c]+", u"zxbq", true, 1, 2},
        {u"[^0-9]+", u"12ab3", true, 2, 3},
        {u"[\\]]", u"a]", true, 1, 1},
        {u"b+", u"aab", true, 2, 2},
        {u"{abc}+", u"xabcabcab", true, 1, 6},
        {u"a*b", u"aaab", true, 0, 3},
        {u"a*b", u"b", true, 0, 0},
        {u"xa*b", u"xb", true, 0, 1},
        {u"a*", u"bab", true, 1, 1},
    };
    ExpectMatches(aCases);
}

TEST(RegexMatch, EmptyMatchesEndBeforeTheyStart) {
    const MatchCase aCases[] = {
        {u"*", u"abc", true, 0, -1},
        {u"*", u"", true, 0, -1},
        {u"*$", u"abc", true, 0, -1},
        {u"a*$", u"", false},
    };
    ExpectMatches(aCases);
}

TEST(RegexMatch, Anchors) {
    const MatchCase aCases[] = {
        {u"^ab", u"abc", true, 0, 1},
        {u"^ab", u"xab", false},
        {u"^.b", u"xby", true, 0, 1},
        {u"^a+", u"aab", true, 0, 1},
        {u"^a+", u"ba", false},
        {u"^{ab}", u"aab", false},
        {u"ab$", u"xabyab", true, 4, 5},
        {u"ab$", u"abab", true, 2, 3},
        {u"ab$", u"abx", false},
        {u"x$", u"xx", true, 1, 1},
        {u"a*$", u"ba", true, 1, 1},
        {u"a*$", u"b", false},
        {u"^ab$", u"ab", true, 0, 1},
        // The end of line restarts past the anchor, where the anchor fails.
        {u"^ab$", u"abab", false},
        // A starred anchored element that matches nothing hands the anchor on.
        {u"^a*b", u"b", true, 0, 0},
        {u"^a*b", u"cb", false},
        {u"^a*b", u"aab", true, 0, 2},
        {u"^a*b*c", u"c", true, 0, 0},
        {u"^a*b*c", u"xc", false},
    };
    ExpectMatches(aCases);
}

TEST(RegexMatch, RepetitionNeverBacktracks) {
    const MatchCase aCases[] = {
        // Negated sets stop where the next element matches.
        {u"*c", u"abcbc", true, 0, 2},
        {u".*b", u"abab", true, 0, 1},
        {u"[^x]+x", u"abxcx", true, 0, 2},
        {u"[^a]*a", u"abc", true, 0, 0},
        // A leading star consumes its first character unchecked.
        {u"*abc", u"abc", false},
        {u"*abc", u"xabc", true, 0, 3},
        // Other repetitions take all they can and give nothing back.
        {u"[ab]*b", u"aab", false},
        {u"a+a", u"aaa", false},
        // Elements left when the text runs out fail, starred or not.
        {u"ab*c*x", u"ab", false},
        {u"ab*c*x", u"abx", true, 0, 2},
    };
    ExpectMatches(aCases);
}

}  // namespace
}  // namespace zv
