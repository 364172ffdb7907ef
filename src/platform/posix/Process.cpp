#include "platform/Process.h"

#include <spawn.h>
#include <sys/wait.h>

#include <cerrno>
#include <cstring>
#include <mutex>

#include "platform/Text.h"

extern char** environ;

namespace zv::platform {

namespace {

// Programs started without a waiter. Their exits are collected at the next
// start, so none stays a zombie for long, without a SIGCHLD handler that
// would change the whole process.
std::mutex g_mutex;
std::vector<pid_t> g_aUnwaited;

void ReapFinished() {
    std::lock_guard<std::mutex> lock(g_mutex);
    std::erase_if(g_aUnwaited, [](pid_t pid) { return waitpid(pid, nullptr, WNOHANG) != 0; });
}

}  // namespace

bool StartProcess(const std::vector<std::u16string>& aArgs, CStartedProcess* pWait, int& nError) {
    ReapFinished();
    nError = 0;
    if (aArgs.empty() || aArgs[0].empty()) {
        nError = ENOENT;
        return false;
    }
    std::vector<std::string> aUtf8;
    for (const std::u16string& strArg : aArgs) aUtf8.push_back(Utf16ToUtf8(strArg));
    std::vector<char*> aArgv;
    for (std::string& strArg : aUtf8) aArgv.push_back(strArg.data());
    aArgv.push_back(nullptr);

    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    // Only the standard handles go to the program.
    posix_spawn_file_actions_addclosefrom_np(&actions, 3);
    pid_t pid = 0;
    const int nResult = posix_spawnp(&pid, aArgv[0], &actions, nullptr, aArgv.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    if (nResult != 0) {
        nError = nResult;
        return false;
    }
    if (pWait) {
        pWait->m_nId = pid;
    } else {
        std::lock_guard<std::mutex> lock(g_mutex);
        g_aUnwaited.push_back(pid);
    }
    return true;
}

int WaitForProcess(CStartedProcess& process) {
    int nStatus = 0;
    pid_t pid;
    do {
        pid = waitpid(static_cast<pid_t>(process.m_nId), &nStatus, 0);
    } while (pid < 0 && errno == EINTR);
    process.m_nId = 0;
    if (pid < 0 || !WIFEXITED(nStatus)) return -1;
    return WEXITSTATUS(nStatus);
}

int GetLastSystemError() { return errno; }

std::u16string GetSystemErrorText(int nError) {
    char szText[256];
    // The GNU form returns the text, which need not be in the buffer.
    const char* pszText = strerror_r(nError, szText, sizeof szText);
    return Utf8ToUtf16(pszText);
}

}  // namespace zv::platform
