#include "ui/SelectRootsDlg.h"

#include <wx/button.h>
#include <wx/dirdlg.h>
#include <wx/listbox.h>
#include <wx/menu.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include "core/records/DirectoryData.h"
#include "ui/WxText.h"

namespace zv {

namespace {

enum { IdBrowse = wxID_HIGHEST + 1, IdAddTyped, IdDeleteSelected, IdDeleteAll };

}  // namespace

CSelectRootsDlg::CSelectRootsDlg(wxWindow* pParent, CWZorvaneDoc& doc)
    : wxDialog(pParent, wxID_ANY, "Selected Root Directories", wxDefaultPosition, wxSize(820, 420),
               wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER),
      m_selection(doc) {
    auto* pColumns = new wxBoxSizer(wxHORIZONTAL);
    auto* pLeft = new wxBoxSizer(wxVERTICAL);
    pLeft->Add(new wxStaticText(this, wxID_ANY, "You can select many starting root directories"), 0,
               wxALL, 4);
    m_pRoots = new wxListBox(this, wxID_ANY, wxDefaultPosition, wxSize(300, 280), 0, nullptr,
                             wxLB_EXTENDED | wxLB_HSCROLL);
    pLeft->Add(m_pRoots, 1, wxEXPAND | wxALL, 4);
    pColumns->Add(pLeft, 1, wxEXPAND);

    auto* pMiddle = new wxBoxSizer(wxVERTICAL);
    m_pEdit = new wxTextCtrl(this, wxID_ANY, "", wxDefaultPosition, wxSize(220, -1));
    pMiddle->Add(m_pEdit, 0, wxEXPAND | wxALL, 4);
    pMiddle->Add(new wxButton(this, IdBrowse, "Browse"), 0, wxEXPAND | wxALL, 4);
    pMiddle->Add(new wxButton(this, IdAddTyped, "Add new root directory"), 0, wxEXPAND | wxALL, 4);
    pMiddle->Add(new wxButton(this, IdDeleteSelected, "Delete selected root directories"), 0,
                 wxEXPAND | wxALL, 4);
    pMiddle->Add(new wxButton(this, IdDeleteAll, "Delete all root directories"), 0,
                 wxEXPAND | wxALL, 4);
    pMiddle->AddStretchSpacer();
    pMiddle->Add(new wxButton(this, wxID_OK, "OK"), 0, wxEXPAND | wxALL, 4);
    pMiddle->Add(new wxButton(this, wxID_CANCEL, "Cancel"), 0, wxEXPAND | wxALL, 4);
    pColumns->Add(pMiddle, 0, wxEXPAND);

    auto* pRight = new wxBoxSizer(wxVERTICAL);
    pRight->Add(new wxStaticText(this, wxID_ANY,
                                 "Previous choices: Double click to select\n"
                                 "Right click for more options"),
                0, wxALL, 4);
    m_pPrevious = new wxListBox(this, wxID_ANY, wxDefaultPosition, wxSize(260, 280), 0, nullptr,
                                wxLB_EXTENDED | wxLB_HSCROLL);
    pRight->Add(m_pPrevious, 1, wxEXPAND | wxALL, 4);
    pColumns->Add(pRight, 1, wxEXPAND);
    SetSizer(pColumns);

    Bind(wxEVT_BUTTON, &CSelectRootsDlg::OnBrowse, this, IdBrowse);
    Bind(
        wxEVT_BUTTON, [this](wxCommandEvent&) { AddTyped(); }, IdAddTyped);
    Bind(wxEVT_BUTTON, &CSelectRootsDlg::OnDeleteSelected, this, IdDeleteSelected);
    Bind(wxEVT_BUTTON, &CSelectRootsDlg::OnDeleteAll, this, IdDeleteAll);
    Bind(wxEVT_BUTTON, &CSelectRootsDlg::OnOk, this, wxID_OK);
    Bind(wxEVT_BUTTON, &CSelectRootsDlg::OnCancel, this, wxID_CANCEL);
    m_pPrevious->Bind(wxEVT_LISTBOX_DCLICK, &CSelectRootsDlg::OnPreviousDoubleClick, this);
    m_pPrevious->Bind(wxEVT_CONTEXT_MENU, &CSelectRootsDlg::OnPreviousMenu, this);
    m_pRoots->Bind(wxEVT_CONTEXT_MENU, &CSelectRootsDlg::OnRootsMenu, this);
    FillLists();
}

void CSelectRootsDlg::FillLists() {
    m_pRoots->Clear();
    for (CRootDirectoryData* pRoot : m_selection.ShownRoots())
        m_pRoots->Append(ToWx(pRoot->GetFullPath()));
    m_pPrevious->Clear();
    for (const std::u16string& strPrevious : m_selection.PreviousChoices())
        m_pPrevious->Append(ToWx(strPrevious));
}

std::vector<size_t> CSelectRootsDlg::Selected(wxListBox* pList) const {
    wxArrayInt aSelections;
    pList->GetSelections(aSelections);
    std::vector<size_t> aIndexes;
    for (int n : aSelections) aIndexes.push_back(static_cast<size_t>(n));
    return aIndexes;
}

void CSelectRootsDlg::OnBrowse(wxCommandEvent&) {
    wxDirDialog dialog(this, "Select a starting directory", "",
                       wxDD_DEFAULT_STYLE | wxDD_DIR_MUST_EXIST);
    if (dialog.ShowModal() != wxID_OK) return;
    if (m_selection.AddBrowsed(FromWx(dialog.GetPath()))) FillLists();
}

void CSelectRootsDlg::AddTyped() {
    if (m_selection.AddTyped(FromWx(m_pEdit->GetValue()))) FillLists();
}

void CSelectRootsDlg::OnDeleteSelected(wxCommandEvent&) {
    m_selection.DeleteRoots(Selected(m_pRoots));
    FillLists();
}

void CSelectRootsDlg::OnDeleteAll(wxCommandEvent&) {
    m_selection.DeleteAllRoots();
    FillLists();
}

void CSelectRootsDlg::OnPreviousDoubleClick(wxCommandEvent&) {
    m_selection.AddPrevious(Selected(m_pPrevious));
    FillLists();
}

void CSelectRootsDlg::OnPreviousMenu(wxContextMenuEvent&) {
    enum { IdAdd = 1, IdAddAll, IdRemove, IdRemoveAll };
    wxMenu menu;
    menu.Append(IdAdd, "&Add");
    menu.Append(IdAddAll, "Add A&ll");
    menu.Append(IdRemove, "&Remove");
    menu.Append(IdRemoveAll, "Remove All");
    switch (GetPopupMenuSelectionFromUser(menu)) {
        case IdAdd:
            m_selection.AddPreviousQuietly(Selected(m_pPrevious));
            break;
        case IdAddAll:
            m_selection.AddAllPreviousQuietly();
            break;
        case IdRemove:
            m_selection.RemovePrevious(Selected(m_pPrevious));
            break;
        case IdRemoveAll:
            m_selection.RemoveAllPrevious();
            break;
        default:
            return;
    }
    FillLists();
}

void CSelectRootsDlg::OnRootsMenu(wxContextMenuEvent&) {
    enum { IdCopy = 1, IdDelete };
    wxMenu menu;
    menu.Append(IdCopy, "Copy to edit box");
    menu.Append(IdDelete, "Delete");
    const std::vector<size_t> aSelected = Selected(m_pRoots);
    switch (GetPopupMenuSelectionFromUser(menu)) {
        case IdCopy:
            if (!aSelected.empty())
                m_pEdit->SetValue(ToWx(m_selection.EditBoxTextOf(aSelected[0])));
            break;
        case IdDelete:
            m_selection.DeleteRoots(aSelected);
            FillLists();
            break;
        default:
            break;
    }
}

void CSelectRootsDlg::OnOk(wxCommandEvent&) {
    m_selection.Ok(FromWx(m_pEdit->GetValue()));
    EndModal(wxID_OK);
}

void CSelectRootsDlg::OnCancel(wxCommandEvent&) {
    m_selection.Cancel();
    EndModal(wxID_CANCEL);
}

}  // namespace zv
