#include "ui/WindowHost.h"

#include <wx/app.h>
#include <wx/msgdlg.h>

#include <thread>

#include "core/host/ProgressDialog.h"
#include "ui/ErrorListDlg.h"
#include "ui/MainFrame.h"
#include "ui/ProgressWindow.h"
#include "ui/WxText.h"

namespace zv {

CWindowHost::CWindowHost(CMainFrame* pFrame) : m_pFrame(pFrame) {}

void CWindowHost::PumpMessages() {
    if (m_nPumpDelayMicroseconds > 0)
        std::this_thread::sleep_for(std::chrono::microseconds(m_nPumpDelayMicroseconds));
    // The scan calls this once per entry; dispatching events costs far more
    // than an entry, so the queue is looked at every few milliseconds.
    const auto now = std::chrono::steady_clock::now();
    if (now - m_lastPump < std::chrono::milliseconds(15)) return;
    m_lastPump = now;
    if (wxTheApp) wxTheApp->Yield(true);
}

void CWindowHost::ShowMessage(std::u16string_view strMessage) {
    if (m_bMessagesToStatus) {
        m_pFrame->SetPane(PaneMessages, strMessage);
        return;
    }
    wxMessageBox(ToWx(strMessage), "Zorvane", wxOK, m_pFrame);
}

bool CWindowHost::AskYesNo(std::u16string_view strQuestion, bool bSafeAnswer) {
    if (m_bMessagesToStatus) return bSafeAnswer;
    return wxMessageBox(ToWx(strQuestion), "Zorvane", wxYES_NO, m_pFrame) == wxYES;
}

void CWindowHost::SetStatusText(std::u16string_view strText) { m_pFrame->SetStatusField(strText); }

void CWindowHost::SetFileCount(size_t nFiles) { m_pFrame->SetFileCount(nFiles); }

std::unique_ptr<IProgressView> CWindowHost::OpenProgress(CProgressDialog& dialog) {
    return std::make_unique<CProgressWindowView>(dialog);
}

void CWindowHost::ShowErrorList(std::u16string_view strTitle, const CErrorList& errors) {
    if (m_bMessagesToStatus) return;
    CErrorListDlg dialog(m_pFrame, strTitle, errors);
    dialog.ShowModal();
}

}  // namespace zv
