#include "ui/MainFrame.h"

#include <wx/artprov.h>
#include <wx/fontenum.h>
#include <wx/log.h>
#include <wx/menu.h>
#include <wx/panel.h>
#include <wx/settings.h>
#include <wx/sizer.h>
#include <wx/statusbr.h>
#include <wx/textctrl.h>
#include <wx/toolbar.h>

#include <algorithm>
#include <map>

#include "core/document/SizeText.h"
#include "platform/Text.h"
#include "ui/AboutDlg.h"
#include "ui/Art.h"
#include "ui/WxText.h"
#include "ui/ZorvaneFrame.h"
#include "ui/logic/CommandTable.h"
#include "ui/logic/ToolbarCommands.h"

namespace zv {

namespace {

constexpr int kFirstMenuId = MenuId(32700);
constexpr int kLastMenuId = MenuId(CmdLastOwn);

// 13 points, normal weight, "Arial Unicode MS" where the system has it,
// else the controls' own font (Wine has no face for the stock system font,
// and the toolkit asserts on it).
wxFont FieldFont() {
    if (!wxFontEnumerator::IsValidFacename("Arial Unicode MS"))
        return wxSystemSettings::GetFont(wxSYS_DEFAULT_GUI_FONT);
    return wxFont(wxFontInfo(13).FaceName("Arial Unicode MS"));
}

void AddToolButton(wxToolBar& bar, int nCommand) {
    const wxSize size(16, 16);
    auto art = [&](const wxArtID& id) { return wxArtProvider::GetBitmap(id, wxART_TOOLBAR, size); };
    const int nId = MenuId(nCommand);
    switch (nCommand) {
        case CmdSelectRoots:
            bar.AddTool(nId, "Select", art(wxART_FOLDER_OPEN), "Select starting directory");
            break;
        case CmdSave:
            bar.AddTool(nId, "Save", art(wxART_FILE_SAVE), "Save");
            break;
        case CmdRescan:
            bar.AddTool(nId, "Rescan", art(wxART_REDO), "Rescan starting directory");
            break;
        case CmdDisplayParent:
            bar.AddTool(nId, "Parent", art(wxART_GO_DIR_UP), "Display parent directory");
            break;
        case CmdOpenAllFolders:
            bar.AddTool(nId, "Open all", art(wxART_PLUS), "Open all directory folders");
            break;
        case CmdCloseAllFolders:
            bar.AddTool(nId, "Close all", art(wxART_MINUS), "Close all directory folders");
            break;
        case CmdFind:
            bar.AddTool(nId, "Find", art(wxART_FIND), "Find");
            break;
        case CmdPrint:
            bar.AddTool(nId, "Print", art(wxART_PRINT), "Print");
            break;
        case CmdDeleteRecycle:
            bar.AddTool(nId, "Delete", art(wxART_DELETE), "Delete (to recycle bin)");
            break;
        case CmdComputeCrc:
            bar.AddTool(nId, "CRC", LabelButton("C", wxColour(40, 120, 60)), "Compute CRC");
            break;
        case CmdViewOwner:
            bar.AddTool(nId, "Owner", LabelButton("O", wxColour(60, 80, 160)), "View Owner");
            break;
        case CmdViewVersion:
            bar.AddTool(nId, "Version", LabelButton("V", wxColour(130, 70, 150)), "View Version");
            break;
        case CmdStop:
            bar.AddTool(nId, "Stop", StopButton(), "Stop");
            break;
        default: {
            const CCommandEntry* pEntry = FindCommand(nCommand);
            const wxString strText = pEntry ? ToWx(pEntry->m_pszText) : wxString();
            bar.AddTool(nId, strText, LabelButton(strText.Left(1), wxColour(90, 90, 90)), strText);
        }
    }
}

}  // namespace

CMainFrame::CMainFrame(wxDocManager* pManager)
    : wxDocMDIParentFrame(pManager, nullptr, wxID_ANY, "Zorvane", wxDefaultPosition,
                          wxSize(1100, 700), wxDEFAULT_FRAME_STYLE | wxFRAME_NO_WINDOW_MENU) {
    Bind(wxEVT_MENU, &CMainFrame::OnCommand, this, kFirstMenuId, kLastMenuId);
    Bind(wxEVT_UPDATE_UI, &CMainFrame::OnUpdateCommand, this, kFirstMenuId, kLastMenuId);
}

bool CMainFrame::CreateBars() {
    BuildMenus();
    if (!CreateToolBar(wxTB_HORIZONTAL | wxTB_FLAT)) {
        wxLogError("Failed to create toolbar");
        return false;
    }
    SetToolbar(MainViewToolbarCommands());
    if (!BuildDirectoryBar()) return false;
    CreateStatusBar(PaneCount);
    const int aWidths[PaneCount] = {-1, 230, 170, 170, 200};
    GetStatusBar()->SetStatusWidths(PaneCount, aWidths);
    return true;
}

void CMainFrame::SetToolbar(std::span<const int> anCommands) {
    wxToolBar* pBar = GetToolBar();
    if (!pBar || std::ranges::equal(anCommands, m_anToolbar)) return;
    m_anToolbar.assign(anCommands.begin(), anCommands.end());
    pBar->ClearTools();
    for (int nCommand : anCommands) AddToolButton(*pBar, nCommand);
    pBar->Realize();
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

bool CMainFrame::BuildDirectoryBar() {
    // A row under the standard toolbar; the frame's sizer gives the rest of
    // the window to the documents' frames.
    m_pDirectoryBar = new wxPanel;
    if (!m_pDirectoryBar->Create(this, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxTAB_TRAVERSAL,
                                 "Current directory")) {
        wxLogError("Failed to create toolbar");
        return false;
    }
    const long nStyle = wxTE_READONLY;
    m_pFileCountLabel = new wxTextCtrl;
    if (!m_pFileCountLabel->Create(m_pDirectoryBar, wxID_ANY, "# Files:", wxDefaultPosition,
                                   wxSize(80, -1), nStyle | wxBORDER_NONE)) {
        wxLogError("Failed to create directory toolbar file count static\n");
        return false;
    }
    m_pFileCount = new wxTextCtrl;
    if (!m_pFileCount->Create(m_pDirectoryBar, wxID_ANY, "", wxDefaultPosition, wxSize(80, -1),
                              nStyle | wxTE_RIGHT)) {
        wxLogError("Failed to create directory toolbar file count edit\n");
        return false;
    }
    m_pStatusField = new wxTextCtrl;
    if (!m_pStatusField->Create(m_pDirectoryBar, wxID_ANY, "", wxDefaultPosition, wxSize(2000, -1),
                                nStyle)) {
        wxLogError("Failed to create directory toolbar static\n");
        return false;
    }
    // The status field takes what the bar has left; its text scrolls.
    m_pStatusField->SetMinSize(wxSize(200, -1));
    auto* pRow = new wxBoxSizer(wxHORIZONTAL);
    pRow->Add(m_pFileCountLabel, 0, wxALIGN_CENTER_VERTICAL | wxLEFT, 4);
    pRow->Add(m_pFileCount, 0, wxALIGN_CENTER_VERTICAL | wxALL, 2);
    pRow->Add(m_pStatusField, 1, wxALIGN_CENTER_VERTICAL | wxALL, 2);
    m_pDirectoryBar->SetSizer(pRow);
    SetFieldFont(FieldFont());

    auto* pColumn = new wxBoxSizer(wxVERTICAL);
    pColumn->Add(m_pDirectoryBar, 0, wxEXPAND);
    pColumn->Add(GetClientWindow(), 1, wxEXPAND);
    SetSizer(pColumn);
    return true;
}

void CMainFrame::SetFieldFont(const wxFont& font) {
    for (wxTextCtrl* pField : {m_pFileCountLabel, m_pFileCount, m_pStatusField}) {
        pField->SetFont(font);
        // The fields' heights follow the font.
        pField->SetInitialSize(wxSize(pField->GetSize().x, -1));
    }
    m_pStatusField->SetMinSize(wxSize(200, -1));
    m_pDirectoryBar->Layout();
    Layout();
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
    m_pDirectoryBar->Layout();
}

void CMainFrame::SetPane(EStatusPane ePane, std::u16string_view strText) {
    if (GetStatusBar()) GetStatusBar()->SetStatusText(ToWx(strText), ePane);
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
