#pragma once

#include <cstdint>
#include <string>

namespace zv {

// One line of a CRC list file: a full path and its checksum, or "UNKNOWN".
struct CCrcListEntry {
    std::u16string m_strPath;
    uint32_t m_uCrc = 0;
    bool m_bHasCrc = false;
    bool m_bMatched = false;
};

}  // namespace zv
