// The command line's host: messages go to stderr, every question takes its
// safe answer, progress is one updating line on stderr when stderr is a
// terminal (and nothing otherwise), and Ctrl-C asks the running scan to stop.
#pragma once

#include <atomic>
#include <chrono>
#include <mutex>
#include <string>

#include "core/host/Host.h"

namespace zv {

class CProgressDialog;
class CWZorvaneDoc;

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
    // Whether progress lines are drawn at all (stderr is a terminal).
    bool IsTerminal() const { return m_bTerminal; }
    // Clears the progress line, so that ordinary output starts on a clean line.
    void ClearLine();
    // Whether Ctrl-C was pressed: it stops a running scan, or presses Cancel
    // on the open progress dialog that has one.
    bool WasInterrupted() const { return m_bInterrupted; }
    // Names the document that a scan on the calling thread, other than the
    // main thread, fills; null when it is done. Such a thread leaves Ctrl-C
    // to the main thread and stops its own scan once Ctrl-C was pressed, so
    // that each thread only writes to its own document.
    static void SetThreadDocument(CWZorvaneDoc* pDoc);
    // The progress view tells when its dialog opens and closes.
    void SetStoppableDialog(CProgressDialog* pDialog) { m_pStoppable = pDialog; }

private:
    // Checksum workers set status texts too.
    std::mutex m_mutex;
    bool m_bTerminal;
    bool m_bLineShown = false;
    std::chrono::steady_clock::time_point m_lastDraw;
    std::atomic<bool> m_bInterrupted{false};
    CProgressDialog* m_pStoppable = nullptr;
};

}  // namespace zv
