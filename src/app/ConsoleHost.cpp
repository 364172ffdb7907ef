#include "app/ConsoleHost.h"

#include <cstdio>

#include "core/document/Document.h"
#include "core/host/ErrorList.h"
#include "core/host/ProgressDialog.h"
#include "platform/Console.h"
#include "platform/Text.h"

namespace zv {
namespace {

constexpr auto kRedrawInterval = std::chrono::milliseconds(100);

thread_local CWZorvaneDoc* t_pThreadDocument = nullptr;

void WriteErr(std::u16string_view strText) {
    const std::string strUtf8 = platform::Utf16ToUtf8(strText);
    std::fwrite(strUtf8.data(), 1, strUtf8.size(), stderr);
}

// The screen side of a progress dialog: its lines joined on the host's line.
class CConsoleProgressView : public IProgressView {
public:
    CConsoleProgressView(CConsoleHost& host, CProgressDialog& dialog) : m_host(host) {
        if (dialog.CanStop()) {
            m_host.SetStoppableDialog(&dialog);
            m_bStoppable = true;
        }
    }
    ~CConsoleProgressView() override {
        if (m_bStoppable) m_host.SetStoppableDialog(nullptr);
    }
    void SetText(std::u16string_view strText) override {
        m_strText = strText;
        Draw();
    }
    void SetLine(int nLine, std::u16string_view strText) override {
        if (nLine >= 1 && nLine <= 3) m_aLines[nLine - 1] = strText;
        Draw();
    }
    void SetPercent(int nPercent) override {
        m_nPercent = nPercent;
        Draw();
    }

private:
    void Draw() {
        if (!m_host.IsTerminal()) return;  // then nothing is drawn: the line is not made
        std::u16string strLine = platform::U16(std::to_string(m_nPercent)) + u"% ";
        for (const std::u16string* p : {&m_strText, &m_aLines[0], &m_aLines[1], &m_aLines[2]}) {
            if (p->empty()) continue;
            strLine += *p;
            strLine += u"  ";
        }
        m_host.DrawLine(strLine);
    }

    CConsoleHost& m_host;
    std::u16string m_strText;
    std::u16string m_aLines[3];
    int m_nPercent = 0;
    bool m_bStoppable = false;
};

}  // namespace

CConsoleHost::CConsoleHost() : m_bTerminal(platform::IsStderrTerminal()) {
    platform::InstallInterruptHandler();
}

CConsoleHost::~CConsoleHost() { ClearLine(); }

void CConsoleHost::SetThreadDocument(CWZorvaneDoc* pDoc) { t_pThreadDocument = pDoc; }

void CConsoleHost::PumpMessages() {
    if (t_pThreadDocument) {
        if (m_bInterrupted) t_pThreadDocument->m_bStopRequested = 1;
        return;
    }
    if (!platform::TakeInterrupt()) return;
    m_bInterrupted = true;
    CWZorvaneDoc* pDoc = GetMainDocument();
    if (pDoc && pDoc->m_bScanning) {
        // A scan keeps what it found.
        pDoc->m_bStopRequested = 1;
        ClearLine();
        WriteErr(u"Stopping: the scan keeps what it has found so far.\n");
        return;
    }
    // Other long work ends where it is: a report watches the document's stop
    // request, a search or compare the Cancel of its progress dialog.
    if (pDoc) pDoc->m_bStopRequested = 1;
    if (m_pStoppable) m_pStoppable->OnCancel();
}

void CConsoleHost::ShowMessage(std::u16string_view strMessage) {
    ClearLine();
    WriteErr(strMessage);
    WriteErr(u"\n");
}

bool CConsoleHost::AskYesNo(std::u16string_view strQuestion, bool bSafeAnswer) {
    ClearLine();
    WriteErr(strQuestion);
    WriteErr(bSafeAnswer ? u" [yes, unattended]\n" : u" [no, unattended]\n");
    return bSafeAnswer;
}

void CConsoleHost::SetStatusText(std::u16string_view strText) {
    if (strText.empty())
        ClearLine();
    else
        DrawLine(strText);
}

std::unique_ptr<IProgressView> CConsoleHost::OpenProgress(CProgressDialog& dialog) {
    // Without a terminal the view draws nothing, but still lets Ctrl-C
    // reach the dialog's Cancel.
    return std::make_unique<CConsoleProgressView>(*this, dialog);
}

void CConsoleHost::ShowErrorList(std::u16string_view strTitle, const CErrorList& errors) {
    ClearLine();
    WriteErr(strTitle);
    WriteErr(u"\n");
    for (size_t i = 0; i < errors.GetSize(); ++i) {
        WriteErr(u"  ");
        WriteErr(errors.Directory(i));
        if (errors.HasFiles()) {
            WriteErr(u"  ");
            WriteErr(errors.File(i));
        }
        WriteErr(u"  ");
        WriteErr(errors.Error(i));
        WriteErr(u"\n");
    }
}

void CConsoleHost::DrawLine(std::u16string_view strText, bool bForce) {
    if (!m_bTerminal) return;
    std::lock_guard<std::mutex> lock(m_mutex);
    const auto now = std::chrono::steady_clock::now();
    if (!bForce && m_bLineShown && now - m_lastDraw < kRedrawInterval) return;
    m_lastDraw = now;
    const size_t nWidth = static_cast<size_t>(platform::TerminalWidth()) - 1;
    std::u16string strLine(strText.substr(0, nWidth));
    strLine.resize(nWidth, u' ');
    WriteErr(u"\r");
    WriteErr(strLine);
    std::fflush(stderr);
    m_bLineShown = true;
}

void CConsoleHost::ClearLine() {
    std::lock_guard<std::mutex> lock(m_mutex);
    if (!m_bLineShown) return;
    const size_t nWidth = static_cast<size_t>(platform::TerminalWidth()) - 1;
    WriteErr(u"\r" + std::u16string(nWidth, u' ') + u"\r");
    std::fflush(stderr);
    m_bLineShown = false;
}

}  // namespace zv
