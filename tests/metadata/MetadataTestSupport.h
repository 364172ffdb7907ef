// Fixtures and value lists for the metadata reader tests.
#pragma once

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "metadata/MetadataFields.h"
#include "platform/Text.h"

namespace zv::test {

// The committed fixtures; under Wine the Linux path is reached through Z:.
inline std::u16string FixturePath(const char* pszName) {
#ifdef _WIN32
    return platform::U16(std::string("Z:") + ZV_FIXTURES_DIR + "/" + pszName);
#else
    return platform::U16(std::string(ZV_FIXTURES_DIR) + "/" + pszName);
#endif
}

inline std::string FixtureBytes(const char* pszName) {
    std::ifstream in(std::filesystem::path(FixturePath(pszName)), std::ios::binary);
    std::ostringstream out;
    out << in.rdbuf();
    return out.str();
}

using LabelValues = std::vector<std::pair<std::string, std::u16string>>;

// Labels and values in the order the reader added them.
inline LabelValues Listed(const MetadataValueList& aValues) {
    LabelValues aListed;
    for (const MetadataValue& value : aValues)
        aListed.emplace_back(platform::Utf16ToUtf8(value.m_pDef->m_strLabel), value.m_strValue);
    return aListed;
}

inline std::string Le32(uint32_t u) {
    return {char(u), char(u >> 8), char(u >> 16), char(u >> 24)};
}
inline std::string Le16(uint32_t u) { return {char(u), char(u >> 8)}; }

}  // namespace zv::test
