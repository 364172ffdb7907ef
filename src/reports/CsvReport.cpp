#include "reports/CsvReport.h"

#include "platform/FileSystem.h"
#include "reports/DirTotals.h"
#include "reports/ReportContext.h"
#include "reports/ReportProgress.h"
#include "reports/ReportStream.h"
#include "reports/TreeWalk.h"
#include "reports/ValueText.h"

namespace zv {
namespace {

std::u16string DirCrcText(const CReportContext& ctx, uint32_t uCrc) {
    return FormatCrcDir(uCrc, ctx.Hex());
}

}  // namespace

void WriteFileHeaderCsv(CReportContext& ctx, bool bSubdirColumns, bool bGroupColumn,
                        bool bPathColumn) {
    std::u16string strLine;
    if (bPathColumn) CsvAppendFirst(strLine, u"Path");
    CsvAppendFirst(strLine, u"Name");
    if (bGroupColumn) CsvAppend(strLine, u"Group");
    const std::u16string& strUnit = ctx.Unit();
    if (ctx.Flag(PrintSize)) CsvAppend(strLine, u"Size (" + strUnit + u")");
    if (ctx.Flag(PrintSizeOnDisk)) CsvAppend(strLine, u"Size On Disk (" + strUnit + u")");
    if (ctx.Flag(PrintSizeActual)) CsvAppend(strLine, u"Actual Size (" + strUnit + u")");
    if (bSubdirColumns && ctx.Flag(PrintSizeSubdirs))
        CsvAppend(strLine, u"Size(" + strUnit + u") including all subdirectories");
    if (bSubdirColumns && ctx.Flag(PrintSizeActualSubdirs))
        CsvAppend(strLine, u"Actual Size(" + strUnit + u") including all subdirectories");
    const struct {
        EPrintFlag eFlag;
        const char16_t* pszTitle;
    } kTitles[] = {
        {PrintCreated, u"Created"},   {PrintAccessed, u"Accessed"},
        {PrintModified, u"Modified"}, {PrintAttributes, u"Attributes"},
        {PrintCrc, u"CRC"},           {PrintCrcSubdirs, u"CRC including all subdirectories"},
        {PrintOwner, u"Owner"},       {PrintLinkCount, u"Link Count"}};
    for (const auto& title : kTitles)
        if (ctx.Flag(title.eFlag)) CsvAppend(strLine, title.pszTitle);
    for (const auto& aFields : ctx.m_columns.m_aSelected)
        for (const MetadataFieldDef* pDef : aFields) CsvAppend(strLine, pDef->m_strLabel);
    ctx.m_out << strLine << "\n";
}

void WriteFileRowCsv(CReportContext& ctx, CFileData& file, bool bFullPath, bool bSubdirColumns,
                     bool bCrcExcludingTags, bool bGroupColumn, bool bPathColumn) {
    // The first field goes in as it is, quotes and all.
    std::u16string strLine(1, u'"');
    if (!bFullPath)
        strLine += file.m_strName.View();
    else if (bPathColumn && file.m_pDirectory)
        strLine +=
            ctx.DirPath(*file.m_pDirectory) + u"\",\"" + std::u16string(file.m_strName.View());
    else
        strLine += ctx.FilePath(file);
    strLine += u'"';
    if (bGroupColumn && ctx.Flag(PrintDuplicateGroup))
        CsvAppend(strLine, DecimalText(file.m_nDuplicateGroup));
    if (ctx.Flag(PrintSize)) CsvAppend(strLine, ctx.Size(file.m_dSize));
    if (ctx.Flag(PrintSizeOnDisk)) CsvAppend(strLine, ctx.Size(ctx.SizeOnDisk(file)));
    if (ctx.Flag(PrintSizeActual)) CsvAppend(strLine, ctx.Size(file.GetActualSize()));
    if (bSubdirColumns && ctx.Flag(PrintSizeSubdirs)) CsvAppend(strLine, u"");
    if (bSubdirColumns && ctx.Flag(PrintSizeActualSubdirs)) CsvAppend(strLine, u"");
    if (ctx.Flag(PrintCreated)) CsvAppend(strLine, ctx.Date(file.m_ftCreated));
    if (ctx.Flag(PrintAccessed)) CsvAppend(strLine, ctx.Date(file.m_ftAccessed));
    if (ctx.Flag(PrintModified)) CsvAppend(strLine, ctx.Date(file.m_ftModified));
    if (ctx.Flag(PrintAttributes)) CsvAppend(strLine, FormatAttributes(file.m_uAttributes));
    if (ctx.Flag(PrintCrc))
        CsvAppend(strLine,
                  bCrcExcludingTags ? file.GetMp3CrcText(ctx.Hex()) : file.GetCrcText(ctx.Hex()));
    if (ctx.Flag(PrintCrcSubdirs)) CsvAppend(strLine, u"");
    if (ctx.Flag(PrintOwner)) CsvAppend(strLine, file.GetOwner());
    if (ctx.Flag(PrintLinkCount)) CsvAppend(strLine, DecimalText(ctx.LinkCount(file)));
    if (ctx.m_columns.AnyMetadata())
        ForEachMetadataCell(ctx.ReadRow(file), ctx.m_columns, false,
                            [&](std::u16string_view strValue) { CsvAppend(strLine, strValue); });
    ctx.m_out << strLine << "\n";
}

void WriteDirRowCsv(CReportContext& ctx, CDirectoryData& dir, bool bFullPath, bool bPrefix,
                    bool bGroupColumn, bool bPathColumn) {
    std::u16string strLine(1, u'"');
    if (bPrefix) strLine += u"Directory: ";
    if (bFullPath)
        strLine += dir.GetFullPath();
    else
        strLine += dir.m_strName.View();
    strLine += u'"';
    if (bFullPath && bPathColumn) CsvAppend(strLine, u"");
    if (bGroupColumn) CsvAppend(strLine, DecimalText(dir.m_nDuplicateGroup));
    if (ctx.Flag(PrintSize)) CsvAppend(strLine, ctx.Size(dir.m_dFilesSize));
    if (ctx.Flag(PrintSizeActual)) CsvAppend(strLine, ctx.Size(dir.m_dFilesActual));
    if (ctx.Flag(PrintSizeSubdirs)) CsvAppend(strLine, ctx.Size(dir.GetSizeWithSubdirs()));
    if (ctx.Flag(PrintSizeActualSubdirs)) CsvAppend(strLine, ctx.Size(dir.GetActualWithSubdirs()));
    if (ctx.Flag(PrintCreated)) CsvAppend(strLine, ctx.Date(dir.m_ftCreated));
    if (ctx.Flag(PrintAccessed)) CsvAppend(strLine, ctx.Date(dir.m_ftAccessed));
    if (ctx.Flag(PrintModified)) CsvAppend(strLine, ctx.Date(dir.m_ftModified));
    if (ctx.Flag(PrintAttributes)) CsvAppend(strLine, FormatAttributes(dir.m_uAttributes));
    if (ctx.Flag(PrintCrc)) CsvAppend(strLine, DirCrcText(ctx, dir.GetCrc()));
    if (ctx.Flag(PrintCrcSubdirs)) CsvAppend(strLine, DirCrcText(ctx, dir.GetCrcWithSubdirs()));
    if (ctx.Flag(PrintOwner)) CsvAppend(strLine, dir.GetOwner());
    ctx.m_out << strLine << "\n";
}

void WriteDirectoryBlockCsv(CReportContext& ctx, CDirectoryData& dir) {
    CReportStream& out = ctx.m_out;
    const bool bDirs = !ctx.Flag(PrintNoDirs);
    if (bDirs) {
        out << "\n\"" << ctx.DirPath(dir) << "\"\n";
        if (dir.m_uFlags & DIR_PROTECTED) out << "Protected\n";
        if (dir.m_uAttributes & ATTR_ENCRYPTED) out << "Encrypted\n";
        if (ctx.Flag(PrintDirTotals)) {
            const CTotalsLineForm form = {"\"", "\",\" ", "\"\n"};
            WriteDirTotals(ctx, dir, form);
            WriteDirCrcTotals(ctx, dir, form);
            out << "\n";
        }
    }
    const bool bNoFiles = ctx.Flag(PrintNoFiles);
    if (dir.m_aChildren.IsEmpty() && (dir.m_aFiles.IsEmpty() || bNoFiles))
        return StepOverFiles(dir);
    const bool bPathColumn = ctx.Flag(PrintNameSeparateColumn);
    if (bDirs || !ctx.m_bHeaderWritten) {
        out << "\n";
        WriteFileHeaderCsv(ctx, true, false, bPathColumn && ctx.m_bFullPath);
        ctx.m_bHeaderWritten = true;
    }
    if (bDirs)
        for (CDirectoryData* pChild : dir.m_aChildren)
            WriteDirRowCsv(ctx, *pChild, ctx.m_bFullPath, true, false, bPathColumn);
    if (bNoFiles) return StepOverFiles(dir);
    for (CFileData* pFile : dir.m_aFiles) {
        ReportProgressStep();
        WriteFileRowCsv(ctx, *pFile, ctx.m_bFullPath, true, false, false, bPathColumn);
    }
}

void WriteTreeCsv(CReportContext& ctx, CDirectoryData& root) {
    WalkTree(ctx, root, [&](CDirectoryData& dir) {
        WriteDirectoryBlockCsv(ctx, dir);
        ctx.m_out << "\n";
    });
}

}  // namespace zv
