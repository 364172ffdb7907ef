// The steps around a scan as the command line runs them: the largest lists
// and total tables are filled, the remembered lists are saved when the run
// stands for the desktop program (a settings file given as the program's
// argument), a checksum list is applied, "Exit program after printing" ends
// the process, and the duplicate searches the settings ask for run. Reports
// and the tree control join as those subsystems arrive. The Auto Print
// reports are written after the scan.
#pragma once

#include "analyses/LargestScanSteps.h"

namespace zv {

class CProgramScanSteps : public CLargestScanSteps {
public:
    explicit CProgramScanSteps(bool bRemember) : m_bRemember(bRemember) {}

    // Enabled Auto Print reports switch on the lists they need, which are
    // kept only on request during a scan.
    void ClearTables() override;
    void SaveRemembered() override;
    // The Auto Print reports; one that cannot be written, or a duplicate
    // report without a criterion to search by, is named on stderr.
    void RunAutoPrint() override;
    void ApplyCrcList() override;
    void ExitAfterPrinting() override;
    // The duplicate searches the settings ask for after every scan.
    void FindDuplicates() override;

    // How many Auto Print reports were left out by the last run.
    int ReportsLeftOut() const { return m_nReportsLeftOut; }

private:
    bool m_bRemember;
    int m_nReportsLeftOut = 0;
};

}  // namespace zv
