// The name held by a file or directory record. A scan keeps one record per
// file on the machine, so the name is one pointer to a length-prefixed
// heap block rather than a full string object.
#pragma once

#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

namespace zv {

class CRecordName {
public:
    CRecordName() = default;
    CRecordName(std::u16string_view text) { Assign(text); }
    CRecordName(const CRecordName& other) { Assign(other.View()); }
    CRecordName& operator=(const CRecordName& other) {
        if (this != &other) Assign(other.View());
        return *this;
    }
    CRecordName& operator=(std::u16string_view text) {
        Assign(text);
        return *this;
    }
    ~CRecordName() { delete[] m_pData; }

    std::u16string_view View() const {
        if (!m_pData) return {};
        uint32_t uLength;
        std::memcpy(&uLength, m_pData, sizeof uLength);
        return {m_pData + kHeaderUnits, uLength};
    }
    operator std::u16string_view() const { return View(); }
    std::u16string Str() const { return std::u16string(View()); }
    size_t GetLength() const { return View().size(); }
    bool IsEmpty() const { return GetLength() == 0; }

    friend bool operator==(const CRecordName& a, std::u16string_view b) { return a.View() == b; }

private:
    // The length sits in the first two code units of the block.
    static constexpr size_t kHeaderUnits = sizeof(uint32_t) / sizeof(char16_t);

    void Assign(std::u16string_view text) {
        char16_t* pOld = m_pData;
        m_pData = nullptr;
        if (!text.empty()) {
            const uint32_t uLength = static_cast<uint32_t>(text.size());
            m_pData = new char16_t[kHeaderUnits + uLength];
            std::memcpy(m_pData, &uLength, sizeof uLength);
            std::memcpy(m_pData + kHeaderUnits, text.data(), uLength * sizeof(char16_t));
        }
        delete[] pOld;  // after the copy: text may point into the old block
    }

    char16_t* m_pData = nullptr;
};

}  // namespace zv
