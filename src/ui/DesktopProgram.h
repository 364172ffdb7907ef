// The desktop program's entry, without toolkit types, so that the program
// in src/app starts it with the scan steps it installs.
#pragma once

namespace zv {

class IScanSteps;

// Runs the program until its main window closes; returns the exit status.
int RunDesktopProgram(int argc, char** argv, IScanSteps& programSteps);

}  // namespace zv
