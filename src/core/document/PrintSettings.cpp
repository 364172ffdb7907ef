#include "core/document/PrintSettings.h"

namespace zv {

CPrintSettings::CPrintSettings() {
    m_aFlags.fill(1);
    m_aFlags[PrintNoFiles] = 0;
    m_aFlags[PrintNoDirs] = 0;
    m_aFlags[PrintNameSeparateColumn] = 0;
    m_printFont.m_nHeight = -12;
    m_printFont.m_nWeight = 400;
    m_printFont.m_strFaceName = u"Arial Unicode MS";
    for (int nGroup = 0; nGroup < MetadataGroupCount; ++nGroup)
        m_aMetadataFlags[nGroup].assign(
            MetadataPrintFields(static_cast<EMetadataGroup>(nGroup)).size(), 1);
}

bool CPrintSettings::MetadataFlag(EMetadataGroup eGroup, int32_t nFieldId) const {
    const int nIndex = MetadataFieldIndex(eGroup, nFieldId);
    return nIndex >= 0 && m_aMetadataFlags[eGroup][static_cast<size_t>(nIndex)] != 0;
}

}  // namespace zv
