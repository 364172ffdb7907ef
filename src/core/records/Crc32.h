// CRC-32 of IEEE 802.3: reflected polynomial 0xEDB88320, register started at
// 0xFFFFFFFF, final value complemented. The table form is the reference every
// faster formulation must agree with.
#pragma once

#include <cstddef>
#include <cstdint>

namespace zv {

inline constexpr uint32_t Crc32Init() { return 0xFFFFFFFFu; }
inline constexpr uint32_t Crc32Final(uint32_t uRegister) { return ~uRegister; }

// Runs bytes through the register; no init, no final step.
uint32_t Crc32Update(uint32_t uRegister, const void* pData, size_t uLength);

// Init, byte loop, final. An empty buffer gives 0.
uint32_t Crc32Buffer(const void* pData, size_t uLength);

// Starts a register at uRegister and runs the four bytes of uData through
// it, low byte first, with no init and no final step. The data comes first
// and the register second; every directory checksum is defined this way.
uint32_t Crc32Fold(uint32_t uData, uint32_t uRegister);

// The 256-entry table of the reflected polynomial.
const uint32_t* Crc32Table();

}  // namespace zv
