#include "ui/logic/ListSearch.h"

#include "core/records/DirectoryData.h"
#include "core/records/FileData.h"
#include "filters/WildcardMatch.h"
#include "platform/Text.h"

namespace zv {
namespace {

size_t RowCount(const CDirectoryData* pDir) {
    return pDir ? pDir->m_aChildren.GetSize() + pDir->m_aFiles.GetSize() : 0;
}

bool RowHolds(const CListRow& row, const CFindRequest& request, std::u16string_view strWanted) {
    std::u16string strText;
    if (request.m_eWhat == FindAFile && row.m_pFile)
        strText = row.m_pFile->m_strName.Str();
    else if (request.m_eWhat == FindADirectory && row.m_pDir)
        strText = row.m_pDir->GetFullPath();
    else
        return false;
    if (!request.m_bCaseSensitive) platform::MakeUpper(strText);
    return strText.find(strWanted) != std::u16string::npos;
}

}  // namespace

std::vector<size_t> MatchingRows(CDirectoryData* pDir, std::u16string_view strPattern) {
    std::vector<size_t> aRows;
    if (strPattern.empty()) return aRows;
    const std::u16string strUpperPattern = platform::ToUpperCopy(strPattern);
    const size_t nCount = RowCount(pDir);
    for (size_t i = 0; i < nCount; ++i) {
        const CListRow row = RowOf(pDir, i);
        const std::u16string_view strName =
            row.m_pDir ? row.m_pDir->m_strName.View() : row.m_pFile->m_strName.View();
        if (WildcardMatch(strUpperPattern, platform::ToUpperCopy(strName), false))
            aRows.push_back(i);
    }
    return aRows;
}

std::u16string_view FindRequestProblem(const CFindRequest& request) {
    if (!request.m_strText.empty()) return {};
    return request.m_eWhat == FindAFile ? u"Please enter a file name"
                                        : u"Please enter a directory name";
}

long FindRow(CDirectoryData* pDir, const CFindRequest& request, EFindFrom eFrom, long nCurrent) {
    const long nCount = static_cast<long>(RowCount(pDir));
    const bool bForward = eFrom == FindNext || eFrom == FindFromBeginning;
    long nRow = 0;
    switch (eFrom) {
        case FindNext:
            nRow = nCurrent + 1;
            break;
        case FindPrev:
            nRow = nCurrent - 1;
            break;
        case FindFromBeginning:
            nRow = 0;
            break;
        case FindFromEnd:
            nRow = nCount - 1;
            break;
    }
    const std::u16string strWanted =
        request.m_bCaseSensitive ? request.m_strText : platform::ToUpperCopy(request.m_strText);
    for (; nRow >= 0 && nRow < nCount; nRow += bForward ? 1 : -1)
        if (RowHolds(RowOf(pDir, static_cast<size_t>(nRow)), request, strWanted)) return nRow;
    return -1;
}

std::vector<std::u16string> FullPathsOf(const std::vector<CListRow>& aRows) {
    std::vector<std::u16string> aPaths;
    for (const CListRow& row : aRows) {
        if (row.m_pDir)
            aPaths.push_back(row.m_pDir->GetFullPath());
        else if (row.m_pFile)
            aPaths.push_back(row.m_pFile->GetFullPath());
    }
    return aPaths;
}

}  // namespace zv
