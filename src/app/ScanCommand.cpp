#include "app/ScanCommand.h"

#include <cstdio>

#include "app/CommandScan.h"
#include "app/ScanSummary.h"

namespace zv {

int RunScanCommand(const CScanCommandOptions& options) {
    CCommandScan command(options);
    const int nStatus = command.Prepare();
    if (nStatus != 0) return nStatus;
    command.Scan();
    const CScanSummary summary =
        SummarizeScan(command.Doc(), command.ElapsedSeconds(), options.m_bList);
    const std::string strOut =
        options.m_bJson ? FormatSummaryJson(summary) : FormatSummaryText(summary);
    std::fwrite(strOut.data(), 1, strOut.size(), stdout);
    std::fflush(stdout);
    return 0;
}

}  // namespace zv
