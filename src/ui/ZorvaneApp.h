// The application object: the start-up order of the program as far as its
// screens reach, one main document, and the exit.
#pragma once

#include <wx/app.h>

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

    static IScanSteps* s_pProgramSteps;

    std::u16string m_strSettingsFile;

private:
    std::unique_ptr<CWZorvaneDoc> m_pDoc;
    std::unique_ptr<CWindowHost> m_pHost;
    std::unique_ptr<CGuiTestDriver> m_pTestDriver;
    CMainFrame* m_pFrame = nullptr;
    int m_nExitStatus = 0;
};

}  // namespace zv
