// The frame header search and the stream values of an MP3 file.
#include "MetadataFuzz.h"
#include "metadata/Mp3Metadata.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pData, size_t nSize) {
    zv::CMemoryByteStream file(zv::fuzz::Bytes(pData, nSize));
    zv::MetadataValueList aValues;
    const bool bFound = zv::ReadMp3Stream(file, aValues);
    zv::fuzz::CheckValues(aValues);
    // With a header, the six stream values come first; without one, nothing.
    ZV_FUZZ_CHECK(bFound ? aValues.size() >= 6 : aValues.empty());
    return 0;
}
