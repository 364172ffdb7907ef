// CRC-32 by carry-less multiplication. Long stretches are folded into
// parallel 128-bit accumulators (eight xmm, eight ymm holding two each, or
// four zmm holding four each), the accumulators are folded into one, and a
// Barrett reduction brings that down to the 32-bit register. Each function carries its own target
// attribute: the program is built for the baseline processor, and this code
// runs only where the processor reports the instructions.
#include "analyses/Crc32Kernels.h"

#ifdef ZV_CRC32_HAVE_CLMUL

#include <cpuid.h>
#include <immintrin.h>

#define ZV_TARGET_CLMUL __attribute__((target("pclmul")))
#define ZV_TARGET_VPCLMUL __attribute__((target("pclmul,avx2,vpclmulqdq")))
#define ZV_TARGET_VPCLMUL512 __attribute__((target("pclmul,avx2,avx512f,vpclmulqdq")))

namespace zv::crc32_kernels {
namespace {

// x^n mod P(x) for the normal-order polynomial 0x104C11DB7.
constexpr uint64_t XPowModP(unsigned n) {
    uint64_t r = 1;
    for (unsigned i = 0; i < n; ++i) {
        r <<= 1;
        if (r & 0x100000000ull) r ^= 0x104C11DB7ull;
    }
    return r;
}

constexpr uint64_t Reflect32(uint64_t v) {
    uint64_t r = 0;
    for (int i = 0; i < 32; ++i)
        if (v & (1ull << i)) r |= 1ull << (31 - i);
    return r;
}

// The folding constant for bit distance n, in the reflected domain. Folding
// a 128-bit accumulator forward by D bits multiplies its low half by
// K(D + 32) and its high half by K(D - 32).
constexpr uint64_t K(unsigned n) { return Reflect32(XPowModP(n)) << 1; }

static_assert(K(128 + 32) == 0x1751997D0ull && K(128 - 32) == 0x0CCAA009Eull);
static_assert(K(512 + 32) == 0x154442BD4ull && K(512 - 32) == 0x1C6E41596ull);
static_assert(K(64) == 0x163CD6124ull);

// Barrett reduction: the reflected polynomial and floor(x^64 / P), 33 bits.
constexpr uint64_t kPoly = 0x1DB710641ull, kMu = 0x1F7011641ull;

constexpr int kLanes = 8;  // accumulators of the 128- and 256-bit main loops
// Accumulators of the 512-bit main loop: with three-way xors, four keep the
// multipliers busy, and the 256-byte stride leaves short tails.
constexpr int kLanes512 = 4;

inline __m128i Load(const unsigned char* p) {
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
}

ZV_TARGET_CLMUL inline __m128i Fold(__m128i x, __m128i k, __m128i next) {
    const __m128i lo = _mm_clmulepi64_si128(x, k, 0x00);
    const __m128i hi = _mm_clmulepi64_si128(x, k, 0x11);
    return _mm_xor_si128(_mm_xor_si128(lo, hi), next);
}

ZV_TARGET_CLMUL inline __m128i Fold128Constant() {
    return _mm_set_epi64x(K(128 - 32), K(128 + 32));
}

// Folds whole 16-byte blocks into acc, reduces it to 32 bits and runs the
// last bytes through the slicing tables.
ZV_TARGET_CLMUL uint32_t Finish(__m128i acc, const unsigned char* p, size_t n) {
    const __m128i k128 = Fold128Constant();
    for (; n >= 16; p += 16, n -= 16) acc = Fold(acc, k128, Load(p));

    // 128 bits to 96: the low half moves up by 64 bits onto the high half.
    const __m128i mask32 = _mm_setr_epi32(-1, 0, -1, 0);
    acc = _mm_xor_si128(_mm_srli_si128(acc, 8), _mm_clmulepi64_si128(acc, k128, 0x10));
    // 96 bits to 64: the low 32 bits move up by 32.
    const __m128i k64 = _mm_set_epi64x(0, K(64));
    acc = _mm_xor_si128(_mm_srli_si128(acc, 4),
                        _mm_clmulepi64_si128(_mm_and_si128(acc, mask32), k64, 0x00));
    // Barrett: q = floor(acc * mu / x^64), and acc - q * P is the remainder.
    const __m128i poly = _mm_set_epi64x(kMu, kPoly);
    __m128i q = _mm_clmulepi64_si128(_mm_and_si128(acc, mask32), poly, 0x10);
    q = _mm_clmulepi64_si128(_mm_and_si128(q, mask32), poly, 0x00);
    acc = _mm_xor_si128(acc, q);
    const auto uRegister = static_cast<uint32_t>(_mm_cvtsi128_si32(_mm_srli_si128(acc, 4)));
    return UpdateSlicing(uRegister, p, n);
}

// The register state the operating system saves (XCR0).
uint32_t OsSavedState() {
    uint32_t uLow = 0, uHigh = 0;
    __asm__("xgetbv" : "=a"(uLow), "=d"(uHigh) : "c"(0));
    return uLow;
}
constexpr uint32_t kYmmState = 0x6;   // xmm and the upper ymm halves
constexpr uint32_t kZmmState = 0xE6;  // those, the mask registers and all of zmm0-31

// Whether leaf 1 reports PCLMULQDQ and AVX and the system saves all of uStates.
bool CpuHasClmulAndState(uint32_t uStates) {
    unsigned a = 0, b = 0, c = 0, d = 0;
    if (!__get_cpuid(1, &a, &b, &c, &d)) return false;
    if (!(c & bit_PCLMUL) || !(c & bit_AVX) || !(c & bit_OSXSAVE)) return false;
    return (OsSavedState() & uStates) == uStates;
}

constexpr unsigned kVpclmulqdq = 1u << 10;  // CPUID leaf 7, ECX
constexpr unsigned kAvx512f = 1u << 16;     // CPUID leaf 7, EBX

ZV_TARGET_VPCLMUL512 inline __m512i Load512(const unsigned char* p) {
    return _mm512_loadu_si512(p);
}

// Both halves of every 128-bit lane multiplied and summed with next.
ZV_TARGET_VPCLMUL512 inline __m512i Fold512(__m512i x, __m512i k, __m512i next) {
    const __m512i lo = _mm512_clmulepi64_epi128(x, k, 0x00);
    const __m512i hi = _mm512_clmulepi64_epi128(x, k, 0x11);
    return _mm512_ternarylogic_epi32(lo, hi, next, 0x96);  // lo ^ hi ^ next
}

// The folding constants of every 128-bit lane for bit distance kBits.
template <unsigned kBits>
ZV_TARGET_VPCLMUL512 inline __m512i FoldConstant512() {
    constexpr uint64_t uLow = K(kBits + 32), uHigh = K(kBits - 32);
    return _mm512_set_epi64(uHigh, uLow, uHigh, uLow, uHigh, uLow, uHigh, uLow);
}

}  // namespace

bool CpuHasClmul() {
    unsigned a = 0, b = 0, c = 0, d = 0;
    return __get_cpuid(1, &a, &b, &c, &d) && (c & bit_PCLMUL);
}

bool CpuHasVpclmul() {
    unsigned a = 0, b = 0, c = 0, d = 0;
    if (!CpuHasClmulAndState(kYmmState) || !__get_cpuid_count(7, 0, &a, &b, &c, &d)) return false;
    return (b & bit_AVX2) && (c & kVpclmulqdq);
}

bool CpuHasVpclmul512() {
    unsigned a = 0, b = 0, c = 0, d = 0;
    if (!CpuHasClmulAndState(kZmmState) || !__get_cpuid_count(7, 0, &a, &b, &c, &d)) return false;
    return (b & bit_AVX2) && (b & kAvx512f) && (c & kVpclmulqdq);
}

ZV_TARGET_CLMUL uint32_t UpdateClmul(uint32_t uRegister, const unsigned char* p, size_t n) {
    // Below this the set-up and reduction cost more than they save.
    if (n < 256) return UpdateSlicing(uRegister, p, n);

    __m128i x[kLanes];
#pragma GCC unroll 8
    for (int i = 0; i < kLanes; ++i) x[i] = Load(p + 16 * i);
    x[0] = _mm_xor_si128(x[0], _mm_cvtsi32_si128(static_cast<int>(uRegister)));
    p += 16 * kLanes;
    n -= 16 * kLanes;

    constexpr unsigned kDistance = 128 * kLanes;
    const __m128i k = _mm_set_epi64x(K(kDistance - 32), K(kDistance + 32));
    for (; n >= 16 * kLanes; p += 16 * kLanes, n -= 16 * kLanes) {
#pragma GCC unroll 8
        for (int i = 0; i < kLanes; ++i) x[i] = Fold(x[i], k, Load(p + 16 * i));
    }

    const __m128i k128 = Fold128Constant();
    __m128i acc = x[0];
#pragma GCC unroll 8
    for (int i = 1; i < kLanes; ++i) acc = Fold(acc, k128, x[i]);
    return Finish(acc, p, n);
}

ZV_TARGET_VPCLMUL uint32_t UpdateVpclmul(uint32_t uRegister, const unsigned char* p, size_t n) {
    if (n < 512) return UpdateClmul(uRegister, p, n);

    __m256i y[kLanes];
#pragma GCC unroll 8
    for (int i = 0; i < kLanes; ++i)
        y[i] = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(p + 32 * i));
    y[0] = _mm256_xor_si256(y[0], _mm256_set_epi32(0, 0, 0, 0, 0, 0, 0, int(uRegister)));
    p += 32 * kLanes;
    n -= 32 * kLanes;

    constexpr unsigned kDistance = 256 * kLanes;
    const __m256i k = _mm256_set_epi64x(K(kDistance - 32), K(kDistance + 32), K(kDistance - 32),
                                        K(kDistance + 32));
    for (; n >= 32 * kLanes; p += 32 * kLanes, n -= 32 * kLanes) {
#pragma GCC unroll 8
        for (int i = 0; i < kLanes; ++i) {
            const __m256i lo = _mm256_clmulepi64_epi128(y[i], k, 0x00);
            const __m256i hi = _mm256_clmulepi64_epi128(y[i], k, 0x11);
            const __m256i next = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(p + 32 * i));
            y[i] = _mm256_xor_si256(_mm256_xor_si256(lo, hi), next);
        }
    }

    // The lanes in byte order: low then high half of each ymm.
    const __m128i k128 = Fold128Constant();
    __m128i acc = Fold(_mm256_castsi256_si128(y[0]), k128, _mm256_extracti128_si256(y[0], 1));
#pragma GCC unroll 8
    for (int i = 1; i < kLanes; ++i) {
        acc = Fold(acc, k128, _mm256_castsi256_si128(y[i]));
        acc = Fold(acc, k128, _mm256_extracti128_si256(y[i], 1));
    }
    return Finish(acc, p, n);
}

ZV_TARGET_VPCLMUL512 uint32_t UpdateVpclmul512(uint32_t uRegister, const unsigned char* p,
                                               size_t n) {
    constexpr size_t kStride = 64 * kLanes512;
    if (n < kStride) return UpdateClmul(uRegister, p, n);

    __m512i z[kLanes512];
#pragma GCC unroll 4
    for (int i = 0; i < kLanes512; ++i) z[i] = Load512(p + 64 * i);
    z[0] = _mm512_xor_si512(z[0], _mm512_zextsi128_si512(_mm_cvtsi32_si128(int(uRegister))));
    p += kStride;
    n -= kStride;

    const __m512i k = FoldConstant512<8 * kStride>();
    for (; n >= kStride; p += kStride, n -= kStride) {
#pragma GCC unroll 4
        for (int i = 0; i < kLanes512; ++i) z[i] = Fold512(z[i], k, Load512(p + 64 * i));
    }

    // The accumulators into one, then what is left in whole 64-byte blocks.
    const __m512i k512 = FoldConstant512<512>();
    __m512i acc = z[0];
#pragma GCC unroll 4
    for (int i = 1; i < kLanes512; ++i) acc = Fold512(acc, k512, z[i]);
    for (; n >= 64; p += 64, n -= 64) acc = Fold512(acc, k512, Load512(p));

    // The four lanes into the last: lane i moves forward by (3 - i) * 128
    // bits, the last stays where it is (its constants are zero, and the
    // blend takes it unchanged).
    constexpr uint64_t k1Low = K(384 + 32), k1High = K(384 - 32), k2Low = K(256 + 32),
                       k2High = K(256 - 32), k3Low = K(128 + 32), k3High = K(128 - 32);
    const __m512i kToLast = _mm512_set_epi64(0, 0, k3High, k3Low, k2High, k2Low, k1High, k1Low);
    __m512i folded = _mm512_xor_si512(_mm512_clmulepi64_epi128(acc, kToLast, 0x00),
                                      _mm512_clmulepi64_epi128(acc, kToLast, 0x11));
    folded = _mm512_mask_blend_epi64(0xC0, folded, acc);
    // Halves by the zero-masking extract: GCC 12 warns on the plain one and
    // on the cast.
    const __m256i half = _mm256_xor_si256(_mm512_maskz_extracti64x4_epi64(0xF, folded, 0),
                                          _mm512_maskz_extracti64x4_epi64(0xF, folded, 1));
    const __m128i x =
        _mm_xor_si128(_mm256_castsi256_si128(half), _mm256_extracti128_si256(half, 1));
    return Finish(x, p, n);
}

}  // namespace zv::crc32_kernels

#endif  // ZV_CRC32_HAVE_CLMUL
