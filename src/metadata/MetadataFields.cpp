#include "metadata/MetadataFields.h"

#include <algorithm>
#include <memory>

namespace zv {

void MetadataFieldTable::Add(int32_t nFieldId, std::u16string_view strLabel, int32_t nPrintFlag) {
    auto pDef = std::make_unique<MetadataFieldDef>();
    pDef->m_strLabel = strLabel;
    for (char16_t c : strLabel)
        if (c != u' ') pDef->m_strElementName += c;
    pDef->m_nFieldId = nFieldId;
    pDef->m_nPrintFlag = nPrintFlag;
    m_aFields.push_back(pDef.get());
    m_aOwned.push_back(std::move(pDef));
    m_bSorted = false;
}

void MetadataFieldTable::Sort() {
    std::stable_sort(m_aFields.begin(), m_aFields.end(),
                     [](const MetadataFieldDef* a, const MetadataFieldDef* b) {
                         return a->m_nFieldId < b->m_nFieldId;
                     });
    m_bSorted = true;
}

const MetadataFieldDef* MetadataFieldTable::Find(int32_t nFieldId) const {
    auto it = std::lower_bound(
        m_aFields.begin(), m_aFields.end(), nFieldId,
        [](const MetadataFieldDef* pDef, int32_t nId) { return pDef->m_nFieldId < nId; });
    return it != m_aFields.end() && (*it)->m_nFieldId == nFieldId ? *it : nullptr;
}

bool HasField(const MetadataValueList& aValues, int32_t nFieldId) {
    return FindValue(aValues, nFieldId) != nullptr;
}

const MetadataValue* FindValue(const MetadataValueList& aValues, int32_t nFieldId) {
    for (const MetadataValue& value : aValues)
        if (value.m_pDef && value.m_pDef->m_nFieldId == nFieldId) return &value;
    return nullptr;
}

}  // namespace zv
