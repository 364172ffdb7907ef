#include "core/records/Crc32.h"

#include <array>

namespace zv {
namespace {

constexpr std::array<uint32_t, 256> MakeTable() {
    std::array<uint32_t, 256> aTable{};
    for (uint32_t i = 0; i < 256; ++i) {
        uint32_t c = i;
        for (int k = 0; k < 8; ++k) c = (c & 1) ? 0xEDB88320u ^ (c >> 1) : c >> 1;
        aTable[i] = c;
    }
    return aTable;
}

constexpr std::array<uint32_t, 256> kTable = MakeTable();

}  // namespace

const uint32_t* Crc32Table() { return kTable.data(); }

uint32_t Crc32Update(uint32_t uRegister, const void* pData, size_t uLength) {
    const auto* p = static_cast<const unsigned char*>(pData);
    for (size_t i = 0; i < uLength; ++i)
        uRegister = kTable[(uRegister ^ p[i]) & 0xFF] ^ (uRegister >> 8);
    return uRegister;
}

uint32_t Crc32Buffer(const void* pData, size_t uLength) {
    return Crc32Final(Crc32Update(Crc32Init(), pData, uLength));
}

uint32_t Crc32Fold(uint32_t uData, uint32_t uRegister) {
    for (int i = 0; i < 4; ++i) {
        uRegister = kTable[(uRegister ^ (uData & 0xFF)) & 0xFF] ^ (uRegister >> 8);
        uData >>= 8;
    }
    return uRegister;
}

}  // namespace zv
