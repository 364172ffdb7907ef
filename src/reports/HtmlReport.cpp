#include "reports/HtmlReport.h"

#include <cstdio>

#include "platform/FileSystem.h"
#include "platform/Text.h"
#include "reports/DirTotals.h"
#include "reports/ReportContext.h"
#include "reports/ReportProgress.h"
#include "reports/ReportStream.h"
#include "reports/TreeWalk.h"
#include "reports/ValueText.h"

namespace zv {
namespace {

constexpr const char* kTableProlog = kHtmlTableProlog;

int CountColumns(const CReportContext& ctx, bool bSubdirColumns, bool bGroupColumn,
                 bool bPathColumn) {
    int nColumns = bPathColumn ? 2 : 1;
    if (bGroupColumn) ++nColumns;
    for (EPrintFlag eFlag :
         {PrintSize, PrintSizeOnDisk, PrintSizeActual, PrintCreated, PrintAccessed, PrintModified,
          PrintAttributes, PrintCrc, PrintCrcSubdirs, PrintOwner, PrintLinkCount})
        nColumns += ctx.Flag(eFlag);
    if (bSubdirColumns) nColumns += ctx.Flag(PrintSizeSubdirs) + ctx.Flag(PrintSizeActualSubdirs);
    return nColumns + static_cast<int>(ctx.m_columns.MetadataColumnCount());
}

void Cell(CReportStream& out, const std::u16string& strCell, std::u16string_view strValue) {
    out << strCell << strValue << "</td>\n";
}

void EmptyCell(CReportStream& out, const std::u16string& strCell) { out << strCell << " </td>\n"; }

std::u16string DirCrcText(const CReportContext& ctx, uint32_t uCrc) {
    return FormatCrcDir(uCrc, ctx.Hex());
}

}  // namespace

CHtmlCells WriteTableHeaderHtml(CReportContext& ctx, bool bSubdirColumns, bool bGroupColumn,
                                bool bCellsOnly, bool bPathColumn) {
    char szWidth[32];
    std::snprintf(szWidth, sizeof szWidth, "%.1f",
                  100.0 / CountColumns(ctx, bSubdirColumns, bGroupColumn, bPathColumn));
    const std::u16string strWidth = platform::U16(szWidth);
    CHtmlCells cells{u"<td width=\"" + strWidth + u"%\" align=\"left\">",
                     u"<td width=\"" + strWidth + u"%\" align=\"right\">"};
    if (bCellsOnly) return cells;
    CReportStream& out = ctx.m_out;
    out << kTableProlog << "\n<tr>\n";
    if (bPathColumn) Cell(out, cells.m_strLeft, u"Path");
    Cell(out, cells.m_strLeft, u"Name");
    if (bGroupColumn) Cell(out, cells.m_strRight, u"Group");
    const std::u16string& strUnit = ctx.Unit();
    if (ctx.Flag(PrintSize)) Cell(out, cells.m_strRight, u"Size (" + strUnit + u")");
    if (ctx.Flag(PrintSizeOnDisk)) Cell(out, cells.m_strRight, u"Size On Disk (" + strUnit + u")");
    if (ctx.Flag(PrintSizeActual)) Cell(out, cells.m_strRight, u"Actual Size (" + strUnit + u")");
    if (bSubdirColumns && ctx.Flag(PrintSizeSubdirs))
        Cell(out, cells.m_strRight, u"Size including all subdirectories " + strUnit);
    if (bSubdirColumns && ctx.Flag(PrintSizeActualSubdirs))
        Cell(out, cells.m_strRight, u"Actual Size including all subdirectories " + strUnit);
    const struct {
        EPrintFlag eFlag;
        const char16_t* pszTitle;
    } kTitles[] = {
        {PrintCreated, u"Created"},   {PrintAccessed, u"Accessed"},
        {PrintModified, u"Modified"}, {PrintAttributes, u"Attributes"},
        {PrintCrc, u"CRC"},           {PrintCrcSubdirs, u"CRC including all subdirectories"},
        {PrintOwner, u"Owner"},       {PrintLinkCount, u"Link Count"}};
    for (const auto& title : kTitles)
        if (ctx.Flag(title.eFlag)) Cell(out, cells.m_strRight, title.pszTitle);
    for (const auto& aFields : ctx.m_columns.m_aSelected)
        for (const MetadataFieldDef* pDef : aFields) Cell(out, cells.m_strRight, pDef->m_strLabel);
    out << "</tr>\n";
    return cells;
}

void WriteFileRowHtml(CReportContext& ctx, CFileData& file, bool bFullPath, const CHtmlCells& cells,
                      bool bSubdirColumns, bool bCrcExcludingTags, bool bGroupColumn,
                      bool bPathColumn) {
    CReportStream& out = ctx.m_out;
    const std::u16string strName = HtmlEscape(file.m_strName.View());
    const std::u16string strDir =
        file.m_pDirectory ? HtmlEscape(ctx.DirPath(*file.m_pDirectory)) : std::u16string();
    const std::u16string strPath = HtmlEscape(ctx.FilePath(file));
    out << "<tr>\n";
    bool bNameCell = true;
    if (ctx.m_doc.m_print.m_bPrintHyperlinks) {
        out << cells.m_strLeft << "<a href=\"" << strPath << "\">"
            << (bFullPath ? strPath : strName) << "</a></td>\n";
    } else if (!bFullPath) {
        Cell(out, cells.m_strLeft, strName);
    } else if (!bPathColumn) {
        Cell(out, cells.m_strLeft, strPath);
        bNameCell = false;
    } else {
        Cell(out, cells.m_strLeft, strDir);
    }
    if (bNameCell && bPathColumn) Cell(out, cells.m_strRight, strName);
    if (bGroupColumn) Cell(out, cells.m_strRight, DecimalText(file.m_nDuplicateGroup));
    const std::u16string& right = cells.m_strRight;
    if (ctx.Flag(PrintSize)) Cell(out, right, ctx.Size(file.m_dSize));
    if (ctx.Flag(PrintSizeOnDisk)) Cell(out, right, ctx.Size(ctx.SizeOnDisk(file)));
    if (ctx.Flag(PrintSizeActual)) Cell(out, right, ctx.Size(file.GetActualSize()));
    if (bSubdirColumns && ctx.Flag(PrintSizeSubdirs)) EmptyCell(out, right);
    if (bSubdirColumns && ctx.Flag(PrintSizeActualSubdirs)) EmptyCell(out, right);
    if (ctx.Flag(PrintCreated)) Cell(out, right, ctx.Date(file.m_ftCreated));
    if (ctx.Flag(PrintAccessed)) Cell(out, right, ctx.Date(file.m_ftAccessed));
    if (ctx.Flag(PrintModified)) Cell(out, right, ctx.Date(file.m_ftModified));
    if (ctx.Flag(PrintAttributes)) Cell(out, right, FormatAttributes(file.m_uAttributes));
    if (ctx.Flag(PrintCrc))
        Cell(out, right,
             bCrcExcludingTags ? file.GetMp3CrcText(ctx.Hex()) : file.GetCrcText(ctx.Hex()));
    if (ctx.Flag(PrintCrcSubdirs)) EmptyCell(out, right);
    if (ctx.Flag(PrintOwner)) Cell(out, right, HtmlEscape(file.GetOwner()));
    if (ctx.Flag(PrintLinkCount)) Cell(out, right, DecimalText(ctx.LinkCount(file)));
    if (ctx.m_columns.AnyMetadata())
        ForEachMetadataCell(ctx.ReadRow(file), ctx.m_columns, true,
                            [&](std::u16string_view strValue) {
                                if (strValue.empty())
                                    EmptyCell(out, right);
                                else
                                    Cell(out, right, HtmlEscape(strValue));
                            });
    out << "</tr>\n";
}

void WriteNullFileRowHtml(CReportContext& ctx, const CHtmlCells& cells, bool bSubdirColumns,
                          bool bGroupColumn, bool bPathColumn) {
    CReportStream& out = ctx.m_out;
    const std::u16string& right = cells.m_strRight;
    out << "<tr>\n";
    Cell(out, cells.m_strLeft, u"&nbsp;");
    if (bPathColumn) Cell(out, right, u"&nbsp;");
    if (bGroupColumn) Cell(out, right, u"&nbsp;");
    for (EPrintFlag eFlag : {PrintSize, PrintSizeOnDisk, PrintSizeActual})
        if (ctx.Flag(eFlag)) Cell(out, right, u"&nbsp;");
    if (bSubdirColumns)
        for (EPrintFlag eFlag : {PrintSizeSubdirs, PrintSizeActualSubdirs})
            if (ctx.Flag(eFlag)) Cell(out, right, u"&nbsp;");
    for (EPrintFlag eFlag : {PrintCreated, PrintAccessed, PrintModified, PrintAttributes, PrintCrc,
                             PrintCrcSubdirs, PrintOwner, PrintLinkCount})
        if (ctx.Flag(eFlag)) Cell(out, right, u"&nbsp;");
    for (size_t i = 0; i < ctx.m_columns.MetadataColumnCount(); ++i) EmptyCell(out, right);
    out << "</tr>\n";
}

void WriteNullDirRowHtml(CReportContext& ctx, const CHtmlCells& cells, bool bGroupColumn,
                         bool bPathColumn) {
    CReportStream& out = ctx.m_out;
    const std::u16string& right = cells.m_strRight;
    out << "<tr>\n";
    Cell(out, cells.m_strLeft, u"&nbsp;");
    if (bPathColumn) Cell(out, right, u"&nbsp;");
    if (bGroupColumn) Cell(out, right, u"&nbsp;");
    for (EPrintFlag eFlag : {PrintSize, PrintSizeActual, PrintSizeSubdirs, PrintSizeActualSubdirs,
                             PrintCreated, PrintAccessed, PrintModified, PrintAttributes, PrintCrc,
                             PrintCrcSubdirs, PrintOwner, PrintLinkCount})
        if (ctx.Flag(eFlag)) Cell(out, right, u"&nbsp;");
    out << "</tr>\n";
}

void WriteDirRowHtml(CReportContext& ctx, CDirectoryData& dir, bool bFullPath, bool bPrefix,
                     const CHtmlCells& cells, bool bGroupColumn, bool bPathColumn) {
    CReportStream& out = ctx.m_out;
    const char* pszPrefix = bPrefix ? "Directory: " : "";
    const std::u16string strPath = HtmlEscape(dir.GetFullPath());
    const std::u16string strName = HtmlEscape(dir.m_strName.View());
    out << "<tr>\n";
    if (ctx.m_doc.m_print.m_bPrintHyperlinks)
        out << cells.m_strLeft << "<a href=\"" << strPath << "\">" << pszPrefix << strName
            << "</a></td>\n";
    else
        out << cells.m_strLeft << pszPrefix << (bFullPath ? strPath : strName) << "</td>\n";
    const std::u16string& right = cells.m_strRight;
    if (bPathColumn) Cell(out, right, u"&nbsp;");
    if (bGroupColumn && ctx.Flag(PrintDuplicateGroup))
        Cell(out, right, DecimalText(dir.m_nDuplicateGroup));
    if (ctx.Flag(PrintSize)) Cell(out, right, ctx.Size(dir.m_dFilesSize));
    if (ctx.Flag(PrintSizeActual)) Cell(out, right, ctx.Size(dir.m_dFilesActual));
    if (ctx.Flag(PrintSizeSubdirs)) Cell(out, right, ctx.Size(dir.GetSizeWithSubdirs()));
    if (ctx.Flag(PrintSizeActualSubdirs)) Cell(out, right, ctx.Size(dir.GetActualWithSubdirs()));
    if (ctx.Flag(PrintCreated)) Cell(out, right, ctx.Date(dir.m_ftCreated));
    if (ctx.Flag(PrintAccessed)) Cell(out, right, ctx.Date(dir.m_ftAccessed));
    if (ctx.Flag(PrintModified)) Cell(out, right, ctx.Date(dir.m_ftModified));
    if (ctx.Flag(PrintAttributes)) Cell(out, right, FormatAttributes(dir.m_uAttributes));
    if (ctx.Flag(PrintCrc)) Cell(out, right, DirCrcText(ctx, dir.GetCrc()));
    if (ctx.Flag(PrintCrcSubdirs)) Cell(out, right, DirCrcText(ctx, dir.GetCrcWithSubdirs()));
    if (ctx.Flag(PrintOwner)) Cell(out, right, HtmlEscape(dir.GetOwner()));
    if (ctx.Flag(PrintLinkCount)) Cell(out, right, u"&nbsp;");
    out << "</tr>\n";
}

void WriteDirectoryBlockHtml(CReportContext& ctx, CDirectoryData& dir) {
    CReportStream& out = ctx.m_out;
    const bool bDirs = !ctx.Flag(PrintNoDirs);
    if (bDirs) {
        out << "<p>" << HtmlEscape(ctx.DirPath(dir)) << "<br>\n";
        if (dir.m_uFlags & DIR_PROTECTED) out << "Protected<br>\n";
        if (dir.m_uAttributes & ATTR_ENCRYPTED) out << "Encrypted<br>\n";
        if (ctx.Flag(PrintDirTotals)) {
            const CTotalsLineForm form = {"", ", ", "<br>\n"};
            WriteDirTotals(ctx, dir, form);
            WriteDirCrcTotals(ctx, dir, form);
            out << "</table><p></p>\n";
        }
    }
    const bool bNoFiles = ctx.Flag(PrintNoFiles);
    if (dir.m_aChildren.IsEmpty() && (dir.m_aFiles.IsEmpty() || bNoFiles))
        return StepOverFiles(dir);
    const bool bPathColumn = ctx.Flag(PrintNameSeparateColumn) && ctx.m_bFullPath;
    const CHtmlCells cells = WriteTableHeaderHtml(ctx, true, false, !bDirs, bPathColumn);
    if (bDirs)
        for (CDirectoryData* pChild : dir.m_aChildren)
            WriteDirRowHtml(ctx, *pChild, ctx.m_bFullPath, true, cells, false, bPathColumn);
    if (bNoFiles) {
        StepOverFiles(dir);
    } else {
        for (CFileData* pFile : dir.m_aFiles) {
            WriteFileRowHtml(ctx, *pFile, ctx.m_bFullPath, cells, true, false, false, bPathColumn);
            ReportProgressStep();
        }
    }
    if (bDirs) out << "</table>\n";
}

void WriteTreeHtml(CReportContext& ctx, CDirectoryData& root) {
    WalkTree(ctx, root, [&](CDirectoryData& dir) { WriteDirectoryBlockHtml(ctx, dir); });
}

}  // namespace zv
