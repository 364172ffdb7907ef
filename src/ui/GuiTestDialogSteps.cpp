// The test hook's steps through the duplicate filters, the "Duplicate File
// Options" a scan asks for when such a filter has no criterion, and the
// about box's links.
#include <wx/checkbox.h>
#include <wx/dialog.h>
#include <wx/listbox.h>
#include <wx/textctrl.h>

#include "core/document/Document.h"
#include "core/records/DirectoryData.h"
#include "core/records/FileData.h"
#include "platform/FileSystem.h"
#include "ui/AboutDlg.h"
#include "ui/DupFilterDlg.h"
#include "ui/GuiTestDriver.h"
#include "ui/WxText.h"
#include "ui/ZorvaneFrame.h"
#include "ui/logic/CommandTable.h"

namespace zv {

namespace {

constexpr const char* kDupFilesTitle = "Duplicate files filter";
constexpr const char* kDupDirsTitle = "Duplicate directories filter";
constexpr const char* kOptionsTitle = "Duplicate File Options";

template <class TWindow>
TWindow* Child(wxWindow* pDialog, const wxString& strName) {
    return pDialog ? dynamic_cast<TWindow*>(pDialog->FindWindow(strName)) : nullptr;
}

}  // namespace

bool CGuiTestDriver::RunDupDialogStep(CZorvaneFrame& main, int nStep) {
    CWZorvaneDoc& doc = main.Document();
    CFilterSet& filters = doc.m_filters;
    const bool bIdle = !doc.m_bScanning;
    const std::u16string strRoot =
        doc.m_scan.m_aRoots.IsEmpty() ? u"" : doc.m_scan.m_aRoots[0]->m_strName.Str();
    const std::u16string strApple = strRoot + platform::kPathSeparator + u"apple.txt";
    switch (nStep) {
        case 0:
            PostCommand(CmdFilterDupFiles);
            return true;
        case 1: {  // A file typed in and added.
            auto* pEdit = Child<wxTextCtrl>(FindModalDialog(kDupFilesTitle), "dupFilterText");
            if (!pEdit) return false;
            pEdit->ChangeValue(ToWx(strApple));
            ClickButton(FindModalDialog(kDupFilesTitle), CDupFilterDlg::IdAdd);
            return true;
        }
        case 2: {
            wxDialog* pDialog = FindModalDialog(kDupFilesTitle);
            auto* pEntries = Child<wxListBox>(pDialog, "dupFilterEntries");
            if (!pEntries || pEntries->GetCount() != 1) return false;
            Check(filters.m_aDupFileRecords.GetSize() == 1 &&
                      filters.m_aDupFileRecords[0]->m_dSize == 3000,
                  "Add measured the duplicate filter's file");
            Screenshot("gui-20-duplicate-files-filter");
            ClickButton(pDialog, wxID_OK);
            return true;
        }
        case 3: {  // A scan with the filter and no criterion asks for one.
            if (FindModalDialog(kDupFilesTitle)) return false;
            Check(filters.List(FilterDupFiles).size() == 1 &&
                      filters.List(FilterDupFiles)[0].m_bAdded == 0,
                  "OK kept the duplicate files filter's entry");
            doc.m_options.m_dupFiles = CDuplicateFileCriteria{};
            doc.m_options.m_dupDirs = CDuplicateDirCriteria{};
            PostCommand(CmdRescan);
            return true;
        }
        case 4: {
            wxDialog* pDialog = FindModalDialog(kOptionsTitle);
            if (!pDialog || pDialog != m_pSeenDialog) {
                m_pSeenDialog = pDialog;
                return false;
            }
            m_pSeenDialog = nullptr;
            auto* pBySize =
                dynamic_cast<wxCheckBox*>(wxWindow::FindWindowByLabel("By Size  AND", pDialog));
            Check(pBySize != nullptr, "\"Duplicate File Options\" has \"By Size  AND\"");
            if (pBySize) pBySize->SetValue(true);
            Screenshot("gui-21-duplicate-file-options");
            ClickButton(pDialog, wxID_OK);
            return true;
        }
        case 5: {
            if (!bIdle || FindModalDialog(kOptionsTitle)) return false;
            const auto& aFiles = doc.m_scan.m_aAllFiles;
            Check(doc.m_options.m_dupFiles.m_bBySize && aFiles.GetSize() == 1 &&
                      aFiles[0]->m_strName.View() == u"apple.txt",
                  wxString::Format("the scan kept only the copy of the filter's file (%zu files)",
                                   aFiles.GetSize()));
            Screenshot("gui-22-duplicate-filter-scanned");
            PostCommand(CmdFilterDupFiles);
            return true;
        }
        case 6: {  // The entry removed again.
            wxDialog* pDialog = FindModalDialog(kDupFilesTitle);
            auto* pEntries = Child<wxListBox>(pDialog, "dupFilterEntries");
            if (!pEntries || pEntries->GetCount() != 1) return false;
            pEntries->SetSelection(0);
            ClickButton(pDialog, CDupFilterDlg::IdRemove);
            return true;
        }
        case 7: {
            wxDialog* pDialog = FindModalDialog(kDupFilesTitle);
            auto* pEntries = Child<wxListBox>(pDialog, "dupFilterEntries");
            if (!pEntries || pEntries->GetCount() != 0) return false;
            ClickButton(pDialog, wxID_OK);
            return true;
        }
        case 8: {
            if (FindModalDialog(kDupFilesTitle)) return false;
            Check(filters.List(FilterDupFiles).empty() && filters.m_aDupFileRecords.IsEmpty(),
                  "Remove and OK took the entry and its record");
            PostCommand(CmdFilterDupDirs);
            return true;
        }
        case 9: {  // A directory with its subdirectories, then Cancel.
            wxDialog* pDialog = FindModalDialog(kDupDirsTitle);
            auto* pEdit = Child<wxTextCtrl>(pDialog, "dupFilterText");
            auto* pSubdirs = Child<wxCheckBox>(pDialog, "dupFilterSubdirs");
            if (!pEdit || !pSubdirs) return false;
            pSubdirs->SetValue(true);
            pEdit->ChangeValue(ToWx(strRoot + platform::kPathSeparator + u"dir01"));
            ClickButton(pDialog, CDupFilterDlg::IdAdd);
            return true;
        }
        case 10: {
            wxDialog* pDialog = FindModalDialog(kDupDirsTitle);
            auto* pEntries = Child<wxListBox>(pDialog, "dupFilterEntries");
            if (!pEntries || pEntries->GetCount() != 1) return false;
            Check(pEntries->GetString(0).StartsWith("*") && filters.m_aDupDirTrees.GetSize() == 1 &&
                      filters.m_aDupDirTrees[0]->m_aChildren.GetSize() == 1,
                  "the recursive box put a \"*\" in front and the subdirectory was scanned: " +
                      pEntries->GetString(0));
            Screenshot("gui-23-duplicate-directories-filter");
            ClickButton(pDialog, wxID_CANCEL);
            return true;
        }
        case 11: {
            if (FindModalDialog(kDupDirsTitle)) return false;
            Check(filters.List(FilterDupDirs).empty() && filters.m_aDupDirTrees.IsEmpty(),
                  "Cancel took the new entry and its tree");
            doc.m_options.m_dupFiles = CDuplicateFileCriteria{};
            PostCommand(CmdRescan);
            return true;
        }
        case 12:
            if (!bIdle || doc.m_scan.m_aAllFiles.GetSize() != m_nFullFileCount) return false;
            PostCommand(CmdAbout);
            return true;
        case 13: {
            wxDialog* pDialog = FindModalDialog("About Zorvane");
            if (!pDialog || pDialog != m_pSeenDialog) {
                m_pSeenDialog = pDialog;
                return false;
            }
            m_pSeenDialog = nullptr;
            wxWindow* pReadme = pDialog->FindWindow(CAboutDlg::IdReadme);
            wxWindow* pDocs = pDialog->FindWindow(CAboutDlg::IdDocumentation);
            Check(pReadme && pReadme->IsEnabled() && pDocs && pDocs->IsEnabled(),
                  "the about box found the read-me and the documentation: " +
                      (pReadme ? pReadme->GetToolTipText() : wxString()));
            Screenshot("gui-24-about-links");
            ClickButton(pDialog, wxID_OK);
            return true;
        }
        case 14:
            if (FindModalDialog("About Zorvane")) return false;
            m_nLastStep = m_nStep;
            return true;
        default:
            return true;
    }
}

}  // namespace zv
