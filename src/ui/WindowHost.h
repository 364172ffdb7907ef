// The desktop's host: message boxes, the progress dialog as a modeless
// window, the error list dialog, and the message pump that keeps the window
// live while a scan runs on this thread.
#pragma once

#include <chrono>

#include "core/host/Host.h"

class wxWindow;

namespace zv {

class CMainFrame;

class CWindowHost : public IHost {
public:
    explicit CWindowHost(CMainFrame* pFrame);

    void PumpMessages() override;
    void ShowMessage(std::u16string_view strMessage) override;
    bool AskYesNo(std::u16string_view strQuestion, bool bSafeAnswer) override;
    void SetStatusText(std::u16string_view strText) override;
    void SetFileCount(size_t nFiles) override;
    std::unique_ptr<IProgressView> OpenProgress(CProgressDialog& dialog) override;
    void ShowErrorList(std::u16string_view strTitle, const CErrorList& errors) override;

    // Tests slow every pump down by this many microseconds, so that a scan
    // of a small tree lasts long enough to be stopped.
    int m_nPumpDelayMicroseconds = 0;
    // Tests take messages into the status line instead of a box that waits.
    bool m_bMessagesToStatus = false;

private:
    CMainFrame* m_pFrame;
    std::chrono::steady_clock::time_point m_lastPump;
};

}  // namespace zv
