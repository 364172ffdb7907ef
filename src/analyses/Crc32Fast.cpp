#include "analyses/Crc32Fast.h"

#include <atomic>

#include "analyses/Crc32Kernels.h"
#include "core/records/Crc32.h"

namespace zv {
namespace {

using UpdateFn = uint32_t (*)(uint32_t, const unsigned char*, size_t);

uint32_t UpdateTable(uint32_t uRegister, const unsigned char* p, size_t n) {
    return Crc32Update(uRegister, p, n);
}

UpdateFn FunctionOf(ECrc32Path ePath) {
    switch (ePath) {
        case ECrc32Path::Table:
            return UpdateTable;
        case ECrc32Path::Slicing:
            return crc32_kernels::UpdateSlicing;
#ifdef ZV_CRC32_HAVE_CLMUL
        // Asked once: CPUID can cost a trip to the hypervisor.
        case ECrc32Path::Clmul: {
            static const bool s_bHas = crc32_kernels::CpuHasClmul();
            return s_bHas ? crc32_kernels::UpdateClmul : nullptr;
        }
        case ECrc32Path::Vpclmul: {
            static const bool s_bHas = crc32_kernels::CpuHasVpclmul();
            return s_bHas ? crc32_kernels::UpdateVpclmul : nullptr;
        }
        case ECrc32Path::Vpclmul512: {
            static const bool s_bHas = crc32_kernels::CpuHasVpclmul512();
            return s_bHas ? crc32_kernels::UpdateVpclmul512 : nullptr;
        }
#else
        case ECrc32Path::Clmul:
        case ECrc32Path::Vpclmul:
        case ECrc32Path::Vpclmul512:
            return nullptr;
#endif
        case ECrc32Path::Auto:
            break;
    }
    for (ECrc32Path ePath : {ECrc32Path::Vpclmul512, ECrc32Path::Vpclmul, ECrc32Path::Clmul})
        if (const UpdateFn pFn = FunctionOf(ePath)) return pFn;
    return crc32_kernels::UpdateSlicing;
}

uint32_t ResolveAndUpdate(uint32_t uRegister, const unsigned char* p, size_t n);

// Starts at a resolver that makes the choice on the first call, so the
// choice needs no static initialisation order.
std::atomic<UpdateFn> s_pUpdate{ResolveAndUpdate};

uint32_t ResolveAndUpdate(uint32_t uRegister, const unsigned char* p, size_t n) {
    const UpdateFn pChosen = FunctionOf(ECrc32Path::Auto);
    UpdateFn pExpected = ResolveAndUpdate;
    s_pUpdate.compare_exchange_strong(pExpected, pChosen);
    return s_pUpdate.load(std::memory_order_relaxed)(uRegister, p, n);
}

}  // namespace

uint32_t Crc32UpdateFast(uint32_t uRegister, const void* pData, size_t uLength) {
    return s_pUpdate.load(std::memory_order_relaxed)(
        uRegister, static_cast<const unsigned char*>(pData), uLength);
}

uint32_t Crc32BufferFast(const void* pData, size_t uLength) {
    return Crc32Final(Crc32UpdateFast(Crc32Init(), pData, uLength));
}

bool Crc32PathAvailable(ECrc32Path ePath) { return FunctionOf(ePath) != nullptr; }

uint32_t Crc32UpdateWithPath(ECrc32Path ePath, uint32_t uRegister, const void* pData,
                             size_t uLength) {
    return FunctionOf(ePath)(uRegister, static_cast<const unsigned char*>(pData), uLength);
}

bool SetCrc32Path(ECrc32Path ePath) {
    const UpdateFn pFn = FunctionOf(ePath);
    if (!pFn) return false;
    s_pUpdate.store(pFn);
    return true;
}

ECrc32Path GetCrc32Path() {
    UpdateFn pFn = s_pUpdate.load();
    if (pFn == ResolveAndUpdate) pFn = FunctionOf(ECrc32Path::Auto);
    if (pFn == UpdateTable) return ECrc32Path::Table;
    if (pFn == crc32_kernels::UpdateSlicing) return ECrc32Path::Slicing;
#ifdef ZV_CRC32_HAVE_CLMUL
    if (pFn == crc32_kernels::UpdateVpclmul) return ECrc32Path::Vpclmul;
    if (pFn == crc32_kernels::UpdateVpclmul512) return ECrc32Path::Vpclmul512;
#endif
    return ECrc32Path::Clmul;
}

}  // namespace zv
