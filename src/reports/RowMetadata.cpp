#include "reports/RowMetadata.h"

#include "core/records/FileData.h"
#include "metadata/Mp3Tags.h"
#include "reports/ReportColumns.h"

namespace zv {

void CRowMetadata::Read(CFileData& file, const CReportColumns& columns) {
    m_bHasVersion = m_bHasMetadata = false;
    m_aVersion.clear();
    m_aValues.clear();
    m_aGroupApplies.fill(false);
    if (columns.AnyVersion()) m_bHasVersion = ReadVersionMetadata(file, m_aVersion);
    if (!columns.AnyMetadata()) return;
    m_bHasMetadata = ReadFileMetadata(file, m_aValues);
    // The groups matter only to a row with values, which few rows have.
    if (!m_bHasMetadata) return;
    const std::u16string_view strName = file.m_strName;
    std::u16string strTail(strName.substr(strName.size() < 4 ? 0 : strName.size() - 4));
    for (char16_t& ch : strTail)
        if (ch >= u'A' && ch <= u'Z') ch = static_cast<char16_t>(ch - u'A' + u'a');
    m_aGroupApplies[MetaWav] = strTail == u".wav";
    m_aGroupApplies[MetaMp3] = IsMp3Extension(strName);
    m_aGroupApplies[MetaAvi] = strTail == u".avi";
    m_aGroupApplies[MetaMsi] = IsInstallerExtension(strName);
    m_aGroupApplies[MetaOffice] = IsOfficeExtension(strName);
}

const MetadataValue* CRowMetadata::Find(EMetadataGroup eGroup, int32_t nFieldId) const {
    return FindValue(eGroup == MetaVersion ? m_aVersion : m_aValues, nFieldId);
}

void ForEachMetadataCell(const CRowMetadata& row, const CReportColumns& columns, bool bEveryColumn,
                         const std::function<void(std::u16string_view)>& cell) {
    for (int nGroup = 0; nGroup < MetadataGroupCount; ++nGroup) {
        const auto eGroup = static_cast<EMetadataGroup>(nGroup);
        bool bValues;
        if (eGroup == MetaVersion) {
            bValues = row.m_bHasVersion;
        } else {
            if (!row.m_bHasMetadata && !bEveryColumn) return;
            bValues = row.m_bHasMetadata && row.m_aGroupApplies[eGroup];
        }
        for (const MetadataFieldDef* pDef : columns.m_aSelected[eGroup]) {
            const MetadataValue* pValue = bValues ? row.Find(eGroup, pDef->m_nFieldId) : nullptr;
            cell(pValue ? std::u16string_view(pValue->m_strValue) : std::u16string_view());
        }
    }
}

}  // namespace zv
