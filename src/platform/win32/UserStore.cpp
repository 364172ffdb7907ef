// The Windows user store: a registry key under HKEY_CURRENT_USER\Software,
// values of type REG_SZ. The registry makes each change durable by itself.
#include "platform/UserStore.h"

#include <windows.h>

#include "platform/win32/WideString.h"

namespace zv::platform {
namespace {

class CRegistryUserStore : public IUserStore {
public:
    explicit CRegistryUserStore(HKEY hKey) : m_hKey(hKey) {}
    ~CRegistryUserStore() override { ::RegCloseKey(m_hKey); }
    CRegistryUserStore(const CRegistryUserStore&) = delete;
    CRegistryUserStore& operator=(const CRegistryUserStore&) = delete;

    bool ReadValue(std::u16string_view strName, std::u16string& strValue) override {
        const std::wstring strWideName = ToWide(strName);
        DWORD dwType = 0;
        DWORD dwBytes = 0;
        if (::RegQueryValueExW(m_hKey, strWideName.c_str(), nullptr, &dwType, nullptr, &dwBytes) !=
                ERROR_SUCCESS ||
            dwType != REG_SZ)
            return false;
        std::wstring strData(dwBytes / sizeof(wchar_t) + 1, L'\0');
        if (::RegQueryValueExW(m_hKey, strWideName.c_str(), nullptr, &dwType,
                               reinterpret_cast<BYTE*>(strData.data()), &dwBytes) != ERROR_SUCCESS)
            return false;
        strData.resize(dwBytes / sizeof(wchar_t));
        // The stored terminator, when there is one, is not part of the text.
        while (!strData.empty() && strData.back() == L'\0') strData.pop_back();
        strValue = FromWide(strData);
        return true;
    }

    bool WriteValue(std::u16string_view strName, std::u16string_view strValue) override {
        const std::wstring strData = ToWide(strValue);
        const DWORD dwBytes = DWORD((strData.size() + 1) * sizeof(wchar_t));
        return ::RegSetValueExW(m_hKey, ToWide(strName).c_str(), 0, REG_SZ,
                                reinterpret_cast<const BYTE*>(strData.c_str()),
                                dwBytes) == ERROR_SUCCESS;
    }

    bool DeleteValue(std::u16string_view strName) override {
        return ::RegDeleteValueW(m_hKey, ToWide(strName).c_str()) == ERROR_SUCCESS;
    }

    bool Flush() override { return true; }

private:
    HKEY m_hKey;
};

}  // namespace

std::u16string DefaultUserStorePlace() { return u"Halvorn\\Zorvane"; }

std::unique_ptr<IUserStore> OpenUserStore(std::u16string_view strPlace) {
    // "Software" first, then the program's key under it, created if missing.
    HKEY hSoftware = nullptr;
    if (::RegOpenKeyExW(HKEY_CURRENT_USER, L"Software", 0, KEY_READ | KEY_CREATE_SUB_KEY,
                        &hSoftware) != ERROR_SUCCESS)
        return nullptr;
    HKEY hKey = nullptr;
    const LONG nResult =
        ::RegCreateKeyExW(hSoftware, ToWide(strPlace).c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                          KEY_ALL_ACCESS, nullptr, &hKey, nullptr);
    ::RegCloseKey(hSoftware);
    if (nResult != ERROR_SUCCESS) return nullptr;
    return std::make_unique<CRegistryUserStore>(hKey);
}

}  // namespace zv::platform
