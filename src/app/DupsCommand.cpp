#include "app/DupsCommand.h"

#include <CLI/CLI.hpp>
#include <chrono>
#include <cmath>
#include <cstdio>

#include "analyses/CrcList.h"
#include "analyses/DuplicateDirFinder.h"
#include "analyses/DuplicateFileFinder.h"
#include "analyses/DuplicateGroupSort.h"
#include "app/CommandScan.h"
#include "app/ExitStatus.h"
#include "app/JsonWriter.h"
#include "app/ProgramScanSteps.h"
#include "app/ResultReportOutput.h"
#include "core/document/Document.h"
#include "platform/Text.h"

namespace zv {
namespace {

const char* const kFileWords[] = {"size", "name", "crc", "mp3crc", "bytes"};
const char* const kDirWords[] = {"size", "sizesub", "name", "crc", "crcsub", "files", "filessub"};
const EDuplicateDirCriterion kDirCriteria[] = {DupDirBySize,
                                               DupDirBySizeWithSubdirs,
                                               DupDirByName,
                                               DupDirByCrc,
                                               DupDirByCrcWithSubdirs,
                                               DupDirByTotalFiles,
                                               DupDirByTotalFilesWithSubdirs};

template <size_t N>
int WordIndex(const char* const (&aWords)[N], const std::string& strWord) {
    for (size_t i = 0; i < N; ++i)
        if (strWord == aWords[i]) return static_cast<int>(i);
    return -1;
}

// The command searches after the scan itself, so the settings file's
// "search after scanning" does not run it a second time.
class CDupsScanSteps : public CProgramScanSteps {
public:
    CDupsScanSteps() : CProgramScanSteps(false) {}
    void FindDuplicates() override {}
};

void ApplyFileCriteria(const std::vector<std::string>& aBy, CDuplicateFileCriteria& criteria) {
    if (!aBy.empty()) {
        criteria = CDuplicateFileCriteria();
        int32_t* aFlags[] = {&criteria.m_bBySize, &criteria.m_bByName, &criteria.m_bByCrc,
                             &criteria.m_bByCrcWithoutTags, &criteria.m_bByteByByte};
        for (const std::string& strWord : aBy) *aFlags[WordIndex(kFileWords, strWord)] = 1;
        // The two checksums exclude each other; the tag-free one wins.
        if (criteria.m_bByCrcWithoutTags) criteria.m_bByCrc = 0;
    }
    if (!criteria.Any()) criteria.m_bBySize = criteria.m_bByCrc = 1;
}

void ApplyDirCriteria(const std::vector<std::string>& aBy, CDuplicateDirCriteria& criteria) {
    if (!aBy.empty()) {
        criteria = CDuplicateDirCriteria();
        for (const std::string& strWord : aBy)
            criteria.m_aCriteria[kDirCriteria[WordIndex(kDirWords, strWord)]] = 1;
    }
    if (!criteria.Any()) criteria.m_aCriteria[DupDirBySize] = criteria.m_aCriteria[DupDirByCrc] = 1;
}

std::string WholeNumber(double d) {
    char szText[32];
    std::snprintf(szText, sizeof szText, "%.0f", d);
    return szText;
}

// A group's paths and the size shown for it.
struct CGroupOut {
    double m_dSize = 0;
    std::vector<std::u16string> m_aPaths;
};

std::vector<CGroupOut> FileGroups(CWZorvaneDoc& doc) {
    std::vector<CGroupOut> aOut;
    for (const CDuplicateGroup& group : doc.m_results.m_aDuplicateGroups) {
        CGroupOut out;
        out.m_dSize = group.empty() ? 0 : group[0]->m_dSize;
        for (const CFileData* pFile : group) out.m_aPaths.push_back(pFile->GetFullPath());
        aOut.push_back(std::move(out));
    }
    return aOut;
}

std::vector<CGroupOut> DirGroups(CWZorvaneDoc& doc) {
    const int32_t* a = doc.m_options.m_dupDirs.m_aCriteria;
    const bool bWithSub =
        a[DupDirBySizeWithSubdirs] || a[DupDirByCrcWithSubdirs] || a[DupDirByTotalFilesWithSubdirs];
    std::vector<CGroupOut> aOut;
    for (const CDuplicateDirGroup& group : doc.m_results.m_aDuplicateDirGroups) {
        CGroupOut out;
        if (!group.empty())
            out.m_dSize = bWithSub ? group[0]->GetSizeWithSubdirs() : group[0]->m_dFilesSize;
        for (const CDirectoryData* pDir : group) out.m_aPaths.push_back(pDir->GetFullPath());
        aOut.push_back(std::move(out));
    }
    return aOut;
}

std::string FormatText(const std::vector<CGroupOut>& aGroups) {
    std::string strOut;
    for (size_t i = 0; i < aGroups.size(); ++i) {
        if (i) strOut += "\n";
        strOut +=
            "Group " + std::to_string(i) + ": " + WholeNumber(aGroups[i].m_dSize) + " bytes\n";
        for (const std::u16string& strPath : aGroups[i].m_aPaths)
            strOut += platform::Utf16ToUtf8(strPath) + "\n";
    }
    return strOut;
}

std::string FormatJson(const std::vector<CGroupOut>& aGroups, bool bDirectories, size_t nFiles,
                       double dSeconds) {
    CJsonWriter json;
    json.BeginObject();
    json.Key("groups").BeginArray();
    for (size_t i = 0; i < aGroups.size(); ++i) {
        json.BeginObject();
        json.Key("group").Number(uint64_t(i));
        json.Key("size").Number(static_cast<uint64_t>(aGroups[i].m_dSize));
        json.Key(bDirectories ? "directories" : "files").BeginArray();
        for (const std::u16string& strPath : aGroups[i].m_aPaths) json.String(strPath);
        json.EndArray();
        json.EndObject();
    }
    json.EndArray();
    json.Key("files_scanned").Number(uint64_t(nFiles));
    json.Key("elapsed_seconds").Number(std::round(dSeconds * 1000) / 1000);  // milliseconds
    json.EndObject();
    return json.Text();
}

// Files whose content the search needed and could not read, and listings
// that were refused.
size_t CountUnreadable(const CWZorvaneDoc& doc) {
    size_t n = doc.m_scan.m_aProtectedDirs.size();
    for (const CFileData* pFile : doc.m_scan.m_aAllFiles) {
        if (pFile->m_uFlags & FILE_CRC_FROM_LIST) continue;
        if (pFile->m_uFlags & (FILE_CRC_FAILED | FILE_CRC_NOTAGS_FAILED | FILE_PARTIAL_CRC_FAILED))
            ++n;
    }
    return n;
}

}  // namespace

int RunDupsCommand(CDupsOptions& options) {
    const char* pszCommand = options.m_bDirectories ? "zorvane-cli dupdirs" : "zorvane-cli dups";
    CCommandScan command(options.m_scan);
    const int nStatus = command.Prepare();
    if (nStatus != kExitOk) return nStatus;
    CWZorvaneDoc& doc = command.Doc();
    command.LeaveDocumentToExit();
    if (options.m_bDirectories)
        ApplyDirCriteria(options.m_aBy, doc.m_options.m_dupDirs);
    else
        ApplyFileCriteria(options.m_aBy, doc.m_options.m_dupFiles);
    // The duplicate filter takes its files' checksums from the list, so the
    // list is read before the scan.
    if (!doc.m_options.m_strCrcFromFile.empty() && doc.m_aCrcFromFile.empty()) LoadCrcList(doc);

    const auto start = std::chrono::steady_clock::now();
    CDupsScanSteps steps;
    command.Scan(&steps);
    if (command.Host().WasInterrupted()) return kExitInterrupted;
    const size_t nFiles = doc.m_scan.m_aAllFiles.GetSize();
    bool bFinished;
    if (options.m_bDirectories) {
        bFinished = FindDuplicateDirs(doc);
        SortDuplicateDirGroups(doc.m_results.m_aDuplicateDirGroups, doc.m_options.m_dupDirs);
    } else {
        bFinished = FindDuplicateFiles(doc);
        SortDuplicateGroups(doc.m_results.m_aDuplicateGroups, doc.m_options.m_dupFiles);
    }
    command.Host().ClearLine();
    if (!bFinished || command.Host().WasInterrupted()) return kExitInterrupted;
    const double dSeconds =
        std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();

    int nWritten;
    if (!options.m_strFormat.empty()) {
        if (options.m_bAnsi) doc.m_print.m_aFlags[SaveAsUnicode] = 0;
        nWritten = WriteResultReportOutput(
            doc, options.m_strFormat,
            options.m_bDirectories ? ResultDuplicateDirs : ResultDuplicateFiles,
            options.m_strOutput, pszCommand);
    } else {
        const std::vector<CGroupOut> aGroups =
            options.m_bDirectories ? DirGroups(doc) : FileGroups(doc);
        nWritten = WriteTextOutput(
            options.m_scan.m_bJson ? FormatJson(aGroups, options.m_bDirectories, nFiles, dSeconds)
                                   : FormatText(aGroups),
            options.m_strOutput, pszCommand);
    }
    if (nWritten != kExitOk) return nWritten;
    const size_t nUnreadable = CountUnreadable(doc);
    if (nUnreadable)
        std::fprintf(stderr, "%s: %s files or directories could not be read\n", pszCommand,
                     std::to_string(nUnreadable).c_str());
    return ExitStatusOf(false, nUnreadable != 0);
}

CDupsCommands::CDupsCommands(CLI::App& app) {
    auto Add = [&app](const char* pszName, const char* pszHelp, CDupsOptions& options, auto& aWords,
                      const char* pszByHelp) {
        CLI::App* pCommand = app.add_subcommand(pszName, pszHelp);
        AddScanOptions(*pCommand, options.m_scan);
        CLI::Option* pJson =
            pCommand->add_flag("--json", options.m_scan.m_bJson,
                               "Print one JSON object: groups, files_scanned, elapsed_seconds");
        pCommand
            ->add_option("--format", options.m_strFormat,
                         "text, csv, html or xml: the duplicates report (without it, the plain "
                         "group listing)")
            ->check(CLI::IsMember({"text", "csv", "html", "xml"}))
            ->excludes(pJson);
        pCommand->add_option("-o,--output", options.m_strOutput, "Write to FILE instead of stdout")
            ->type_name("FILE");
        pCommand->add_flag("--ansi", options.m_bAnsi,
                           "Reports in the narrow form (UTF-8) instead of UTF-16 with a byte "
                           "order mark; the settings file's Unicode choice otherwise");
        pCommand->add_option("--by", options.m_aBy, pszByHelp)
            ->type_name("LIST")
            ->delimiter(',')
            ->allow_extra_args(false)
            ->check([&aWords](const std::string& strWord) {
                return WordIndex(aWords, strWord) < 0 ? "unknown criterion: " + strWord
                                                      : std::string();
            });
        return pCommand;
    };
    m_pFiles = Add("dups",
                   "Scan, then print the groups of duplicate files: a heading with the group "
                   "number and the size, one full path per line, a blank line between groups.",
                   m_files, kFileWords,
                   "Criteria, all of which must agree: size,name,crc,mp3crc,bytes (default: the "
                   "settings file's, or size,crc)");
    m_dirs.m_bDirectories = true;
    m_pDirs = Add("dupdirs", "Scan, then print the groups of duplicate directories, as dups does.",
                  m_dirs, kDirWords,
                  "Criteria, all of which must agree: size,sizesub,name,crc,crcsub,files,filessub "
                  "(default: the settings file's, or size,crc)");
}

bool CDupsCommands::Parsed() const { return m_pFiles->parsed() || m_pDirs->parsed(); }

int CDupsCommands::Run() { return RunDupsCommand(m_pFiles->parsed() ? m_files : m_dirs); }

}  // namespace zv
