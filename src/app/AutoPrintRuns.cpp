#include "app/AutoPrintRuns.h"

#include <algorithm>
#include <cstdio>

#include "analyses/DuplicateDirFinder.h"
#include "analyses/DuplicateFileFinder.h"
#include "analyses/DuplicateGroupSort.h"
#include "analyses/LargestLists.h"
#include "analyses/LargestTotals.h"
#include "app/CheckedFileSink.h"
#include "core/document/Document.h"
#include "core/document/SortCodes.h"
#include "platform/FileContents.h"
#include "platform/Text.h"
#include "reports/AutoPrintNames.h"
#include "reports/MainReport.h"
#include "reports/ReportStream.h"
#include "reports/ResultReports.h"

namespace zv {
namespace {

EPrintType FormOf(const CAutoPrintBlock& block) { return static_cast<EPrintType>(block.m_nType); }

bool Writable(const CAutoPrintBlock& block) {
    return block.m_bEnabled && block.m_nType >= PrintTypeText && block.m_nType <= PrintTypeXml &&
           !block.m_strFile.empty();
}

}  // namespace

bool CAutoPrintRun::WriteFile(const CAutoPrintBlock& block,
                              const std::function<void(CReportStream&)>& write) {
    const std::u16string strName =
        block.m_bAppendDate ? AppendDateToName(block.m_strFile) : block.m_strFile;
    std::string strError;
    std::FILE* pFile = platform::OpenFileForWriting(strName, strError);
    if (!pFile) {
        if (m_onSkipped) m_onSkipped(strName, ESkipped::Unwritable);
        return false;
    }
    CCheckedFileSink sink(pFile, platform::Utf16ToUtf8(strName), true);
    bool bWritten;
    {
        CReportStream out(sink, m_doc.m_print.Flag(SaveAsUnicode));
        write(out);
        bWritten = out.Finish();
    }
    bWritten = sink.Close() && bWritten;
    if (!bWritten && m_onSkipped) m_onSkipped(strName, ESkipped::Unwritable);
    return bWritten;
}

void CAutoPrintRun::Run() {
    if (m_doc.m_scan.m_aAllFiles.IsEmpty()) return;
    RunAutoPrintMain();
    RunAutoPrintDupFiles();
    RunAutoPrintDupDirs();
    RunAutoPrintLargestFiles();
    RunAutoPrintLargestDirs();
    RunAutoPrintLargestOwner();
    RunAutoPrintLargestType();
}

void CAutoPrintRun::RunAutoPrintMain() {
    const CAutoPrintBlock& block = m_doc.m_print.m_autoPrint.m_main;
    if (!Writable(block)) return;
    CDocumentOptions& options = m_doc.m_options;
    const uint8_t nFileSort = options.m_nFileSort;
    const uint8_t nDirSort = options.m_nDirSort;
    options.m_nFileSort = block.m_nFileSort;
    options.m_nDirSort = block.m_nDirSort;
    WriteFile(block, [&](CReportStream& out) {
        WriteMainReport(m_doc, out, FormOf(block), ReportAllDirectories, nullptr,
                        block.m_bFullPath != 0);
    });
    options.m_nFileSort = nFileSort;
    options.m_nDirSort = nDirSort;
}

void CAutoPrintRun::RunAutoPrintDupFiles() {
    const CAutoPrintBlock& block = m_doc.m_print.m_autoPrint.m_dupFiles;
    if (!Writable(block)) return;
    if (!m_doc.m_options.m_dupFiles.Any()) {
        if (m_onSkipped) m_onSkipped(block.m_strFile, ESkipped::NoFileCriterion);
        return;
    }
    if (!FindDuplicateFiles(m_doc) || m_doc.m_bStopRequested) return;
    SortDuplicateGroups(m_doc.m_results.m_aDuplicateGroups, m_doc.m_options.m_dupFiles);
    WriteFile(block, [&](CReportStream& out) {
        WriteResultReport(m_doc, out, FormOf(block), ResultDuplicateFiles);
    });
}

void CAutoPrintRun::RunAutoPrintDupDirs() {
    const CAutoPrintBlock& block = m_doc.m_print.m_autoPrint.m_dupDirs;
    if (!Writable(block)) return;
    if (!m_doc.m_options.m_dupDirs.Any()) {
        if (m_onSkipped) m_onSkipped(block.m_strFile, ESkipped::NoDirCriterion);
        return;
    }
    if (!FindDuplicateDirs(m_doc) || m_doc.m_bStopRequested) return;
    auto& aGroups = m_doc.m_results.m_aDuplicateDirGroups;
    SortDuplicateDirGroups(aGroups, m_doc.m_options.m_dupDirs);
    for (CDuplicateDirGroup& group : aGroups)
        std::stable_sort(group.begin(), group.end(), [&](CDirectoryData* pA, CDirectoryData* pB) {
            return CompareDirsByCode(block.m_nDirSort, pA, pB) < 0;
        });
    WriteFile(block, [&](CReportStream& out) {
        WriteResultReport(m_doc, out, FormOf(block), ResultDuplicateDirs);
    });
}

void CAutoPrintRun::RunAutoPrintLargestFiles() {
    const CAutoPrintBlock& block = m_doc.m_print.m_autoPrint.m_largestFiles;
    auto& aFiles = m_doc.m_results.m_aLargestFiles;
    if (!Writable(block) || aFiles.empty()) return;
    SortLargestLists(m_doc);
    // With a limit the list keeps its largest-first order.
    if (m_doc.m_options.m_nLargestFilesCount == -1)
        std::stable_sort(aFiles.begin(), aFiles.end(), [&](CFileData* pA, CFileData* pB) {
            return CompareFilesByCode(block.m_nFileSort, pA, pB) < 0;
        });
    WriteFile(block, [&](CReportStream& out) {
        WriteResultReport(m_doc, out, FormOf(block), ResultLargestFiles);
    });
}

void CAutoPrintRun::RunAutoPrintLargestDirs() {
    const CAutoPrintBlock& block = m_doc.m_print.m_autoPrint.m_largestDirs;
    auto& aDirs = m_doc.m_results.m_aLargestDirs;
    if (!Writable(block) || aDirs.empty()) return;
    SortLargestLists(m_doc);
    if (m_doc.m_options.m_nLargestDirsCount == -1)
        std::stable_sort(aDirs.begin(), aDirs.end(), [&](CDirectoryData* pA, CDirectoryData* pB) {
            return CompareDirsByCode(block.m_nDirSort, pA, pB) < 0;
        });
    WriteFile(block, [&](CReportStream& out) {
        WriteResultReport(m_doc, out, FormOf(block), ResultLargestDirs);
    });
}

void CAutoPrintRun::RunAutoPrintLargestOwner() {
    const CAutoPrintBlock& block = m_doc.m_print.m_autoPrint.m_largestOwner;
    CTotalTable& aOwners = m_doc.m_results.m_totals.m_aOwners;
    if (!Writable(block) || aOwners.empty()) return;
    SortTotals(aOwners, TotalSortSizeDesc);
    WriteFile(block, [&](CReportStream& out) {
        WriteResultReport(m_doc, out, FormOf(block), ResultLargestOwner);
    });
}

void CAutoPrintRun::RunAutoPrintLargestType() {
    const CAutoPrintBlock& block = m_doc.m_print.m_autoPrint.m_largestType;
    if (!Writable(block) || m_doc.m_results.m_totals.m_aTypes.empty()) return;
    SortTypeTable(m_doc);
    WriteFile(block, [&](CReportStream& out) {
        WriteResultReport(m_doc, out, FormOf(block), ResultLargestType);
    });
}

}  // namespace zv
