// Compound files and their property sets: the installer summary and the two
// Office property sets.
#include "MetadataFuzz.h"
#include "metadata/OfficeMetadata.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pData, size_t nSize) {
    zv::CMemoryByteStream file(zv::fuzz::Bytes(pData, nSize));
    zv::MetadataValueList aValues;
    zv::ReadInstallerStream(file, aValues);
    ZV_FUZZ_CHECK(aValues.size() <= 15);
    zv::fuzz::CheckValues(aValues);
    aValues.clear();
    const bool bRead = zv::ReadStorageProperties(file, aValues);
    // Both sets give all their rows when read.
    ZV_FUZZ_CHECK(!bRead || aValues.size() == 31);
    zv::fuzz::CheckValues(aValues);
    return 0;
}
