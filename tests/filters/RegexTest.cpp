#include <gtest/gtest.h>

#include <array>
#include <span>
#include <string>
#include <string_view>

#include "filters/Regex.h"
#include "platform/Text.h"

namespace zv {
namespace {

using namespace std::string_view_literals;
using platform::Utf16ToUtf8;

// A pattern compiled into a node array of the usual capacity, freed at the end.
struct CompiledPattern {
    explicit CompiledPattern(std::u16string_view strPattern)
        : bCompiled(RegexCompile(strPattern, aNodes, strError)) {}
    ~CompiledPattern() { RegexFree(aNodes); }

    std::array<CRegexNode, REGEX_MAX_NODES> aNodes{};
    std::u16string strError;
    bool bCompiled;
};

TEST(RegexCompile, ReportsEachMistakeWithItsMessage) {
    const std::pair<std::u16string_view, std::u16string_view> aCases[] = {
        {u"{ab", u"Missing }"},
        {u"[ab", u"Missing ]"},
        {u"ab\\", u"Unexpected end of string (after \\)"},
        {u"[a.]", u". not allowed in [] group (use \\.)"},
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
        {u"[a^]", u"^ not allowed in [] (use \\^)"},
        {u"a^", u"^ must be the first character"},
        {u"a$b", u"$ must be the last character"},
        {u"$", u"$ cannot be the first character"},
        {u"^$", u"^$ is not allowed"},
        {u"[a[]", u"Embedded [ not allowed (use \\[)"},
        {u"{a[}", u"[ not allowed in {} (use \\[)"},
        {u"a]", u"Missing ["},
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
    for (const auto& [strPattern, strMessage] : aCases) {
        CompiledPattern pattern(strPattern);
        EXPECT_FALSE(pattern.bCompiled) << Utf16ToUtf8(strPattern);
        EXPECT_EQ(Utf16ToUtf8(pattern.strError), Utf16ToUtf8(strMessage));
    }
}

TEST(RegexCompile, FailureEndsTheArrayAtTheFailingNodeAndFreeingTwiceIsSafe) {
    std::array<CRegexNode, REGEX_MAX_NODES> aNodes{};
    std::u16string strError;
    ASSERT_FALSE(RegexCompile(u"{ab}c[de", aNodes, strError));
    EXPECT_EQ(aNodes[2].m_nType, REGEX_END);
    RegexFree(aNodes);
    RegexFree(aNodes);
    EXPECT_EQ(aNodes[0].m_nType, REGEX_END);
    // A freed array takes the next pattern.
    ASSERT_TRUE(RegexCompile(u"[a-c]{ab}", aNodes, strError));
    int nStart = 0, nEnd = 0;
    EXPECT_TRUE(RegexMatch(aNodes, u"xcab", nStart, nEnd));
    EXPECT_EQ(nStart, 1);
    RegexFree(aNodes);
    RegexFree(aNodes);
}

TEST(RegexCompile, RefusesPatternsTooLongForTheArray) {
    EXPECT_TRUE(CompiledPattern(std::u16string(REGEX_MAX_NODES - 1, u'a')).bCompiled);
    // Nothing is written past the array handed in, whatever the last element.
    std::array<CRegexNode, 5> aNodes{};
    aNodes[4].m_nType = 99;
    const std::span<CRegexNode> aFour = std::span(aNodes).first(4);
    std::u16string strError;
    EXPECT_TRUE(RegexCompile(u"a.[b]", aFour, strError));
    RegexFree(aFour);
    for (std::u16string_view strPattern : {u"abcd", u"a.[b]c", u"{a}{b}{c}{d}", u"abc$"}) {
        EXPECT_FALSE(RegexCompile(strPattern, aFour, strError));
        EXPECT_EQ(strError, u"Pattern too long (at most 3 elements)");
        EXPECT_EQ(aNodes[3].m_nType, REGEX_END);
        EXPECT_EQ(aNodes[4].m_nType, 99);
        RegexFree(aFour);
    }
}

TEST(RegexMatch, Cases) {
    struct Case {
        std::u16string_view strPattern;
        std::u16string_view strText;
        bool bMatch;
        int nStart = 0;
        int nEnd = 0;
    };
    // clang-format off
    const Case aCases[] = {
        // The first match from the left.
        {u"abc", u"xxabcxx", true, 2, 4},   {u"a", u"", false},       {u"a", u"A", false},
        {u"a.c", u"xabc", true, 1, 3},      {u"\\.", u"a.b", true, 1, 1},
        {u"\\t\\f", u"a\t\fb", true, 1, 2}, {u"\\f", u"f", false},
        {u"{abc}", u"aabc", true, 1, 3},    {u"{abc}", u"ab", false},
        {u"[xa-c]+", u"zxbq", true, 1, 2},  {u"[a-c]", u"d", false},  {u"[\\]]", u"a]", true, 1, 1},
        {u"[^a-cx0-9\\-]+", u"b-x5yz", true, 4, 5}, {u"[b-b]", u"ab", true, 1, 1},
        {u"{abc}+", u"xabcabcab", true, 1, 6},
        {u"a*b", u"aaab", true, 0, 3},      {u"xa*b", u"xb", true, 0, 1},
        {u"^.{ab}+c*\\t\\f\\.d$", u"zababcc\t\f.d", true, 0, 10},
        {u"ab\0+"sv, u"ab", true, 0, 1},  // the pattern ends at a NUL
        // Empty matches end before they start; a final star applies to nothing.
        {u"*", u"abc", true, 0, -1},        {u"*", u"", true, 0, -1},  {u"*$", u"abc", true, 0, -1},
        {u"a*$", u"", false},               {u"a*", u"bab", true, 1, 1},
        {u"a*b", u"b", true, 0, 0},
        // Anchors; the end of line restarts past the anchor, where it fails.
        {u"^ab", u"abc", true, 0, 1},       {u"^ab", u"xab", false},
        {u"^a+", u"aab", true, 0, 1},       {u"^a+", u"ba", false},   {u"^{ab}", u"aab", false},
        {u"ab$", u"xabyab", true, 4, 5},    {u"ab$", u"abx", false},  {u"x$", u"xx", true, 1, 1},
        {u"a*$", u"ba", true, 1, 1},        {u"a*$", u"b", false},
        {u"^ab$", u"ab", true, 0, 1},       {u"^ab$", u"abab", false},
        // A starred anchored element that matches nothing hands the anchor on.
        {u"^a*b", u"b", true, 0, 0},        {u"^a*b", u"cb", false},  {u"^a*b", u"aab", true, 0, 2},
        {u"^a*b*c", u"c", true, 0, 0},      {u"^a*b*c", u"xc", false},
        // A negated set's repetition stops where the element after it (or
        // after a run of negated sets) matches; a final star does not count,
        // and a starred character or a negated set does not stop it.
        {u"*c", u"abcbc", true, 0, 2},      {u".*b", u"abab", true, 0, 1},
        {u"[^x]+x", u"abxcx", true, 0, 2},  {u"[^a]*a", u"abc", true, 0, 0},
        {u"[^a]+[xy]", u"bxy", true, 0, 1}, {u"[^a]*{bc}", u"xbcbc", true, 0, 2},
        {u"[^a]*[^b]*c", u"xyc", true, 0, 2}, {u"[^a]*.x", u"yxx", true, 0, 2},
        {u"x[^a]*b", u"xcbcb", true, 0, 2}, {u"[^a]*b*", u"xbb", true, 0, 1},
        {u"[^a]*b*c", u"xbbc", false},      {u"[^a]*[^b]", u"xyz", false},
        // A leading star is one or more of any character.
        {u"*abc", u"abc", false},           {u"*abc", u"xyabc", true, 0, 4},
        // Other repetitions take all they can and give nothing back.
        {u"[ab]*b", u"aab", false},         {u"a+a", u"aaa", false},
        // Elements left when the text runs out fail, starred or not.
        {u"ab*c*x", u"ab", false},          {u"ab*c*x", u"abx", true, 0, 2},
    };
    // clang-format on
    for (const Case& c : aCases) {
        CompiledPattern pattern(c.strPattern);
        const std::string strWhat =
            "pattern \"" + Utf16ToUtf8(c.strPattern) + "\" text \"" + Utf16ToUtf8(c.strText) + "\"";
        ASSERT_TRUE(pattern.bCompiled) << strWhat << ": " << Utf16ToUtf8(pattern.strError);
        int nStart = -7, nEnd = -7;
        EXPECT_EQ(RegexMatch(pattern.aNodes, c.strText, nStart, nEnd), c.bMatch) << strWhat;
        if (c.bMatch) {
            EXPECT_EQ(nStart, c.nStart) << strWhat;
            EXPECT_EQ(nEnd, c.nEnd) << strWhat;
        }
    }
}

}  // namespace
}  // namespace zv
