// ID3v2 (versions 2 to 4) and ID3v1 tags of an MP3 file.
#include "MetadataFuzz.h"
#include "metadata/Mp3Metadata.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pData, size_t nSize) {
    zv::CMemoryByteStream file(zv::fuzz::Bytes(pData, nSize));
    zv::MetadataValueList aValues;
    zv::ReadId3v2(file, aValues);
    zv::ReadId3v1(file, aValues);
    zv::fuzz::CheckValues(aValues);
    // A field is added once: the later tag never repeats one.
    for (size_t n = 0; n < aValues.size(); ++n)
        for (size_t m = n + 1; m < aValues.size(); ++m)
            ZV_FUZZ_CHECK(aValues[n].m_pDef != aValues[m].m_pDef);
    return 0;
}
