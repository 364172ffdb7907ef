// Text is UTF-16 throughout. These helpers convert to and from the UTF-8 of
// POSIX file names without loss, and upper-case and compare without regard
// to the process locale.
#pragma once

#include <string>
#include <string_view>

namespace zv::platform {

// Invalid UTF-8 bytes map to lone surrogates U+DC80 + byte, so that any
// byte string round-trips through UTF-16 and back.
std::u16string Utf8ToUtf16(std::string_view utf8);
// The same into an existing string, reusing its storage.
void Utf8ToUtf16(std::string_view utf8, std::u16string& out);
std::string Utf16ToUtf8(std::u16string_view utf16);

// Simple (one code unit to one code unit) upper-case mapping from the
// Unicode character database; code units without a mapping stay as they are.
char16_t ToUpper(char16_t ch);
void MakeUpper(std::u16string& text);
std::u16string ToUpperCopy(std::u16string_view text);

// Negative, zero or positive. Ordinal compares code units; NoCase compares
// the upper-cased code units.
int CompareOrdinal(std::u16string_view a, std::u16string_view b);
int CompareNoCase(std::u16string_view a, std::u16string_view b);
bool EqualsNoCase(std::u16string_view a, std::u16string_view b);

// For messages and tests: ASCII or UTF-8 literal text to UTF-16.
inline std::u16string U16(std::string_view utf8) { return Utf8ToUtf16(utf8); }

}  // namespace zv::platform
