// Arrays of record pointers. Indexing out of range is a programming error
// and throws std::invalid_argument; no caller recovers from it.
#pragma once

#include <cstddef>
#include <stdexcept>
#include <vector>

namespace zv {

// A list of pointers that owns nothing; result lists and scan registers.
template <typename T>
class CPtrArray {
public:
    size_t GetSize() const { return m_aItems.size(); }
    bool IsEmpty() const { return m_aItems.empty(); }

    T* operator[](size_t i) const { return m_aItems[CheckIndex(i)]; }
    T*& operator[](size_t i) { return m_aItems[CheckIndex(i)]; }

    void Add(T* p) { m_aItems.push_back(p); }
    void InsertAt(size_t i, T* p) {
        if (i > m_aItems.size()) throw std::invalid_argument("array index out of range");
        m_aItems.insert(m_aItems.begin() + i, p);
    }
    void RemoveAt(size_t i) { m_aItems.erase(m_aItems.begin() + CheckIndex(i)); }
    void RemoveAll() { m_aItems.clear(); }
    void Reserve(size_t n) { m_aItems.reserve(n); }
    void FreeExtra() { m_aItems.shrink_to_fit(); }

    auto begin() { return m_aItems.begin(); }
    auto end() { return m_aItems.end(); }
    auto begin() const { return m_aItems.begin(); }
    auto end() const { return m_aItems.end(); }
    std::vector<T*>& Items() { return m_aItems; }
    const std::vector<T*>& Items() const { return m_aItems; }

protected:
    size_t CheckIndex(size_t i) const {
        if (i >= m_aItems.size()) throw std::invalid_argument("array index out of range");
        return i;
    }
    std::vector<T*> m_aItems;
};

// A list that owns its records and deletes them, last element first.
template <typename T>
class COwningPtrArray : public CPtrArray<T> {
public:
    COwningPtrArray() = default;
    COwningPtrArray(const COwningPtrArray&) = delete;
    COwningPtrArray& operator=(const COwningPtrArray&) = delete;
    ~COwningPtrArray() { DeleteAll(); }

    void DeleteAll() {
        while (!this->m_aItems.empty()) {
            T* p = this->m_aItems.back();
            this->m_aItems.pop_back();
            delete p;
        }
    }
    // Removes the entry and deletes the record.
    void DeleteAt(size_t i) {
        T* p = this->m_aItems[this->CheckIndex(i)];
        this->m_aItems.erase(this->m_aItems.begin() + i);
        delete p;
    }
};

}  // namespace zv
