#include "app/CommandScan.h"

#include <chrono>
#include <cstdio>

#include "app/ExitStatus.h"
#include "app/ProgramScanSteps.h"
#include "app/SettingsCommand.h"
#include "core/scan/Scanner.h"
#include "filters/ScanFilter.h"
#include "platform/Console.h"
#include "platform/FileSystem.h"
#include "platform/Text.h"

// Built with the address sanitizer, whose leak check runs at exit.
#if defined(__SANITIZE_ADDRESS__)
#define ZORVANE_LEAK_CHECKED
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define ZORVANE_LEAK_CHECKED
#endif
#endif

namespace zv {

namespace {

void AddEntries(CFilterSet& filters, EFilterList eList, const std::vector<std::string>& aTexts) {
    for (const std::string& strText : aTexts)
        filters.AddEntry(eList, platform::Utf8ToUtf16(strText));
}

void SetDate(CDateFilter& date, const std::optional<FILETIME>& ftValue) {
    if (!ftValue) return;
    date.m_bAbsolute = 1;
    date.m_ftAbsolute = *ftValue;
}

// The command's filter options fill the same lists the dialogs and the
// settings file fill; patterns are kept upper-cased beside the text.
void ApplyFilterOptions(const CScanCommandOptions& options, CFilterSet& filters) {
    AddEntries(filters, FilterFileNames, options.m_aNames);
    AddEntries(filters, FilterFileNamesExclude, options.m_aExcludeNames);
    AddEntries(filters, FilterFullPathExclude, options.m_aExcludePaths);
    AddEntries(filters, FilterDir, options.m_aDirs);
    AddEntries(filters, FilterDirExclude, options.m_aExcludeDirs);
    AddEntries(filters, FilterOwners, options.m_aOwners);
    AddEntries(filters, FilterOwnersExclude, options.m_aExcludeOwners);
    if (options.m_dMinSize) {
        filters.m_bMinSize = 1;
        filters.m_dMinSize = *options.m_dMinSize;
    }
    if (options.m_dMaxSize) {
        filters.m_bMaxSize = 1;
        filters.m_dMaxSize = *options.m_dMaxSize;
    }
    SetDate(filters.m_aDates[ModifiedAfter], options.m_ftModifiedAfter);
    SetDate(filters.m_aDates[ModifiedBefore], options.m_ftModifiedBefore);
}

}  // namespace

std::u16string WithoutTrailingSeparators(std::u16string strPath) {
    auto IsSeparator = [](char16_t ch) { return ch == u'/' || ch == platform::kPathSeparator; };
    // "C:" alone names the current directory of drive C, not its root.
    auto IsDriveRoot = [&strPath] {
        return platform::kPathSeparator == u'\\' && strPath.size() == 3 && strPath[1] == u':';
    };
    while (strPath.size() > 1 && IsSeparator(strPath.back()) && !IsDriveRoot()) strPath.pop_back();
    return strPath;
}

CCommandScan::CCommandScan(const CScanCommandOptions& options)
    : m_options(options), m_pDoc(std::make_unique<CWZorvaneDoc>()) {
    platform::PrepareConsoleProcess();
    SetHost(&m_host);
    SetMainDocument(m_pDoc.get());
}

CCommandScan::~CCommandScan() {
    SetMainDocument(nullptr);
    SetHost(nullptr);
    if (m_bLeaveDocument) (void)m_pDoc.release();
}

void CCommandScan::LeaveDocumentToExit() {
#if !defined(ZORVANE_LEAK_CHECKED)
    m_bLeaveDocument = true;
#endif
}

int CCommandScan::Prepare() {
    if (!OpenDocumentWithSettings(*m_pDoc, m_options.m_strSettingsFile)) return kExitUsage;
    int nStatus = 0;
    for (const std::string& strRoot : m_options.m_aRoots) {
        const std::u16string strPath = WithoutTrailingSeparators(platform::Utf8ToUtf16(strRoot));
        // A root names what the user means: a link to a directory is
        // followed for the root itself (never below it). Its times are read
        // here, once.
        CDirEntry entry;
        if (!platform::GetEntryInfo(strPath, entry, true) || !entry.IsDirectory()) {
            std::fprintf(stderr, "zorvane-cli: not a directory: %s\n", strRoot.c_str());
            nStatus = kExitUsage;
            continue;
        }
        auto* pRoot = new CRootDirectoryData(strPath, entry.ftCreated, entry.ftAccessed,
                                             entry.ftModified, entry.uAttributes);
        pRoot->Prepare(m_pDoc->m_scan.m_aDrives);
        m_pDoc->m_scan.m_aRoots.Add(pRoot);
    }
    if (nStatus == 0 && m_pDoc->m_scan.m_aRoots.IsEmpty()) {
        std::fprintf(stderr,
                     "zorvane-cli: nothing to scan: give a ROOT, or a settings file with "
                     "[SCAN DIRECTORIES]\n");
        nStatus = kExitUsage;
    }
    if (nStatus != 0) return nStatus;
    // Options given on the command line win over the settings file.
    if (m_options.m_nMaxDepth) m_pDoc->m_options.m_nMaxDepth = *m_options.m_nMaxDepth;
    if (m_options.m_bNoSubdirs) m_pDoc->m_options.m_bScanSubdirs = 0;
    // Only the settings-file form is the unattended run; every other command
    // has output of its own after the scan, which a settings file's "Exit
    // program after printing" must not cut off.
    if (!m_options.m_bRemember) m_pDoc->m_print.m_autoPrint.m_bExit = 0;
    ApplyFilterOptions(m_options, m_pDoc->m_filters);
    return 0;
}

void CCommandScan::Scan(IScanSteps* pSteps) {
    CScanFilter filter(*m_pDoc);
    CProgramScanSteps steps(m_options.m_bRemember);
    CScanner scanner(*m_pDoc, &filter, pSteps ? pSteps : &steps);
    if (m_options.m_nThreads) scanner.SetReadThreads(size_t(*m_options.m_nThreads));
    const auto start = std::chrono::steady_clock::now();
    scanner.Rescan();
    const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - start;
    m_dElapsedSeconds = elapsed.count();
    m_bReportsLeftOut = !pSteps && steps.ReportsLeftOut() != 0;
    m_host.ClearLine();
}

}  // namespace zv
