// Slicing-by-16: sixteen tables, where table k advances a byte's effect by k
// further zero bytes, so sixteen independent lookups replace sixteen
// dependent steps of the table form.
#include <array>
#include <bit>
#include <cstring>

#include "analyses/Crc32Kernels.h"
#include "core/records/Crc32.h"

namespace zv::crc32_kernels {
namespace {

using Tables = std::array<std::array<uint32_t, 256>, 16>;

constexpr Tables MakeTables() {
    Tables aTables{};
    for (uint32_t i = 0; i < 256; ++i) {
        uint32_t c = i;
        for (int k = 0; k < 8; ++k) c = (c & 1) ? 0xEDB88320u ^ (c >> 1) : c >> 1;
        aTables[0][i] = c;
    }
    for (size_t k = 1; k < 16; ++k)
        for (size_t i = 0; i < 256; ++i) {
            const uint32_t uPrev = aTables[k - 1][i];
            aTables[k][i] = (uPrev >> 8) ^ aTables[0][uPrev & 0xFF];
        }
    return aTables;
}

constexpr Tables kTables = MakeTables();

inline uint32_t Load32(const unsigned char* p) {
    uint32_t u;
    std::memcpy(&u, p, 4);
    return u;
}

}  // namespace

uint32_t UpdateSlicing(uint32_t uRegister, const unsigned char* p, size_t n) {
    if constexpr (std::endian::native != std::endian::little) return Crc32Update(uRegister, p, n);
    const auto& t = kTables;
    uint32_t c = uRegister;
    for (; n >= 16; p += 16, n -= 16) {
        const uint32_t a = Load32(p) ^ c, b = Load32(p + 4), d = Load32(p + 8), e = Load32(p + 12);
        c = t[15][a & 0xFF] ^ t[14][(a >> 8) & 0xFF] ^ t[13][(a >> 16) & 0xFF] ^ t[12][a >> 24] ^
            t[11][b & 0xFF] ^ t[10][(b >> 8) & 0xFF] ^ t[9][(b >> 16) & 0xFF] ^ t[8][b >> 24] ^
            t[7][d & 0xFF] ^ t[6][(d >> 8) & 0xFF] ^ t[5][(d >> 16) & 0xFF] ^ t[4][d >> 24] ^
            t[3][e & 0xFF] ^ t[2][(e >> 8) & 0xFF] ^ t[1][(e >> 16) & 0xFF] ^ t[0][e >> 24];
    }
    for (; n > 0; ++p, --n) c = t[0][(c ^ *p) & 0xFF] ^ (c >> 8);
    return c;
}

}  // namespace zv::crc32_kernels
