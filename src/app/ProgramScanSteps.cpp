#include "app/ProgramScanSteps.h"

#include <cstdio>
#include <cstdlib>

#include "analyses/CrcList.h"
#include "analyses/DuplicateDirFinder.h"
#include "analyses/DuplicateFileFinder.h"
#include "app/AutoPrintRuns.h"
#include "core/document/Document.h"
#include "core/state/RememberedLists.h"
#include "platform/Text.h"

namespace zv {

void CProgramScanSteps::ClearTables() {
    CWZorvaneDoc& doc = *m_pDocument;
    const CAutoPrintSettings& autoPrint = doc.m_print.m_autoPrint;
    if (autoPrint.m_largestFiles.m_bEnabled) doc.m_options.m_bLargestFiles = 1;
    if (autoPrint.m_largestDirs.m_bEnabled) doc.m_options.m_bLargestDirs = 1;
    if (autoPrint.m_largestOwner.m_bEnabled) doc.m_options.m_bLargestOwner = 1;
    if (autoPrint.m_largestType.m_bEnabled) doc.m_options.m_bLargestType = 1;
}

void CProgramScanSteps::RunAutoPrint() {
    using ESkipped = CAutoPrintRun::ESkipped;
    CAutoPrintRun(*m_pDocument, [this](const std::u16string& strFile, ESkipped eWhy) {
        ++m_nReportsLeftOut;
        const std::string strName = platform::Utf16ToUtf8(strFile);
        if (eWhy == ESkipped::Unwritable) {
            std::fprintf(stderr, "zorvane-cli: cannot write the report %s\n", strName.c_str());
            return;
        }
        // The settings keys that would have given the search a criterion.
        const bool bFiles = eWhy == ESkipped::NoFileCriterion;
        std::fprintf(stderr,
                     "zorvane-cli: the duplicate %s report %s is not written: the settings file "
                     "ticks no criterion to find duplicate %s by (the \"Duplicate %s by ...\" "
                     "keys of [DUPLICATE OPTIONS])\n",
                     bFiles ? "files" : "directories", strName.c_str(),
                     bFiles ? "files" : "directories", bFiles ? "files" : "dirs");
    }).Run();
}

void CProgramScanSteps::SaveRemembered() {
    if (m_bRemember) SaveRememberedLists(*m_pDocument);
}

void CProgramScanSteps::ApplyCrcList() {
    CWZorvaneDoc& doc = *m_pDocument;
    if (doc.m_options.m_strCrcFromFile.empty()) return;
    // A list named by a settings file is read at its first use.
    if (doc.m_aCrcFromFile.empty()) LoadCrcList(doc);
    zv::ApplyCrcList(doc);
}

void CProgramScanSteps::ExitAfterPrinting() {
    std::fflush(stdout);
    std::fflush(stderr);
    std::exit(0);
}

void CProgramScanSteps::FindDuplicates() {
    CWZorvaneDoc& doc = *m_pDocument;
    if (doc.m_options.m_bFindDupFilesAfterScan && doc.m_options.m_dupFiles.Any())
        FindDuplicateFiles(doc);
    if (doc.m_options.m_bFindDupDirsAfterScan && doc.m_options.m_dupDirs.Any())
        FindDuplicateDirs(doc);
}

}  // namespace zv
