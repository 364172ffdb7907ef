#include <windows.h>

#include "platform/FileSystem.h"

namespace zv::platform {

// Read once per process: one character of HKEY_CURRENT_USER\Control
// Panel\International\sThousand; ',' when it cannot be read.
char16_t GetThousandsSeparator() {
    static const char16_t s_chSeparator = [] {
        HKEY hKey = nullptr;
        if (::RegOpenKeyExW(HKEY_CURRENT_USER, L"Control Panel\\International", 0, KEY_READ,
                            &hKey) != ERROR_SUCCESS) {
            return u',';
        }
        wchar_t aValue[2] = {0, 0};
        DWORD dwSize = sizeof(wchar_t);
        const LONG nResult = ::RegQueryValueExW(hKey, L"sThousand", nullptr, nullptr,
                                                reinterpret_cast<BYTE*>(aValue), &dwSize);
        ::RegCloseKey(hKey);
        return nResult == ERROR_SUCCESS && aValue[0] ? static_cast<char16_t>(aValue[0]) : u',';
    }();
    return s_chSeparator;
}

}  // namespace zv::platform
