#include "core/records/DriveList.h"

#include "platform/Text.h"

namespace zv {

void CDriveList::AddDrive(std::u16string_view strDrive) {
    for (CDriveEntry& entry : m_aEntries) {
        if (platform::EqualsNoCase(entry.m_strDrive, strDrive)) {
            ++entry.m_uRefCount;
            return;
        }
    }
    m_aEntries.push_back(CDriveEntry{std::u16string(strDrive), 0, 1});
}

void CDriveList::RemoveDrive(std::u16string_view strDrive) {
    for (auto it = m_aEntries.begin(); it != m_aEntries.end(); ++it) {
        if (platform::EqualsNoCase(it->m_strDrive, strDrive)) {
            if (--it->m_uRefCount == 0) m_aEntries.erase(it);
            return;
        }
    }
}

}  // namespace zv
