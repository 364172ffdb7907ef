#include "ui/MainFrame.h"

#include <wx/artprov.h>
#include <wx/menu.h>
#include <wx/statusbr.h>
#include <wx/textctrl.h>
#include <wx/toolbar.h>

#include <map>

#include "core/document/SizeText.h"
#include "platform/Text.h"
#include "ui/AboutDlg.h"
#include "ui/Art.h"
#include "ui/WxText.h"
#include "ui/ZorvaneFrame.h"
#include "ui/logic/CommandTable.h"

namespace zv {

namespace {

constexpr int kFirstMenuId = MenuId(32700);
constexpr int kLastMenuId = MenuId(CmdLastOwn);

}  // namespace

CMainFrame::CMainFrame()
    : wxMDIParentFrame(nullptr, wxID_ANY, "Zorvane", wxDefaultPosition, wxSize(1100, 700),
                       wxDEFAULT_FRAME_STYLE | wxFRAME_NO_WINDOW_MENU) {
    BuildMenus();
    BuildToolbar();
    CreateStatusBar(PaneCount);
    const int aWidths[PaneCount] = {-1, 230, 170, 170, 200};
    GetStatusBar()->SetStatusWidths(PaneCount, aWidths);
    Bind(wxEVT_MENU, &CMainFrame::OnCommand, this, kFirstMenuId, kLastMenuId);
    Bind(wxEVT_UPDATE_UI, &CMainFrame::OnUpdateCommand, this, kFirstMenuId, kLastMenuId);
}

void CMainFrame::BuildMenus() {
    auto* pBar = new wxMenuBar;
    std::map<std::u16string, wxMenu*> submenus;
    wxMenu* pMenu = nullptr;
    std::u16string strMenu;
    for (const CCommandEntry& entry : MainMenuCommands()) {
        if (!pMenu || strMenu != entry.m_pszMenu) {
            pMenu = new wxMenu;
            strMenu = entry.m_pszMenu;
            pBar->Append(pMenu, ToWx(strMenu));
        }
        wxMenu* pTarget = pMenu;
        if (entry.m_pszSubmenu) {
            wxMenu*& pSub = submenus[entry.m_pszSubmenu];
            if (!pSub) {
                pSub = new wxMenu;
                pMenu->AppendSubMenu(pSub, ToWx(entry.m_pszSubmenu));
            }
            pTarget = pSub;
        }
        if (entry.m_nId == 0)
            pTarget->AppendSeparator();
        else
            pTarget->Append(MenuId(entry.m_nId), ToWx(entry.m_pszText), wxString(),
                            entry.m_eCheck == CheckNone ? wxITEM_NORMAL : wxITEM_CHECK);
    }
    SetMenuBar(pBar);
}

void CMainFrame::BuildToolbar() {
    wxToolBar* pBar = CreateToolBar(wxTB_HORIZONTAL | wxTB_FLAT);
    const wxSize size(16, 16);
    auto art = [&](const wxArtID& id) { return wxArtProvider::GetBitmap(id, wxART_TOOLBAR, size); };
    // The tree view's list, in its order.
    pBar->AddTool(MenuId(CmdSelectRoots), "Select", art(wxART_FOLDER_OPEN),
                  "Select starting directory");
    pBar->AddTool(MenuId(CmdSave), "Save", art(wxART_FILE_SAVE), "Save");
    pBar->AddTool(MenuId(CmdRescan), "Rescan", art(wxART_REDO), "Rescan starting directory");
    pBar->AddTool(MenuId(CmdDisplayParent), "Parent", art(wxART_GO_DIR_UP),
                  "Display parent directory");
    pBar->AddTool(MenuId(CmdOpenAllFolders), "Open all", art(wxART_PLUS),
                  "Open all directory folders");
    pBar->AddTool(MenuId(CmdCloseAllFolders), "Close all", art(wxART_MINUS),
                  "Close all directory folders");
    pBar->AddTool(MenuId(CmdFind), "Find", art(wxART_FIND), "Find");
    pBar->AddTool(MenuId(CmdPrint), "Print", art(wxART_PRINT), "Print");
    pBar->AddTool(MenuId(CmdDeleteRecycle), "Delete", art(wxART_DELETE), "Delete (to recycle bin)");
    pBar->AddTool(MenuId(CmdComputeCrc), "CRC", LabelButton("C", wxColour(40, 120, 60)),
                  "Compute CRC");
    pBar->AddTool(MenuId(CmdViewOwner), "Owner", LabelButton("O", wxColour(60, 80, 160)),
                  "View Owner");
    pBar->AddTool(MenuId(CmdViewVersion), "Version", LabelButton("V", wxColour(130, 70, 150)),
                  "View Version");
    pBar->AddTool(MenuId(CmdStop), "Stop", StopButton(), "Stop");
    pBar->AddSeparator();
    // The directory toolbar's three fields ("Current directory").
    const long nStyle = wxTE_READONLY;
    m_pFileCountLabel = new wxTextCtrl(pBar, wxID_ANY, "# Files:", wxDefaultPosition,
                                       wxSize(80, -1), nStyle | wxBORDER_NONE);
    m_pFileCount =
        new wxTextCtrl(pBar, wxID_ANY, "", wxDefaultPosition, wxSize(80, -1), nStyle | wxTE_RIGHT);
    m_pStatusField = new wxTextCtrl(pBar, wxID_ANY, "", wxDefaultPosition, wxSize(520, -1), nStyle);
    pBar->AddControl(m_pFileCountLabel);
    pBar->AddControl(m_pFileCount);
    pBar->AddControl(m_pStatusField);
    pBar->Realize();
}

void CMainFrame::SetStatusField(std::u16string_view strText) {
    m_pStatusField->ChangeValue(ToWx(strText));
    m_pStatusField->SetInsertionPointEnd();
}

void CMainFrame::SetFileCount(size_t nFiles) {
    m_pFileCount->ChangeValue(ToWx(FormatNumber(static_cast<double>(nFiles))));
}

void CMainFrame::ShowFileCount(bool bShow) {
    m_pFileCountLabel->Show(bShow);
    m_pFileCount->Show(bShow);
}

void CMainFrame::SetPane(EStatusPane ePane, std::u16string_view strText) {
    if (GetStatusBar()) GetStatusBar()->SetStatusText(ToWx(strText), ePane);
}

CZorvaneFrame* CMainFrame::ShowMainDocument(CWZorvaneDoc& doc, IScanSteps& programSteps) {
    if (m_pMain) {
        m_pMain->Activate();
        return m_pMain;
    }
    m_pMain = new CZorvaneFrame(this, doc, programSteps);
    m_pMain->Show();
    m_pMain->Maximize();
    m_pMain->OnInitialUpdate();
    return m_pMain;
}

void CMainFrame::OnCommand(wxCommandEvent& event) {
    switch (CommandOfMenuId(event.GetId())) {
        case CmdExit:
            Close();
            return;
        case CmdCascade:
            Cascade();
            return;
        case CmdTileHorizontal:
            Tile(wxHORIZONTAL);
            return;
        case CmdTileVertical:
            Tile(wxVERTICAL);
            return;
        case CmdStatusBar:
            GetStatusBar()->Show(!GetStatusBar()->IsShown());
            SendSizeEvent();
            return;
        case CmdAbout: {
            CAboutDlg dialog(this, false);
            dialog.ShowModal();
            return;
        }
        default:
            if (m_pMain) m_pMain->OnCommand(CommandOfMenuId(event.GetId()));
    }
}

void CMainFrame::OnUpdateCommand(wxUpdateUIEvent& event) {
    const CCommandEntry* pEntry = FindCommand(CommandOfMenuId(event.GetId()));
    if (!pEntry) return;
    CCommandState state;
    if (m_pMain) state = m_pMain->CommandState();
    state.m_bStatusBarShown = GetStatusBar() && GetStatusBar()->IsShown();
    event.Enable(IsCommandEnabled(*pEntry, state));
    if (pEntry->m_eCheck != CheckNone && m_pMain)
        event.Check(IsCommandChecked(*pEntry, m_pMain->Document(), state));
}

}  // namespace zv
