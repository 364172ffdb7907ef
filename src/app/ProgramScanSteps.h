// The steps around a scan as the command line runs them: the remembered
// lists are saved when the run stands for the desktop program (a settings
// file given as the program's argument), a checksum list is applied, and "Exit program after
// printing" ends the process. Reports, duplicate searches and the tree
// control join as those subsystems arrive.
#pragma once

#include "core/scan/ScanHooks.h"

namespace zv {

class CProgramScanSteps : public IScanSteps {
public:
    explicit CProgramScanSteps(bool bRemember) : m_bRemember(bRemember) {}

    void SaveRemembered() override;
    void ApplyCrcList() override;
    void ExitAfterPrinting() override;

private:
    bool m_bRemember;
};

}  // namespace zv
