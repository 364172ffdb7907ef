#include <gtest/gtest.h>

#include <span>
#include <string_view>

#include "filters/WildcardMatch.h"
#include "platform/Text.h"

namespace zv {
namespace {

struct WildcardCase {
    std::u16string_view strPattern;
    std::u16string_view strText;
    bool bEscape;
    bool bMatch;
};

void ExpectCases(std::span<const WildcardCase> aCases) {
    for (const WildcardCase& c : aCases)
        EXPECT_EQ(WildcardMatch(c.strPattern, c.strText, c.bEscape), c.bMatch)
            << "pattern \"" << platform::Utf16ToUtf8(c.strPattern) << "\" text \""
            << platform::Utf16ToUtf8(c.strText) << "\" escape " << c.bEscape;
}

TEST(WildcardMatch, TellingCases) {
    // "textbook" marks a "no" where a backtracking glob would say "yes".
    // clang-format off
    const WildcardCase aCases[] = {
        {u"*.TXT", u"a.txt",     true, true},
        {u"*.TXT", u"a.txt.txt", true, false},  // textbook
        {u"*AB",   u"ABXAB",     true, false},  // textbook
        {u"A*B*",  u"AXBY",      true, true},
        {u"*A?C",  u"XABC",      true, false},  // textbook
        {u"A?C*",  u"ABC",       true, true},
        {u"*?",    u"x",         true, true},
        {u"ABC*",  u"ABC",       true, true},
        {u"ABC**", u"ABC",       true, false},  // textbook
        {u"\\*X",  u"*x",        true, true},
        {u"",      u"",          true, true},
        {u"",      u"a",         true, false},
    };
    // clang-format on
    ExpectCases(aCases);
}

TEST(WildcardMatch, PlainCharactersAndQuestionMarks) {
    const WildcardCase aCases[] = {
        {u"ABC", u"abc", true, true},
        {u"ABC", u"ABD", true, false},
        {u"ABC", u"AB", true, false},
        {u"AB", u"ABC", true, false},
        {u"A?C", u"axc", true, true},
        {u"???", u"ab", true, false},
        {u"?", u"", true, false},
        // Only the text is upper-cased: a lower-case pattern never matches letters.
        {u"abc", u"abc", true, false},
        {u"\u00c9T\u00c9", u"\u00e9t\u00e9", true, true},
    };
    ExpectCases(aCases);
}

TEST(WildcardMatch, StarTakesTheFirstFullHitOnly) {
    const WildcardCase aCases[] = {
        {u"*", u"", true, true},
        {u"*", u"anything", true, true},
        {u"**", u"", true, false},
        {u"*?", u"", true, false},
        {u"A*", u"A", true, true},
        {u"A*C", u"ABC", true, true},
        // The first 'C' completes the rest of the pattern but not the text.
        {u"A*C", u"ABCXC", true, false},
        {u"*B*D", u"ABCBD", true, true},
        {u"*B*D", u"ABCB", true, false},
        // A mismatch moves the scan on to the next occurrence.
        {u"*BC", u"ABXBC", true, true},
        // After the star, '?' stands for itself.
        {u"*A?C", u"XA?C", true, true},
        {u"*.*", u"readme", true, false},
        {u"*.*", u"readme.txt", true, true},
    };
    ExpectCases(aCases);
}

TEST(WildcardMatch, BackslashEscapesOnlyWhenAsked) {
    const WildcardCase aCases[] = {
        {u"\\?", u"?", true, true},
        {u"\\?", u"x", true, false},
        {u"A\\", u"a\\", true, false},
        {u"A\\", u"a\\", false, true},
        {u"C:\\WINDOWS\\*", u"c:\\windows\\system32", false, true},
        {u"C:\\WINDOWS\\*", u"c:\\program files", false, false},
        // After a star the backslash is compared literally.
        {u"*\\*", u"a*", true, false},
        {u"*\\*", u"a\\*", true, true},
    };
    ExpectCases(aCases);
}

}  // namespace
}  // namespace zv
