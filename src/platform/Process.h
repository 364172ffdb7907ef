// Starting another program. A program is always given an argument vector,
// never a shell command, so a file name with quotes, ';', '$()' or a
// leading '-' reaches it as one argument and runs nothing else.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zv::platform {

// A started program that the caller means to wait for.
struct CStartedProcess {
    int64_t m_nId = 0;           // the process id on POSIX
    void* m_hProcess = nullptr;  // the process handle on Windows
};

// Starts aArgs[0] with aArgs as its arguments, at normal priority and with
// no handles inherited beyond the standard ones. A name without a path is
// looked for as the system does: in PATH on POSIX (posix_spawnp), and by
// CreateProcessW's order on Windows (the program's own directory first).
// With pWait null the program runs by itself and nothing waits for it.
// False on failure, with nError the system's error code.
bool StartProcess(const std::vector<std::u16string>& aArgs, CStartedProcess* pWait, int& nError);
// Waits for a program started with pWait; its exit status, or -1.
int WaitForProcess(CStartedProcess& process);

// The system's code of the last failed call (errno, GetLastError) and its
// text in the user's words.
int GetLastSystemError();
std::u16string GetSystemErrorText(int nError);

// The command line rules of Windows programs (CommandLineToArgvW and the C
// runtime): one argument quoted so that it parses back unchanged, a whole
// command line from a vector, and the words of a command line.
std::u16string QuoteWindowsArgument(std::u16string_view strArg);
std::u16string BuildWindowsCommandLine(const std::vector<std::u16string>& aArgs);
std::vector<std::u16string> SplitWindowsCommandLine(std::u16string_view strText);

}  // namespace zv::platform
