// The resource tree of a PE file and the version block found there.
#include <string>

#include "MetadataFuzz.h"
#include "metadata/VersionMetadata.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pData, size_t nSize) {
    zv::CMemoryByteStream file(zv::fuzz::Bytes(pData, nSize));
    std::string strBlock;
    zv::MetadataValueList aValues;
    if (zv::ReadPeVersionBlock(file, strBlock)) {
        ZV_FUZZ_CHECK(strBlock.size() <= zv::kMaxVersionBlock);
        zv::ReadVersionBlockFields(strBlock, aValues);
    }
    // The input read as a version block itself.
    zv::ReadVersionBlockFields(zv::fuzz::Bytes(pData, nSize), aValues);
    zv::fuzz::CheckValues(aValues);
    return 0;
}
