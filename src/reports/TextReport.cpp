#include "reports/TextReport.h"

#include "platform/FileSystem.h"
#include "reports/DirTotals.h"
#include "reports/ReportContext.h"
#include "reports/ReportProgress.h"
#include "reports/ReportStream.h"
#include "reports/TreeWalk.h"
#include "reports/ValueText.h"

namespace zv {
namespace {

void WriteSizeLine(CReportContext& ctx, const char* pszLabel, double dSize,
                   const char* pszBeforeUnit = " ") {
    ctx.m_out << pszLabel << PadLeft(ctx.Size(dSize), 14) << pszBeforeUnit << ctx.Unit() << "\n";
}

// "label: value" for each value of a list whose field is selected; true
// when it wrote any.
bool WriteMetadataLines(CReportContext& ctx, const MetadataValueList& aValues,
                        const CRowMetadata& row, bool bVersion) {
    bool bAny = false;
    for (const MetadataValue& value : aValues) {
        if (value.m_strValue.empty() || !value.m_pDef) continue;
        bool bSelected = bVersion && ctx.m_columns.IsSelected(MetaVersion, value.m_pDef);
        for (int g = MetaWav; !bVersion && g < MetadataGroupCount; ++g)
            bSelected |= row.m_aGroupApplies[g] &&
                         ctx.m_columns.IsSelected(static_cast<EMetadataGroup>(g), value.m_pDef);
        if (!bSelected) continue;
        ctx.m_out << value.m_pDef->m_strLabel << ": " << value.m_strValue << "\n";
        bAny = true;
    }
    return bAny;
}

// The CRC lines of a directory, in its row and in its block's totals.
void WriteDirCrcLines(CReportContext& ctx, CDirectoryData& dir) {
    CReportStream& out = ctx.m_out;
    if (ctx.Flag(PrintCrc)) {
        if (ctx.Hex())
            out << "CRC: 0x" << HexDigits(dir.GetCrc()) << "\n";
        else
            out << "CRC: " << DecimalText(dir.GetCrc()) << "\n";
    }
    if (ctx.Flag(PrintCrcSubdirs)) {
        out << "CRC including all subdirectories: " << (ctx.Hex() ? u"0x" : u"")
            << (ctx.Hex() ? HexDigits(dir.GetCrcWithSubdirs())
                          : DecimalText(dir.GetCrcWithSubdirs()))
            << "\n";
    }
}

}  // namespace

void WriteFileRowText(CReportContext& ctx, CFileData& file, bool bCrcExcludingTags, bool bFullPath,
                      bool bGroup) {
    CReportStream& out = ctx.m_out;
    if (!bFullPath)
        out << file.m_strName.View() << "\n";
    else if (ctx.Flag(PrintNameSeparateColumn) && file.m_pDirectory)
        out << "Directory: " << ctx.DirPath(*file.m_pDirectory)
            << "\nFile: " << file.m_strName.View() << "\n";
    else
        out << ctx.FilePath(file) << "\n";
    if (bGroup) out << "Group: " << DecimalText(file.m_nDuplicateGroup) << "\n";

    bool bAny = false;
    const auto Line = [&](EPrintFlag eFlag) { return ctx.Flag(eFlag) && (bAny = true); };
    if (Line(PrintSize)) WriteSizeLine(ctx, "Size: ", file.m_dSize);
    if (Line(PrintSizeOnDisk)) WriteSizeLine(ctx, "Size On Disk: ", ctx.SizeOnDisk(file));
    if (Line(PrintSizeActual)) WriteSizeLine(ctx, "Actual Size: ", file.GetActualSize());
    if (Line(PrintCreated)) out << "Create date: " << ctx.Date(file.m_ftCreated) << "\n";
    if (Line(PrintAccessed)) out << "Access date: " << ctx.Date(file.m_ftAccessed) << "\n";
    if (Line(PrintModified)) out << "Modify date: " << ctx.Date(file.m_ftModified) << "\n";
    if (Line(PrintAttributes))
        out << "Attributes: " << FormatAttributes(file.m_uAttributes) << "\n";
    if (Line(PrintCrc))
        out << "CRC: "
            << (bCrcExcludingTags ? file.GetMp3CrcText(ctx.Hex()) : file.GetCrcText(ctx.Hex()))
            << "\n";
    if (Line(PrintOwner)) out << "Owner: " << file.GetOwner() << "\n";
    if (Line(PrintLinkCount)) out << "Link Count: " << DecimalText(ctx.LinkCount(file)) << "\n";
    if (ctx.m_columns.AnyMetadata()) {
        const CRowMetadata& row = ctx.ReadRow(file);
        if (row.m_bHasVersion) bAny |= WriteMetadataLines(ctx, row.m_aVersion, row, true);
        if (row.m_bHasMetadata) bAny |= WriteMetadataLines(ctx, row.m_aValues, row, false);
    }
    if (bAny) out << "\n";
}

void WriteDirRowText(CReportContext& ctx, CDirectoryData& dir, bool bFullPath, bool bPrefix,
                     bool bGroup) {
    CReportStream& out = ctx.m_out;
    if (bPrefix) out << "Directory: ";
    if (bFullPath)
        out << dir.GetFullPath() << "\n";
    else
        out << dir.m_strName.View() << "\n";
    if (bGroup && ctx.Flag(PrintDuplicateGroup))
        out << "Group: " << DecimalText(dir.m_nDuplicateGroup) << "\n";
    bool bAny = false;
    const auto Line = [&](EPrintFlag eFlag) { return ctx.Flag(eFlag) && (bAny = true); };
    if (Line(PrintSize)) WriteSizeLine(ctx, "Size: ", dir.m_dFilesSize);
    if (Line(PrintSizeActual)) WriteSizeLine(ctx, "Size: ", dir.m_dFilesActual, " actual ");
    if (Line(PrintSizeSubdirs))
        WriteSizeLine(ctx, "Size including all subdirectories: ", dir.GetSizeWithSubdirs());
    if (Line(PrintSizeActualSubdirs))
        WriteSizeLine(ctx, "Size including all subdirectories: ", dir.GetActualWithSubdirs(),
                      " actual ");
    if (Line(PrintCreated)) out << "Create date: " << ctx.Date(dir.m_ftCreated) << "\n";
    if (Line(PrintAccessed)) out << "Access date: " << ctx.Date(dir.m_ftAccessed) << "\n";
    if (Line(PrintModified)) out << "Modify date: " << ctx.Date(dir.m_ftModified) << "\n";
    if (Line(PrintAttributes)) out << "Attributes: " << FormatAttributes(dir.m_uAttributes) << "\n";
    bAny |= ctx.Flag(PrintCrc) || ctx.Flag(PrintCrcSubdirs);
    WriteDirCrcLines(ctx, dir);
    if (Line(PrintOwner)) out << "Owner: " << dir.GetOwner() << "\n";
    if (bAny) out << "\n";
}

void WriteDirectoryBlockText(CReportContext& ctx, CDirectoryData& dir) {
    CReportStream& out = ctx.m_out;
    const bool bDirs = !ctx.Flag(PrintNoDirs);
    if (bDirs) {
        out << "---------------------------------------\n" << ctx.DirPath(dir) << "\n";
        if (dir.m_uFlags & DIR_PROTECTED) out << "Protected\n";
        if (dir.m_uAttributes & ATTR_ENCRYPTED) out << "Encrypted\n";
        if (ctx.Flag(PrintDirTotals)) {
            WriteDirTotals(ctx, dir, {"", ", ", "\n"});
            WriteDirCrcLines(ctx, dir);
            if (ctx.Flag(PrintOwner)) out << "Owner: " << dir.GetOwner() << "\n";
        }
        out << "\n";
        for (CDirectoryData* pChild : dir.m_aChildren)
            WriteDirRowText(ctx, *pChild, ctx.m_bFullPath, true, false);
    }
    if (ctx.Flag(PrintNoFiles)) return StepOverFiles(dir);
    for (CFileData* pFile : dir.m_aFiles) {
        ReportProgressStep();
        WriteFileRowText(ctx, *pFile, false, ctx.m_bFullPath, ctx.Flag(PrintDuplicateGroup));
    }
}

void WriteTreeText(CReportContext& ctx, CDirectoryData& root) {
    WalkTree(ctx, root, [&](CDirectoryData& dir) { WriteDirectoryBlockText(ctx, dir); });
}

}  // namespace zv
