// An in-memory user store for tests of the remembered state: every store
// OpenAppKey opens while it is installed reads and writes the same values.
#pragma once

#include <map>
#include <memory>
#include <string>

#include "core/AppKey.h"
#include "platform/UserStoreText.h"

namespace zv::test {

class CMemoryUserStore {
public:
    CMemoryUserStore() {
        SetAppKeyOpener([this]() -> std::unique_ptr<platform::IUserStore> {
            ++m_nOpens;
            if (m_bFailOpen) return nullptr;
            return std::make_unique<CSession>(*this);
        });
    }
    ~CMemoryUserStore() { SetAppKeyOpener(nullptr); }
    CMemoryUserStore(const CMemoryUserStore&) = delete;
    CMemoryUserStore& operator=(const CMemoryUserStore&) = delete;

    platform::CUserStoreValues m_aValues;
    // Value names in the order of their first write.
    std::vector<std::u16string> m_aWriteOrder;
    bool m_bFailOpen = false;
    int m_nOpens = 0;

    bool Has(const std::u16string& strName) const { return m_aValues.count(strName) != 0; }
    std::u16string Value(const std::u16string& strName) const {
        const auto it = m_aValues.find(strName);
        return it == m_aValues.end() ? u"<absent>" : it->second;
    }

private:
    class CSession : public platform::IUserStore {
    public:
        explicit CSession(CMemoryUserStore& owner) : m_owner(owner) {}
        bool ReadValue(std::u16string_view strName, std::u16string& strValue) override {
            const auto it = m_owner.m_aValues.find(std::u16string(strName));
            if (it == m_owner.m_aValues.end()) return false;
            strValue = it->second;
            return true;
        }
        bool WriteValue(std::u16string_view strName, std::u16string_view strValue) override {
            m_owner.m_aWriteOrder.emplace_back(strName);
            m_owner.m_aValues[std::u16string(strName)] = strValue;
            return true;
        }
        bool DeleteValue(std::u16string_view strName) override {
            return m_owner.m_aValues.erase(std::u16string(strName)) != 0;
        }
        bool Flush() override { return true; }

    private:
        CMemoryUserStore& m_owner;
    };
};

}  // namespace zv::test
