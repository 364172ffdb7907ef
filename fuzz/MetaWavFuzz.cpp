// The RIFF chunk walk of a WAV file with its INFO list.
#include "MetadataFuzz.h"
#include "metadata/RiffMetadata.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pData, size_t nSize) {
    zv::CMemoryByteStream file(zv::fuzz::Bytes(pData, nSize));
    zv::MetadataValueList aValues;
    const bool bRead = zv::ReadWavStream(file, aValues);
    zv::fuzz::CheckValues(aValues);
    ZV_FUZZ_CHECK(!bRead || aValues.size() >= 5);
    return 0;
}
