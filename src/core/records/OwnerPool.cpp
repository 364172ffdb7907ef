#include "core/records/OwnerPool.h"

#include <memory>
#include <vector>

#include "platform/Text.h"

namespace zv {
namespace {

// Sorted by ordinal comparison. Only the user-interface thread interns.
std::vector<std::unique_ptr<const std::u16string>>& Pool() {
    static std::vector<std::unique_ptr<const std::u16string>> s_aPool;
    return s_aPool;
}

size_t s_nLastHit = 0;

}  // namespace

const std::u16string* InternOwner(std::u16string_view strName) {
    auto& aPool = Pool();
    if (s_nLastHit < aPool.size() && *aPool[s_nLastHit] == strName) return aPool[s_nLastHit].get();

    size_t nLow = 0, nHigh = aPool.size();
    while (nLow < nHigh) {
        const size_t nMid = (nLow + nHigh) / 2;
        const int nCmp = platform::CompareOrdinal(*aPool[nMid], strName);
        if (nCmp == 0) {
            s_nLastHit = nMid;
            return aPool[nMid].get();
        }
        if (nCmp < 0)
            nLow = nMid + 1;
        else
            nHigh = nMid;
    }
    // nLow is the first slot whose string compares greater.
    aPool.insert(aPool.begin() + nLow, std::make_unique<const std::u16string>(strName));
    s_nLastHit = nLow;
    return aPool[nLow].get();
}

const std::u16string& NoOwner() {
    static const std::u16string s_strEmpty;
    return s_strEmpty;
}

size_t OwnerPoolSize() { return Pool().size(); }

}  // namespace zv
