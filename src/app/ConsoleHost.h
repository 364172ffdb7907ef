// The command line's host: messages go to stderr, every question takes its
// safe answer, progress is one updating line on stderr when stderr is a
// terminal (and nothing otherwise), and Ctrl-C asks the running scan, or the
// long work of the last progress dialog opened, to stop.
#pragma once

#include <chrono>
#include <mutex>
#include <string>

#include "core/host/Host.h"

namespace zv {

class CConsoleHost : public IHost {
public:
    CConsoleHost();
    ~CConsoleHost() override;

    void PumpMessages() override;
    void ShowMessage(std::u16string_view strMessage) override;
    bool AskYesNo(std::u16string_view strQuestion, bool bSafeAnswer) override;
    void SetStatusText(std::u16string_view strText) override;
    void SetFileCount(size_t) override {}
    std::unique_ptr<IProgressView> OpenProgress(CProgressDialog& dialog) override;
    void ShowErrorList(std::u16string_view strTitle, const CErrorList& errors) override;

    // Draws the progress line now, if there is one to draw.
    void DrawLine(std::u16string_view strText, bool bForce = false);
    // Clears the progress line, so that ordinary output starts on a clean line.
    void ClearLine();
    // Called when a dialog's screen side closes.
    void ForgetProgress(CProgressDialog& dialog);

private:
    // Checksum workers set status texts too.
    std::mutex m_mutex;
    bool m_bTerminal;
    bool m_bLineShown = false;
    CProgressDialog* m_pProgress = nullptr;  // the last dialog opened, for Ctrl-C
    std::chrono::steady_clock::time_point m_lastDraw;
};

}  // namespace zv
