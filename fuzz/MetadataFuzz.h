// The input of a metadata fuzz target is a whole file, read from memory
// through the same stream interface as a file on disk.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "FuzzInput.h"
#include "metadata/ByteStream.h"
#include "metadata/MetadataFields.h"

namespace zv::fuzz {

inline std::string_view Bytes(const uint8_t* pData, size_t nSize) {
    return {reinterpret_cast<const char*>(pData), nSize};
}

// Every value a reader adds belongs to a field of one of the tables.
inline void CheckValues(const MetadataValueList& aValues) {
    for (const MetadataValue& value : aValues) ZV_FUZZ_CHECK(value.m_pDef != nullptr);
}

}  // namespace zv::fuzz
