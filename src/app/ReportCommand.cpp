#include "app/ReportCommand.h"

#include <CLI/CLI.hpp>
#include <cstdio>
#include <map>

#include "app/CheckedFileSink.h"
#include "app/CommandScan.h"
#include "app/ExitStatus.h"
#include "app/ResultReportOutput.h"
#include "platform/FileSystem.h"
#include "platform/Text.h"
#include "reports/MainReport.h"
#include "reports/ReportColumns.h"
#include "reports/ReportStream.h"

namespace zv {
namespace {

// The scanned directory with this path, or null.
CDirectoryData* FindDirectory(CWZorvaneDoc& doc, const std::string& strPath) {
    const std::u16string strWanted =
        WithoutTrailingSeparators(platform::GetFullPathName(platform::Utf8ToUtf16(strPath)));
    CDirectoryData* pNoCase = nullptr;
    for (CDirectoryData* pDir : doc.m_scan.m_aAllDirs) {
        const std::u16string strDir = WithoutTrailingSeparators(pDir->GetFullPath());
        if (strDir == strWanted) return pDir;
        if (!pNoCase && platform::EqualsNoCase(strDir, strWanted)) pNoCase = pDir;
    }
    return pNoCase;
}

}  // namespace

CLI::App* AddReportCommand(CLI::App& app, CReportCommandOptions& options) {
    CLI::App* pReport = app.add_subcommand(
        "report",
        "Scan, then write the main report: every directory with its files, or the current "
        "directory. Print flags and the size unit come from the settings file.");
    AddScanOptions(*pReport, options.m_scan);
    pReport->add_option("--format", options.m_strFormat, "text (default), csv, html or xml")
        ->check(CLI::IsMember({"text", "csv", "html", "xml"}));
    pReport->add_option("-o,--output", options.m_strOutput, "Write to FILE instead of stdout")
        ->type_name("FILE");
    CLI::Option* pCurrent =
        pReport
            ->add_option("--current", options.m_strCurrent,
                         "Report only this scanned directory (the current directory)")
            ->type_name("DIR");
    pReport
        ->add_flag("--with-subdirs", options.m_bWithSubdirs,
                   "With --current: the directory and its subdirectories")
        ->needs(pCurrent);
    pReport->add_flag("--full-path", options.m_bFullPath,
                      "Print the full path of every file and directory row");
    pReport->add_flag("--ansi", options.m_bAnsi,
                      "Write the narrow form (UTF-8) instead of UTF-16 with a byte order mark; "
                      "the settings file's Unicode choice otherwise");
    return pReport;
}

int RunReportCommand(const CReportCommandOptions& options) {
    static const std::map<std::string, EPrintType> kForms = {{"text", PrintTypeText},
                                                             {"csv", PrintTypeExcel},
                                                             {"html", PrintTypeHtml},
                                                             {"xml", PrintTypeXml}};
    CCommandScan command(options.m_scan);
    command.LeaveDocumentToExit();
    const int nStatus = command.Prepare();
    if (nStatus != 0) return nStatus;
    CWZorvaneDoc& doc = command.Doc();
    ApplyPrintFlags(doc);
    if (options.m_bAnsi) doc.m_print.m_aFlags[SaveAsUnicode] = 0;
    command.Scan();
    if (doc.m_bStopRequested) return kExitInterrupted;

    CDirectoryData* pCurrent = nullptr;
    if (!options.m_strCurrent.empty()) {
        pCurrent = FindDirectory(doc, options.m_strCurrent);
        if (!pCurrent) {
            std::fprintf(stderr, "zorvane-cli report: not a scanned directory: %s\n",
                         options.m_strCurrent.c_str());
            return kExitUsage;
        }
    }
    const EReportScope eScope = !pCurrent                ? ReportAllDirectories
                                : options.m_bWithSubdirs ? ReportCurrentAndSubdirectories
                                                         : ReportCurrentDirectory;

    std::FILE* pFile = OpenCommandOutput(options.m_strOutput, true);
    if (!pFile) return kExitIncomplete;
    CCheckedFileSink sink(pFile,
                          options.m_strOutput.empty() ? "standard output" : options.m_strOutput,
                          !options.m_strOutput.empty());
    bool bWritten;
    bool bComplete;
    {
        CReportStream out(sink, doc.m_print.Flag(SaveAsUnicode));
        bComplete = WriteMainReport(doc, out, kForms.at(options.m_strFormat), eScope, pCurrent,
                                    options.m_bFullPath);
        bWritten = out.Finish();
    }
    bWritten = sink.Close() && bWritten;
    command.Host().ClearLine();
    if (!bWritten) {
        std::fprintf(stderr, "zorvane-cli report: %s\n", sink.Error().c_str());
        return kExitIncomplete;
    }
    if (!bComplete) {
        std::fprintf(stderr, "zorvane-cli report: interrupted; the report is incomplete\n");
        return kExitInterrupted;
    }
    return kExitOk;
}

}  // namespace zv
