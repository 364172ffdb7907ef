// The CRC-32 of core/Crc32.h, computed fast. Every path gives exactly the
// values of the table form; which one runs is chosen at run time from what
// the processor offers.
#pragma once

#include <cstddef>
#include <cstdint>

namespace zv {

enum class ECrc32Path {
    Auto,        // the fastest path the processor has
    Table,       // one table lookup per byte (the reference form)
    Slicing,     // sixteen bytes per step through sixteen tables; runs anywhere
    Clmul,       // carry-less multiplication folding, 128 bits wide (x86-64, PCLMULQDQ)
    Vpclmul,     // the same 256 bits wide (x86-64, VPCLMULQDQ with AVX2)
    Vpclmul512,  // the same 512 bits wide (x86-64, VPCLMULQDQ with AVX-512F)
};

// Runs bytes through the register like Crc32Update: no init, no final step.
uint32_t Crc32UpdateFast(uint32_t uRegister, const void* pData, size_t uLength);
// Init, bytes, final. An empty buffer gives 0.
uint32_t Crc32BufferFast(const void* pData, size_t uLength);

// For tests and benchmarks. Whether this processor can run a path (Auto and
// the portable paths always can).
bool Crc32PathAvailable(ECrc32Path ePath);
// Runs one given path, which must be available.
uint32_t Crc32UpdateWithPath(ECrc32Path ePath, uint32_t uRegister, const void* pData,
                             size_t uLength);
// Makes Crc32UpdateFast use a path from now on; Auto returns to the
// automatic choice. False, with nothing changed, when it is unavailable.
bool SetCrc32Path(ECrc32Path ePath);
// The path Crc32UpdateFast uses now; never Auto.
ECrc32Path GetCrc32Path();

}  // namespace zv
