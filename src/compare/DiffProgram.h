// Handing a pair of files to a diff program: the built-in one or the user's
// own, as the diff program settings say. The program is started with an
// argument vector, never through a shell.
#pragma once

#include <string>
#include <vector>

#include "core/document/DocumentOptions.h"

namespace zv {

namespace platform {
struct CStartedProcess;
}

// The arguments for nMode 0 (line mode) or 1 (ignoring leading and
// trailing blanks). Built-in: wmerrow.exe [-i1] FILE1 FILE2 on Windows;
// elsewhere, where there is no wmerrow, the user's program when one is
// set, else diff -u [-w] FILE1 FILE2. Own program: PROGRAM OPTIONS
// FILE1_OPTIONS FILE1 FILE2_OPTIONS FILE2, where the options texts are split
// into words as a command line is and a file options text that does not end
// in a blank joins its last word to the path, as the program's command line
// always did.
std::vector<std::u16string> BuildDiffArguments(const CDiffProgramSettings& settings, int nMode,
                                               const std::u16string& strFile1,
                                               const std::u16string& strFile2);

// Asks the one-time hint when the built-in program is in use (No ends
// here), then starts the program. A failure is shown with the system's
// text. pWait as for platform::StartProcess.
bool StartDiffProgram(const CDiffProgramSettings& settings, int nMode,
                      const std::u16string& strFile1, const std::u16string& strFile2,
                      platform::CStartedProcess* pWait);

}  // namespace zv
