// The drives the roots of a scan lie on, with a reference count each. The
// first page of a printed report takes its disk lines from this list.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zv {

struct CDriveEntry {
    std::u16string m_strDrive;
    uint32_t m_uValue = 0;
    uint32_t m_uRefCount = 0;
};

class CDriveList {
public:
    // Drives compare without regard to case.
    void AddDrive(std::u16string_view strDrive);
    void RemoveDrive(std::u16string_view strDrive);
    const std::vector<CDriveEntry>& GetEntries() const { return m_aEntries; }
    void RemoveAll() { m_aEntries.clear(); }

private:
    std::vector<CDriveEntry> m_aEntries;
};

}  // namespace zv
