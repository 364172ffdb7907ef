// Owner lookup during a scan. Most files on a disk share a few owners, so
// two caches of 257 buckets remember names by the last four bytes of the
// security descriptor or of the owner SID. A check compares the input with
// the last hit byte for byte; otherwise the four-byte key alone decides, so
// two inputs that end alike share a name. That trade is made for speed.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zv {

class COwnerNameCache {
public:
    COwnerNameCache();

    // The owner's account name of a path, or false when it cannot be told.
    bool GetOwnerName(std::u16string_view path, std::u16string& strOwner);

    // The bucket of a four-byte key.
    static size_t BucketOf(uint32_t uKey);

private:
    struct CEntry {
        uint32_t m_uKey;
        std::vector<uint8_t> m_aBytes;
        std::u16string m_strName;
    };
    // One cache: the buckets and the last hit.
    struct CCache {
        std::vector<std::vector<CEntry>> m_aBuckets;
        const CEntry* m_pLastHit = nullptr;

        CCache();
        const CEntry* Find(const std::vector<uint8_t>& aBytes);
        void Add(const std::vector<uint8_t>& aBytes, std::u16string_view strName);
    };

    CCache m_descriptors;
    CCache m_sids;
};

// The process-wide caches; user-interface thread only.
COwnerNameCache& OwnerNames();

}  // namespace zv
