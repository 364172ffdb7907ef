#include "app/LargestCommand.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <climits>
#include <cstdio>
#include <vector>

#include "analyses/LargestLists.h"
#include "analyses/LargestTotals.h"
#include "app/CommandScan.h"
#include "app/ResultReportOutput.h"
#include "platform/FileContents.h"
#include "platform/Text.h"

namespace zv {
namespace {

constexpr int kUnreadable = 1;
constexpr int kInterrupted = 130;

// One row of the output: a path or a name, with its count of files for
// owners and types.
struct CRow {
    std::u16string m_strName;
    double m_dSize;
    bool m_bTotals;
    uint32_t m_nFiles;
};

std::string WholeNumber(double d) {
    char szText[32];
    std::snprintf(szText, sizeof szText, "%.0f", d);
    return szText;
}

void AppendUtf8(std::string& strOut, char32_t c) {
    if (c < 0x80) {
        strOut += char(c);
    } else if (c < 0x800) {
        strOut += char(0xC0 | (c >> 6));
        strOut += char(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        strOut += char(0xE0 | (c >> 12));
        strOut += char(0x80 | ((c >> 6) & 0x3F));
        strOut += char(0x80 | (c & 0x3F));
    } else {
        strOut += char(0xF0 | (c >> 18));
        strOut += char(0x80 | ((c >> 12) & 0x3F));
        strOut += char(0x80 | ((c >> 6) & 0x3F));
        strOut += char(0x80 | (c & 0x3F));
    }
}

// A JSON string that loses nothing: a surrogate without its partner (how a
// name byte that is not UTF-8 is held) is written as its escape, \udcXX,
// where a UTF-8 encoder would have to replace it.
std::string JsonString(std::u16string_view str) {
    std::string strOut = "\"";
    for (size_t i = 0; i < str.size(); ++i) {
        const char16_t c = str[i];
        const bool bHigh = c >= 0xD800 && c <= 0xDBFF;
        if (bHigh && i + 1 < str.size() && str[i + 1] >= 0xDC00 && str[i + 1] <= 0xDFFF) {
            AppendUtf8(strOut, 0x10000 + ((char32_t(c) - 0xD800) << 10) + (str[i + 1] - 0xDC00));
            ++i;
        } else if (c == u'"' || c == u'\\') {
            strOut += '\\';
            strOut += char(c);
        } else if (c < 0x20 || (c >= 0xD800 && c <= 0xDFFF)) {
            char szEscape[8];
            std::snprintf(szEscape, sizeof szEscape, "\\u%04x", unsigned(c));
            strOut += szEscape;
        } else {
            AppendUtf8(strOut, c);
        }
    }
    return strOut + "\"";
}

std::string FormatJson(const std::vector<CRow>& aRows) {
    std::string strOut = "[";
    for (size_t i = 0; i < aRows.size(); ++i) {
        const CRow& row = aRows[i];
        strOut += i ? ",\n  {" : "\n  {";
        if (row.m_bTotals)
            strOut += "\"name\": " + JsonString(row.m_strName) +
                      ", \"files\": " + std::to_string(row.m_nFiles) + ", ";
        else
            strOut += "\"path\": " + JsonString(row.m_strName) + ", ";
        strOut += "\"size\": " + WholeNumber(row.m_dSize) + "}";
    }
    return strOut + (aRows.empty() ? "]\n" : "\n]\n");
}

// Tab-separated: path and size, or name, files and size.
std::string FormatText(const std::vector<CRow>& aRows) {
    std::string strOut;
    for (const CRow& row : aRows) {
        strOut += platform::Utf16ToUtf8(row.m_strName) + "\t";
        if (row.m_bTotals) strOut += std::to_string(row.m_nFiles) + "\t";
        strOut += WholeNumber(row.m_dSize) + "\n";
    }
    return strOut;
}

// Only the list asked for is kept during the scan.
void ChooseList(const CLargestCommandOptions& options, CDocumentOptions& doc) {
    doc.m_bLargestFiles = options.m_strKind == "files";
    doc.m_bLargestDirs = options.m_strKind == "dirs";
    doc.m_bLargestOwner = options.m_strKind == "owners";
    doc.m_bLargestType = options.m_strKind == "types";
    if (options.m_nCount) {
        doc.m_nLargestFilesCount = *options.m_nCount;
        doc.m_nLargestDirsCount = *options.m_nCount;
    }
}

std::vector<CRow> CollectRows(const CLargestCommandOptions& options, CWZorvaneDoc& doc) {
    std::vector<CRow> aRows;
    SortLargestLists(doc);
    CTotalTables& totals = doc.m_results.m_totals;
    const CTotalTable* pTable = nullptr;
    if (options.m_strKind == "files") {
        for (const CFileData* pFile : doc.m_results.m_aLargestFiles)
            aRows.push_back({pFile->GetFullPath(), pFile->m_dSize, false, 0});
    } else if (options.m_strKind == "dirs") {
        for (const CDirectoryData* pDir : doc.m_results.m_aLargestDirs)
            aRows.push_back({pDir->GetFullPath(), pDir->m_dFilesSize, false, 0});
    } else if (options.m_strKind == "owners") {
        SortTotals(totals.m_aOwners, TotalSortSizeDesc);
        pTable = &totals.m_aOwners;
    } else {
        SortTypeTable(doc);
        pTable = &totals.m_aTypes;
    }
    if (pTable) {
        // The tables have no limit of their own: --count cuts the printed rows.
        const size_t nMax = options.m_nCount && *options.m_nCount >= 0
                                ? static_cast<size_t>(*options.m_nCount)
                                : pTable->size();
        for (size_t i = 0; i < pTable->size() && i < nMax; ++i) {
            const CTotalEntry& entry = *(*pTable)[i];
            aRows.push_back({entry.m_strKey, entry.m_dSize, true, entry.m_nFiles});
        }
    }
    return aRows;
}

}  // namespace

CLI::App* AddLargestCommand(CLI::App& app, CLargestCommandOptions& options) {
    CLI::App* pLargest = app.add_subcommand(
        "largest",
        "Scan and print the largest files, the largest directories (by the size of their own "
        "files), or the totals per owner or per file type, largest first.");
    pLargest->add_option("KIND", options.m_strKind, "files, dirs, owners or types")
        ->required()
        ->check(CLI::IsMember({"files", "dirs", "owners", "types"}));
    pLargest
        ->add_option("--count", options.m_nCount,
                     "Keep the N largest (-1: all); owners and types: print the first N")
        ->type_name("N")
        ->check(CLI::Range(-1, INT_MAX));
    pLargest
        ->add_option("--format", options.m_strFormat,
                     "text, csv, html or xml: the result report; json: an array. Without it, one "
                     "tab-separated line per row")
        ->check(CLI::IsMember({"text", "csv", "html", "xml", "json"}));
    pLargest->add_option("-o,--output", options.m_strOutput, "Write to FILE instead of stdout")
        ->type_name("FILE");
    pLargest->add_flag("--ansi", options.m_bAnsi,
                       "Reports in the narrow form (UTF-8) instead of UTF-16 with a byte order "
                       "mark; the settings file's Unicode choice otherwise");
    pLargest->add_flag_callback(
        "--json", [&options] { options.m_strFormat = "json"; }, "The same as --format json");
    AddScanOptions(*pLargest, options.m_scan);
    return pLargest;
}

int RunLargestCommand(const CLargestCommandOptions& options) {
    CCommandScan command(options.m_scan);
    const int nPrepared = command.Prepare();
    if (nPrepared != 0) return nPrepared;
    CWZorvaneDoc& doc = command.Doc();
    ChooseList(options, doc.m_options);
    command.Scan();
    if (doc.m_bStopRequested) {
        std::fputs("zorvane-cli largest: interrupted\n", stderr);
        return kInterrupted;
    }
    int nStatus = 0;
    for (const std::u16string& strPath : doc.m_scan.m_aProtectedDirs) {
        std::fprintf(stderr, "zorvane-cli largest: cannot read: %s\n",
                     platform::Utf16ToUtf8(strPath).c_str());
        nStatus = kUnreadable;
    }
    const std::vector<CRow> aRows = CollectRows(options, doc);
    if (IsResultReportForm(options.m_strFormat)) {
        if (options.m_bAnsi) doc.m_print.m_aFlags[SaveAsUnicode] = 0;
        // --count cuts the tables' rows in the report as in the other forms.
        if (options.m_nCount && *options.m_nCount >= 0) {
            CTotalTables& totals = doc.m_results.m_totals;
            CTotalTable& aTable =
                options.m_strKind == "owners" ? totals.m_aOwners : totals.m_aTypes;
            if (aTable.size() > size_t(*options.m_nCount)) aTable.resize(size_t(*options.m_nCount));
        }
        const EResultReport eReport = options.m_strKind == "files"    ? ResultLargestFiles
                                      : options.m_strKind == "dirs"   ? ResultLargestDirs
                                      : options.m_strKind == "owners" ? ResultLargestOwner
                                                                      : ResultLargestType;
        return std::max(
            nStatus, WriteResultReportOutput(doc, options.m_strFormat, eReport, options.m_strOutput,
                                             "zorvane-cli largest"));
    }
    std::FILE* pOut = stdout;
    if (!options.m_strOutput.empty()) {
        std::string strError;
        pOut = platform::OpenFileForWriting(platform::Utf8ToUtf16(options.m_strOutput), strError);
        if (!pOut) {
            std::fprintf(stderr, "zorvane-cli largest: cannot open %s: %s\n",
                         options.m_strOutput.c_str(), strError.c_str());
            return kUnreadable;
        }
    }
    const std::string strOut =
        options.m_strFormat == "json" ? FormatJson(aRows) : FormatText(aRows);
    const bool bWritten = std::fwrite(strOut.data(), 1, strOut.size(), pOut) == strOut.size();
    const bool bFlushed = std::fflush(pOut) == 0 && !std::ferror(pOut);
    const bool bClosed = pOut == stdout || std::fclose(pOut) == 0;
    if (!bWritten || !bFlushed || !bClosed) {
        std::fprintf(stderr, "zorvane-cli largest: cannot write to %s\n",
                     options.m_strOutput.empty() ? "standard output" : options.m_strOutput.c_str());
        nStatus = kUnreadable;
    }
    return nStatus;
}

}  // namespace zv
