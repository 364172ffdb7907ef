#include "reports/ResultReports.h"

#include <cstdio>
#include <type_traits>
#include <vector>

#include "core/document/Document.h"
#include "core/document/SizeText.h"
#include "platform/Text.h"
#include "reports/CsvReport.h"
#include "reports/FiltersBlock.h"
#include "reports/HtmlReport.h"
#include "reports/ReportContext.h"
#include "reports/ReportHeader.h"
#include "reports/ReportProgress.h"
#include "reports/ReportStream.h"
#include "reports/TextReport.h"
#include "reports/ValueText.h"
#include "reports/XmlReport.h"

namespace zv {
namespace {

constexpr const char* kGroupDashes = "--------------------------------\n";
// Row colours of duplicate groups by group parity, in the document's set
// and in the screens' set.
constexpr uint32_t kDocumentColours[2] = {0xFFFFFF, 0xFFFF80};
constexpr uint32_t kViewColours[2] = {0xFFFFFF, 0x80FFFF};

// The rows of one report in the order they are written; only the list of
// the report's kind is filled.
struct CResultRows {
    std::vector<CFileData*> aFiles;
    std::vector<CDirectoryData*> aDirs;
    std::vector<const CTotalEntry*> aTotals;
};

// Duplicate groups one after the other.
template <typename TRecord>
std::vector<TRecord*> Flatten(const std::vector<std::vector<TRecord*>>& aGroups) {
    std::vector<TRecord*> aRows;
    for (const auto& group : aGroups) aRows.insert(aRows.end(), group.begin(), group.end());
    return aRows;
}

std::vector<const CTotalEntry*> Entries(const CTotalTable& aTable) {
    std::vector<const CTotalEntry*> aRows;
    for (const auto& pEntry : aTable) aRows.push_back(pEntry.get());
    return aRows;
}

CResultRows DocumentRows(const CWZorvaneDoc& doc, EResultReport eReport) {
    const CResultLists& results = doc.m_results;
    CResultRows rows;
    switch (eReport) {
        case ResultDuplicateFiles:
            rows.aFiles = Flatten(results.m_aDuplicateGroups);
            break;
        case ResultDuplicateDirs:
            rows.aDirs = Flatten(results.m_aDuplicateDirGroups);
            break;
        case ResultLargestFiles:
            rows.aFiles = results.m_aLargestFiles;
            break;
        case ResultLargestDirs:
            rows.aDirs = results.m_aLargestDirs;
            break;
        case ResultLargestOwner:
            rows.aTotals = Entries(results.m_totals.m_aOwners);
            break;
        case ResultLargestType:
            rows.aTotals = Entries(results.m_totals.m_aTypes);
            break;
    }
    return rows;
}

struct CCriterion {
    bool bOn;
    const char* pszText;
};

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

std::u16string Count(uint32_t nFiles) { return DecimalText(int64_t(nFiles)); }

// One report of either set. The screens' set takes a progress step per row
// and differs from the document's in the points marked m_bView.
class CResultWriter {
public:
    CResultWriter(CReportContext& ctx, const CResultRows& rows, EResultReport eReport, bool bView)
        : m_ctx(ctx),
          m_out(ctx.m_out),
          m_doc(ctx.m_doc),
          m_rows(rows),
          m_eReport(eReport),
          m_bView(bView),
          m_bGroup(ctx.Flag(PrintDuplicateGroup)),
          m_bPath(ctx.Flag(PrintNameSeparateColumn)),
          m_bNoTags(ctx.m_doc.m_options.m_dupFiles.m_bByCrcWithoutTags != 0) {}

    void Text();
    void Csv();
    void Html();
    void Xml();

private:
    // Calls write(row, bNewGroup) per row: bNewGroup when the row's group
    // number differs from that of the row written before it.
    template <typename TRecord, typename TWrite>
    void ForEachRow(const std::vector<TRecord*>& aRows, TWrite write) {
        for (size_t i = 0; i < aRows.size() && !m_ctx.Stopped(); ++i) {
            bool bNewGroup = false;
            if constexpr (!std::is_same_v<TRecord, const CTotalEntry>)
                bNewGroup = i > 0 && aRows[i]->m_nDuplicateGroup != aRows[i - 1]->m_nDuplicateGroup;
            write(*aRows[i], bNewGroup);
            if (m_bView) ReportProgressStep();
        }
    }

    std::vector<CCriterion> FileCriteria() const {
        const CDuplicateFileCriteria& c = m_doc.m_options.m_dupFiles;
        return {{c.m_bByName != 0, "Name"},
                {c.m_bBySize != 0, "Size"},
                {c.m_bByteByByte != 0, m_bView ? "Compare byte by byte" : "Comparing byte by byte"},
                {c.m_bByCrc != 0, "CRC"},
                {c.m_bByCrcWithoutTags != 0, "CRC (Excluding MP3 ID3Tags)"}};
    }

    std::vector<CCriterion> DirCriteria() const {
        const int32_t* a = m_doc.m_options.m_dupDirs.m_aCriteria;
        return {{a[DupDirByName] != 0, "Name"},
                {a[DupDirBySize] != 0, "Size"},
                {a[DupDirBySizeWithSubdirs] != 0, "Size with subdirectories"},
                {a[DupDirByCrc] != 0, "CRC"},
                {a[DupDirByCrcWithSubdirs] != 0, "CRC with subdirectories"},
                {a[DupDirByTotalFiles] != 0, "Total files"},
                {a[DupDirByTotalFilesWithSubdirs] != 0, "Total files with subdirectories"}};
    }

    // The group column of duplicate directory rows is the screens' only.
    bool DirGroup() const { return m_bView && m_bGroup; }

    // The screens' owner and type reports open with a shorter head: no
    // volume lines.
    void ShortHeadText() {
        m_out << "Zorvane: " << TotalsTitle(m_eReport) << "\n";
        if (!m_doc.m_print.m_strPrintTitle.empty()) m_out << m_doc.m_print.m_strPrintTitle << "\n";
        m_out << FormatScanTime(m_doc.m_tScanTime) << "\n\n";
        FiltersBlockText(m_ctx);
    }
    void ShortHeadCsv() {
        m_out << "\"Zorvane: " << TotalsTitle(m_eReport) << "\"\n";
        if (!m_doc.m_print.m_strPrintTitle.empty())
            m_out << "\"" << m_doc.m_print.m_strPrintTitle << "\"\n";
        m_out << "\"" << FormatScanTime(m_doc.m_tScanTime) << "\"\n\n";
        FiltersBlockCsv(m_ctx);
    }

    // The cells of a coloured group row: the opening tag cut before its
    // ">", then the group's colour.
    std::u16string ColouredCell(const std::u16string& strCut, int64_t nGroup) const {
        const uint32_t* aColours = m_bView ? kViewColours : kDocumentColours;
        char szColour[32];
        std::snprintf(szColour, sizeof szColour, " bgcolor=\"#%06X\">",
                      unsigned(aColours[nGroup & 1]));
        return strCut + platform::U16(szColour);
    }

    void TotalsHtml();

    CReportContext& m_ctx;
    CReportStream& m_out;
    CWZorvaneDoc& m_doc;
    const CResultRows& m_rows;
    const EResultReport m_eReport;
    const bool m_bView;
    const bool m_bGroup;
    const bool m_bPath;
    const bool m_bNoTags;  // checksums without MP3 tags
};

void CResultWriter::Text() {
    switch (m_eReport) {
        case ResultDuplicateFiles:
            ReportHeaderText(m_ctx, u"Duplicate Files");
            m_out << "\nDuplicates by: \n";
            WriteCriteria(m_out, FileCriteria(), "\n");
            m_out << "\n";
            ForEachRow(m_rows.aFiles, [&](CFileData& file, bool bNew) {
                if (bNew) m_out << kGroupDashes << "\n";
                WriteFileRowText(m_ctx, file, m_bNoTags, true, m_bGroup);
            });
            break;
        case ResultDuplicateDirs:
            ReportHeaderText(m_ctx, u"Duplicate Directories");
            m_out << "\nDuplicates by: \n";
            WriteCriteria(m_out, DirCriteria(), "\n");
            m_out << "\n";
            ForEachRow(m_rows.aDirs, [&](CDirectoryData& dir, bool bNew) {
                if (bNew) m_out << kGroupDashes << "\n";
                WriteDirRowText(m_ctx, dir, true, false, DirGroup());
            });
            break;
        case ResultLargestFiles:
            ReportHeaderText(m_ctx, u"Largest files");
            ForEachRow(m_rows.aFiles, [&](CFileData& file, bool) {
                WriteFileRowText(m_ctx, file, false, true, m_bGroup);
            });
            break;
        case ResultLargestDirs:
            ReportHeaderText(m_ctx, u"Largest directories");
            ForEachRow(m_rows.aDirs, [&](CDirectoryData& dir, bool) {
                WriteDirRowText(m_ctx, dir, true, false, false);
            });
            break;
        case ResultLargestOwner:
        case ResultLargestType: {
            if (m_bView)
                ShortHeadText();
            else
                ReportHeaderText(m_ctx, TotalsTitle(m_eReport));
            const size_t nName = m_bView ? 15 : 16;
            const size_t nFiles = m_bView ? 6 : 9;
            ForEachRow(m_rows.aTotals, [&](const CTotalEntry& entry, bool) {
                m_out << PadLeft(entry.m_strKey, nName)
                      << ", files=" << PadLeft(GroupThousands(Count(entry.m_nFiles)), nFiles)
                      << ", size=" << PadLeft(m_ctx.SizeWithUnits(entry.m_dSize), 20) << "\n";
            });
            break;
        }
    }
}

void CResultWriter::Csv() {
    switch (m_eReport) {
        case ResultDuplicateFiles:
            ReportHeaderCsv(m_ctx, u"Duplicate Files");
            m_out << "\n\nDuplicates by: \n";
            WriteCriteria(m_out, FileCriteria(), "\n");
            m_out << (m_bView ? "\n" : kGroupDashes);
            WriteFileHeaderCsv(m_ctx, false, m_bGroup, m_bPath);
            ForEachRow(m_rows.aFiles, [&](CFileData& file, bool bNew) {
                if (bNew) m_out << "\n";
                WriteFileRowCsv(m_ctx, file, true, false, m_bNoTags, m_bGroup, m_bPath);
            });
            break;
        case ResultDuplicateDirs: {
            ReportHeaderCsv(m_ctx, u"Duplicate Directories");
            m_out << "\nDuplicates by: \n";
            WriteCriteria(m_out, DirCriteria(), "\n");
            m_out << "\n";
            WriteFileHeaderCsv(m_ctx, true, DirGroup(), false);
            // The document's rows have a path column that its header lacks.
            const bool bRowPath = !m_bView && m_bPath;
            ForEachRow(m_rows.aDirs, [&](CDirectoryData& dir, bool bNew) {
                if (bNew) m_out << "\n";
                WriteDirRowCsv(m_ctx, dir, true, false, DirGroup(), bRowPath);
            });
            break;
        }
        case ResultLargestFiles:
            // In the document's set the header has no Path column even
            // where the rows have one.
            ReportHeaderCsv(m_ctx, u"Largest files");
            m_out << "\n";
            WriteFileHeaderCsv(m_ctx, false, false, m_bView && m_bPath);
            ForEachRow(m_rows.aFiles, [&](CFileData& file, bool) {
                WriteFileRowCsv(m_ctx, file, true, false, false, false, m_bPath);
            });
            break;
        case ResultLargestDirs:
            ReportHeaderCsv(m_ctx, u"Largest directories");
            WriteFileHeaderCsv(m_ctx, true, false, false);
            ForEachRow(m_rows.aDirs, [&](CDirectoryData& dir, bool) {
                WriteDirRowCsv(m_ctx, dir, true, false, false, !m_bView && m_bPath);
            });
            break;
        case ResultLargestOwner:
        case ResultLargestType:
            if (m_bView)
                ShortHeadCsv();
            else
                ReportHeaderCsv(m_ctx, TotalsTitle(m_eReport));
            m_out << "\"" << TotalsColumn(m_eReport) << "\",\"Files\",\"Size " << m_ctx.Unit()
                  << "\"\n";
            ForEachRow(m_rows.aTotals, [&](const CTotalEntry& entry, bool) {
                // The name goes in as it is: a quote in it is not replaced.
                std::u16string strLine = u"\"" + entry.m_strKey + u"\"";
                const std::u16string strCount = Count(entry.m_nFiles);
                CsvAppend(strLine, m_bView ? GroupThousands(strCount) : strCount);
                CsvAppend(strLine, m_ctx.Size(entry.m_dSize));
                m_out << strLine << "\n";
            });
            break;
    }
}

void CResultWriter::TotalsHtml() {
    m_out << "<html>\n<body>\n";
    if (m_bView) {
        // The header text is not printed here.
        m_out << "<p>Zorvane: " << TotalsTitle(m_eReport) << "<br>\n"
              << FormatScanTime(m_doc.m_tScanTime) << "</p><p></p>\n";
        FiltersBlockHtml(m_ctx);
    } else {
        ReportHeaderHtml(m_ctx, TotalsTitle(m_eReport));
    }
    m_out << "<table>\n" << kHtmlTableProlog << "\n<tr>\n";
    m_out << "<td width=\"33.3%\">" << TotalsColumn(m_eReport) << "</td>\n";
    m_out << "<td width=\"33.3%\" align=\"right\">Files</td>\n";
    m_out << "<td width=\"33.3%\" align=\"right\">Size in bytes</td>\n</tr>\n";
    ForEachRow(m_rows.aTotals, [&](const CTotalEntry& entry, bool) {
        m_out << "<tr>\n<td width=\"33.3%\">" << HtmlEscape(entry.m_strKey) << "</td>\n";
        m_out << "<td width=\"33.3%\" align=\"right\">" << Count(entry.m_nFiles) << "</td>\n";
        m_out << "<td width=\"33.3%\" align=\"right\">" << m_ctx.Size(entry.m_dSize)
              << "</td>\n</tr>\n";
    });
    m_out << "</table>\n</body>\n</html>\n";
}

void CResultWriter::Html() {
    const bool bColours = m_doc.m_options.m_bShowDupColor != 0;
    switch (m_eReport) {
        case ResultDuplicateFiles: {
            m_out << "<html>\n<body>\n";
            ReportHeaderHtml(m_ctx, u"Duplicate files");
            m_out << "<p><br>Duplicates by: <br>\n";
            WriteCriteria(m_out, FileCriteria(), "<br>\n");
            m_out << "<br></p>\n";
            const CHtmlCells cells = WriteTableHeaderHtml(m_ctx, false, m_bGroup, false, m_bPath);
            const CHtmlCells cut{cells.m_strLeft.substr(0, cells.m_strLeft.rfind(u'>')),
                                 cells.m_strRight.substr(0, cells.m_strRight.rfind(u'>'))};
            // Without colours, separator rows part the groups, and the
            // group column is the screens' only.
            const bool bPlainGroup = m_bView && m_bGroup;
            ForEachRow(m_rows.aFiles, [&](CFileData& file, bool bNew) {
                if (bColours) {
                    const CHtmlCells coloured{ColouredCell(cut.m_strLeft, file.m_nDuplicateGroup),
                                              ColouredCell(cut.m_strRight, file.m_nDuplicateGroup)};
                    WriteFileRowHtml(m_ctx, file, true, coloured, false, m_bNoTags, m_bGroup,
                                     m_bPath);
                    return;
                }
                if (bNew) WriteNullFileRowHtml(m_ctx, cells, false, bPlainGroup, false);
                WriteFileRowHtml(m_ctx, file, true, cells, false, m_bNoTags, bPlainGroup, false);
            });
            m_out << "</html>\n</body>\n";
            break;
        }
        case ResultDuplicateDirs: {
            ReportHeaderHtml(m_ctx, u"Duplicate Directories");
            m_out << "<p><br>Duplicates by: <br>\n";
            WriteCriteria(m_out, DirCriteria(), "<br>\n");
            m_out << "<br></p>\n";
            const CHtmlCells cells = WriteTableHeaderHtml(m_ctx, true, DirGroup(), false, false);
            const CHtmlCells cut{cells.m_strLeft.substr(0, cells.m_strLeft.size() - 1),
                                 cells.m_strRight.substr(0, cells.m_strRight.size() - 1)};
            ForEachRow(m_rows.aDirs, [&](CDirectoryData& dir, bool bNew) {
                if (bColours) {
                    const CHtmlCells coloured{ColouredCell(cut.m_strLeft, dir.m_nDuplicateGroup),
                                              ColouredCell(cut.m_strRight, dir.m_nDuplicateGroup)};
                    WriteDirRowHtml(m_ctx, dir, true, false, coloured, DirGroup(), false);
                    return;
                }
                if (bNew) WriteNullDirRowHtml(m_ctx, cells, DirGroup(), false);
                WriteDirRowHtml(m_ctx, dir, true, false, cells, DirGroup(), false);
            });
            m_out << "</table>\n</html>\n</body>\n";
            break;
        }
        case ResultLargestFiles: {
            m_out << "<html>\n<body>\n";
            ReportHeaderHtml(m_ctx, u"Largest files");
            const CHtmlCells cells = WriteTableHeaderHtml(m_ctx, false, false, false, m_bPath);
            ForEachRow(m_rows.aFiles, [&](CFileData& file, bool) {
                WriteFileRowHtml(m_ctx, file, true, cells, false, false, false, m_bPath);
            });
            m_out << "</html>\n</body>\n";
            break;
        }
        case ResultLargestDirs: {
            ReportHeaderHtml(m_ctx, u"Largest directories");
            const CHtmlCells cells = WriteTableHeaderHtml(m_ctx, true, false, false, false);
            ForEachRow(m_rows.aDirs, [&](CDirectoryData& dir, bool) {
                WriteDirRowHtml(m_ctx, dir, true, false, cells, false, false);
            });
            m_out << "</table>\n</html>\n</body>\n";
            break;
        }
        case ResultLargestOwner:
        case ResultLargestType:
            TotalsHtml();
            break;
    }
}

void CResultWriter::Xml() {
    m_out << (m_out.IsUnicode() ? "<?xml version=\"1.0\" encoding=\"utf-16\" ?>\n"
                                : "<?xml version=\"1.0\" encoding=\"utf-8\" ?>\n");
    m_out << "<Zorvane>\n";
    switch (m_eReport) {
        case ResultDuplicateFiles:
            ReportHeaderXml(m_ctx, u"Duplicate files");
            ForEachRow(m_rows.aFiles,
                       [&](CFileData& file, bool) { WriteFileXml(m_ctx, file, true, m_bPath); });
            break;
        case ResultDuplicateDirs: {
            static constexpr const char* kAttributes[DupDirCriterionCount] = {
                "ByName='1' ",    "BySize='1' ",       "BySizeWSub='1' ",      "ByCRC='1' ",
                "ByCRCwSub='1' ", "ByTotalFiles='1' ", "ByTotalFilesWSub='1' "};
            // The screens' set puts the criteria before the header.
            if (!m_bView) ReportHeaderXml(m_ctx, u"Duplicate Directories");
            m_out << "<Duplicates ";
            for (int i = 0; i < DupDirCriterionCount; ++i)
                if (m_doc.m_options.m_dupDirs.m_aCriteria[i]) m_out << kAttributes[i];
            m_out << "/>\n";
            if (m_bView) ReportHeaderXml(m_ctx, u"Duplicate directories");
            ForEachRow(m_rows.aDirs,
                       [&](CDirectoryData& dir, bool) { WriteDirXml(m_ctx, dir, true); });
            break;
        }
        case ResultLargestFiles:
            ReportHeaderXml(m_ctx, u"Largest files");
            ForEachRow(m_rows.aFiles,
                       [&](CFileData& file, bool) { WriteFileXml(m_ctx, file, false, m_bPath); });
            break;
        case ResultLargestDirs:
            ReportHeaderXml(m_ctx, u"Largest directories");
            ForEachRow(m_rows.aDirs,
                       [&](CDirectoryData& dir, bool) { WriteDirXml(m_ctx, dir, false); });
            break;
        case ResultLargestOwner:
        case ResultLargestType: {
            m_out << "<Header";
            if (!m_doc.m_print.m_strPrintTitle.empty())
                m_out << " value='" << XmlEscape(m_doc.m_print.m_strPrintTitle) << "' ";
            m_out << " Time='" << FormatScanTime(m_doc.m_tScanTime) << "'/>\n";
            if (m_ctx.Flag(PrintFilters)) FiltersBlockXml(m_ctx);
            const bool bOwner = m_eReport == ResultLargestOwner;
            ForEachRow(m_rows.aTotals, [&](const CTotalEntry& entry, bool) {
                m_out << (bOwner ? "<OwnerData owner='" : "<TypeData type='")
                      << XmlEscape(entry.m_strKey) << "' nFiles='" << Count(entry.m_nFiles)
                      << "' size='" << FormatXmlSizeInBytes(entry.m_dSize) << "' size_units='"
                      << m_ctx.Unit() << "'/>\n";
            });
            break;
        }
    }
    m_out << "</Zorvane>\n";
}

void Write(CResultWriter& writer, EPrintType eForm) {
    switch (eForm) {
        case PrintTypeText:
            writer.Text();
            break;
        case PrintTypeExcel:
            writer.Csv();
            break;
        case PrintTypeHtml:
            writer.Html();
            break;
        case PrintTypeXml:
            writer.Xml();
            break;
        case PrintTypeNone:
            break;
    }
}

bool WriteViewRows(CWZorvaneDoc& doc, CReportStream& out, EPrintType eForm, EResultReport eReport,
                   const CResultRows& rows) {
    CReportContext ctx(doc, out, true);
    CResultWriter writer(ctx, rows, eReport, true);
    ReportProgressBegin(double(rows.aFiles.size() + rows.aDirs.size() + rows.aTotals.size()),
                        u"Files");
    Write(writer, eForm);
    ReportProgressEnd();
    return !ctx.Stopped();
}

}  // namespace

void WriteResultReport(CWZorvaneDoc& doc, CReportStream& out, EPrintType eForm,
                       EResultReport eReport) {
    CReportContext ctx(doc, out, true);
    const CResultRows rows = DocumentRows(doc, eReport);
    CResultWriter writer(ctx, rows, eReport, false);
    Write(writer, eForm);
}

bool WriteViewResultReport(CWZorvaneDoc& doc, CReportStream& out, EPrintType eForm,
                           EResultReport eReport, const CFileViewRows& rows) {
    CResultRows shown;
    shown.aFiles = rows.Shown();
    return WriteViewRows(doc, out, eForm, eReport, shown);
}

bool WriteViewResultReport(CWZorvaneDoc& doc, CReportStream& out, EPrintType eForm,
                           EResultReport eReport, const CDirViewRows& rows) {
    CResultRows shown;
    shown.aDirs = rows.Shown();
    return WriteViewRows(doc, out, eForm, eReport, shown);
}

bool WriteViewResultReport(CWZorvaneDoc& doc, CReportStream& out, EPrintType eForm,
                           EResultReport eReport, const CTotalViewRows& rows) {
    CResultRows shown;
    shown.aTotals = rows.Shown();
    return WriteViewRows(doc, out, eForm, eReport, shown);
}

}  // namespace zv
