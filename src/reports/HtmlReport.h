// The HTML report: a paragraph per directory and a table of its rows. Every
// text that comes from the disk or the user is escaped, so that a file name
// cannot put markup or script into the page.
#pragma once

#include <string>

namespace zv {

class CReportContext;
class CFileData;
class CDirectoryData;

// The two cell openings of a table, with the width of one column.
struct CHtmlCells {
    std::u16string m_strLeft;
    std::u16string m_strRight;
};

CHtmlCells WriteTableHeaderHtml(CReportContext& ctx, bool bSubdirColumns, bool bGroupColumn,
                                bool bCellsOnly, bool bPathColumn);
void WriteFileRowHtml(CReportContext& ctx, CFileData& file, bool bFullPath, const CHtmlCells& cells,
                      bool bSubdirColumns, bool bCrcExcludingTags, bool bGroupColumn,
                      bool bPathColumn);
void WriteDirRowHtml(CReportContext& ctx, CDirectoryData& dir, bool bFullPath, bool bPrefix,
                     const CHtmlCells& cells, bool bGroupColumn, bool bPathColumn);
// The empty rows that stand between duplicate groups: every cell of the
// row with a blank, no group number.
void WriteNullFileRowHtml(CReportContext& ctx, const CHtmlCells& cells, bool bSubdirColumns,
                          bool bGroupColumn, bool bPathColumn);
void WriteNullDirRowHtml(CReportContext& ctx, const CHtmlCells& cells, bool bGroupColumn,
                         bool bPathColumn);
// Opens a table and is never closed: the report's tables begin this way.
inline constexpr const char* kHtmlTableProlog =
    "<table border=\"1\" cellpadding=\"0\" cellspacing=\"0\" style=\"border-collapse: collapse\" ";
void WriteDirectoryBlockHtml(CReportContext& ctx, CDirectoryData& dir);
void WriteTreeHtml(CReportContext& ctx, CDirectoryData& root);

}  // namespace zv
