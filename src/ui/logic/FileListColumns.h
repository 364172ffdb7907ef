// The file list's columns without a window: which columns stand where, their
// titles and widths, each cell's text, and what a click on a header does to
// the sort codes.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace zv {

class CWZorvaneDoc;
class CDirectoryData;
class CFileData;

enum EListColumn {
    ColName,
    ColSize,
    ColSizeWithSubdirs,
    ColCreated,
    ColAccessed,
    ColModified,
    ColCrc,
    ColCrcWithSubdirs,
    ColOwner,
    ColVersion,
};

// The six fixed columns, then the optional ones in the order they were
// switched on; the index of an absent column is -1.
class CFileListColumns {
public:
    CFileListColumns();

    // Adds the column at the end unless it is there; returns its index.
    int Show(EListColumn eColumn);
    void Hide(EListColumn eColumn);
    int IndexOf(EListColumn eColumn) const;
    EListColumn ColumnAt(size_t nIndex) const { return m_aColumns.at(nIndex); }
    size_t Count() const { return m_aColumns.size(); }

    static std::u16string Title(EListColumn eColumn);
    // Share of the list's client width at creation; 0 for the default width.
    static double WidthShare(EListColumn eColumn);
    static bool IsRightAligned(EListColumn eColumn);

private:
    std::vector<EListColumn> m_aColumns;
};

// One row of the list: a subdirectory or a file.
struct CListRow {
    CDirectoryData* m_pDir = nullptr;
    CFileData* m_pFile = nullptr;
};

// The text of one cell; empty where the view cannot fill it.
std::u16string CellText(const CWZorvaneDoc& doc, EListColumn eColumn, const CListRow& row);
// A date as the lists show it, local time; "(unknown)" for no date.
std::u16string DateText(uint64_t uFileTime);

// A header click: the column's ascending pair, or its descending pair when
// the file code is already the ascending one. Codes the column leaves alone
// stay as given.
struct CSortCodes {
    uint8_t m_nFileSort;
    uint8_t m_nDirSort;
};
CSortCodes SortForHeaderClick(EListColumn eColumn, CSortCodes current);

// Where the sort arrow stands: the column of the file code in force and
// whether it ascends; bFound is false for codes no column shows.
struct CSortArrow {
    bool m_bFound = false;
    EListColumn m_eColumn = ColName;
    bool m_bAscending = true;
};
CSortArrow SortArrowFor(CSortCodes codes);

// Row i of a directory's list: its subdirectories first, then its files,
// each in the order of the directory's arrays; empty past the end.
CListRow RowOf(CDirectoryData* pDir, size_t nIndex);

}  // namespace zv
