#include "platform/Process.h"

#include <windows.h>

#include "platform/win32/WideString.h"

namespace zv::platform {

bool StartProcess(const std::vector<std::u16string>& aArgs, CStartedProcess* pWait, int& nError) {
    nError = 0;
    if (aArgs.empty() || aArgs[0].empty()) {
        nError = ERROR_FILE_NOT_FOUND;
        return false;
    }
    // CreateProcessW may write into the command line.
    std::wstring strLine = ToWide(BuildWindowsCommandLine(aArgs));
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION info{};
    if (!CreateProcessW(nullptr, strLine.data(), nullptr, nullptr, FALSE, NORMAL_PRIORITY_CLASS,
                        nullptr, nullptr, &startup, &info)) {
        nError = static_cast<int>(::GetLastError());
        return false;
    }
    CloseHandle(info.hThread);
    if (pWait)
        pWait->m_hProcess = info.hProcess;
    else
        CloseHandle(info.hProcess);
    return true;
}

int WaitForProcess(CStartedProcess& process) {
    HANDLE hProcess = static_cast<HANDLE>(process.m_hProcess);
    if (!hProcess) return -1;
    process.m_hProcess = nullptr;
    DWORD dwCode = 0;
    const bool bDone = WaitForSingleObject(hProcess, INFINITE) == WAIT_OBJECT_0 &&
                       GetExitCodeProcess(hProcess, &dwCode);
    CloseHandle(hProcess);
    return bDone ? static_cast<int>(dwCode) : -1;
}

int GetLastSystemError() { return static_cast<int>(::GetLastError()); }

std::u16string GetSystemErrorText(int nError) {
    wchar_t* pText = nullptr;
    const DWORD dwLength = FormatMessageW(
        FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
        nullptr, static_cast<DWORD>(nError), 0, reinterpret_cast<wchar_t*>(&pText), 0, nullptr);
    std::u16string strText = FromWide(pText, dwLength);
    LocalFree(pText);
    // The system ends its texts with a line end.
    while (!strText.empty() && (strText.back() == u'\n' || strText.back() == u'\r'))
        strText.pop_back();
    return strText;
}

}  // namespace zv::platform
