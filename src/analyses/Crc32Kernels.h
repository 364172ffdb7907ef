// The formulations behind Crc32Fast.h. Each takes and returns the register,
// with no init and no final step.
#pragma once

#include <cstddef>
#include <cstdint>

#if defined(__x86_64__) && (defined(__GNUC__) || defined(__clang__))
#define ZV_CRC32_HAVE_CLMUL 1
#endif

namespace zv::crc32_kernels {

uint32_t UpdateSlicing(uint32_t uRegister, const unsigned char* p, size_t n);

#ifdef ZV_CRC32_HAVE_CLMUL
// Whether the processor has PCLMULQDQ.
bool CpuHasClmul();
// Needs CpuHasClmul(); short buffers go to UpdateSlicing.
uint32_t UpdateClmul(uint32_t uRegister, const unsigned char* p, size_t n);
// Whether the processor has VPCLMULQDQ with AVX2 and the system keeps the
// ymm registers.
bool CpuHasVpclmul();
// Needs CpuHasVpclmul(); short buffers go to UpdateClmul.
uint32_t UpdateVpclmul(uint32_t uRegister, const unsigned char* p, size_t n);
// Whether the processor has VPCLMULQDQ with AVX-512F and the system keeps
// the zmm and mask registers.
bool CpuHasVpclmul512();
// Needs CpuHasVpclmul512(); short buffers go to UpdateClmul.
uint32_t UpdateVpclmul512(uint32_t uRegister, const unsigned char* p, size_t n);
#endif

}  // namespace zv::crc32_kernels
