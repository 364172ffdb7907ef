#include "platform/Console.h"

#include "platform/Text.h"
#include "platform/win32/WideString.h"

// windows.h first: the other two need it.
#include <windows.h>
// clang-format off
#include <fcntl.h>
#include <io.h>
#include <shellapi.h>
// clang-format on

#include <atomic>

namespace zv::platform {
namespace {

std::atomic<bool> s_bInterrupted{false};

BOOL WINAPI OnConsoleControl(DWORD dwType) {
    if (dwType != CTRL_C_EVENT && dwType != CTRL_BREAK_EVENT) return FALSE;
    s_bInterrupted = true;
    return TRUE;
}

}  // namespace

std::vector<std::string> GetUtf8Arguments(int argc, char** argv) {
    int nCount = 0;
    LPWSTR* ppArgs = ::CommandLineToArgvW(::GetCommandLineW(), &nCount);
    if (!ppArgs) return std::vector<std::string>(argv, argv + argc);
    std::vector<std::string> aArgs;
    for (int i = 0; i < nCount; ++i) aArgs.push_back(Utf16ToUtf8(FromWide(ppArgs[i])));
    ::LocalFree(ppArgs);
    return aArgs;
}

void PrepareConsoleProcess() { ::SetConsoleOutputCP(CP_UTF8); }

void SetStdoutBinary() { _setmode(_fileno(stdout), _O_BINARY); }

bool IsStderrTerminal() { return _isatty(_fileno(stderr)) != 0; }

int TerminalWidth() {
    CONSOLE_SCREEN_BUFFER_INFO info;
    if (::GetConsoleScreenBufferInfo(::GetStdHandle(STD_ERROR_HANDLE), &info))
        return info.srWindow.Right - info.srWindow.Left + 1;
    return 80;
}

void InstallInterruptHandler() { ::SetConsoleCtrlHandler(OnConsoleControl, TRUE); }

bool TakeInterrupt() { return s_bInterrupted.exchange(false); }

}  // namespace zv::platform
