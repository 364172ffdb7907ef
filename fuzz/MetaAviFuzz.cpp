// The opening sequence and audio hunt of an AVI file.
#include "MetadataFuzz.h"
#include "metadata/RiffMetadata.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pData, size_t nSize) {
    zv::CMemoryByteStream file(zv::fuzz::Bytes(pData, nSize));
    zv::MetadataValueList aValues;
    const bool bRead = zv::ReadAviStream(file, aValues);
    zv::fuzz::CheckValues(aValues);
    ZV_FUZZ_CHECK(bRead ? (aValues.size() == 6 || aValues.size() == 11) : aValues.empty());
    return 0;
}
