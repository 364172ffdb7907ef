#include "reports/ResultReports.h"

#include <cstdio>
#include <vector>

#include "core/document/Document.h"
#include "core/document/SizeText.h"
#include "platform/Text.h"
#include "reports/CsvReport.h"
#include "reports/FiltersBlock.h"
#include "reports/HtmlReport.h"
#include "reports/ReportContext.h"
#include "reports/ReportHeader.h"
#include "reports/ReportStream.h"
#include "reports/TextReport.h"
#include "reports/ValueText.h"
#include "reports/XmlReport.h"

namespace zv {
namespace {

constexpr const char* kGroupDashes = "--------------------------------\n";
// Row colours of the two kinds of duplicate groups, by group parity.
constexpr uint32_t kGroupColours[2] = {0xFFFFFF, 0xFFFF80};

// The rows of a result list in report order, duplicate groups one after
// the other.
template <typename TRecord>
std::vector<TRecord*> Flatten(const std::vector<std::vector<TRecord*>>& aGroups) {
    std::vector<TRecord*> aRows;
    for (const auto& group : aGroups) aRows.insert(aRows.end(), group.begin(), group.end());
    return aRows;
}

// Calls write(row, bNewGroup) per row: bNewGroup when the row's group
// number differs from that of the row printed before it.
template <typename TRecord, typename TWrite>
void ForEachRow(const std::vector<TRecord*>& aRows, TWrite write) {
    for (size_t i = 0; i < aRows.size(); ++i)
        write(*aRows[i], i > 0 && aRows[i]->m_nDuplicateGroup != aRows[i - 1]->m_nDuplicateGroup);
}

struct CCriterion {
    bool bOn;
    const char* pszText;
};

std::vector<CCriterion> FileCriteria(const CWZorvaneDoc& doc) {
    const CDuplicateFileCriteria& c = doc.m_options.m_dupFiles;
    return {{c.m_bByName != 0, "Name"},
            {c.m_bBySize != 0, "Size"},
            {c.m_bByteByByte != 0, "Comparing byte by byte"},
            {c.m_bByCrc != 0, "CRC"},
            {c.m_bByCrcWithoutTags != 0, "CRC (Excluding MP3 ID3Tags)"}};
}

std::vector<CCriterion> DirCriteria(const CWZorvaneDoc& doc) {
    const int32_t* a = doc.m_options.m_dupDirs.m_aCriteria;
    return {{a[DupDirByName] != 0, "Name"},
            {a[DupDirBySize] != 0, "Size"},
            {a[DupDirBySizeWithSubdirs] != 0, "Size with subdirectories"},
            {a[DupDirByCrc] != 0, "CRC"},
            {a[DupDirByCrcWithSubdirs] != 0, "CRC with subdirectories"},
            {a[DupDirByTotalFiles] != 0, "Total files"},
            {a[DupDirByTotalFilesWithSubdirs] != 0, "Total files with subdirectories"}};
}

void WriteCriteria(CReportStream& out, const std::vector<CCriterion>& aCriteria,
                   const char* pszLineEnd) {
    for (const CCriterion& criterion : aCriteria)
        if (criterion.bOn) out << criterion.pszText << pszLineEnd;
}

const char16_t* TotalsTitle(EResultReport eReport) {
    return eReport == ResultLargestOwner ? u"Largest Owner" : u"Largest Type";
}

const char16_t* TotalsColumn(EResultReport eReport) {
    return eReport == ResultLargestOwner ? u"Owner" : u"Type";
}

const CTotalTable& TotalsOf(const CWZorvaneDoc& doc, EResultReport eReport) {
    return eReport == ResultLargestOwner ? doc.m_results.m_totals.m_aOwners
                                         : doc.m_results.m_totals.m_aTypes;
}

std::u16string Count(uint32_t nFiles) { return DecimalText(int64_t(nFiles)); }

void WriteText(CReportContext& ctx, EResultReport eReport) {
    CWZorvaneDoc& doc = ctx.m_doc;
    CReportStream& out = ctx.m_out;
    const bool bGroup = ctx.Flag(PrintDuplicateGroup);
    switch (eReport) {
        case ResultDuplicateFiles: {
            ReportHeaderText(ctx, u"Duplicate Files");
            out << "\nDuplicates by: \n";
            WriteCriteria(out, FileCriteria(doc), "\n");
            out << "\n";
            const bool bNoTags = doc.m_options.m_dupFiles.m_bByCrcWithoutTags != 0;
            ForEachRow(Flatten(doc.m_results.m_aDuplicateGroups), [&](CFileData& file, bool bNew) {
                if (bNew) out << kGroupDashes << "\n";
                WriteFileRowText(ctx, file, bNoTags, true, bGroup);
            });
            break;
        }
        case ResultDuplicateDirs:
            ReportHeaderText(ctx, u"Duplicate Directories");
            out << "\nDuplicates by: \n";
            WriteCriteria(out, DirCriteria(doc), "\n");
            out << "\n";
            ForEachRow(Flatten(doc.m_results.m_aDuplicateDirGroups),
                       [&](CDirectoryData& dir, bool bNew) {
                           if (bNew) out << kGroupDashes << "\n";
                           WriteDirRowText(ctx, dir, true, false, false);
                       });
            break;
        case ResultLargestFiles:
            ReportHeaderText(ctx, u"Largest files");
            for (CFileData* pFile : doc.m_results.m_aLargestFiles)
                WriteFileRowText(ctx, *pFile, false, true, bGroup);
            break;
        case ResultLargestDirs:
            ReportHeaderText(ctx, u"Largest directories");
            for (CDirectoryData* pDir : doc.m_results.m_aLargestDirs)
                WriteDirRowText(ctx, *pDir, true, false, false);
            break;
        case ResultLargestOwner:
        case ResultLargestType:
            ReportHeaderText(ctx, TotalsTitle(eReport));
            for (const auto& pEntry : TotalsOf(doc, eReport))
                out << PadLeft(pEntry->m_strKey, 16)
                    << ", files=" << PadLeft(GroupThousands(Count(pEntry->m_nFiles)), 9)
                    << ", size=" << PadLeft(ctx.SizeWithUnits(pEntry->m_dSize), 20) << "\n";
            break;
    }
}

void WriteCsv(CReportContext& ctx, EResultReport eReport) {
    CWZorvaneDoc& doc = ctx.m_doc;
    CReportStream& out = ctx.m_out;
    const bool bGroup = ctx.Flag(PrintDuplicateGroup);
    const bool bPath = ctx.Flag(PrintNameSeparateColumn);
    switch (eReport) {
        case ResultDuplicateFiles: {
            ReportHeaderCsv(ctx, u"Duplicate Files");
            out << "\n\nDuplicates by: \n";
            WriteCriteria(out, FileCriteria(doc), "\n");
            out << kGroupDashes;
            WriteFileHeaderCsv(ctx, false, bGroup, bPath);
            const bool bNoTags = doc.m_options.m_dupFiles.m_bByCrcWithoutTags != 0;
            ForEachRow(Flatten(doc.m_results.m_aDuplicateGroups), [&](CFileData& file, bool bNew) {
                if (bNew) out << "\n";
                WriteFileRowCsv(ctx, file, true, false, bNoTags, bGroup, bPath);
            });
            break;
        }
        case ResultDuplicateDirs:
            ReportHeaderCsv(ctx, u"Duplicate Directories");
            out << "\nDuplicates by: \n";
            WriteCriteria(out, DirCriteria(doc), "\n");
            out << "\n";
            WriteFileHeaderCsv(ctx, true, false, false);
            ForEachRow(Flatten(doc.m_results.m_aDuplicateDirGroups),
                       [&](CDirectoryData& dir, bool bNew) {
                           if (bNew) out << "\n";
                           WriteDirRowCsv(ctx, dir, true, false, false, bPath);
                       });
            break;
        case ResultLargestFiles:
            // The header has no Path column even where the rows have one.
            ReportHeaderCsv(ctx, u"Largest files");
            out << "\n";
            WriteFileHeaderCsv(ctx, false, false, false);
            for (CFileData* pFile : doc.m_results.m_aLargestFiles)
                WriteFileRowCsv(ctx, *pFile, true, false, false, false, bPath);
            break;
        case ResultLargestDirs:
            ReportHeaderCsv(ctx, u"Largest directories");
            WriteFileHeaderCsv(ctx, true, false, false);
            for (CDirectoryData* pDir : doc.m_results.m_aLargestDirs)
                WriteDirRowCsv(ctx, *pDir, true, false, false, bPath);
            break;
        case ResultLargestOwner:
        case ResultLargestType:
            ReportHeaderCsv(ctx, TotalsTitle(eReport));
            out << "\"" << TotalsColumn(eReport) << "\",\"Files\",\"Size " << ctx.Unit() << "\"\n";
            for (const auto& pEntry : TotalsOf(doc, eReport)) {
                // The name goes in as it is: a quote in it is not replaced.
                std::u16string strLine = u"\"" + pEntry->m_strKey + u"\"";
                CsvAppend(strLine, Count(pEntry->m_nFiles));
                CsvAppend(strLine, ctx.Size(pEntry->m_dSize));
                out << strLine << "\n";
            }
            break;
    }
}

// The cells of a coloured group row: the opening tag without its ">",
// then the group's colour.
std::u16string ColouredCell(const std::u16string& strCut, int64_t nGroup) {
    char szColour[32];
    std::snprintf(szColour, sizeof szColour, " bgcolor=\"#%06X\">",
                  unsigned(kGroupColours[nGroup & 1]));
    return strCut + platform::U16(szColour);
}

void WriteTotalsHtml(CReportContext& ctx, EResultReport eReport) {
    CReportStream& out = ctx.m_out;
    out << "<html>\n<body>\n";
    ReportHeaderHtml(ctx, TotalsTitle(eReport));
    out << "<table>\n" << kHtmlTableProlog << "\n<tr>\n";
    out << "<td width=\"33.3%\">" << TotalsColumn(eReport) << "</td>\n";
    out << "<td width=\"33.3%\" align=\"right\">Files</td>\n";
    out << "<td width=\"33.3%\" align=\"right\">Size in bytes</td>\n</tr>\n";
    for (const auto& pEntry : TotalsOf(ctx.m_doc, eReport)) {
        out << "<tr>\n<td width=\"33.3%\">" << HtmlEscape(pEntry->m_strKey) << "</td>\n";
        out << "<td width=\"33.3%\" align=\"right\">" << Count(pEntry->m_nFiles) << "</td>\n";
        out << "<td width=\"33.3%\" align=\"right\">" << ctx.Size(pEntry->m_dSize)
            << "</td>\n</tr>\n";
    }
    out << "</table>\n</body>\n</html>\n";
}

void WriteHtml(CReportContext& ctx, EResultReport eReport) {
    CWZorvaneDoc& doc = ctx.m_doc;
    CReportStream& out = ctx.m_out;
    const bool bGroup = ctx.Flag(PrintDuplicateGroup);
    const bool bPath = ctx.Flag(PrintNameSeparateColumn);
    const bool bColours = doc.m_options.m_bShowDupColor != 0;
    switch (eReport) {
        case ResultDuplicateFiles: {
            out << "<html>\n<body>\n";
            ReportHeaderHtml(ctx, u"Duplicate files");
            out << "<p><br>Duplicates by: <br>\n";
            WriteCriteria(out, FileCriteria(doc), "<br>\n");
            out << "<br></p>\n";
            const CHtmlCells cells = WriteTableHeaderHtml(ctx, false, bGroup, false, bPath);
            const bool bNoTags = doc.m_options.m_dupFiles.m_bByCrcWithoutTags != 0;
            const CHtmlCells cut{cells.m_strLeft.substr(0, cells.m_strLeft.rfind(u'>')),
                                 cells.m_strRight.substr(0, cells.m_strRight.rfind(u'>'))};
            ForEachRow(Flatten(doc.m_results.m_aDuplicateGroups), [&](CFileData& file, bool bNew) {
                if (bColours) {
                    const CHtmlCells coloured{ColouredCell(cut.m_strLeft, file.m_nDuplicateGroup),
                                              ColouredCell(cut.m_strRight, file.m_nDuplicateGroup)};
                    WriteFileRowHtml(ctx, file, true, coloured, false, bNoTags, bGroup, bPath);
                    return;
                }
                if (bNew) WriteNullFileRowHtml(ctx, cells, false, false, false);
                WriteFileRowHtml(ctx, file, true, cells, false, bNoTags, false, false);
            });
            out << "</html>\n</body>\n";
            break;
        }
        case ResultDuplicateDirs: {
            ReportHeaderHtml(ctx, u"Duplicate Directories");
            out << "<p><br>Duplicates by: <br>\n";
            WriteCriteria(out, DirCriteria(doc), "<br>\n");
            out << "<br></p>\n";
            const CHtmlCells cells = WriteTableHeaderHtml(ctx, true, false, false, false);
            const CHtmlCells cut{cells.m_strLeft.substr(0, cells.m_strLeft.size() - 1),
                                 cells.m_strRight.substr(0, cells.m_strRight.size() - 1)};
            ForEachRow(Flatten(doc.m_results.m_aDuplicateDirGroups), [&](CDirectoryData& dir,
                                                                         bool bNew) {
                if (bColours) {
                    const CHtmlCells coloured{ColouredCell(cut.m_strLeft, dir.m_nDuplicateGroup),
                                              ColouredCell(cut.m_strRight, dir.m_nDuplicateGroup)};
                    WriteDirRowHtml(ctx, dir, true, false, coloured, false, false);
                    return;
                }
                if (bNew) WriteNullDirRowHtml(ctx, cells, false, false);
                WriteDirRowHtml(ctx, dir, true, false, cells, false, false);
            });
            out << "</table>\n</html>\n</body>\n";
            break;
        }
        case ResultLargestFiles: {
            out << "<html>\n<body>\n";
            ReportHeaderHtml(ctx, u"Largest files");
            const CHtmlCells cells = WriteTableHeaderHtml(ctx, false, false, false, bPath);
            for (CFileData* pFile : doc.m_results.m_aLargestFiles)
                WriteFileRowHtml(ctx, *pFile, true, cells, false, false, false, bPath);
            out << "</html>\n</body>\n";
            break;
        }
        case ResultLargestDirs: {
            ReportHeaderHtml(ctx, u"Largest directories");
            const CHtmlCells cells = WriteTableHeaderHtml(ctx, true, false, false, false);
            for (CDirectoryData* pDir : doc.m_results.m_aLargestDirs)
                WriteDirRowHtml(ctx, *pDir, true, false, cells, false, false);
            out << "</table>\n</html>\n</body>\n";
            break;
        }
        case ResultLargestOwner:
        case ResultLargestType:
            WriteTotalsHtml(ctx, eReport);
            break;
    }
}

void WriteXml(CReportContext& ctx, EResultReport eReport) {
    CWZorvaneDoc& doc = ctx.m_doc;
    CReportStream& out = ctx.m_out;
    const bool bPath = ctx.Flag(PrintNameSeparateColumn);
    out << (out.IsUnicode() ? "<?xml version=\"1.0\" encoding=\"utf-16\" ?>\n"
                            : "<?xml version=\"1.0\" encoding=\"utf-8\" ?>\n");
    out << "<Zorvane>\n";
    switch (eReport) {
        case ResultDuplicateFiles:
            ReportHeaderXml(ctx, u"Duplicate files");
            for (CFileData* pFile : Flatten(doc.m_results.m_aDuplicateGroups))
                WriteFileXml(ctx, *pFile, true, bPath);
            break;
        case ResultDuplicateDirs: {
            ReportHeaderXml(ctx, u"Duplicate Directories");
            static constexpr const char* kAttributes[DupDirCriterionCount] = {
                "ByName='1' ",    "BySize='1' ",       "BySizeWSub='1' ",      "ByCRC='1' ",
                "ByCRCwSub='1' ", "ByTotalFiles='1' ", "ByTotalFilesWSub='1' "};
            out << "<Duplicates ";
            for (int i = 0; i < DupDirCriterionCount; ++i)
                if (doc.m_options.m_dupDirs.m_aCriteria[i]) out << kAttributes[i];
            out << "/>\n";
            for (CDirectoryData* pDir : Flatten(doc.m_results.m_aDuplicateDirGroups))
                WriteDirXml(ctx, *pDir, true);
            break;
        }
        case ResultLargestFiles:
            ReportHeaderXml(ctx, u"Largest files");
            for (CFileData* pFile : doc.m_results.m_aLargestFiles)
                WriteFileXml(ctx, *pFile, false, bPath);
            break;
        case ResultLargestDirs:
            ReportHeaderXml(ctx, u"Largest directories");
            for (CDirectoryData* pDir : doc.m_results.m_aLargestDirs)
                WriteDirXml(ctx, *pDir, false);
            break;
        case ResultLargestOwner:
        case ResultLargestType: {
            out << "<Header";
            if (!doc.m_print.m_strPrintTitle.empty())
                out << " value='" << XmlEscape(doc.m_print.m_strPrintTitle) << "' ";
            out << " Time='" << FormatScanTime(doc.m_tScanTime) << "'/>\n";
            if (ctx.Flag(PrintFilters)) FiltersBlockXml(ctx);
            const bool bOwner = eReport == ResultLargestOwner;
            for (const auto& pEntry : TotalsOf(doc, eReport))
                out << (bOwner ? "<OwnerData owner='" : "<TypeData type='")
                    << XmlEscape(pEntry->m_strKey) << "' nFiles='" << Count(pEntry->m_nFiles)
                    << "' size='" << FormatXmlSizeInBytes(pEntry->m_dSize) << "' size_units='"
                    << ctx.Unit() << "'/>\n";
            break;
        }
    }
    out << "</Zorvane>\n";
}

}  // namespace

void WriteResultReport(CWZorvaneDoc& doc, CReportStream& out, EPrintType eForm,
                       EResultReport eReport) {
    CReportContext ctx(doc, out, true);
    switch (eForm) {
        case PrintTypeText:
            WriteText(ctx, eReport);
            break;
        case PrintTypeExcel:
            WriteCsv(ctx, eReport);
            break;
        case PrintTypeHtml:
            WriteHtml(ctx, eReport);
            break;
        case PrintTypeXml:
            WriteXml(ctx, eReport);
            break;
        case PrintTypeNone:
            break;
    }
}

}  // namespace zv
