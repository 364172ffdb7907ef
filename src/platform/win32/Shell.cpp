#include "platform/Shell.h"

#include <windows.h>
// After windows.h, which it needs.
#include <shellapi.h>

#include "platform/win32/WideString.h"

namespace zv::platform {

int ShellOpen(std::u16string_view path) {
    const std::wstring strPath = ToWide(path);
    const HINSTANCE hResult =
        ShellExecuteW(nullptr, L"open", strPath.c_str(), nullptr, nullptr, SW_SHOWNORMAL);
    return static_cast<int>(reinterpret_cast<INT_PTR>(hResult));
}

bool ReadClassesRootDefault(std::u16string_view strKey, std::u16string& strValue) {
    HKEY hKey = nullptr;
    if (RegOpenKeyExW(HKEY_CLASSES_ROOT, ToWide(strKey).c_str(), 0, KEY_READ, &hKey) !=
        ERROR_SUCCESS)
        return false;
    DWORD dwType = 0, dwBytes = 0;
    bool bRead =
        RegQueryValueExW(hKey, nullptr, nullptr, &dwType, nullptr, &dwBytes) == ERROR_SUCCESS &&
        (dwType == REG_SZ || dwType == REG_EXPAND_SZ);
    if (bRead) {
        std::wstring strBuffer(dwBytes / sizeof(wchar_t) + 1, L'\0');
        bRead =
            RegQueryValueExW(hKey, nullptr, nullptr, &dwType,
                             reinterpret_cast<BYTE*>(strBuffer.data()), &dwBytes) == ERROR_SUCCESS;
        strValue = FromWide(strBuffer.c_str());
    }
    RegCloseKey(hKey);
    return bRead;
}

std::u16string GetWindowsFolder() {
    wchar_t szPath[MAX_PATH];
    const UINT nLength = ::GetWindowsDirectoryW(szPath, MAX_PATH);
    return nLength && nLength < MAX_PATH ? FromWide(szPath, nLength) : std::u16string();
}

std::u16string GetEnvironmentText(std::u16string_view strName) {
    const std::wstring strWide = ToWide(strName);
    const DWORD dwLength = GetEnvironmentVariableW(strWide.c_str(), nullptr, 0);
    if (!dwLength) return {};
    std::wstring strValue(dwLength, L'\0');
    const DWORD dwCopied = GetEnvironmentVariableW(strWide.c_str(), strValue.data(), dwLength);
    return FromWide(strValue.data(), dwCopied);
}

}  // namespace zv::platform
