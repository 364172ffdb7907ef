#include "core/document/CompareList.h"

#include "core/records/DirectoryData.h"

namespace zv {

namespace {

std::u16string NameOf(const CFileData* pFile, const CDirectoryData* pDir) {
    if (pFile) return pFile->m_strName.Str();
    return pDir ? pDir->m_strName.Str() : std::u16string();
}

std::u16string PathOf(const CFileData* pFile, const CDirectoryData* pDir) {
    if (pFile) return pFile->GetFullPath();
    return pDir ? pDir->GetFullPath() : std::u16string();
}

}  // namespace

std::u16string CCompareEntry::LeftName() const { return NameOf(m_pLeftFile, m_pLeftDir); }
std::u16string CCompareEntry::RightName() const { return NameOf(m_pRightFile, m_pRightDir); }
std::u16string CCompareEntry::LeftPath() const { return PathOf(m_pLeftFile, m_pLeftDir); }
std::u16string CCompareEntry::RightPath() const { return PathOf(m_pRightFile, m_pRightDir); }

void CCompareList::Clear() {
    m_pLeft = nullptr;
    m_pRight = nullptr;
    m_bCompareWithSubdirs = 0;
    m_aEntries.clear();
}

}  // namespace zv
