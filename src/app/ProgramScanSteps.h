// The steps around a scan as the command line runs them: the largest lists
// and total tables are filled, the remembered lists are saved, a checksum
// list is applied, "Exit program after printing" ends the process, and the
// duplicate searches the settings ask for run. Reports and the tree control
// join as those subsystems arrive.
#pragma once

#include "analyses/LargestScanSteps.h"

namespace zv {

class CProgramScanSteps : public CLargestScanSteps {
public:
    void SaveRemembered() override;
    void ApplyCrcList() override;
    void ExitAfterPrinting() override;
    // The duplicate searches the settings ask for after every scan.
    void FindDuplicates() override;
};

}  // namespace zv
