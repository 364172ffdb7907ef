#include "ui/logic/FileListColumns.h"

#include <algorithm>
#include <cstdio>

#include "core/document/Document.h"
#include "core/document/SizeText.h"
#include "core/records/DirectoryData.h"
#include "core/records/FileData.h"
#include "platform/FileTime.h"
#include "platform/Text.h"

namespace zv {

CFileListColumns::CFileListColumns()
    : m_aColumns{ColName, ColSize, ColSizeWithSubdirs, ColCreated, ColAccessed, ColModified} {}

int CFileListColumns::Show(EListColumn eColumn) {
    const int nIndex = IndexOf(eColumn);
    if (nIndex >= 0) return nIndex;
    m_aColumns.push_back(eColumn);
    return static_cast<int>(m_aColumns.size() - 1);
}

void CFileListColumns::Hide(EListColumn eColumn) {
    if (eColumn <= ColModified) return;
    std::erase(m_aColumns, eColumn);
}

int CFileListColumns::IndexOf(EListColumn eColumn) const {
    const auto it = std::find(m_aColumns.begin(), m_aColumns.end(), eColumn);
    return it == m_aColumns.end() ? -1 : static_cast<int>(it - m_aColumns.begin());
}

std::u16string CFileListColumns::Title(EListColumn eColumn) {
    switch (eColumn) {
        case ColName:
            return u"Name";
        case ColSize:
            return u"Size";
        case ColSizeWithSubdirs:
            return u"Size wSub";
        case ColCreated:
            return u"Created";
        case ColAccessed:
            return u"Accessed";
        case ColModified:
            return u"Modified";
        case ColCrc:
            return u"CRC";
        case ColCrcWithSubdirs:
            return u"CRC wSub";
        case ColOwner:
            return u"Owner";
        case ColVersion:
            return u"Version";
    }
    return {};
}

double CFileListColumns::WidthShare(EListColumn eColumn) {
    switch (eColumn) {
        case ColName:
            return 0.15;
        case ColSize:
        case ColSizeWithSubdirs:
        case ColCreated:
        case ColAccessed:
        case ColModified:
            return 0.12;
        case ColOwner:
        case ColVersion:
            return 0.09;
        default:
            return 0;
    }
}

bool CFileListColumns::IsRightAligned(EListColumn eColumn) {
    return eColumn >= ColSize && eColumn <= ColModified;
}

std::u16string DateText(uint64_t uFileTime) {
    if (uFileTime == 0) return u"(unknown)";
    FILETIME ftLocal;
    SYSTEMTIME st;
    if (!platform::FileTimeToLocalFileTime(FileTimeFromUInt64(uFileTime), ftLocal) ||
        !platform::FileTimeToSystemTime(ftLocal, st))
        return {};
    const int nHour12 = st.wHour % 12 == 0 ? 12 : st.wHour % 12;
    char szText[64];
    std::snprintf(szText, sizeof szText, "%02u/%02u/%04u %02d:%02u:%02u %s", st.wMonth, st.wDay,
                  st.wYear, nHour12, st.wMinute, st.wSecond, st.wHour < 12 ? "AM" : "PM");
    return platform::Utf8ToUtf16(szText);
}

namespace {

std::u16string CrcText(uint32_t uCrc, bool bHex) {
    char szText[16];
    std::snprintf(szText, sizeof szText, bHex ? "%X" : "%u", uCrc);
    return platform::Utf8ToUtf16(szText);
}

std::u16string DirectoryCell(const CWZorvaneDoc& doc, EListColumn eColumn, CDirectoryData& dir) {
    const bool bHex = doc.m_options.m_bCrcHex != 0;
    switch (eColumn) {
        case ColName:
            return dir.m_strName.Str();
        case ColSize:
            return FormatSize(doc, dir.m_dFilesSize, u"", false);
        case ColSizeWithSubdirs:
            return FormatSize(doc, dir.GetSizeWithSubdirs(), u"", false);
        case ColCreated:
            return DateText(FileTimeToUInt64(dir.m_ftCreated));
        case ColAccessed:
            return DateText(FileTimeToUInt64(dir.m_ftAccessed));
        case ColModified:
            return DateText(FileTimeToUInt64(dir.m_ftModified));
        case ColCrc:
            return CrcText(dir.GetCrc(), bHex);
        case ColCrcWithSubdirs:
            return CrcText(dir.GetCrcWithSubdirs(), bHex);
        case ColOwner:
            return dir.GetOwner();
        case ColVersion:
            return {};
    }
    return {};
}

std::u16string FileCell(const CWZorvaneDoc& doc, EListColumn eColumn, CFileData& file) {
    switch (eColumn) {
        case ColName:
            return file.m_strName.Str();
        case ColSize:
            return FormatSize(doc, file.m_dSize, u"", false);
        case ColCreated:
            return DateText(FileTimeToUInt64(file.m_ftCreated));
        case ColAccessed:
            return DateText(FileTimeToUInt64(file.m_ftAccessed));
        case ColModified:
            return DateText(FileTimeToUInt64(file.m_ftModified));
        case ColCrc:
            return file.GetCrcText(doc.m_options.m_bCrcHex != 0);
        case ColOwner:
            return file.GetOwner();
        default:
            return {};
    }
}

struct CColumnCodes {
    EListColumn m_eColumn;
    CSortCodes m_first;
    CSortCodes m_second;
    bool m_bKeepsDirSort;
};

// The header click table; the CRC pair with subdirectories differs from
// the plain one only in its directory codes.
constexpr CColumnCodes kColumnCodes[] = {
    {ColName, {1, 1}, {2, 2}, false},
    {ColSize, {4, 6}, {5, 7}, false},
    {ColSizeWithSubdirs, {6, 8}, {7, 9}, false},
    {ColCreated, {8, 10}, {9, 11}, false},
    {ColAccessed, {10, 12}, {11, 13}, false},
    {ColModified, {12, 14}, {13, 15}, false},
    {ColCrc, {16, 16}, {17, 17}, false},
    {ColCrcWithSubdirs, {16, 18}, {17, 19}, false},
    {ColOwner, {23, 20}, {24, 21}, false},
    {ColVersion, {27, 0}, {28, 0}, true},
};

}  // namespace

std::u16string CellText(const CWZorvaneDoc& doc, EListColumn eColumn, const CListRow& row) {
    if (row.m_pDir) return DirectoryCell(doc, eColumn, *row.m_pDir);
    if (row.m_pFile) return FileCell(doc, eColumn, *row.m_pFile);
    return {};
}

CSortCodes SortForHeaderClick(EListColumn eColumn, CSortCodes current) {
    for (const CColumnCodes& codes : kColumnCodes) {
        if (codes.m_eColumn != eColumn) continue;
        const bool bSecond =
            current.m_nFileSort == codes.m_first.m_nFileSort &&
            (codes.m_bKeepsDirSort || current.m_nDirSort == codes.m_first.m_nDirSort);
        CSortCodes result = bSecond ? codes.m_second : codes.m_first;
        if (codes.m_bKeepsDirSort) result.m_nDirSort = current.m_nDirSort;
        return result;
    }
    return current;
}

CSortArrow SortArrowFor(CSortCodes codes) {
    // The two CRC columns share their file codes; the directory code tells
    // them apart, so an entry matching both codes wins.
    CSortArrow arrow;
    for (const CColumnCodes& entry : kColumnCodes) {
        const bool bFirst = codes.m_nFileSort == entry.m_first.m_nFileSort;
        if (!bFirst && codes.m_nFileSort != entry.m_second.m_nFileSort) continue;
        const bool bDirMatches = entry.m_bKeepsDirSort ||
                                 codes.m_nDirSort == entry.m_first.m_nDirSort ||
                                 codes.m_nDirSort == entry.m_second.m_nDirSort;
        if (arrow.m_bFound && !bDirMatches) continue;
        arrow = {true, entry.m_eColumn, bFirst};
        if (bDirMatches) break;
    }
    return arrow;
}

CListRow RowOf(CDirectoryData* pDir, size_t nIndex) {
    if (!pDir) return {};
    const size_t nChildren = pDir->m_aChildren.GetSize();
    if (nIndex < nChildren) return {pDir->m_aChildren[nIndex], nullptr};
    if (nIndex - nChildren < pDir->m_aFiles.GetSize())
        return {nullptr, pDir->m_aFiles[nIndex - nChildren]};
    return {};
}

}  // namespace zv
