#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "platform/Text.h"

namespace zv::platform {
namespace {

using namespace std::string_view_literals;

TEST(Text, Utf8ConvertsBothWays) {
    const struct {
        std::string_view bytes;
        std::u16string_view utf16;
        bool bDecodes = true;  // else only the UTF-16 encodes to the bytes
    } aCases[] = {
        {""sv, u""sv},
        {"Readme.txt"sv, u"Readme.txt"sv},
        {"a\0b"sv, u"a\0b"sv},
        {"caf\xC3\xA9"sv, u"caf\u00E9"sv},
        {"\xE2\x82\xAC"sv, u"\u20AC"sv},
        {"\xED\x9F\xBF"sv, u"\uD7FF"sv},  // last before the surrogates
        {"\xEF\xBF\xBF"sv, u"\uFFFF"sv},
        {"\xF0\x9F\x98\x80"sv, u"\U0001F600"sv},
        {"\xF4\x8F\xBF\xBF"sv, u"\U0010FFFF"sv},
        // Bytes that are not UTF-8 decode to the escapes U+DC80..U+DCFF; the
        // round trip over short strings below covers the other malformed
        // forms.
        {"\xFF"sv, u"\xDCFF"sv},
        {"caf\xE9"sv, u"caf\xDCE9"sv},
        {"\xC0\x80"sv, u"\xDCC0\xDC80"sv},            // overlong
        {"\xED\xA0\x80"sv, u"\xDCED\xDCA0\xDC80"sv},  // encoded surrogate
        {"\xED\xBF\xBF"sv, u"\xDCED\xDCBF\xDCBF"sv},  // encoded surrogate
        {"a\xE2\x82"sv, u"a\xDCE2\xDC82"sv},          // truncated at the end
        {"\xF0\x9F\x98"sv, u"\xDCF0\xDC9F\xDC98"sv},  // truncated at the end
        {"\xC3\xC3\xA9"sv, u"\xDCC3\u00E9"sv},        // truncated before valid
        {"a\xC3\xA9\xFF\xF0\x9F\x98\x80\xED\xA0\x80.\xC3"sv,
         u"a\u00E9\xDCFF\U0001F600\xDCED\xDCA0\xDC80.\xDCC3"sv},
        // Lone surrogates outside the escapes take the three-byte form.
        {"\xED\xA0\x80"sv, u"\xD800"sv, false},
        {"a\xED\xA0\xBD"sv, u"a\xD83D"sv, false},
        {"\xED\xB1\xBF"sv, u"\xDC7F"sv, false},
        {"\xED\xB4\x80"sv, u"\xDD00"sv, false},
        {"\xED\xB8\x80\xED\xA0\xBD"sv, u"\xDE00\xD83D"sv, false},  // pair in the wrong order
        {"\xED\xA0\xBD\xF0\x9F\x98\x80"sv, u"\xD83D\xD83D\xDE00"sv, false},
    };
    for (const auto& c : aCases) {
        SCOPED_TRACE(::testing::PrintToString(c.bytes));
        // An exactly sized buffer, so that reading past its end shows under
        // AddressSanitizer.
        const std::vector<char> exact(c.bytes.begin(), c.bytes.end());
        if (c.bDecodes) {
            EXPECT_EQ(Utf8ToUtf16(std::string_view(exact.data(), exact.size())), c.utf16);
        }
        EXPECT_EQ(Utf16ToUtf8(c.utf16), c.bytes);
    }
}

// Every string of up to four bytes over an alphabet holding each boundary of
// the UTF-8 byte classes survives bytes -> UTF-16 -> bytes.
TEST(Text, ShortStringsOverBoundaryBytesRoundTrip) {
    const std::string_view alphabet =
        "\x00\x41\x7F\x80\x8F\x90\x9F\xA0\xBF\xC0\xC1\xC2\xDF\xE0\xE1\xED\xEF\xF0\xF4\xF5\xFF"sv;
    std::string bytes;
    size_t nFailures = 0;
    const auto check = [&](const auto& self) -> void {
        if (Utf16ToUtf8(Utf8ToUtf16(bytes)) != bytes && ++nFailures <= 5) {
            ADD_FAILURE() << "round trip failed for " << ::testing::PrintToString(bytes);
        }
        for (size_t i = 0; bytes.size() < 4 && i < alphabet.size(); ++i, bytes.pop_back()) {
            bytes += alphabet[i];
            self(self);
        }
    };
    check(check);
    EXPECT_EQ(nFailures, 0u);
}

TEST(Text, UpperCaseIsTheSimpleMappingOfEachCodeUnit) {
    const struct {
        const char* pszWhat;
        std::u16string_view in, out;
    } aCases[] = {
        {"ASCII, no Turkish i", u"azAi0`{\0"sv, u"AZAI0`{\0"sv},
        {"Latin", u"éÿµıİ\u01C5\u01C6"sv, u"É\u0178\u039CIİ\u01C4\u01C4"sv},
        {"full mapping only", u"ß\u1E9E\u0149"sv, u"ß\u1E9E\u0149"sv},
        {"Greek", u"αςω\u1F80"sv, u"ΑΣΩ\u1F88"sv},
        {"Cyrillic", u"жѐя"sv, u"ЖЀЯ"sv},
        {"downward and wrapping deltas", u"\u2C65\uAB53\u1D79ａ"sv, u"\u023A\uA7B3\uA77DＡ"sv},
        {"surrogates, U+FFFF", u"\xD83D\xDCE9\U00010428\xDFFF\uFFFF"sv,
         u"\xD83D\xDCE9\U00010428\xDFFF\uFFFF"sv},
    };
    for (const auto& c : aCases) {
        SCOPED_TRACE(c.pszWhat);
        std::u16string strEach, strInPlace(c.in);
        for (const char16_t ch : c.in) strEach += ToUpper(ch);
        MakeUpper(strInPlace);
        EXPECT_EQ(strEach, c.out);
        EXPECT_EQ(strInPlace, c.out);
        EXPECT_EQ(ToUpperCopy(c.in), c.out);
    }
}

int Sign(int n) { return (n > 0) - (n < 0); }

TEST(Text, CompareOrdinalAndNoCase) {
    const struct {
        std::u16string_view a, b;
        int nOrdinal;
        int nNoCase;
    } aCases[] = {
        {u"", u"a", -1, -1},
        {u"abc", u"abc", 0, 0},
        {u"abc", u"ABC", 1, 0},
        {u"abc", u"abd", -1, -1},
        {u"ab", u"ABC", 1, -1},
        {u"a", u"B", 1, -1},
        {u"_", u"a", -1, 1},  // '_' sits between the upper- and the lower-case letters
        {u"é", u"É", 1, 0},
        {u"ÿ", u"\u0178", -1, 0},
        {u"ı", u"I", 1, 0},
        {u"i", u"\u0130", -1, -1},
        {u"ß", u"\u1E9E", -1, -1},
        {u"\uFFFF", u"a", 1, 1},             // code units compare as unsigned
        {u"\U0001F600", u"\uE000", -1, -1},  // UTF-16 order, not code point order
        {u"Ärger.TXT", u"ärger.txt", -1, 0},
    };
    for (const auto& c : aCases) {
        SCOPED_TRACE(::testing::PrintToString(Utf16ToUtf8(c.a)) + " vs " +
                     ::testing::PrintToString(Utf16ToUtf8(c.b)));
        EXPECT_EQ(Sign(CompareOrdinal(c.a, c.b)), c.nOrdinal);
        EXPECT_EQ(Sign(CompareOrdinal(c.b, c.a)), -c.nOrdinal);
        EXPECT_EQ(Sign(CompareNoCase(c.a, c.b)), c.nNoCase);
        EXPECT_EQ(Sign(CompareNoCase(c.b, c.a)), -c.nNoCase);
        EXPECT_EQ(EqualsNoCase(c.a, c.b), c.nNoCase == 0);
    }
}

}  // namespace
}  // namespace zv::platform
