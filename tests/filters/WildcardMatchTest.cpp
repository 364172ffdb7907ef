#include <gtest/gtest.h>

#include <string_view>

#include "filters/WildcardMatch.h"
#include "platform/Text.h"

namespace zv {
namespace {

TEST(WildcardMatch, Cases) {
    struct Case {
        std::u16string_view strPattern;
        std::u16string_view strText;
        bool bMatch;
        bool bEscape = true;
    };
    // "textbook" marks a "no" where a backtracking glob would say "yes".
    // clang-format off
    const Case aCases[] = {
        // A star takes the first full hit of what follows it and never resumes;
        // a mismatch moves the scan on.
        {u"*.TXT", u"a.txt", true},    {u"*.TXT", u"a.txt.txt", false},  // textbook
        {u"*AB",   u"ABXAB", false},   {u"*BC",   u"ABXBC", true},       // textbook
        {u"*A?C",  u"XABC",  false},   {u"*A?C",  u"XA?C",  true},       // textbook: '?' is literal
        {u"ABC*",  u"ABC",   true},    {u"ABC**", u"ABC",   false},      // textbook
        {u"A*B*",  u"AXBY",  true},    {u"A?C*",  u"ABC",   true},   {u"A*C", u"ABC", true},
        {u"*B*D",  u"ABCBD", true},    {u"*B*D",  u"ABCB",  false},
        {u"*.*",   u"readme", false},  {u"*.*",   u"readme.txt", true},
        {u"*",     u"",      true},    {u"*",     u"anything", true},
        {u"*?",    u"x",     true},    {u"*?",    u"",      false},  {u"**", u"", false},
        // Plain characters and question marks; only the text is upper-cased.
        {u"",      u"",      true},    {u"",      u"a",     false},
        {u"ABC",   u"abc",   true},    {u"ABC",   u"ABD",   false},  {u"abc", u"abc", false},
        {u"ABC",   u"AB",    false},   {u"AB",    u"ABC",   false},  {u"A?C", u"axc", true},
        {u"\u00c9T\u00c9", u"\u00e9t\u00e9", true},
        // A backslash escapes only when asked, and not right after a star.
        {u"\\*X",  u"*x",    true},    {u"\\?",   u"?",     true},   {u"\\?", u"x", false},
        {u"A\\",   u"a\\",   false},   {u"A\\",   u"a\\",   true, false},
        {u"*\\*",  u"a*",    false},   {u"*\\*",  u"a\\*",  true},
        {u"C:\\WINDOWS\\*", u"c:\\windows\\system32", true, false},
        {u"C:\\WINDOWS\\*", u"c:\\program files",     false, false},
    };
    // clang-format on
    for (const Case& c : aCases)
        EXPECT_EQ(WildcardMatch(c.strPattern, c.strText, c.bEscape), c.bMatch)
            << "pattern \"" << platform::Utf16ToUtf8(c.strPattern) << "\" text \""
            << platform::Utf16ToUtf8(c.strText) << "\" escape " << c.bEscape;
}

}  // namespace
}  // namespace zv
