// The Windows user store: a registry key under HKEY_CURRENT_USER\Software,
// values of type REG_SZ. The registry makes each change durable by itself.
// From opening to closing a store owns a named mutex of the session, so
// programs running at once take turns at their read-merge-write of the
// remembered lists. A mutex is owned again by the thread owning it, so
// stores opened at once by one thread do not wait for each other.
#include "platform/UserStore.h"

#include <windows.h>

#include "platform/win32/WideString.h"

namespace zv::platform {
namespace {

class CRegistryUserStore : public IUserStore {
public:
    CRegistryUserStore(HKEY hKey, HANDLE hLock) : m_hKey(hKey), m_hLock(hLock) {}
    ~CRegistryUserStore() override {
        ::RegCloseKey(m_hKey);
        if (m_hLock) {
            ::ReleaseMutex(m_hLock);
            ::CloseHandle(m_hLock);
        }
    }
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
    HANDLE m_hLock;  // null when no mutex could be made: then unlocked
};

HANDLE TakeStoreLock(std::u16string_view strPlace) {
    std::wstring strName = L"Local\\ZorvaneUserStore.";
    for (const char16_t ch : strPlace) strName += ch == u'\\' ? L'.' : wchar_t(ch);
    HANDLE hMutex = ::CreateMutexW(nullptr, FALSE, strName.c_str());
    if (!hMutex) return nullptr;
    const DWORD dwWait = ::WaitForSingleObject(hMutex, INFINITE);
    if (dwWait != WAIT_OBJECT_0 && dwWait != WAIT_ABANDONED) {
        ::CloseHandle(hMutex);
        return nullptr;
    }
    return hMutex;
}

}  // namespace

std::u16string DefaultUserStorePlace() { return u"Halvorn\\Zorvane"; }

std::unique_ptr<IUserStore> OpenUserStore(std::u16string_view strPlace) {
    HANDLE hLock = TakeStoreLock(strPlace);
    auto Unlock = [hLock] {
        if (!hLock) return;
        ::ReleaseMutex(hLock);
        ::CloseHandle(hLock);
    };
    // "Software" first, then the program's key under it, created if missing.
    HKEY hSoftware = nullptr;
    if (::RegOpenKeyExW(HKEY_CURRENT_USER, L"Software", 0, KEY_READ | KEY_CREATE_SUB_KEY,
                        &hSoftware) != ERROR_SUCCESS) {
        Unlock();
        return nullptr;
    }
    HKEY hKey = nullptr;
    const LONG nResult =
        ::RegCreateKeyExW(hSoftware, ToWide(strPlace).c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                          KEY_ALL_ACCESS, nullptr, &hKey, nullptr);
    ::RegCloseKey(hSoftware);
    if (nResult != ERROR_SUCCESS) {
        Unlock();
        return nullptr;
    }
    return std::make_unique<CRegistryUserStore>(hKey, hLock);
}

}  // namespace zv::platform
