#include "ui/ZorvaneApp.h"

#include <wx/gdicmn.h>
#include <wx/image.h>
#include <wx/utils.h>

#include <cstdio>

#include "core/document/Document.h"
#include "core/state/Hints.h"
#include "ui/AboutDlg.h"
#include "ui/DesktopProgram.h"
#include "ui/DocTemplates.h"
#include "ui/GuiTestDriver.h"
#include "ui/MainFrame.h"
#include "ui/WindowHost.h"
#include "ui/WxText.h"
#include "ui/ZorvaneFrame.h"

wxIMPLEMENT_APP_NO_MAIN(zv::CZorvaneApp);

namespace zv {

IScanSteps* CZorvaneApp::s_pProgramSteps = nullptr;

CZorvaneApp::CZorvaneApp() = default;

CZorvaneApp::~CZorvaneApp() = default;

bool CZorvaneApp::OnInit() {
    // The framework's own parser is not used: one optional argument, the
    // settings file, and nothing else has an effect.
    if (argc > 1) m_strSettingsFile = FromWx(argv[1]);
    wxInitAllImageHandlers();
    wxString strTestDir;
    const bool bTest = wxGetEnv("ZORVANE_GUI_TEST", &strTestDir) && !strTestDir.empty();
    if (bTest) {
        // A failed assertion is reported, never a box that waits.
        wxSetAssertHandler([](const wxString& strFile, int nLine, const wxString& strFunction,
                              const wxString& strCondition, const wxString& strMessage) {
            const wxString strText = wxString::Format("assertion %s:%d %s: %s %s\n", strFile, nLine,
                                                      strFunction, strCondition, strMessage);
            std::fputs(strText.utf8_str(), stderr);
        });
    }

    m_pDoc = std::make_unique<CWZorvaneDoc>();
    SetMainDocument(m_pDoc.get());
    m_pDocManager = std::make_unique<wxDocManager>();
    RegisterDocTemplates(*m_pDocManager);

    m_pFrame = new CMainFrame(m_pDocManager.get());
    if (!m_pFrame->CreateBars()) {
        m_pFrame->Destroy();
        m_pFrame = nullptr;
        return false;
    }
    SetTopWindow(m_pFrame);
    m_pHost = std::make_unique<CWindowHost>(m_pFrame);
    SetHost(m_pHost.get());

    if (bTest) {
        m_pHost->m_bMessagesToStatus = true;
        m_pTestDriver = std::make_unique<CGuiTestDriver>(*this, *m_pFrame, *m_pHost, strTestDir);
    }
    // Without a window manager (a virtual X server) maximising does nothing:
    // the frame takes the screen's work area first.
    m_pFrame->SetSize(wxGetClientDisplayRect());
    m_pFrame->Show();
    m_pFrame->Maximize();
    m_pFrame->Update();

    // ShowDocument("ZORVANE"): the document opens with the settings file,
    // and its file list view starts the first scan when it was read. With
    // "Exit program after printing" the process ends inside this step.
    // It runs once the event loop does, so that the main window is drawn
    // before a scan starts.
    CallAfter([this] {
        if (m_pTestDriver) m_pTestDriver->Start();
        if (!ShowDocument(*m_pDocManager, "ZORVANE")) {
            m_pFrame->Close(true);
            return;
        }
        ShowStartupHints([this] {
            CAboutDlg dialog(m_pFrame, true);
            dialog.ShowModal();
            return dialog.DontShowAgain();
        });
    });
    return true;
}

int CZorvaneApp::OnRun() {
    const int nStatus = wxApp::OnRun();
    return m_nExitStatus ? m_nExitStatus : nStatus;
}

int CZorvaneApp::OnExit() {
    m_pTestDriver.reset();
    // Closes what the main window's closing left open.
    m_pDocManager.reset();
    SetMainDocument(nullptr);
    SetHost(nullptr);
    m_pDoc.reset();
    return wxApp::OnExit();
}

int RunDesktopProgram(int argc, char** argv, IScanSteps& programSteps) {
    CZorvaneApp::s_pProgramSteps = &programSteps;
    return wxEntry(argc, argv);
}

}  // namespace zv
