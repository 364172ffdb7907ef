#include "app/LargestCommand.h"

#include <CLI/CLI.hpp>
#include <climits>
#include <cstdio>

#include "analyses/LargestLists.h"
#include "analyses/LargestTotals.h"
#include "app/CommandScan.h"
#include "app/ExitStatus.h"
#include "app/JsonWriter.h"
#include "app/ResultReportOutput.h"
#include "platform/Text.h"

namespace zv {
namespace {

constexpr const char* kCommand = "zorvane-cli largest";

EResultReport ReportOf(const std::string& strKind) {
    if (strKind == "files") return ResultLargestFiles;
    if (strKind == "dirs") return ResultLargestDirs;
    return strKind == "owners" ? ResultLargestOwner : ResultLargestType;
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

// Brings the list asked for into the report's order; the tables have no
// limit of their own, so --count cuts their rows here.
void SortAndCut(const CLargestCommandOptions& options, CWZorvaneDoc& doc) {
    SortLargestLists(doc);
    CTotalTables& totals = doc.m_results.m_totals;
    if (options.m_strKind != "owners" && options.m_strKind != "types") return;
    CTotalTable& aTable = options.m_strKind == "owners" ? totals.m_aOwners : totals.m_aTypes;
    if (options.m_strKind == "owners")
        SortTotals(aTable, TotalSortSizeDesc);
    else
        SortTypeTable(doc);
    if (options.m_nCount && *options.m_nCount >= 0 && aTable.size() > size_t(*options.m_nCount))
        aTable.resize(size_t(*options.m_nCount));
}

uint64_t Bytes(double dSize) { return static_cast<uint64_t>(dSize); }

// Files and directories as {"path", "size"}, owners and types as
// {"name", "files", "size"}, in the report's order.
std::string FormatJson(EResultReport eReport, const CWZorvaneDoc& doc) {
    const CResultLists& results = doc.m_results;
    CJsonWriter json;
    json.BeginArray();
    auto Path = [&json](const std::u16string& strPath, double dSize) {
        json.BeginObject();
        json.Key("path").String(strPath);
        json.Key("size").Number(Bytes(dSize));
        json.EndObject();
    };
    switch (eReport) {
        case ResultLargestFiles:
            for (const CFileData* pFile : results.m_aLargestFiles)
                Path(pFile->GetFullPath(), pFile->m_dSize);
            break;
        case ResultLargestDirs:
            for (const CDirectoryData* pDir : results.m_aLargestDirs)
                Path(pDir->GetFullPath(), pDir->m_dFilesSize);
            break;
        default:
            for (const auto& pEntry : eReport == ResultLargestOwner ? results.m_totals.m_aOwners
                                                                    : results.m_totals.m_aTypes) {
                json.BeginObject();
                json.Key("name").String(pEntry->m_strKey);
                json.Key("files").Number(uint64_t(pEntry->m_nFiles));
                json.Key("size").Number(Bytes(pEntry->m_dSize));
                json.EndObject();
            }
            break;
    }
    json.EndArray();
    return json.Text();
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
                     "text (default), csv, html or xml: the result report of the list; json: "
                     "an array")
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
    command.LeaveDocumentToExit();
    const int nPrepared = command.Prepare();
    if (nPrepared != kExitOk) return nPrepared;
    CWZorvaneDoc& doc = command.Doc();
    ChooseList(options, doc.m_options);
    command.Scan();
    if (doc.m_bStopRequested) {
        std::fprintf(stderr, "%s: interrupted\n", kCommand);
        return kExitInterrupted;
    }
    bool bUnreadable = false;
    for (const std::u16string& strPath : doc.m_scan.m_aProtectedDirs) {
        std::fprintf(stderr, "%s: cannot read: %s\n", kCommand,
                     platform::Utf16ToUtf8(strPath).c_str());
        bUnreadable = true;
    }
    SortAndCut(options, doc);
    const EResultReport eReport = ReportOf(options.m_strKind);
    int nWritten;
    if (options.m_strFormat == "json") {
        nWritten = WriteTextOutput(FormatJson(eReport, doc), options.m_strOutput, kCommand);
    } else {
        if (options.m_bAnsi) doc.m_print.m_aFlags[SaveAsUnicode] = 0;
        nWritten = WriteResultReportOutput(doc, options.m_strFormat, eReport, options.m_strOutput,
                                           kCommand);
    }
    return nWritten != kExitOk ? nWritten : ExitStatusOf(false, bUnreadable);
}

}  // namespace zv
