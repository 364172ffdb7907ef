#include "platform/Text.h"

#include <cstdint>

#include "platform/Utf8.h"

namespace zv::platform {

namespace {

#include "platform/UpperCaseTable.inc"

// Lone low surrogates U+DC80..U+DCFF stand for the raw bytes 0x80..0xFF
// that are not part of valid UTF-8.
constexpr char16_t kEscapeBase = 0xDC00;

bool IsContinuation(unsigned char b) { return (b & 0xC0) == 0x80; }

// Length of the valid UTF-8 sequence starting at s[i], or 0 if the byte
// there does not begin one (stray continuation, overlong form, encoded
// surrogate, code point above U+10FFFF, or a sequence cut short).
size_t ValidSequenceLength(std::string_view s, size_t i) {
    const unsigned char b = s[i];
    size_t nLength = 0;
    unsigned char uMin = 0x80, uMax = 0xBF;  // range of the second byte
    if (b >= 0xC2 && b <= 0xDF) {
        nLength = 2;
    } else if (b >= 0xE0 && b <= 0xEF) {
        nLength = 3;
        if (b == 0xE0) uMin = 0xA0;  // no overlongs
        if (b == 0xED) uMax = 0x9F;  // no surrogates
    } else if (b >= 0xF0 && b <= 0xF4) {
        nLength = 4;
        if (b == 0xF0) uMin = 0x90;  // no overlongs
        if (b == 0xF4) uMax = 0x8F;  // nothing above U+10FFFF
    } else {
        return 0;
    }
    if (s.size() - i < nLength) return 0;
    const unsigned char b1 = s[i + 1];
    if (b1 < uMin || b1 > uMax) return 0;
    for (size_t k = 2; k < nLength; ++k) {
        if (!IsContinuation(s[i + k])) return 0;
    }
    return nLength;
}

}  // namespace

void AppendUtf8(std::string& out, uint32_t cp) {
    if (cp < 0x80) {
        out += char(cp);
    } else if (cp < 0x800) {
        out += char(0xC0 | (cp >> 6));
        out += char(0x80 | (cp & 0x3F));
    } else if (cp < 0x10000) {
        out += char(0xE0 | (cp >> 12));
        out += char(0x80 | ((cp >> 6) & 0x3F));
        out += char(0x80 | (cp & 0x3F));
    } else {
        out += char(0xF0 | (cp >> 18));
        out += char(0x80 | ((cp >> 12) & 0x3F));
        out += char(0x80 | ((cp >> 6) & 0x3F));
        out += char(0x80 | (cp & 0x3F));
    }
}

void Utf8ToUtf16(std::string_view utf8, std::u16string& out) {
    // UTF-16 never takes more code units than UTF-8 takes bytes.
    out.resize(utf8.size());
    char16_t* p = out.data();
    const size_t nSize = utf8.size();
    size_t i = 0;
    while (i < nSize) {
        // Runs of ASCII, the common case in file names, copy straight.
        while (i < nSize && static_cast<unsigned char>(utf8[i]) < 0x80) *p++ = char16_t(utf8[i++]);
        if (i == nSize) break;
        const unsigned char b = utf8[i];
        const size_t nLength = ValidSequenceLength(utf8, i);
        if (nLength == 0) {
            *p++ = char16_t(kEscapeBase + b);
            ++i;
            continue;
        }
        uint32_t cp = b & (0x7F >> nLength);
        for (size_t k = 1; k < nLength; ++k) cp = (cp << 6) | (utf8[i + k] & 0x3F);
        if (cp < 0x10000) {
            *p++ = char16_t(cp);
        } else {
            cp -= 0x10000;
            *p++ = char16_t(0xD800 + (cp >> 10));
            *p++ = char16_t(0xDC00 + (cp & 0x3FF));
        }
        i += nLength;
    }
    out.resize(static_cast<size_t>(p - out.data()));
}

std::u16string Utf8ToUtf16(std::string_view utf8) {
    std::u16string out;
    Utf8ToUtf16(utf8, out);
    return out;
}

std::string Utf16ToUtf8(std::u16string_view utf16) {
    std::string out;
    out.reserve(utf16.size());
    for (size_t i = 0; i < utf16.size(); ++i) {
        const char16_t ch = utf16[i];
        if (ch >= 0xD800 && ch <= 0xDBFF && i + 1 < utf16.size() && utf16[i + 1] >= 0xDC00 &&
            utf16[i + 1] <= 0xDFFF) {
            AppendUtf8(out, 0x10000 + ((uint32_t(ch) - 0xD800) << 10) + (utf16[i + 1] - 0xDC00));
            ++i;
        } else if (ch >= kEscapeBase + 0x80 && ch <= kEscapeBase + 0xFF) {
            out += char(ch - kEscapeBase);
        } else {
            // Any other lone surrogate is written as its 3-byte form.
            AppendUtf8(out, ch);
        }
    }
    return out;
}

char16_t ToUpper(char16_t ch) {
    return char16_t(ch + kUpperPages[kUpperPageIndex[ch >> 8]][ch & 0xFF]);
}

void MakeUpper(std::u16string& text) {
    for (char16_t& ch : text) ch = ToUpper(ch);
}

std::u16string ToUpperCopy(std::u16string_view text) {
    std::u16string out(text);
    MakeUpper(out);
    return out;
}

int CompareOrdinal(std::u16string_view a, std::u16string_view b) {
    // char16_t is unsigned, so this orders by code unit value.
    const int n = a.compare(b);
    return n < 0 ? -1 : (n > 0 ? 1 : 0);
}

int CompareNoCase(std::u16string_view a, std::u16string_view b) {
    const size_t n = a.size() < b.size() ? a.size() : b.size();
    for (size_t i = 0; i < n; ++i) {
        if (a[i] == b[i]) continue;
        const char16_t ua = ToUpper(a[i]), ub = ToUpper(b[i]);
        if (ua != ub) return ua < ub ? -1 : 1;
    }
    return a.size() < b.size() ? -1 : (a.size() > b.size() ? 1 : 0);
}

bool EqualsNoCase(std::u16string_view a, std::u16string_view b) {
    return a.size() == b.size() && CompareNoCase(a, b) == 0;
}

}  // namespace zv::platform
