// The application object: the start-up order of the program as far as its
// screens reach, the document templates, one main document, and the exit.
// The core's main document lives from start-up to exit; the document the
// toolkit's framework opens with its frame and views wraps it.
#pragma once

#include <wx/app.h>
#include <wx/docview.h>

#include <memory>
#include <string>

namespace zv {

class CWZorvaneDoc;
class CWindowHost;
class CMainFrame;
class CGuiTestDriver;
class IScanSteps;

class CZorvaneApp : public wxApp {
public:
    CZorvaneApp();
    ~CZorvaneApp() override;

    bool OnInit() override;
    int OnRun() override;
    int OnExit() override;

    // The status a test run ends with.
    void SetExitStatus(int nStatus) { m_nExitStatus = nStatus; }

    CWZorvaneDoc& CoreDocument() const { return *m_pDoc; }
    CMainFrame* MainFrame() const { return m_pFrame; }
    wxDocManager& DocManager() const { return *m_pDocManager; }

    static IScanSteps* s_pProgramSteps;

    std::u16string m_strSettingsFile;

private:
    std::unique_ptr<CWZorvaneDoc> m_pDoc;
    std::unique_ptr<wxDocManager> m_pDocManager;
    std::unique_ptr<CWindowHost> m_pHost;
    std::unique_ptr<CGuiTestDriver> m_pTestDriver;
    CMainFrame* m_pFrame = nullptr;
    int m_nExitStatus = 0;
};

}  // namespace zv
