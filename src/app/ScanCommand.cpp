#include "app/ScanCommand.h"

#include "app/CheckedOutput.h"
#include "app/CommandScan.h"
#include "app/ExitStatus.h"
#include "app/ScanSummary.h"

namespace zv {

int RunScanCommand(const CScanCommandOptions& options) {
    // The program ends right after this command: a tree of a million records
    // is not freed one record at a time only for the process to give all its
    // memory back a moment later. Kept reachable from here, so leak checkers
    // stay quiet. (The desktop program frees its trees, as it scans again.)
    static CCommandScan* s_pCommand = nullptr;
    delete s_pCommand;
    s_pCommand = new CCommandScan(options);
    CCommandScan& command = *s_pCommand;
    const int nStatus = command.Prepare();
    if (nStatus != 0) return nStatus;
    command.Scan();
    const CScanSummary summary =
        SummarizeScan(command.Doc(), command.ElapsedSeconds(), options.m_bList);
    CCheckedOutput out;
    out.Write(options.m_bJson ? FormatSummaryJson(summary)
                              : FormatSummaryText(summary, options.m_bNullEnds));
    const bool bWritten = out.Finish();
    return ExitStatusOf(summary.m_bStopped, !bWritten || !summary.m_aProtected.empty());
}

}  // namespace zv
