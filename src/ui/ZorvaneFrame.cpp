#include "ui/ZorvaneFrame.h"

#include <wx/filedlg.h>
#include <wx/splitter.h>

#include "core/document/Document.h"
#include "core/document/SizeText.h"
#include "core/document/SortCodes.h"
#include "core/host/Host.h"
#include "core/scan/Scanner.h"
#include "core/settings/SettingsFile.h"
#include "filters/ScanFilter.h"
#include "ui/DupFilterDlg.h"
#include "ui/DuplicateOptionsDlg.h"
#include "ui/FileAttributesView.h"
#include "ui/FilterListDlg.h"
#include "ui/MainFrame.h"
#include "ui/MaxDepthDlg.h"
#include "ui/PaneViews.h"
#include "ui/PrintFlagsSheet.h"
#include "ui/SelectRootsDlg.h"
#include "ui/SizeDateFilterDlg.h"
#include "ui/TreeCtrlView.h"
#include "ui/WxText.h"
#include "ui/ZorvaneDocument.h"
#include "ui/logic/FilterListEdit.h"

namespace zv {

CWindowScanSteps::CWindowScanSteps(IScanSteps& program, CTreeCtrlView& tree)
    : m_program(program), m_tree(tree) {}

void CWindowScanSteps::BuildTree() {
    m_program.BuildTree();
    m_tree.FillTree();
}

void CWindowScanSteps::RestoreSelection() { m_tree.RestoreSelection(); }

bool CWindowScanSteps::ChooseDuplicateCriteria() {
    // A duplicate filter compares files, so the file criteria are asked for.
    CDocumentOptions& options = m_pDocument->m_options;
    CDuplicateOptionsDlg dialog(wxGetTopLevelParent(&m_tree), options, true);
    dialog.ShowModal();
    return options.m_dupFiles.Any();
}

CZorvaneFrame::CZorvaneFrame(CZorvaneDocument& document, CTreePaneView& treeView,
                             CListPaneView& listView, CMainFrame* pParent, IScanSteps& programSteps)
    : wxDocMDIChildFrame(&document, &listView, pParent, wxID_ANY, "Zorvane"),
      m_pMainFrame(pParent),
      m_document(document),
      m_doc(document.Core()),
      m_programSteps(programSteps),
      m_pTreeView(&treeView),
      m_pListView(&listView) {
    m_pMainFrame->OnMainChildCreated(this);
    m_pSplitter = new wxSplitterWindow(this, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                                       wxSP_LIVE_UPDATE | wxSP_3D);
    m_pTree = new CTreeCtrlView(m_pSplitter, *this);
    m_pList = new CFileAttributesView(m_pSplitter, *this);
    m_pSplitter->SetMinimumPaneSize(50);
    m_pSplitter->SetSashGravity(0.2);
    m_pSplitter->SplitVertically(m_pTree, m_pList, pParent->GetClientSize().x / 5);
    treeView.SetFrame(this);
    treeView.Attach(this);
    listView.Attach(this);
    // The pane with the focus is the active view; it loads the toolbar.
    m_pTree->Bind(wxEVT_SET_FOCUS, [this](wxFocusEvent& event) {
        event.Skip();
        if (m_pTreeView) m_pTreeView->Activate(true);
    });
    m_pList->Bind(wxEVT_SET_FOCUS, [this](wxFocusEvent& event) {
        event.Skip();
        if (m_pListView) m_pListView->Activate(true);
    });
    // Closing the main document ends the program: the main window closes,
    // and with it the document and its views.
    Bind(wxEVT_CLOSE_WINDOW, [this](wxCloseEvent& event) {
        if (!event.CanVeto()) {
            event.Skip();
            return;
        }
        event.Veto();
        CMainFrame* pMain = m_pMainFrame;
        pMain->CallAfter([pMain] { pMain->Close(); });
    });
    // The left column takes a fifth of the width the frame gets once it is
    // laid out (on GTK children are notebook pages, sized late).
    m_pSplitter->Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
        event.Skip();
        const int nWidth = event.GetSize().x;
        if (m_bSashPlaced || nWidth < 300) return;
        m_bSashPlaced = true;
        CallAfter([this, nWidth] { m_pSplitter->SetSashPosition(nWidth / 5); });
    });
}

CZorvaneFrame::~CZorvaneFrame() {
    if (m_pTreeView) m_pTreeView->Attach(nullptr);
    if (m_pListView) m_pListView->Attach(nullptr);
    m_pMainFrame->OnMainChildClosed();
}

void CZorvaneFrame::DetachView(CMainPaneView& view) {
    if (m_pTreeView == &view) m_pTreeView = nullptr;
    if (m_pListView == &view) m_pListView = nullptr;
}

void CZorvaneFrame::OnInitialUpdate() {
    m_pList->OnInitialUpdate();
    m_pList->SetFocus();
    UpdateFreeSpace();
    if (m_doc.m_bSettingsLoaded) Rescan();
}

CCommandState CZorvaneFrame::CommandState() const {
    CCommandState state;
    state.m_bScanning = m_doc.m_bScanning != 0;
    state.m_bHasRoots = !m_doc.m_scan.m_aRoots.IsEmpty();
    state.m_bTreeHasItems = m_pTree->HasItems();
    state.m_bDirShown = m_doc.m_pCurrentDir != nullptr;
    state.m_nSelected = m_pList->GetSelectedItemCount();
    state.m_bShowCrc = m_doc.m_options.m_bShowCrc != 0;
    state.m_bShowOwners = m_doc.m_options.m_bShowOwners != 0;
    state.m_bShowVersions = m_doc.m_options.m_bShowVersions != 0;
    return state;
}

void CZorvaneFrame::Rescan() {
    if (m_doc.m_bScanning) return;
    // The records go with the scan: nothing may still point at them.
    m_pList->ShowDirectory(nullptr);
    m_pTree->Clear();
    m_pMainFrame->ShowFileCount(true);
    CScanFilter filter(m_doc);
    m_programSteps.m_pDocument = &m_doc;
    CWindowScanSteps steps(m_programSteps, *m_pTree);
    CScanner scanner(m_doc, &filter, &steps);
    scanner.Rescan();
    UpdateFreeSpace();
}

void CZorvaneFrame::UpdateFreeSpace() {
    m_pMainFrame->SetPane(PaneFreeSpace, FreeSpaceText(m_doc));
}

void CZorvaneFrame::OnCommand(int nId) {
    if (nId == CmdStop) {
        if (m_doc.m_bScanning) m_doc.m_bStopRequested = 1;
        return;
    }
    // Commands arrive during a scan too, because the scan pumps messages.
    if (m_doc.m_bScanning) return;
    CDocumentOptions& options = m_doc.m_options;
    unsigned char nFileSort = options.m_nFileSort;
    unsigned char nDirSort = options.m_nDirSort;
    if (SortCodesOfCommand(nId, nFileSort, nDirSort)) {
        m_pList->SetSort(nFileSort, nDirSort);
        return;
    }
    switch (nId) {
        case CmdSelectRoots:
            SelectRoots();
            break;
        case CmdRescan:
            Rescan();
            break;
        case CmdLoadSettings:
            LoadSettingsCommand();
            break;
        case CmdSaveSettings:
            SaveSettingsCommand();
            break;
        case CmdScanSubdirs:
            options.m_bScanSubdirs = !options.m_bScanSubdirs;
            break;
        case CmdCheckStreams:
            options.m_bCheckStreams = !options.m_bCheckStreams;
            break;
        case CmdCrcHex:
        case CmdCrcDecimal:
            options.m_bCrcHex = nId == CmdCrcHex;
            options.m_bCrcDecimal = nId == CmdCrcDecimal;
            m_pList->Refresh();
            break;
        case CmdFilterFileNames:
            EditFilterList(FilterFileNames);
            break;
        case CmdFilterFileNamesExclude:
            EditFilterList(FilterFileNamesExclude);
            break;
        case CmdFilterFullPathExclude:
            EditFilterList(FilterFullPathExclude);
            break;
        case CmdFilterVersion:
            EditFilterList(FilterVersionFiles);
            break;
        case CmdFilterOffice:
            EditFilterList(FilterOfficeExtensions);
            break;
        case CmdFilterOwners:
            EditFilterList(FilterOwners);
            break;
        case CmdFilterOwnersExclude:
            EditFilterList(FilterOwnersExclude);
            break;
        case CmdFilterDirExclude:
            EditFilterList(FilterDirExclude);
            break;
        case CmdFilterDir:
            EditFilterList(FilterDir);
            break;
        case CmdFilterDupFiles:
            EditFilterList(FilterDupFiles);
            break;
        case CmdFilterDupDirs:
            EditFilterList(FilterDupDirs);
            break;
        case CmdPrintOptions: {
            CPrintFlagsSheet sheet(this, m_doc);
            sheet.ShowModal();
            break;
        }
        case CmdFilterSizeDate: {
            CSizeDateFilterDlg dialog(this, m_doc);
            dialog.ShowModal();
            break;
        }
        case CmdMaxDepth: {
            CMaxDepthDlg dialog(this, options.m_nMaxDepth);
            if (dialog.ShowModal() == wxID_OK) options.m_nMaxDepth = dialog.Depth();
            break;
        }
        case CmdDupOptions: {
            CDuplicateOptionsDlg dialog(this, options);
            dialog.ShowModal();
            break;
        }
        case CmdSizeBytes:
            SetSizeUnit(0);
            break;
        case CmdSizeKilobytes:
            SetSizeUnit(1);
            break;
        case CmdSizeMegabytes:
            SetSizeUnit(2);
            break;
        case CmdSizeGigabytes:
            SetSizeUnit(3);
            break;
        default:
            m_document.ForwardCommand(nId);
    }
}

void CZorvaneFrame::SetSizeUnit(int nUnit) {
    static const char16_t* const apszUnits[] = {u"bytes", u"KB", u"MB", u"GB"};
    m_doc.m_options.m_nSizeUnit = nUnit;
    m_doc.m_options.m_strSizeUnit = apszUnits[nUnit];
    m_pList->Refresh();
    m_pList->UpdateStatusPanes();
    UpdateFreeSpace();
}

void CZorvaneFrame::EditFilterList(int nList) {
    const auto eList = static_cast<EFilterList>(nList);
    if (!IsPlainFilterList(eList)) {
        CDupFilterDlg dialog(this, m_doc, eList);
        dialog.ShowModal();
        return;
    }
    CFilterListDlg dialog(this, m_doc, eList);
    dialog.ShowModal();
}

void CZorvaneFrame::SelectRoots() {
    CSelectRootsDlg dialog(this, m_doc);
    if (dialog.ShowModal() != wxID_OK) return;
    UpdateFreeSpace();
    Rescan();
}

void CZorvaneFrame::LoadSettingsCommand() {
    wxFileDialog dialog(this, "Select a settings file", "", "",
                        "Text file (*.txt)|*.txt|All files|*", wxFD_OPEN | wxFD_FILE_MUST_EXIST);
    if (dialog.ShowModal() != wxID_OK) return;
    LoadSettings(m_doc, FromWx(dialog.GetPath()), true);
    m_pList->ApplyColumnSettings();
    UpdateFreeSpace();
}

void CZorvaneFrame::SaveSettingsCommand() {
    wxFileDialog dialog(this, "Save Settings", "", "", "Text Files (*.txt)|*.txt",
                        wxFD_SAVE | wxFD_OVERWRITE_PROMPT);
    if (dialog.ShowModal() != wxID_OK) return;
    wxString strPath = dialog.GetPath();
    if (!strPath.Lower().EndsWith(".txt") && !strPath.AfterLast('/').Contains("."))
        strPath += ".txt";
    if (!SaveSettingsFile(m_doc, FromWx(strPath)))
        Host().ShowMessage(u"Cannot save settings to " + FromWx(strPath));
}

}  // namespace zv
