#include "app/CompareCommand.h"

#include <CLI/CLI.hpp>
#include <cstdio>
#include <map>

#include "app/CheckedFileSink.h"
#include "app/CheckedOutput.h"
#include "app/CommandScan.h"
#include "app/JsonWriter.h"
#include "app/ResultReportOutput.h"
#include "app/SettingsCommand.h"
#include "app/TwoRootScan.h"
#include "compare/CompareStatus.h"
#include "compare/DiffProgram.h"
#include "compare/DirectoryCompare.h"
#include "compare/FileCompare.h"
#include "compare/FilePairCompare.h"
#include "core/records/RecordPath.h"
#include "platform/FileSystem.h"
#include "platform/Process.h"
#include "platform/Text.h"
#include "reports/CompareReport.h"
#include "reports/ReportStream.h"

namespace zv {

namespace {

constexpr int kError = 2;

// The show words and the check boxes each turns on.
struct CShowWord {
    const char* pszWord;
    bool CCompareShowFlags::*aFlags[3];
};
constexpr CShowWord kShowWords[] = {
    {"different-files", {&CCompareShowFlags::m_bDifferentFiles}},
    {"identical-files", {&CCompareShowFlags::m_bIdenticalFiles}},
    {"files-not-found", {&CCompareShowFlags::m_bFilesNotFound}},
    {"different-dirs", {&CCompareShowFlags::m_bDifferentDirs}},
    {"identical-dirs", {&CCompareShowFlags::m_bIdenticalDirs}},
    {"dirs-not-found", {&CCompareShowFlags::m_bDirsNotFound}},
    {"different", {&CCompareShowFlags::m_bDifferentFiles, &CCompareShowFlags::m_bDifferentDirs}},
    {"identical", {&CCompareShowFlags::m_bIdenticalFiles, &CCompareShowFlags::m_bIdenticalDirs}},
    {"not-found", {&CCompareShowFlags::m_bFilesNotFound, &CCompareShowFlags::m_bDirsNotFound}},
    {"files",
     {&CCompareShowFlags::m_bDifferentFiles, &CCompareShowFlags::m_bIdenticalFiles,
      &CCompareShowFlags::m_bFilesNotFound}},
    {"dirs",
     {&CCompareShowFlags::m_bDifferentDirs, &CCompareShowFlags::m_bIdenticalDirs,
      &CCompareShowFlags::m_bDirsNotFound}},
};

CCompareShowFlags ShowFlagsOf(const std::vector<std::string>& aWords) {
    CCompareShowFlags flags;
    if (aWords.empty()) return flags;
    flags = {false, false, false, false, false, false};
    for (const std::string& strWord : aWords)
        for (const CShowWord& word : kShowWords)
            if (strWord == word.pszWord)
                for (bool CCompareShowFlags::*pFlag : word.aFlags)
                    if (pFlag) flags.*pFlag = true;
    return flags;
}

std::string ShowWordList() {
    std::string strList;
    for (const CShowWord& word : kShowWords)
        strList += std::string(strList.empty() ? "" : ",") + word.pszWord;
    return strList;
}

// The full paths of the entries' records. The files of a directory follow
// one another in the list, so each side keeps the path of the last
// directory whose files it named, and a file's path is that and its name.
class CEntryPaths {
public:
    std::u16string Left(const CCompareEntry& entry) {
        return Path(entry.m_pLeftFile, entry.m_pLeftDir, m_left);
    }
    std::u16string Right(const CCompareEntry& entry) {
        return Path(entry.m_pRightFile, entry.m_pRightDir, m_right);
    }

private:
    struct CLastDirectory {
        const CDirectoryData* pDir = nullptr;
        std::u16string strPath;
    };

    static std::u16string Path(const CFileData* pFile, const CDirectoryData* pDir,
                               CLastDirectory& last) {
        if (!pFile) return pDir ? pDir->GetFullPath() : std::u16string();
        if (!pFile->m_pDirectory) return pFile->GetFullPath();
        if (pFile->m_pDirectory != last.pDir) {
            last.pDir = pFile->m_pDirectory;
            last.strPath = last.pDir->GetFullPath();
        }
        return JoinPath(last.strPath, pFile->m_strName.View());
    }

    CLastDirectory m_left, m_right;
};

std::string FormatJson(const CCompareList& list, const CCompareShowFlags& show) {
    CJsonWriter json;
    CEntryPaths paths;
    json.BeginObject();
    json.Key("entries").BeginArray();
    for (const auto& pEntry : list.m_aEntries) {
        if (!show.Shows(*pEntry)) continue;
        json.BeginObject();
        json.Key("left");
        pEntry->HasLeft() ? json.String(paths.Left(*pEntry)) : json.Null();
        json.Key("right");
        pEntry->HasRight() ? json.String(paths.Right(*pEntry)) : json.Null();
        json.Key("directory").Bool(!pEntry->m_bFile);
        json.Key("status").Number(static_cast<uint64_t>(pEntry->m_nStatus));
        json.Key("text").String(GetCompareStatusText(*pEntry));
        json.EndObject();
    }
    json.EndArray();
    json.EndObject();
    return json.Text();
}

// One line per entry: kind, status text, left path, right path, separated
// by tabs; a side without a record is empty.
std::string FormatText(const CCompareList& list, const CCompareShowFlags& show) {
    std::string strOut;
    CEntryPaths paths;
    for (const auto& pEntry : list.m_aEntries) {
        if (!show.Shows(*pEntry)) continue;
        strOut += pEntry->m_bFile ? "file\t" : "dir\t";
        strOut += platform::Utf16ToUtf8(GetCompareStatusText(*pEntry));
        strOut += '\t';
        strOut += platform::Utf16ToUtf8(paths.Left(*pEntry));
        strOut += '\t';
        strOut += platform::Utf16ToUtf8(paths.Right(*pEntry));
        strOut += '\n';
    }
    return strOut;
}

bool IsUnreadable(int32_t nStatus) {
    return nStatus == CompareLeftUnreadable || nStatus == CompareRightUnreadable;
}

int ExitStatusOf(const CCompareList& list) {
    int nStatus = 0;
    for (const auto& pEntry : list.m_aEntries) {
        if (IsUnreadable(pEntry->m_nStatus)) return kError;
        if (pEntry->m_nStatus != CompareIdentical) nStatus = 1;
    }
    return nStatus;
}

// The program's "[DEFAULT FILE COMPARE MODE]"; "none" compares in binary.
int DefaultMode(const CWZorvaneDoc& doc) {
    const int nMode = doc.m_options.m_nDefaultCompareMode;
    return nMode >= 0 && nMode <= 2 ? nMode : 2;
}

bool StartsWithDirectory(std::u16string_view strPath, std::u16string_view strDir) {
    if (strPath.size() <= strDir.size()) return false;
    const bool bNoCase = platform::kPathSeparator == u'\\';
    const std::u16string_view strHead = strPath.substr(0, strDir.size());
    const bool bSame = bNoCase ? platform::EqualsNoCase(strHead, strDir) : strHead == strDir;
    return bSame && (strDir.ends_with(platform::kPathSeparator) ||
                     strPath[strDir.size()] == platform::kPathSeparator);
}

// The pick dialog's refusals, in its order; empty when the pair will do.
std::u16string RefusePair(const std::u16string& strLeft, const std::u16string& strRight) {
    const bool bNoCase = platform::kPathSeparator == u'\\';
    if (bNoCase ? platform::EqualsNoCase(strLeft, strRight) : strLeft == strRight)
        return u"Directory 1 cannot equal directory 2";
    if (StartsWithDirectory(strLeft, strRight))
        return u"Directory 1 is contained within directory 2";
    if (StartsWithDirectory(strRight, strLeft))
        return u"Directory 2 is contained within directory 1";
    return {};
}

const std::map<std::string, EPrintType> kReportForms = {{"text", PrintTypeText},
                                                        {"csv", PrintTypeExcel},
                                                        {"html", PrintTypeHtml},
                                                        {"xml", PrintTypeXml}};

// Writes the chosen form to the file, or to standard output when no file is
// named. False, with the message given, when it could not all be written.
bool WriteResult(CWZorvaneDoc& doc, const CCompareOptions& options, const CCompareShowFlags& show) {
    const CCompareList& list = doc.m_results.m_compare;
    const auto itReport = kReportForms.find(options.m_strFormat);
    const bool bReport = itReport != kReportForms.end();
    if (options.m_strOutput.empty() && !bReport) {
        CCheckedOutput out;
        out.Write(options.m_strFormat == "json" ? FormatJson(list, show) : FormatText(list, show));
        return out.Finish();
    }
    std::FILE* pFile = OpenCommandOutput(options.m_strOutput, true);
    if (!pFile) return false;
    CCheckedFileSink sink(pFile,
                          options.m_strOutput.empty() ? "standard output" : options.m_strOutput,
                          !options.m_strOutput.empty());
    bool bWritten;
    if (bReport) {
        CReportStream out(sink, doc.m_print.Flag(SaveAsUnicode));
        WriteCompareReport(doc, out, itReport->second, list, show);
        bWritten = out.Finish();
    } else {
        const std::string strText =
            options.m_strFormat == "json" ? FormatJson(list, show) : FormatText(list, show);
        bWritten = sink.Write(strText.data(), strText.size()) && sink.Flush();
    }
    bWritten = sink.Close() && bWritten;
    if (!bWritten) std::fprintf(stderr, "zorvane-cli compare: %s\n", sink.Error().c_str());
    return bWritten;
}

}  // namespace

int RunCompareCommand(const CCompareOptions& options) {
    CScanCommandOptions scan;
    scan.m_strSettingsFile = options.m_strSettingsFile;
    scan.m_aRoots = {options.m_strLeft, options.m_strRight};
    CCommandScan command(scan);
    if (const int nStatus = command.Prepare(); nStatus != 0) return nStatus;
    CWZorvaneDoc& doc = command.Doc();
    command.LeaveDocumentToExit();
    // Only the two directories are scanned, not the settings file's roots.
    auto& aRoots = doc.m_scan.m_aRoots;
    while (aRoots.GetSize() > 2) aRoots.DeleteAt(0);
    const std::u16string strRefusal =
        RefusePair(aRoots[0]->GetFullPath(), aRoots[1]->GetFullPath());
    if (!strRefusal.empty()) {
        command.Host().ShowMessage(strRefusal);
        return kError;
    }
    // The two trees are walked at the same time where nothing after the
    // walk spans both.
    if (CanScanRootsAtOnce(doc)) {
        ScanRootsAtOnce(doc);
        command.Host().ClearLine();
    } else {
        command.Scan();
    }
    if (doc.m_bStopRequested) return kError;

    CDirectoryCompare compare(doc.m_results.m_compare, DefaultMode(doc));
    compare.Run(aRoots[0], aRoots[1], options.m_bSubdirs);
    command.Host().ClearLine();
    if (compare.WasStopped()) std::fprintf(stderr, "zorvane-cli: compare stopped before the end\n");

    if (options.m_bAnsi) doc.m_print.m_aFlags[SaveAsUnicode] = 0;
    if (!WriteResult(doc, options, ShowFlagsOf(options.m_aShow)) || compare.WasStopped())
        return kError;
    return ExitStatusOf(doc.m_results.m_compare);
}

int RunCompareFilesCommand(const CCompareFilesOptions& options) {
    CScanCommandOptions none;
    CCommandScan command(none);  // the console host and a main document
    CWZorvaneDoc& doc = command.Doc();
    if (!OpenDocumentWithSettings(doc, options.m_strSettingsFile)) return kError;
    const std::u16string strFile1 = platform::Utf8ToUtf16(options.m_strFile1);
    const std::u16string strFile2 = platform::Utf8ToUtf16(options.m_strFile2);
    int nMode = options.m_bLines ? 0 : options.m_bBlanks ? 1 : DefaultMode(doc);

    if (options.m_bDiff) {
        if (nMode == 2) nMode = 0;  // a diff program always compares lines
        platform::CStartedProcess process;
        if (!StartDiffProgram(doc.m_options.m_diff, nMode, strFile1, strFile2, &process))
            return kError;
        // The desktop never waits; a command does, so that the program's
        // output comes before the prompt and its status is the command's.
        const int nExit = platform::WaitForProcess(process);
        return nExit < 0 ? kError : nExit;
    }
    CDirEntry entry1, entry2;
    const double dSize1 = platform::GetEntryInfo(strFile1, entry1) ? entry1.Size() : 0;
    if (options.m_bBytes) {
        const CFileCompareOutcome outcome = CompareTwoFilesBinary(strFile1, strFile2, dSize1);
        command.Host().ClearLine();
        if (!outcome.m_bOpened) {
            command.Host().ShowMessage(outcome.m_strMessage);
            return kError;
        }
        CCheckedOutput out;
        out.Write(platform::Utf16ToUtf8(outcome.m_strMessage) + "\n");
        if (!out.Finish()) return kError;
        return outcome.m_bDifferent ? 1 : 0;
    }
    CPairResult result;
    if (!platform::GetEntryInfo(strFile1, entry1))
        result.m_nStatus = CompareLeftUnreadable;
    else if (!platform::GetEntryInfo(strFile2, entry2))
        result.m_nStatus = CompareRightUnreadable;
    else if (entry1.Size() != entry2.Size())
        result.m_nStatus = CompareFileSize;
    else if (nMode == 2)
        result = CompareFilesBinary(strFile1, strFile2, dSize1, nullptr);
    else
        result = CompareFilesByLines(strFile1, strFile2, dSize1, nullptr);
    CCheckedOutput out;
    out.Write(platform::Utf16ToUtf8(GetCompareStatusText(result.m_nStatus, result.m_dValue)) +
              "\n");
    if (!out.Finish() || IsUnreadable(result.m_nStatus)) return kError;
    return result.m_nStatus == CompareIdentical ? 0 : 1;
}

CCompareCommands::CCompareCommands(CLI::App& app) {
    m_pCompare = app.add_subcommand(
        "compare",
        "Scan two directories and compare them: one line per file or directory name found on "
        "either side, with its status. Exit status 0 all identical, 1 something differs, 2 "
        "trouble.");
    m_pCompare->add_option("LEFT", m_compare.m_strLeft, "Left directory")->required();
    m_pCompare->add_option("RIGHT", m_compare.m_strRight, "Right directory")->required();
    m_pCompare->add_flag("--subdirs", m_compare.m_bSubdirs, "Compare the subdirectories too");
    m_pCompare
        ->add_option("--show", m_compare.m_aShow,
                     "Entries to list, comma-separated (default all): " + ShowWordList())
        ->delimiter(',')
        ->check(CLI::IsMember([] {
            std::vector<std::string> aWords;
            for (const CShowWord& word : kShowWords) aWords.push_back(word.pszWord);
            return aWords;
        }()));
    m_pCompare
        ->add_option("--format", m_compare.m_strFormat,
                     "list (the default): kind, status, left path and right path per line, "
                     "tab-separated; text, csv, html, xml: the compare report; json: an object "
                     "with the array entries")
        ->check(CLI::IsMember({"list", "text", "csv", "html", "xml", "json"}));
    m_pCompare->add_flag("--ansi", m_compare.m_bAnsi,
                         "Write the report in the narrow form (UTF-8) instead of UTF-16 with a "
                         "byte order mark; the settings file's Unicode choice otherwise");
    m_pCompare->add_option("-o,--output", m_compare.m_strOutput, "Write to FILE")
        ->type_name("FILE");
    m_pCompare
        ->add_option("--settings", m_compare.m_strSettingsFile,
                     "Load this settings file first: filters, options and the default compare "
                     "mode (its directories are not scanned)")
        ->type_name("FILE");

    m_pFiles = app.add_subcommand(
        "compare-files",
        "Compare two files and print the status text; or start the diff program on them.");
    m_pFiles->add_option("FILE1", m_files.m_strFile1, "First file")->required();
    m_pFiles->add_option("FILE2", m_files.m_strFile2, "Second file")->required();
    CLI::Option* pLines = m_pFiles->add_flag("--lines", m_files.m_bLines, "Compare line by line");
    m_pFiles
        ->add_flag("--blanks", m_files.m_bBlanks,
                   "Compare line by line, ignoring leading and trailing blanks")
        ->excludes(pLines);
    m_pFiles->add_flag("--bytes", m_files.m_bBytes,
                       "Find the first differing byte and print it with both byte values");
    m_pFiles->add_flag("--diff", m_files.m_bDiff,
                       "Start the diff program of the settings file's [DIFF PROGRAM] on the pair, "
                       "wait for it and exit with its status");
    m_pFiles
        ->add_option("--settings", m_files.m_strSettingsFile,
                     "Load this settings file: diff program and default compare mode")
        ->type_name("FILE");
}

bool CCompareCommands::Parsed() const { return m_pCompare->parsed() || m_pFiles->parsed(); }

int CCompareCommands::Run() const {
    return m_pCompare->parsed() ? RunCompareCommand(m_compare) : RunCompareFilesCommand(m_files);
}

}  // namespace zv
