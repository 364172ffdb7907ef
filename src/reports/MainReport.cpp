#include "reports/MainReport.h"

#include "reports/CsvReport.h"
#include "reports/FiltersBlock.h"
#include "reports/HtmlReport.h"
#include "reports/ReportContext.h"
#include "reports/ReportHeader.h"
#include "reports/ReportProgress.h"
#include "reports/ReportStream.h"
#include "reports/TextReport.h"
#include "reports/XmlReport.h"

namespace zv {
namespace {

void WriteText(CReportContext& ctx, EReportScope eScope, CDirectoryData* pDir) {
    if (eScope == ReportAllDirectories) {
        ReportHeaderText(ctx, u"File Data");
        for (CRootDirectoryData* pRoot : ctx.m_doc.m_scan.m_aRoots) WriteTreeText(ctx, *pRoot);
    } else if (eScope == ReportCurrentDirectory) {
        ctx.Sort(*pDir);
        ReportHeaderText(ctx, u"Current Zorvane");
        ctx.PrepareRows(*pDir, {});
        WriteDirectoryBlockText(ctx, *pDir);
    } else {
        ReportHeaderText(ctx, u"Current Zorvane");
        WriteTreeText(ctx, *pDir);
    }
}

void WriteCsv(CReportContext& ctx, EReportScope eScope, CDirectoryData* pDir) {
    if (eScope == ReportAllDirectories) {
        ReportHeaderCsv(ctx, u"File Data");
        ctx.m_bHeaderWritten = false;
        for (CRootDirectoryData* pRoot : ctx.m_doc.m_scan.m_aRoots) WriteTreeCsv(ctx, *pRoot);
    } else if (eScope == ReportCurrentDirectory) {
        ReportHeaderCsv(ctx, u"Current Directory Data");
        ctx.Sort(*pDir);
        ctx.PrepareRows(*pDir, {});
        WriteDirectoryBlockCsv(ctx, *pDir);
    } else {
        ReportHeaderCsv(ctx, u"Current Directory Data");
        WriteTreeCsv(ctx, *pDir);
    }
}

void WriteHtml(CReportContext& ctx, EReportScope eScope, CDirectoryData* pDir) {
    CReportStream& out = ctx.m_out;
    out << "<html>\n<body>\n";
    ReportHeaderHtml(ctx, u"File Data");
    if (eScope == ReportAllDirectories) {
        const bool bOneTable = ctx.Flag(PrintNoDirs);
        if (bOneTable) WriteTableHeaderHtml(ctx, true, false, false, false);
        for (CRootDirectoryData* pRoot : ctx.m_doc.m_scan.m_aRoots) WriteTreeHtml(ctx, *pRoot);
        if (bOneTable) out << "</table>\n";
    } else if (eScope == ReportCurrentDirectory) {
        ctx.Sort(*pDir);
        ctx.PrepareRows(*pDir, {});
        WriteDirectoryBlockHtml(ctx, *pDir);
    } else {
        // The filters block stands a second time in this report.
        FiltersBlockHtml(ctx);
        WriteTreeHtml(ctx, *pDir);
    }
    out << "</body>\n</html>\n";
}

void WriteXml(CReportContext& ctx, EReportScope eScope, CDirectoryData* pDir) {
    CReportStream& out = ctx.m_out;
    out << (out.IsUnicode() ? "<?xml version=\"1.0\" encoding=\"utf-16\" ?>\n"
                            : "<?xml version=\"1.0\" encoding=\"utf-8\" ?>\n");
    out << "<Zorvane>\n";
    if (eScope == ReportAllDirectories) {
        ReportHeaderXml(ctx, u"Directory Data");
        for (CRootDirectoryData* pRoot : ctx.m_doc.m_scan.m_aRoots) WriteTreeXml(ctx, *pRoot);
    } else if (eScope == ReportCurrentDirectory) {
        ReportHeaderXml(ctx, u"Current Directory Data");
        ctx.Sort(*pDir);
        ctx.PrepareRows(*pDir, {});
        WriteDirectoryBlockXml(ctx, *pDir);
    } else {
        ReportHeaderXml(ctx, u"Current Directory Data");
        WriteTreeXml(ctx, *pDir);
    }
    out << "</Zorvane>\n";
}

double FilesToWrite(CWZorvaneDoc& doc, EReportScope eScope, CDirectoryData* pDir) {
    if (eScope == ReportCurrentDirectory) return double(pDir->m_aFiles.GetSize());
    if (eScope == ReportCurrentAndSubdirectories) return double(pDir->GetTotalFiles());
    double dTotal = 0;
    for (CRootDirectoryData* pRoot : doc.m_scan.m_aRoots) dTotal += double(pRoot->GetTotalFiles());
    return dTotal;
}

}  // namespace

bool WriteMainReport(CWZorvaneDoc& doc, CReportStream& out, EPrintType eForm, EReportScope eScope,
                     CDirectoryData* pCurrent, bool bFullPath) {
    if (eScope != ReportAllDirectories && !pCurrent) return true;
    // The counts of every directory at once, rather than a subtree walk for
    // each directory block.
    for (CRootDirectoryData* pRoot : doc.m_scan.m_aRoots) pRoot->RecomputeTotals();
    CReportContext ctx(doc, out, bFullPath);
    // A directory's checksum over its subdirectories reads every file
    // below it: the first block of a tree would ask for them directory by
    // directory, so they are computed here in large batches instead.
    const bool bDirRows = !ctx.Flag(PrintNoDirs) || eForm == PrintTypeXml;
    if (ctx.Flag(PrintCrcSubdirs) && bDirRows) {
        if (eScope == ReportAllDirectories)
            for (CRootDirectoryData* pRoot : doc.m_scan.m_aRoots) ctx.PrepareSubtreeCrcs(*pRoot);
        else
            ctx.PrepareSubtreeCrcs(*pCurrent);
    }
    ReportProgressBegin(FilesToWrite(doc, eScope, pCurrent), u"Files");
    switch (eForm) {
        case PrintTypeText:
            WriteText(ctx, eScope, pCurrent);
            break;
        case PrintTypeExcel:
            WriteCsv(ctx, eScope, pCurrent);
            break;
        case PrintTypeHtml:
            WriteHtml(ctx, eScope, pCurrent);
            break;
        case PrintTypeXml:
            WriteXml(ctx, eScope, pCurrent);
            break;
        case PrintTypeNone:
            break;
    }
    ReportProgressEnd();
    return !ctx.Stopped();
}

}  // namespace zv
