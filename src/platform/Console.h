// What a command-line program needs of its console and process.
#pragma once

#include <string>
#include <vector>

namespace zv::platform {

// The program's arguments as UTF-8 (on Windows from the wide command line,
// so names beyond the ANSI code page survive; on POSIX the bytes as given).
std::vector<std::string> GetUtf8Arguments(int argc, char** argv);

// Sets up the process for a long unattended run: UTF-8 console output on
// Windows; on POSIX the open-file limit raised to its maximum, since deep
// trees are walked with one open handle per level.
void PrepareConsoleProcess();

// Standard output as bytes: no line-end translation on Windows.
void SetStdoutBinary();

bool IsStderrTerminal();
// Columns of the terminal on stderr; 80 when it cannot be told.
int TerminalWidth();

// Ctrl-C no longer ends the process; it is remembered until taken.
void InstallInterruptHandler();
// True once per Ctrl-C.
bool TakeInterrupt();

}  // namespace zv::platform
