#include "compare/CompareFind.h"

#include "core/document/CompareList.h"
#include "platform/Text.h"

namespace zv {

std::u16string CCompareFinder::Refusal(EKind eKind, std::u16string_view strText) {
    if (!strText.empty()) return {};
    return eKind == FindFile ? u"Please enter a file name" : u"Please enter a directory name";
}

bool CCompareFinder::IsHit(const CCompareEntry& entry, EKind eKind,
                           std::u16string_view strUpperText) {
    if (entry.m_bFile != (eKind == FindFile)) return false;
    for (const std::u16string& strName : {entry.LeftName(), entry.RightName()})
        if (!strName.empty() &&
            platform::ToUpperCopy(strName).find(strUpperText) != std::u16string::npos)
            return true;
    return false;
}

int CCompareFinder::Search(const std::vector<const CCompareEntry*>& aRows, EKind eKind,
                           std::u16string_view strText, int nStart, int nStep) {
    const std::u16string strUpper = platform::ToUpperCopy(strText);
    for (int i = nStart; i >= 0 && i < static_cast<int>(aRows.size()); i += nStep)
        if (IsHit(*aRows[i], eKind, strUpper)) return m_nLastHit = i;
    m_nLastHit = -1;
    return -1;
}

int CCompareFinder::FindNext(const std::vector<const CCompareEntry*>& aRows, EKind eKind,
                             std::u16string_view strText) {
    return Search(aRows, eKind, strText, m_nLastHit + 1, 1);
}

int CCompareFinder::FindPrev(const std::vector<const CCompareEntry*>& aRows, EKind eKind,
                             std::u16string_view strText) {
    const int nStart = m_nLastHit < 0 ? static_cast<int>(aRows.size()) - 1 : m_nLastHit - 1;
    return Search(aRows, eKind, strText, nStart, -1);
}

int CCompareFinder::FindFromBeginning(const std::vector<const CCompareEntry*>& aRows, EKind eKind,
                                      std::u16string_view strText) {
    return Search(aRows, eKind, strText, 0, 1);
}

int CCompareFinder::FindFromEnd(const std::vector<const CCompareEntry*>& aRows, EKind eKind,
                                std::u16string_view strText) {
    return Search(aRows, eKind, strText, static_cast<int>(aRows.size()) - 1, -1);
}

}  // namespace zv
