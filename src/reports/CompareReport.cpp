#include "reports/CompareReport.h"

#include "compare/CompareStatus.h"
#include "core/document/CompareList.h"
#include "reports/ReportContext.h"
#include "reports/ReportHeader.h"
#include "reports/ReportStream.h"
#include "reports/ValueText.h"

namespace zv {
namespace {

// The six show flags in the order every form lists them, with their words.
struct CShowFlagLine {
    bool CCompareShowFlags::*pFlag;
    const char* pszText;
    const char* pszCsv;  // the CSV form has its own spelling of the last one
    const char* pszXml;
};
constexpr CShowFlagLine kShowFlagLines[] = {
    {&CCompareShowFlags::m_bDifferentFiles, "Show different files", "Show different files",
     "ShowDifferentFiles"},
    {&CCompareShowFlags::m_bDifferentDirs, "Show different dirs", "Show different dirs",
     "ShowDifferentDirs"},
    {&CCompareShowFlags::m_bFilesNotFound, "Show files not found", "Show files not found",
     "ShowFilesNotFound"},
    {&CCompareShowFlags::m_bDirsNotFound, "Show dirs not found", "Show dirs not found",
     "ShowDirsNotFound"},
    {&CCompareShowFlags::m_bIdenticalFiles, "Show identical files", "Show identical files",
     "ShowIdenticalFiles"},
    {&CCompareShowFlags::m_bIdenticalDirs, "Show identical dirs", "Show identical dir",
     "ShowIdenticalDirs"},
};

// "%-40s": the text, filled up with blanks to 40 characters.
std::u16string PadRight(std::u16string strText, size_t nWidth) {
    if (strText.size() < nWidth) strText.append(nWidth - strText.size(), u' ');
    return strText;
}

void WriteText(CReportStream& out, const CCompareList& list, const CCompareShowFlags& show) {
    for (const CShowFlagLine& line : kShowFlagLines)
        if (show.*line.pFlag) out << line.pszText << "\n";
    for (const auto& pEntry : list.m_aEntries) {
        if (!show.Shows(*pEntry)) continue;
        out << PadRight(pEntry->LeftPath(), 40) << " " << PadRight(pEntry->RightPath(), 40) << " "
            << GetCompareStatusText(*pEntry) << "\n";
    }
}

void WriteCsv(CReportStream& out, const CCompareList& list, const CCompareShowFlags& show) {
    for (const CShowFlagLine& line : kShowFlagLines)
        if (show.*line.pFlag) out << "\"" << line.pszCsv << "\"\n";
    for (const auto& pEntry : list.m_aEntries) {
        if (!show.Shows(*pEntry)) continue;
        std::u16string strLine;
        CsvAppendFirst(strLine, pEntry->LeftPath());
        CsvAppend(strLine, pEntry->RightPath());
        CsvAppend(strLine, GetCompareStatusText(*pEntry));
        out << strLine << "\n";
    }
}

void NameCellHtml(CReportStream& out, bool bPresent, const std::u16string& strPath) {
    if (bPresent)
        out << "<td width=\"33.3%\" align=\"left\">" << HtmlEscape(strPath) << "</td>\n";
    else
        out << "<td></td>\n";
}

void WriteHtml(CReportStream& out, const CCompareList& list, const CCompareShowFlags& show) {
    for (const CShowFlagLine& line : kShowFlagLines)
        if (show.*line.pFlag) out << "<p>" << line.pszText << "</p>\n";
    out << "<table border=\"1\" cellpadding=\"0\" cellspacing=\"0\" "
           "style=\"border-collapse: collapse\" width=\"100%\">\n";
    for (const auto& pEntry : list.m_aEntries) {
        if (!show.Shows(*pEntry)) continue;
        out << "<tr>\n";
        NameCellHtml(out, pEntry->HasLeft(), pEntry->LeftPath());
        NameCellHtml(out, pEntry->HasRight(), pEntry->RightPath());
        out << "<td width=\"33.3%\" align=\"right\">" << HtmlEscape(GetCompareStatusText(*pEntry))
            << "</td>\n</tr>\n";
    }
    out << "</table>\n";
}

void WriteXml(CReportStream& out, const CCompareList& list, const CCompareShowFlags& show) {
    out << "<Display\n";
    for (const CShowFlagLine& line : kShowFlagLines)
        if (show.*line.pFlag) out << "    " << line.pszXml << "='1'\n";
    out << "/>\n";
    for (const auto& pEntry : list.m_aEntries) {
        if (!show.Shows(*pEntry)) continue;
        const char* pszLeft = pEntry->m_bFile ? "    file1='" : "    directory1='";
        const char* pszRight = pEntry->m_bFile ? "    file2='" : "    directory2='";
        out << "<DiffData\n";
        if (pEntry->HasLeft()) out << pszLeft << XmlEscape(pEntry->LeftPath()) << "'\n";
        if (pEntry->HasRight()) out << pszRight << XmlEscape(pEntry->RightPath()) << "'\n";
        out << "    ReasonForDifference='" << XmlEscape(GetCompareStatusText(*pEntry)) << "'/>\n";
    }
}

}  // namespace

void WriteCompareReport(CWZorvaneDoc& doc, CReportStream& out, EPrintType eForm,
                        const CCompareList& list, const CCompareShowFlags& show) {
    CReportContext ctx(doc, out, true);
    switch (eForm) {
        case PrintTypeText:
            ReportHeaderText(ctx, u"Directory Compare");
            WriteText(out, list, show);
            break;
        case PrintTypeExcel:
            // The comma-separated form has always carried this title.
            ReportHeaderCsv(ctx, u"Largest files");
            WriteCsv(out, list, show);
            break;
        case PrintTypeHtml:
            out << "<html>\n<body>\n";
            ReportHeaderHtml(ctx, u"Directory Compare");
            WriteHtml(out, list, show);
            out << "</body>\n</html>\n";
            break;
        case PrintTypeXml:
            out << (out.IsUnicode() ? "<?xml version=\"1.0\" encoding=\"utf-16\" ?>\n"
                                    : "<?xml version=\"1.0\" encoding=\"utf-8\" ?>\n");
            out << "<Zorvane>\n";
            ReportHeaderXml(ctx, u"Directory Compare");
            WriteXml(out, list, show);
            out << "</Zorvane>\n";
            break;
        case PrintTypeNone:
            break;
    }
}

}  // namespace zv
