// Text between the program's UTF-16 strings and the toolkit's strings.
#pragma once

#include <wx/string.h>

#include <string>
#include <string_view>

#include "platform/Text.h"

namespace zv {

inline wxString ToWx(std::u16string_view strText) {
#ifdef __WXMSW__
    return wxString(reinterpret_cast<const wchar_t*>(strText.data()), strText.size());
#else
    return wxString::FromUTF8(platform::Utf16ToUtf8(strText));
#endif
}

inline std::u16string FromWx(const wxString& strText) {
#ifdef __WXMSW__
    const std::wstring strWide = strText.ToStdWstring();
    return std::u16string(strWide.begin(), strWide.end());
#else
    return platform::Utf8ToUtf16(strText.utf8_string());
#endif
}

}  // namespace zv
