// The program's own test hook, switched on by the environment variable
// ZORVANE_GUI_TEST=DIRECTORY: a timer walks the main window through a
// scan, a click on a tree item, clicks on a column header, New Folder
// renamed in place by typing, a rescan that is stopped and a full rescan,
// Select Matching, Copy, Find and the printing options, then the about box
// of start-up, the dialogs that set up a scan, "Open all directory
// folders", the duplicate filters with a scan through one, and the about
// box's links, checking what the controls show and asking for a screenshot
// of the screen after each step. A screenshot is asked for by writing
// NAME.request into the directory and waiting for NAME.png (the test's
// runner takes it), so the same driver serves the Linux build and the
// Windows build under Wine. ZORVANE_GUI_TEST_STEPS=1 stops after the first
// scan. The run ends with status 0 when every check held.
#pragma once

#include <wx/event.h>
#include <wx/string.h>
#include <wx/timer.h>

#include <chrono>

class wxDialog;

namespace zv {

class CZorvaneApp;
class CMainFrame;
class CWindowHost;
class CZorvaneFrame;

class CGuiTestDriver : public wxEvtHandler {
public:
    CGuiTestDriver(CZorvaneApp& app, CMainFrame& frame, CWindowHost& host,
                   const wxString& strDirectory);
    void Start();

private:
    void OnTimer(wxTimerEvent& event);
    // True once the step is done and the next may start.
    bool RunStep(CZorvaneFrame& main);
    // The duplicate filters, the options a scan asks for and the about
    // box's links (GuiTestDialogSteps.cpp), numbered from 0.
    bool RunDupDialogStep(CZorvaneFrame& main, int nStep);
    void Check(bool bCondition, const wxString& strWhat);
    void Screenshot(const wxString& strName);
    void ClickAt(const wxPoint& screenPoint);
    void ClickButton(wxWindow* pDialog, int nId);
    void PostCommand(int nId);
    void Finish();
    wxDialog* FindModalDialog(const wxString& strTitle) const;
    // Takes the open modal dialog's screenshot and cancels it; false while
    // it has not been seen open for a tick.
    bool CloseDialog(const wxString& strTitle, const wxString& strScreenshot);

    CZorvaneApp& m_app;
    CMainFrame& m_frame;
    CWindowHost& m_host;
    wxString m_strDirectory;
    wxTimer m_timer;
    int m_nStep = 0;
    int m_nLastStep = 99;
    int m_nWaitTicks = 0;
    int m_nFailures = 0;
    size_t m_nFullFileCount = 0;
    bool m_bBusy = false;
    bool m_bAboutSeen = false;
    wxDialog* m_pSeenDialog = nullptr;
    std::chrono::steady_clock::time_point m_start;
};

}  // namespace zv
