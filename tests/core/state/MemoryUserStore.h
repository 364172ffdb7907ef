// An in-memory user store for tests of the remembered state: every store
// OpenAppKey opens while it is installed reads and writes the same values.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "core/state/AppKey.h"
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

    bool Has(std::u16string_view strName) const {
        return m_aValues.contains(std::u16string(strName));
    }
    std::u16string Value(std::u16string_view strName) const {
        return Has(strName) ? m_aValues.at(std::u16string(strName)) : u"<absent>";
    }

    platform::CUserStoreValues m_aValues;
    std::vector<std::u16string> m_aWriteOrder;  // value names in the order written
    bool m_bFailOpen = false;
    int m_nOpens = 0;

private:
    struct CSession : platform::IUserStore {
        explicit CSession(CMemoryUserStore& owner) : m_owner(owner) {}
        bool ReadValue(std::u16string_view strName, std::u16string& strValue) override {
            if (m_owner.Has(strName)) strValue = m_owner.Value(strName);
            return m_owner.Has(strName);
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
        CMemoryUserStore& m_owner;
    };
};

}  // namespace zv::test
