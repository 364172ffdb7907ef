// OOXML packages: the ZIP directory, relationships, content types and the
// core and extended property parts.
#include "MetadataFuzz.h"
#include "metadata/OfficeMetadata.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pData, size_t nSize) {
    zv::CMemoryByteStream file(zv::fuzz::Bytes(pData, nSize));
    zv::MetadataValueList aValues;
    const bool bRead = zv::ReadPackageProperties(file, aValues);
    ZV_FUZZ_CHECK(bRead == !aValues.empty());
    zv::fuzz::CheckValues(aValues);
    return 0;
}
