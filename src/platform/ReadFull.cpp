#include "platform/ReadFull.h"

namespace zv::platform {

int64_t ReadFull(CFileReader& reader, void* pData, size_t uWant) {
    auto* pBytes = static_cast<unsigned char*>(pData);
    size_t uDone = 0;
    while (uDone < uWant) {
        const int64_t n = reader.Read(pBytes + uDone, uWant - uDone);
        if (n < 0) return -1;
        if (n == 0) break;
        uDone += static_cast<size_t>(n);
    }
    return static_cast<int64_t>(uDone);
}

}  // namespace zv::platform
