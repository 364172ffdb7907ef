// Text crosses into the Win32 API as wide strings. wchar_t is a UTF-16 code
// unit on Windows, as char16_t is, so the conversions copy code units and
// never change the text.
#pragma once

#include <cwchar>
#include <string>
#include <string_view>

namespace zv::platform {

static_assert(sizeof(wchar_t) == sizeof(char16_t), "wchar_t must be a UTF-16 code unit");

inline std::wstring ToWide(std::u16string_view text) {
    return std::wstring(text.begin(), text.end());
}

inline std::u16string FromWide(std::wstring_view text) {
    return std::u16string(text.begin(), text.end());
}

// A null pointer gives the empty text.
inline std::u16string FromWide(const wchar_t* pText) {
    return pText ? FromWide(std::wstring_view(pText)) : std::u16string();
}

// The first uLength code units of a buffer, which need not end in a zero.
inline std::u16string FromWide(const wchar_t* pText, size_t uLength) {
    return pText ? FromWide(std::wstring_view(pText, uLength)) : std::u16string();
}

}  // namespace zv::platform
