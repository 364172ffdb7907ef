#include "app/TwoRootScan.h"

#include <chrono>
#include <future>
#include <system_error>
#include <thread>

#include "app/ConsoleHost.h"
#include "core/document/Document.h"
#include "core/host/Host.h"
#include "core/scan/ScanHooks.h"
#include "core/scan/Scanner.h"
#include "filters/FilterActive.h"
#include "filters/ScanFilter.h"

namespace zv {
namespace {

// The walk and the headless tree building; nothing that spans the forest.
class CWalkOnlySteps : public IScanSteps {};

void Walk(CWZorvaneDoc& doc) {
    CScanFilter filter(doc);
    CWalkOnlySteps steps;
    CScanner(doc, &filter, &steps).Rescan();
}

// Appends what the right document's walk found behind the main document's,
// and hands its root over; the right document is left empty.
void JoinScan(CWZorvaneDoc& doc, CWZorvaneDoc& right) {
    CScanRegisters& to = doc.m_scan;
    CScanRegisters& from = right.m_scan;
    CRootDirectoryData* pRoot = from.m_aRoots[0];
    from.m_aRoots.RemoveAt(0);
    to.m_aRoots.Add(pRoot);
    to.m_aAllDirs.Items().insert(to.m_aAllDirs.end(), from.m_aAllDirs.begin(),
                                 from.m_aAllDirs.end());
    to.m_aAllFiles.Items().insert(to.m_aAllFiles.end(), from.m_aAllFiles.begin(),
                                  from.m_aAllFiles.end());
    to.m_aProtectedDirs.insert(to.m_aProtectedDirs.end(), from.m_aProtectedDirs.begin(),
                               from.m_aProtectedDirs.end());
    from.m_aAllDirs.RemoveAll();
    from.m_aAllFiles.RemoveAll();
    from.m_aProtectedDirs.clear();
    if (right.m_bStopRequested) doc.m_bStopRequested = 1;
}

}  // namespace

bool CanScanRootsAtOnce(const CWZorvaneDoc& doc) {
    const CDocumentOptions& options = doc.m_options;
    return doc.m_scan.m_aRoots.GetSize() == 2 && !IsFilterActive(doc.m_filters, options) &&
           !doc.m_print.m_autoPrint.AnyEnabled() && !options.m_bFindDupFilesAfterScan &&
           !options.m_bFindDupDirsAfterScan && options.m_strCrcFromFile.empty() &&
           !options.m_bShowCrc;
}

void ScanRootsAtOnce(CWZorvaneDoc& doc) {
    CWZorvaneDoc right;
    right.m_options = doc.m_options;
    right.m_print = doc.m_print;
    CRootDirectoryData* pRoot = doc.m_scan.m_aRoots[1];
    doc.m_scan.m_aRoots.RemoveAt(1);
    right.m_scan.m_aRoots.Add(pRoot);

    std::promise<void> done;
    std::future<void> finished = done.get_future();
    std::thread thread;
    try {
        thread = std::thread([&right, &done] {
            CConsoleHost::SetThreadDocument(&right);
            Walk(right);
            CConsoleHost::SetThreadDocument(nullptr);
            done.set_value();
        });
    } catch (const std::system_error&) {
        Walk(doc);
        Walk(right);
        JoinScan(doc, right);
        return;
    }
    Walk(doc);
    // Ctrl-C is seen here while the right walk goes on.
    while (finished.wait_for(std::chrono::milliseconds(10)) != std::future_status::ready)
        PumpMessages();
    thread.join();
    JoinScan(doc, right);
}

}  // namespace zv
