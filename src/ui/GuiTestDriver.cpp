#include "ui/GuiTestDriver.h"

#include <wx/clipbrd.h>
#include <wx/dataobj.h>
#include <wx/dialog.h>
#include <wx/ffile.h>
#include <wx/filefn.h>
#include <wx/filename.h>
#include <wx/textctrl.h>
#include <wx/textdlg.h>
#include <wx/toolbar.h>
#include <wx/uiaction.h>
#include <wx/utils.h>

#include <algorithm>
#include <cstdio>

#include "core/document/Document.h"
#include "core/document/SizeText.h"
#include "core/records/DirectoryData.h"
#include "core/records/FileData.h"
#include "platform/FileSystem.h"
#include "platform/Text.h"
#include "ui/FileAttributesView.h"
#include "ui/FindDlg.h"
#include "ui/MainFrame.h"
#include "ui/PrintFlagsSheet.h"
#include "ui/TreeCtrlView.h"
#include "ui/WindowHost.h"
#include "ui/WxText.h"
#include "ui/ZorvaneApp.h"
#include "ui/ZorvaneFrame.h"
#include "ui/logic/CommandTable.h"
#include "ui/logic/ToolbarCommands.h"

namespace zv {

namespace {

constexpr int kTickMilliseconds = 300;
constexpr int kMaxWaitTicks = 100;
constexpr auto kWatchdog = std::chrono::seconds(150);
// Slows the scan of the small test tree enough to stop it halfway.
constexpr int kSlowPumpMicroseconds = 3000;
// The first step of RunDupDialogStep.
constexpr int kDupDialogSteps = 27;

template <class TDialog>
TDialog* OpenDialog() {
    for (wxWindowList::compatibility_iterator node = wxTopLevelWindows.GetFirst(); node;
         node = node->GetNext())
        if (auto* pDialog = dynamic_cast<TDialog*>(node->GetData()); pDialog && pDialog->IsShown())
            return pDialog;
    return nullptr;
}

// "-1" when no column has the arrow, "2 descending" and so on.
wxString SortArrowText(const CFileAttributesView& list) {
    bool bAscending = false;
    const int nColumn = list.SortArrowColumn(bAscending);
    if (nColumn < 0) return "-1";
    return wxString::Format("%d %s", nColumn, bAscending ? "ascending" : "descending");
}

}  // namespace

CGuiTestDriver::CGuiTestDriver(CZorvaneApp& app, CMainFrame& frame, CWindowHost& host,
                               const wxString& strDirectory)
    : m_app(app), m_frame(frame), m_host(host), m_strDirectory(strDirectory), m_timer(this) {
    wxString strSteps;
    if (wxGetEnv("ZORVANE_GUI_TEST_STEPS", &strSteps)) m_nLastStep = wxAtoi(strSteps) - 1;
    Bind(wxEVT_TIMER, &CGuiTestDriver::OnTimer, this);
}

void CGuiTestDriver::Start() {
    m_start = std::chrono::steady_clock::now();
    m_timer.Start(kTickMilliseconds);
}

void CGuiTestDriver::Check(bool bCondition, const wxString& strWhat) {
    std::fprintf(stderr, "%s: %s\n", bCondition ? "ok" : "FAILED",
                 static_cast<const char*>(strWhat.utf8_str()));
    if (!bCondition) ++m_nFailures;
}

void CGuiTestDriver::Screenshot(const wxString& strName) {
    // Let the windows draw what the last step changed.
    m_frame.Refresh();
    m_frame.Update();
    wxMilliSleep(300);
    const wxString strBase = m_strDirectory + wxFileName::GetPathSeparator() + strName;
    const wxString strPng = strBase + ".png";
    if (wxFileExists(strPng)) wxRemoveFile(strPng);
    wxFFile request(strBase + ".request", "w");
    request.Close();
    for (int i = 0; i < 200 && !wxFileExists(strPng); ++i) wxMilliSleep(100);
    Check(wxFileExists(strPng), "screenshot " + strPng);
}

void CGuiTestDriver::ClickAt(const wxPoint& screenPoint) {
    wxUIActionSimulator simulator;
    simulator.MouseMove(screenPoint);
    wxMilliSleep(50);
    simulator.MouseClick();
}

void CGuiTestDriver::ClickButton(wxWindow* pDialog, int nId) {
    wxWindow* pButton = pDialog ? pDialog->FindWindow(nId) : nullptr;
    Check(pButton != nullptr, wxString::Format("the dialog has button %d", nId));
    if (pButton) ClickAt(pButton->GetScreenRect().GetPosition() + pButton->GetSize() / 2);
}

void CGuiTestDriver::PostCommand(int nId) {
    wxQueueEvent(&m_frame, new wxCommandEvent(wxEVT_MENU, MenuId(nId)));
}

void CGuiTestDriver::Finish() {
    m_timer.Stop();
    m_host.m_nPumpDelayMicroseconds = 0;
    std::fprintf(stderr, "%d failure(s)\n", m_nFailures);
    m_app.SetExitStatus(m_nFailures ? 1 : 0);
    m_frame.Close(true);
}

wxDialog* CGuiTestDriver::FindModalDialog(const wxString& strTitle) const {
    for (auto node = wxTopLevelWindows.GetFirst(); node; node = node->GetNext()) {
        auto* pDialog = dynamic_cast<wxDialog*>(node->GetData());
        if (pDialog && pDialog->IsModal() && pDialog->GetTitle() == strTitle) return pDialog;
    }
    return nullptr;
}

bool CGuiTestDriver::CloseDialog(const wxString& strTitle, const wxString& strScreenshot) {
    wxDialog* pDialog = FindModalDialog(strTitle);
    // A dialog gets one tick to draw itself before its screenshot.
    if (!pDialog || pDialog != m_pSeenDialog) {
        m_pSeenDialog = pDialog;
        return false;
    }
    m_pSeenDialog = nullptr;
    pDialog->Refresh();
    pDialog->Update();
    Check(true, "the dialog \"" + strTitle + "\" opened");
    Screenshot(strScreenshot);
    pDialog->EndModal(wxID_CANCEL);
    return true;
}

void CGuiTestDriver::OnTimer(wxTimerEvent&) {
    // Timers fire inside the scan's message pump too; one step at a time.
    if (m_bBusy) return;
    m_bBusy = true;
    // The about box of start-up comes after the first scan, whatever step
    // waits.
    if (!m_bAboutSeen && FindModalDialog("About Zorvane")) {
        m_bAboutSeen = CloseDialog("About Zorvane", "gui-0-about");
        m_bBusy = false;
        return;
    }
    if (std::chrono::steady_clock::now() - m_start > kWatchdog) {
        Check(false, "the whole run within its time");
        Finish();
        m_bBusy = false;
        return;
    }
    CZorvaneFrame* pMain = m_frame.GetMainChild();
    if (pMain && RunStep(*pMain)) {
        m_nWaitTicks = 0;
        if (m_nStep++ >= m_nLastStep) Finish();
    } else if (++m_nWaitTicks > kMaxWaitTicks) {
        Check(false, wxString::Format("step %d within its time", m_nStep));
        Finish();
    }
    m_bBusy = false;
}

bool CGuiTestDriver::RunStep(CZorvaneFrame& main) {
    CWZorvaneDoc& doc = main.Document();
    CTreeCtrlView& tree = main.Tree();
    CFileAttributesView& list = main.List();
    const bool bIdle = !doc.m_bScanning;
    if (m_nStep >= kDupDialogSteps) return RunDupDialogStep(main, m_nStep - kDupDialogSteps);
    switch (m_nStep) {
        case 0: {  // The scan the settings file started, and the start-up hints.
            if (!bIdle || !doc.m_pCurrentDir || !m_bAboutSeen) return false;
            m_nFullFileCount = doc.m_scan.m_aAllFiles.GetSize();
            Check(tree.HasItems(), "the tree has the root");
            Check(m_nFullFileCount > 0, "the scan found files");
            Check(list.GetItemCount() > 0, "the file list shows the root's entries");
            Check(!m_frame.StatusField()->GetValue().empty(), "the status field shows the path");
            Check(
                m_frame.FileCountField()->IsShown() &&
                    m_frame.FileCountField()->GetValue() ==
                        ToWx(FormatNumber(static_cast<double>(m_nFullFileCount))),
                "the directory toolbar counts the files: " + m_frame.FileCountField()->GetValue());
            Check(std::ranges::equal(m_frame.ToolbarCommands(), MainViewToolbarCommands()) &&
                      m_frame.GetToolBar()->GetToolsCount() == MainViewToolbarCommands().size(),
                  "the active view loaded its toolbar buttons");
            Check(SortArrowText(list) == "2 descending",
                  "the default sort's arrow stands on \"Size wSub\": " + SortArrowText(list));
            Screenshot("gui-1-scanned");
            return true;
        }
        case 1: {  // A click on the root's first subdirectory.
            wxTreeItemIdValue cookie;
            const wxTreeItemId root = tree.GetFirstChild(tree.GetRootItem(), cookie);
            tree.Expand(root);
            const wxTreeItemId child = tree.GetFirstChild(root, cookie);
            wxRect rect;
            if (!child.IsOk() || !tree.GetBoundingRect(child, rect, true)) {
                Check(false, "the root has a subdirectory item");
                return true;
            }
            tree.SetFocus();
            ClickAt(
                tree.ClientToScreen(rect.GetPosition() + wxPoint(rect.width / 2, rect.height / 2)));
            return true;
        }
        case 2: {
            CDirectoryData* pDir = doc.m_pCurrentDir;
            if (!pDir || pDir->IsRoot()) {
                // A click that came before the tree had laid out its items
                // is made again.
                if (m_nWaitTicks % 10 == 9) m_nStep = 1;
                return false;
            }
            Check(true, "the click on the tree item shows " + ToWx(pDir->m_strName.Str()));
            Check(list.GetItemCount() ==
                      static_cast<int>(pDir->m_aChildren.GetSize() + pDir->m_aFiles.GetSize()),
                  "the list has one row per entry of that directory");
            Screenshot("gui-2-directory-selected");
            return true;
        }
        case 3:    // A click on the "Name" header.
        case 5: {  // And a second one.
            ClickAt(list.ClientToScreen(wxPoint(list.GetColumnWidth(0) / 2, 8)));
            return true;
        }
        case 4:
        case 6: {
            const uint8_t nWanted = m_nStep == 4 ? 1 : 2;
            if (doc.m_options.m_nFileSort != nWanted) return false;
            bool bOrdered = true;
            CDirectoryData* pDir = doc.m_pCurrentDir;
            for (size_t i = 1; pDir && i < pDir->m_aFiles.GetSize(); ++i) {
                const int n = platform::CompareNoCase(pDir->m_aFiles[i - 1]->m_strName,
                                                      pDir->m_aFiles[i]->m_strName);
                if (nWanted == 1 ? n > 0 : n < 0) bOrdered = false;
            }
            Check(bOrdered, wxString::Format("the header click sorts by name (code %d)", nWanted));
            Check(SortArrowText(list) == (nWanted == 1 ? "0 ascending" : "0 descending"),
                  "the arrow moved to \"Name\": " + SortArrowText(list));
            Check(list.GetItemText(0) == ToWx(CellText(doc, ColName, list.RowAt(0))),
                  "the first row shows the first record");
            Screenshot(m_nStep == 4 ? "gui-3-sorted-by-name" : "gui-4-sorted-by-name-descending");
            if (m_nStep == 6) PostCommand(CmdNewFolder);
            return true;
        }
        case 7: {  // The new folder's name is being edited: type another.
            if (!list.GetEditControl()) return false;
            wxUIActionSimulator simulator;
            simulator.Text("renamed folder");
            simulator.Char(WXK_RETURN);
            return true;
        }
        case 8: {
            CDirectoryData* pDir = doc.m_pCurrentDir;
            bool bFound = false;
            for (size_t i = 0; pDir && i < pDir->m_aChildren.GetSize(); ++i)
                bFound = bFound || pDir->m_aChildren[i]->m_strName == u"renamed folder";
            if (!bFound) return false;
            Check(wxDirExists(
                      ToWx(pDir->GetFullPath() + platform::kPathSeparator + u"renamed folder")),
                  "New Folder and the rename in place reached the disk");
            Screenshot("gui-5-folder-renamed");
            m_host.m_nPumpDelayMicroseconds = kSlowPumpMicroseconds;
            PostCommand(CmdRescan);
            return true;
        }
        case 9: {  // The rescan runs: stop it.
            if (bIdle || doc.m_scan.m_aAllFiles.GetSize() < 40) return false;
            Screenshot("gui-6-scanning");
            PostCommand(CmdStop);
            return true;
        }
        case 10: {
            if (!bIdle) return false;
            m_host.m_nPumpDelayMicroseconds = 0;
            Check(doc.m_scan.m_aAllFiles.GetSize() < m_nFullFileCount,
                  wxString::Format("the stopped scan kept part of the tree (%zu of %zu files)",
                                   doc.m_scan.m_aAllFiles.GetSize(), m_nFullFileCount));
            Screenshot("gui-7-stopped");
            PostCommand(CmdRescan);
            return true;
        }
        case 11: {
            if (!bIdle || doc.m_scan.m_aAllFiles.GetSize() != m_nFullFileCount) return false;
            Check(tree.HasItems() && doc.m_pCurrentDir, "the full rescan shows the tree again");
            Screenshot("gui-8-rescanned");
            PostCommand(CmdSelectMatching);
            return true;
        }
        case 12: {  // "Select Matching" asks for a pattern.
            auto* pDialog = OpenDialog<wxTextEntryDialog>();
            if (!pDialog) return false;
            pDialog->SetValue("FILE00*");
            return true;
        }
        case 13: {  // Shown with its text, then OK.
            auto* pDialog = OpenDialog<wxTextEntryDialog>();
            if (!pDialog) return false;
            Screenshot("gui-9-select-matching");
            ClickButton(pDialog, wxID_OK);
            return true;
        }
        case 14: {
            if (OpenDialog<wxTextEntryDialog>()) return false;
            CDirectoryData* pDir = doc.m_pCurrentDir;
            int nWanted = 0;
            for (size_t i = 0; pDir && i < pDir->m_aFiles.GetSize(); ++i)
                nWanted += pDir->m_aFiles[i]->m_strName.View().starts_with(u"file00");
            Check(nWanted > 0 && list.GetSelectedItemCount() == nWanted,
                  wxString::Format("Select Matching selected the %d matching files", nWanted));
            Screenshot("gui-10-matching-selected");
            PostCommand(CmdCopy);
            return true;
        }
        case 15: {  // The clipboard holds the selected files.
            wxArrayString aFiles;
            if (wxTheClipboard->Open()) {
                wxFileDataObject data;
                if (wxTheClipboard->IsSupported(wxDF_FILENAME) && wxTheClipboard->GetData(data))
                    aFiles = data.GetFilenames();
                wxTheClipboard->Close();
            }
            if (aFiles.empty()) return false;
            const long nFirst = list.GetNextItem(-1, wxLIST_NEXT_ALL, wxLIST_STATE_SELECTED);
            Check(aFiles.size() == static_cast<size_t>(list.GetSelectedItemCount()) &&
                      aFiles[0] == ToWx(list.RowAt(nFirst).m_pFile->GetFullPath()),
                  wxString::Format("Copy put %zu selected paths on the clipboard", aFiles.size()));
            PostCommand(CmdFind);
            return true;
        }
        case 16: {  // "Find" a file by part of its name.
            auto* pDialog = OpenDialog<CFindDlg>();
            if (!pDialog) return false;
            auto* pText = dynamic_cast<wxTextCtrl*>(pDialog->FindWindow("findFileText"));
            Check(pText != nullptr, "the find dialog has its file name box");
            if (pText) pText->ChangeValue("LE039");
            return true;
        }
        case 17: {
            auto* pDialog = OpenDialog<CFindDlg>();
            if (!pDialog) return false;
            Screenshot("gui-11-find");
            ClickButton(pDialog, CFindDlg::IdFromBeginning);
            return true;
        }
        case 18: {
            if (OpenDialog<CFindDlg>()) return false;
            const long nItem = list.GetNextItem(-1, wxLIST_NEXT_ALL, wxLIST_STATE_SELECTED);
            const CListRow row = list.RowAt(nItem);
            Check(list.GetSelectedItemCount() == 1 && row.m_pFile &&
                      row.m_pFile->m_strName.View() == u"file039.txt",
                  "Find selected the one file that holds the text");
            Screenshot("gui-12-found");
            PostCommand(CmdPrintOptions);
            return true;
        }
        case 19: {  // The printing options: none for all tabs, then OK.
            auto* pSheet = OpenDialog<CPrintFlagsSheet>();
            if (!pSheet) return false;
            ClickButton(pSheet, CPrintFlagsSheet::IdNoneForAllTabs);
            return true;
        }
        case 20: {
            auto* pSheet = OpenDialog<CPrintFlagsSheet>();
            if (!pSheet) return false;
            Screenshot("gui-13-printing-options");
            Check(doc.m_print.Flag(PrintSize), "the flags change only on OK");
            ClickButton(pSheet, wxID_OK);
            return true;
        }
        case 21: {
            if (OpenDialog<CPrintFlagsSheet>()) return false;
            Check(!doc.m_print.Flag(PrintSize) && !doc.m_print.MetadataFlag(MetaMp3, 32941) &&
                      doc.m_print.Flag(SaveAsUnicode),
                  "OK on the printing options stored \"None for all tabs\"");
            PostCommand(CmdDupOptions);
            return true;
        }
        // The dialogs a scan is set up with open from the menu.
        case 22:
            if (!CloseDialog("Duplicate Options", "gui-14-duplicate-options")) return false;
            PostCommand(CmdFilterSizeDate);
            return true;
        case 23:
            if (!CloseDialog("Size and Date Filters", "gui-15-size-date-filters")) return false;
            PostCommand(CmdMaxDepth);
            return true;
        case 24:
            return CloseDialog("Set maximum directory depth", "gui-16-max-depth");
        case 25:  // The toolbar's command reaches the tree through the document.
            if (FindModalDialog("Set maximum directory depth")) return false;
            PostCommand(CmdOpenAllFolders);
            return true;
        case 26: {
            wxTreeItemIdValue cookie;
            const wxTreeItemId root = tree.GetFirstChild(tree.GetRootItem(), cookie);
            const wxTreeItemId child = root.IsOk() ? tree.GetFirstChild(root, cookie) : root;
            if (!child.IsOk() || !tree.IsExpanded(child)) return false;
            Check(true, "\"Open all directory folders\" opened the subdirectories");
            Screenshot("gui-17-all-folders-open");
            return true;
        }
        default:
            return true;
    }
}

}  // namespace zv
