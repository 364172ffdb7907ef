#include "reports/ReportColumns.h"

#include <algorithm>

#include "core/document/Document.h"
#include "metadata/MetadataFields.h"

namespace zv {

bool CReportColumns::AnyMetadata() const {
    return std::any_of(m_aSelected.begin(), m_aSelected.end(),
                       [](const auto& aFields) { return !aFields.empty(); });
}

size_t CReportColumns::MetadataColumnCount() const {
    size_t nCount = 0;
    for (const auto& aFields : m_aSelected) nCount += aFields.size();
    return nCount;
}

bool CReportColumns::IsSelected(EMetadataGroup eGroup, const MetadataFieldDef* pDef) const {
    const auto& aFields = m_aSelected[eGroup];
    return std::find(aFields.begin(), aFields.end(), pDef) != aFields.end();
}

CReportColumns SelectedColumns(const CWZorvaneDoc& doc) {
    CReportColumns columns;
    for (int nGroup = 0; nGroup < MetadataGroupCount; ++nGroup) {
        const auto eGroup = static_cast<EMetadataGroup>(nGroup);
        for (const MetadataFieldDef* pDef : MetadataTable(eGroup).Fields())
            if (doc.m_print.MetadataFlag(eGroup, pDef->m_nFieldId))
                columns.m_aSelected[eGroup].push_back(pDef);
    }
    return columns;
}

CReportColumns ApplyPrintFlags(CWZorvaneDoc& doc) {
    BuildMetadataTables(doc);
    return SelectedColumns(doc);
}

}  // namespace zv
