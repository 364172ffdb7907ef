#include "platform/Console.h"

#include <signal.h>
#include <sys/ioctl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <atomic>

namespace zv::platform {
namespace {

volatile sig_atomic_t s_bInterrupted = 0;

extern "C" void OnInterrupt(int) { s_bInterrupted = 1; }

}  // namespace

std::vector<std::string> GetUtf8Arguments(int argc, char** argv) {
    return std::vector<std::string>(argv, argv + argc);
}

void PrepareConsoleProcess() {
    rlimit limit;
    if (getrlimit(RLIMIT_NOFILE, &limit) == 0 && limit.rlim_cur < limit.rlim_max) {
        limit.rlim_cur = limit.rlim_max;
        setrlimit(RLIMIT_NOFILE, &limit);
    }
}

void SetStdoutBinary() {}

bool IsStderrTerminal() { return isatty(STDERR_FILENO) == 1; }

int TerminalWidth() {
    winsize size{};
    if (ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0) return size.ws_col;
    return 80;
}

void InstallInterruptHandler() {
    struct sigaction action {};
    action.sa_handler = OnInterrupt;
    sigemptyset(&action.sa_mask);
    sigaction(SIGINT, &action, nullptr);
}

bool TakeInterrupt() {
    if (!s_bInterrupted) return false;
    s_bInterrupted = 0;
    return true;
}

}  // namespace zv::platform
