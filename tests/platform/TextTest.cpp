#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "platform/Text.h"

namespace zv::platform {
namespace {

using namespace std::string_view_literals;

struct Utf8Case {
    const char* szName;
    std::string_view bytes;
    std::u16string_view utf16;
};

// Each byte string decodes to the given UTF-16 and encodes back to itself.
const Utf8Case kUtf8Cases[] = {
    {"Empty", ""sv, u""sv},
    {"Ascii", "Readme.txt"sv, u"Readme.txt"sv},
    {"EmbeddedNul", "a\0b"sv, u"a\0b"sv},
    {"TwoByte", "caf\xC3\xA9"sv, u"caf\u00E9"sv},
    {"ThreeByte", "\xE2\x82\xAC"sv, u"\u20AC"sv},
    {"LastBeforeSurrogates", "\xED\x9F\xBF"sv, u"\uD7FF"sv},
    {"FourByteEmoji", "\xF0\x9F\x98\x80"sv, u"\U0001F600"sv},
    {"LargestCodePoint", "\xF4\x8F\xBF\xBF"sv, u"\U0010FFFF"sv},
    {"LoneFF", "\xFF"sv, u"\xDCFF"sv},
    {"Latin1Alone", "caf\xE9"sv, u"caf\xDCE9"sv},
    {"StrayContinuation", "\x80x\xBF"sv, u"\xDC80x\xDCBF"sv},
    {"Overlong2", "\xC0\x80"sv, u"\xDCC0\xDC80"sv},
    {"Overlong2C1", "\xC1\xBF"sv, u"\xDCC1\xDCBF"sv},
    {"Overlong3", "\xE0\x80\xAF"sv, u"\xDCE0\xDC80\xDCAF"sv},
    {"Overlong4", "\xF0\x8F\xBF\xBF"sv, u"\xDCF0\xDC8F\xDCBF\xDCBF"sv},
    {"EncodedHighSurrogate", "\xED\xA0\x80"sv, u"\xDCED\xDCA0\xDC80"sv},
    {"EncodedLowSurrogate", "\xED\xBF\xBF"sv, u"\xDCED\xDCBF\xDCBF"sv},
    {"AboveLargest", "\xF4\x90\x80\x80"sv, u"\xDCF4\xDC90\xDC80\xDC80"sv},
    {"LeadF5", "\xF5\x80"sv, u"\xDCF5\xDC80"sv},
    {"Truncated3AtEnd", "a\xE2\x82"sv, u"a\xDCE2\xDC82"sv},
    {"Truncated4AtEnd", "\xF0\x9F\x98"sv, u"\xDCF0\xDC9F\xDC98"sv},
    {"TruncatedBeforeAscii", "\xE2\x82z"sv, u"\xDCE2\xDC82z"sv},
    {"TruncatedBeforeValid", "\xC3\xC3\xA9"sv, u"\xDCC3\u00E9"sv},
    {"Mixed", "a\xC3\xA9\xFF\xF0\x9F\x98\x80\xED\xA0\x80.\xC3"sv,
     u"a\u00E9\xDCFF\U0001F600\xDCED\xDCA0\xDC80.\xDCC3"sv},
};

class Utf8Conversion : public ::testing::TestWithParam<Utf8Case> {};

TEST_P(Utf8Conversion, DecodesAndRoundTrips) {
    const Utf8Case& c = GetParam();
    // An exactly sized buffer, so that reading past its end shows under AddressSanitizer.
    const std::vector<char> exact(c.bytes.begin(), c.bytes.end());
    EXPECT_EQ(Utf8ToUtf16(std::string_view(exact.data(), exact.size())), c.utf16);
    EXPECT_EQ(Utf16ToUtf8(c.utf16), c.bytes);
}

INSTANTIATE_TEST_SUITE_P(Text, Utf8Conversion, ::testing::ValuesIn(kUtf8Cases),
                         [](const auto& info) { return std::string(info.param.szName); });

// Every string of up to four bytes over an alphabet holding each boundary
// of the UTF-8 byte classes survives bytes -> UTF-16 -> bytes.
TEST(Utf8RoundTrip, AllShortStringsOverBoundaryBytes) {
    const unsigned char aBytes[] = {0x00, 0x41, 0x7F, 0x80, 0x8F, 0x90, 0x9F,
                                    0xA0, 0xBF, 0xC0, 0xC1, 0xC2, 0xDF, 0xE0,
                                    0xE1, 0xED, 0xEF, 0xF0, 0xF4, 0xF5, 0xFF};
    const size_t nCount = sizeof(aBytes);
    size_t nFailures = 0;
    std::string bytes;
    for (size_t nLength = 1; nLength <= 4; ++nLength) {
        size_t nTotal = 1;
        for (size_t k = 0; k < nLength; ++k) nTotal *= nCount;
        for (size_t n = 0; n < nTotal; ++n) {
            bytes.clear();
            for (size_t k = 0, r = n; k < nLength; ++k, r /= nCount)
                bytes += char(aBytes[r % nCount]);
            if (Utf16ToUtf8(Utf8ToUtf16(bytes)) != bytes && ++nFailures <= 5) {
                ADD_FAILURE() << "round trip failed for " << ::testing::PrintToString(bytes);
            }
        }
    }
    EXPECT_EQ(nFailures, 0u);
}

TEST(Utf16ToUtf8, LoneSurrogatesOutsideEscapeRangeUseThreeByteForm) {
    const struct {
        std::u16string_view utf16;
        std::string_view bytes;
    } aCases[] = {
        {u"\xD800"sv, "\xED\xA0\x80"sv},
        {u"a\xD83D"sv, "a\xED\xA0\xBD"sv},
        {u"\xDC7F"sv, "\xED\xB1\xBF"sv},
        {u"\xDD00"sv, "\xED\xB4\x80"sv},
        {u"\xDE00\xD83D"sv, "\xED\xB8\x80\xED\xA0\xBD"sv},  // pair in the wrong order
        {u"\xD83D\xD83D\xDE00"sv, "\xED\xA0\xBD\xF0\x9F\x98\x80"sv},
        {u"\xDC80\xDCFF"sv, "\x80\xFF"sv},  // escapes are raw bytes
        {u"\uFFFF"sv, "\xEF\xBF\xBF"sv},
    };
    for (const auto& c : aCases) {
        EXPECT_EQ(Utf16ToUtf8(c.utf16), c.bytes) << ::testing::PrintToString(c.bytes);
    }
}

TEST(ToUpper, SimpleMappingPerCodeUnit) {
    // Each code unit of in upper-cases to the code unit at the same place in out.
    const struct {
        const char* szWhat;
        std::u16string_view in, out;
    } aCases[] = {
        {"ASCII, no Turkish i", u"azAi0`{\0"sv, u"AZAI0`{\0"sv},
        {"Latin", u"éÿµıİ\u01C5\u01C6"sv, u"É\u0178\u039CIİ\u01C4\u01C4"sv},
        {"full mapping only", u"ß\u1E9E\u0149"sv, u"ß\u1E9E\u0149"sv},
        {"Greek", u"αςω\u1F80"sv, u"ΑΣΩ\u1F88"sv},
        {"Cyrillic", u"жѐя"sv, u"ЖЀЯ"sv},
        {"downward and wide offsets", u"\u2C65\uAB53\u1D79ａ"sv, u"\u023A\uA7B3\uA77DＡ"sv},
        {"surrogates, U+FFFF", u"\xD83D\xDCE9\xDFFF\uFFFF"sv, u"\xD83D\xDCE9\xDFFF\uFFFF"sv},
    };
    for (const auto& c : aCases) {
        ASSERT_EQ(c.in.size(), c.out.size()) << c.szWhat;
        for (size_t i = 0; i < c.in.size(); ++i) {
            EXPECT_EQ(int(ToUpper(c.in[i])), int(c.out[i]))
                << c.szWhat << std::hex << ": U+" << int(c.in[i]);
        }
    }
}

TEST(ToUpper, StringsKeepLengthAndSurrogatePairs) {
    const std::u16string text = u"straße, ÿ \U0001F600 \U00010428 \xDCE9 ǅ";
    const std::u16string expected = u"STRAßE, Ÿ \U0001F600 \U00010428 \xDCE9 Ǆ";
    EXPECT_EQ(ToUpperCopy(text), expected);
    std::u16string inPlace = text;
    MakeUpper(inPlace);
    EXPECT_EQ(inPlace, expected);
}

int Sign(int n) { return (n > 0) - (n < 0); }

TEST(Compare, OrdinalAndNoCase) {
    const struct {
        std::u16string_view a, b;
        int nOrdinal;
        int nNoCase;
    } aCases[] = {
        {u"", u"", 0, 0},
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
