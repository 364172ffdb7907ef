#include "core/records/OwnerNameCache.h"

#include <cstring>

#include "platform/OwnerSecurity.h"

namespace zv {
namespace {

constexpr size_t kBuckets = 257;

uint32_t KeyOf(const std::vector<uint8_t>& aBytes) {
    uint32_t uKey = 0;
    if (aBytes.size() >= sizeof uKey)
        std::memcpy(&uKey, aBytes.data() + aBytes.size() - sizeof uKey, sizeof uKey);
    return uKey;
}

}  // namespace

COwnerNameCache& OwnerNames() {
    static COwnerNameCache s_cache;
    return s_cache;
}

size_t COwnerNameCache::BucketOf(uint32_t uKey) {
    int64_t nHash = 16807 * int64_t(uKey % 127773) - 2836 * int64_t(uKey / 127773);
    if (nHash < 0) nHash += 0x7FFFFFFF;
    return static_cast<size_t>(nHash) % kBuckets;
}

COwnerNameCache::COwnerNameCache() = default;

COwnerNameCache::CCache::CCache() : m_aBuckets(kBuckets) {}

const COwnerNameCache::CEntry* COwnerNameCache::CCache::Find(const std::vector<uint8_t>& aBytes) {
    if (m_pLastHit && m_pLastHit->m_aBytes == aBytes) return m_pLastHit;
    const uint32_t uKey = KeyOf(aBytes);
    for (const CEntry& entry : m_aBuckets[BucketOf(uKey)]) {
        if (entry.m_uKey == uKey) {
            m_pLastHit = &entry;
            return m_pLastHit;
        }
    }
    return nullptr;
}

void COwnerNameCache::CCache::Add(const std::vector<uint8_t>& aBytes, std::u16string_view strName) {
    const uint32_t uKey = KeyOf(aBytes);
    auto& aBucket = m_aBuckets[BucketOf(uKey)];
    // A bucket grows by whole entries; the last hit may point into it.
    m_pLastHit = nullptr;
    aBucket.push_back(CEntry{uKey, aBytes, std::u16string(strName)});
    m_pLastHit = &aBucket.back();
}

bool COwnerNameCache::GetOwnerName(std::u16string_view path, std::u16string& strOwner) {
    std::vector<uint8_t> aDescriptor;
    bool bSizeReported = false;
    if (!platform::ReadOwnerDescriptor(path, aDescriptor, bSizeReported)) return false;
    if (bSizeReported) {
        if (const CEntry* pHit = m_descriptors.Find(aDescriptor)) {
            strOwner = pHit->m_strName;
            return true;
        }
    }
    std::vector<uint8_t> aSid;
    if (!platform::OwnerSidOfDescriptor(aDescriptor, aSid)) return false;
    if (!bSizeReported) {
        if (const CEntry* pHit = m_sids.Find(aSid)) {
            strOwner = pHit->m_strName;
            return true;
        }
    }
    if (!platform::AccountNameOfSid(aSid, strOwner)) return false;
    if (bSizeReported)
        m_descriptors.Add(aDescriptor, strOwner);
    else
        m_sids.Add(aSid, strOwner);
    return true;
}

}  // namespace zv
