#include "reports/XmlReport.h"

#include "platform/FileSystem.h"
#include "reports/ReportContext.h"
#include "reports/ReportProgress.h"
#include "reports/ReportStream.h"
#include "reports/TreeWalk.h"
#include "reports/ValueText.h"

namespace zv {
namespace {

void Attribute(CReportStream& out, const char* pszName, std::u16string_view strValue) {
    out << "\t" << pszName << "='" << strValue << "'\n";
}

void MetadataAttributes(CReportContext& ctx, const CRowMetadata& row, EMetadataGroup eGroup) {
    for (const MetadataFieldDef* pDef : ctx.m_columns.m_aSelected[eGroup])
        if (const MetadataValue* pValue = row.Find(eGroup, pDef->m_nFieldId))
            ctx.m_out << "\t" << pDef->m_strElementName << "='" << XmlEscape(pValue->m_strValue)
                      << "'\n";
}

}  // namespace

void WriteFileXml(CReportContext& ctx, CFileData& file, bool bGroup, bool bPathAttribute) {
    CReportStream& out = ctx.m_out;
    out << "<file\t";
    if (bPathAttribute && file.m_pDirectory)
        out << "path='" << XmlEscape(ctx.DirPath(*file.m_pDirectory)) << "' name='"
            << XmlEscape(file.m_strName.View()) << "'\n";
    else
        out << "name='" << XmlEscape(ctx.FilePath(file)) << "'\n";
    if (bGroup) Attribute(out, "DuplicateGroup", DecimalText(file.m_nDuplicateGroup));
    if (ctx.Flag(PrintSize)) Attribute(out, "size", FormatXmlSize(ctx.m_doc, file.m_dSize));
    if (ctx.Flag(PrintSizeOnDisk))
        Attribute(out, "size_on_disk", FormatXmlSize(ctx.m_doc, ctx.SizeOnDisk(file)));
    if (ctx.Flag(PrintSizeActual))
        Attribute(out, "size_actual", FormatXmlSize(ctx.m_doc, file.GetActualSize()));
    if (ctx.Flag(PrintSize) || ctx.Flag(PrintSizeOnDisk) || ctx.Flag(PrintSizeActual))
        Attribute(out, "size_units", ctx.Unit());
    if (ctx.Flag(PrintCreated)) Attribute(out, "created", ctx.Date(file.m_ftCreated));
    if (ctx.Flag(PrintAccessed)) Attribute(out, "accessed", ctx.Date(file.m_ftAccessed));
    if (ctx.Flag(PrintModified)) Attribute(out, "modified", ctx.Date(file.m_ftModified));
    if (ctx.Flag(PrintAttributes))
        Attribute(out, "attributes", FormatAttributes(file.m_uAttributes));
    if (ctx.Flag(PrintCrc)) Attribute(out, "crc", file.GetCrcText(ctx.Hex()));
    if (ctx.Flag(PrintOwner)) Attribute(out, "owner", XmlEscape(file.GetOwner()));
    if (ctx.Flag(PrintLinkCount)) Attribute(out, "LinkCount", DecimalText(ctx.LinkCount(file)));
    if (ctx.m_columns.AnyMetadata()) {
        const CRowMetadata& row = ctx.ReadRow(file);
        if (row.m_bHasVersion) MetadataAttributes(ctx, row, MetaVersion);
        for (int g = MetaWav; row.m_bHasMetadata && g < MetadataGroupCount; ++g)
            if (row.m_aGroupApplies[g])
                MetadataAttributes(ctx, row, static_cast<EMetadataGroup>(g));
    }
    out << "/>\n";
}

void WriteDirXml(CReportContext& ctx, CDirectoryData& dir, bool bGroup) {
    CReportStream& out = ctx.m_out;
    const bool bBytes = ctx.m_doc.m_options.m_nSizeUnit == 0;
    const char* pszGap = bBytes ? "'   " : "'     ";
    out << "<Directory\tname='" << XmlEscape(dir.GetFullPath()) << "'\n";
    if (bGroup) Attribute(out, "DuplicateGroup", DecimalText(dir.m_nDuplicateGroup));
    if (ctx.Flag(PrintSize))
        out << "\tsize='" << FormatXmlSize(ctx.m_doc, dir.m_dFilesSize) << pszGap << "size_units='"
            << ctx.Unit() << "'\n";
    if (ctx.Flag(PrintSizeActual))
        out << "\tsizeActual='" << FormatXmlSize(ctx.m_doc, dir.m_dFilesActual) << pszGap
            << "size_actual_units='" << ctx.Unit() << "'\n";
    // The totals with subdirectories are always in bytes.
    const auto Bytes = [](double d) { return FormatXmlSizeInBytes(d); };
    if (ctx.Flag(PrintSizeSubdirs))
        Attribute(out, "SizeWithSubDir", Bytes(dir.GetSizeWithSubdirs()));
    if (ctx.Flag(PrintSizeActualSubdirs))
        Attribute(out, "SizeWithSubDirActual", Bytes(dir.GetActualWithSubdirs()));
    if (ctx.Flag(PrintCreated)) Attribute(out, "CreateDate", ctx.Date(dir.m_ftCreated));
    if (ctx.Flag(PrintAccessed)) Attribute(out, "AccessDate", ctx.Date(dir.m_ftAccessed));
    if (ctx.Flag(PrintModified)) Attribute(out, "ModifyDate", ctx.Date(dir.m_ftModified));
    if (ctx.Flag(PrintAttributes))
        Attribute(out, "Attributes", FormatAttributes(dir.m_uAttributes));
    if (ctx.Flag(PrintCrc)) Attribute(out, "CRC", FormatCrcDir(dir.GetCrc(), ctx.Hex()));
    if (ctx.Flag(PrintCrcSubdirs))
        Attribute(out, "CrcWithSubDir", FormatCrcDir(dir.GetCrcWithSubdirs(), ctx.Hex()));
    if (ctx.Flag(PrintOwner)) Attribute(out, "Owner", XmlEscape(dir.GetOwner()));
    out << "/>\n";
}

void WriteDirectoryBlockXml(CReportContext& ctx, CDirectoryData& dir) {
    CReportStream& out = ctx.m_out;
    out << "<Directory\tname='" << XmlEscape(ctx.DirPath(dir)) << "'\n";
    if (dir.m_uFlags & DIR_PROTECTED) out << "\tProtected='1'\n";
    if (dir.m_uAttributes & ATTR_ENCRYPTED) out << "\tEncrypted='1'\n";
    if (ctx.Flag(PrintDirTotals)) {
        Attribute(out, "Files", DecimalText(int64_t(dir.m_aFiles.GetSize())));
        Attribute(out, "Directories", DecimalText(int64_t(dir.m_aChildren.GetSize())));
        Attribute(out, "FilesInAllSubdirectories", DecimalText(dir.GetTotalFiles()));
        Attribute(out, "DirectoriesInAllSubdirectories", DecimalText(dir.GetTotalDirs()));
        Attribute(out, "Size", ctx.SizeWithUnits(dir.m_dFilesSize));
        Attribute(out, "SizeActual", ctx.SizeWithUnits(dir.m_dFilesActual, u" actual"));
        Attribute(out, "SizeIncludingAllSubdirectories",
                  ctx.SizeWithUnits(dir.GetSizeWithSubdirs()));
        Attribute(out, "SizeActualIncludingAllSubdirectories",
                  ctx.SizeWithUnits(dir.GetActualWithSubdirs(), u" actual"));
        if (ctx.Flag(PrintCrc)) Attribute(out, "CRC", FormatCrcDir(dir.GetCrc(), ctx.Hex()));
        if (ctx.Flag(PrintCrcSubdirs)) {
            // The decimal form's attribute name is spelled differently;
            // readers take both.
            Attribute(
                out, ctx.Hex() ? "CRCIncludingAllSubdirectories" : "CRCIncludingAllSubdirectrories",
                FormatCrcDir(dir.GetCrcWithSubdirs(), ctx.Hex()));
        }
    }
    out << "/>\n";
    const bool bNoFiles = ctx.Flag(PrintNoFiles);
    if (dir.m_aChildren.IsEmpty() && (dir.m_aFiles.IsEmpty() || bNoFiles))
        return StepOverFiles(dir);
    if (!ctx.Flag(PrintNoDirs))
        for (CDirectoryData* pChild : dir.m_aChildren) WriteDirXml(ctx, *pChild, false);
    if (bNoFiles) return StepOverFiles(dir);
    const bool bPathAttribute = ctx.Flag(PrintNameSeparateColumn) && ctx.m_bFullPath;
    for (CFileData* pFile : dir.m_aFiles) {
        WriteFileXml(ctx, *pFile, false, bPathAttribute);
        ReportProgressStep();
    }
}

void WriteTreeXml(CReportContext& ctx, CDirectoryData& root) {
    WalkTree(ctx, root, [&](CDirectoryData& dir) { WriteDirectoryBlockXml(ctx, dir); });
}

}  // namespace zv
