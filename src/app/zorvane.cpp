// The desktop program. One optional argument, a settings file: it loads
// quietly and the scan starts at once.
#include "app/ProgramScanSteps.h"
#include "app/ProgramServices.h"
#include "ui/DesktopProgram.h"

int main(int argc, char** argv) {
    zv::CProgramServices services;
    // The desktop program is the one whose runs are remembered.
    zv::CProgramScanSteps steps(true);
    return zv::RunDesktopProgram(argc, argv, steps);
}
