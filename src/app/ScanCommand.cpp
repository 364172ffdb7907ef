#include "app/ScanCommand.h"

#include "app/CheckedOutput.h"
#include "app/CommandScan.h"
#include "app/ExitStatus.h"
#include "app/ScanSummary.h"

namespace zv {

int RunScanCommand(const CScanCommandOptions& options) {
    CCommandScan command(options);
    command.LeaveDocumentToExit();
    const int nStatus = command.Prepare();
    if (nStatus != 0) return nStatus;
    command.Scan();
    const CScanSummary summary =
        SummarizeScan(command.Doc(), command.ElapsedSeconds(), options.m_bList);
    CCheckedOutput out;
    out.Write(options.m_bJson ? FormatSummaryJson(summary)
                              : FormatSummaryText(summary, options.m_bNullEnds));
    const bool bWritten = out.Finish();
    return ExitStatusOf(summary.m_bStopped,
                        !bWritten || !summary.m_aProtected.empty() || command.ReportsLeftOut());
}

}  // namespace zv
