#include "ui/DupFilterDlg.h"

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/dirdlg.h>
#include <wx/filedlg.h>
#include <wx/listbox.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>
#include <wx/utils.h>

#include "core/document/Document.h"
#include "core/host/Host.h"
#include "core/state/RememberedLists.h"
#include "filters/FilterChecks.h"
#include "ui/DuplicateOptionsDlg.h"
#include "ui/FilterListDlg.h"
#include "ui/WxText.h"
#include "ui/logic/DupFilterEdit.h"
#include "ui/logic/FilterListEdit.h"

namespace zv {

CDupFilterDlg::CDupFilterDlg(wxWindow* pParent, CWZorvaneDoc& doc, EFilterList eList)
    : wxDialog(pParent, wxID_ANY, ToWx(FilterListNames(eList).m_pszDialogTitle), wxDefaultPosition,
               wxDefaultSize, wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER),
      m_doc(doc),
      m_eList(eList) {
    auto* pSizer = new wxBoxSizer(wxVERTICAL);
    const char* const pszHeading =
        ForDirectories() ? "Only those files that are identical to the files\n"
                           "contained in these directories will be scanned"
                         : "Only those files that are identical\nto these files will be scanned";
    pSizer->Add(new wxStaticText(this, wxID_ANY, pszHeading), 0, wxALL, 8);
    m_pEntries = new wxListBox(this, wxID_ANY, wxDefaultPosition, wxSize(480, 200), 0, nullptr,
                               wxLB_EXTENDED, wxDefaultValidator, "dupFilterEntries");
    pSizer->Add(m_pEntries, 1, wxEXPAND | wxLEFT | wxRIGHT, 8);

    auto* pRow = new wxBoxSizer(wxHORIZONTAL);
    m_pEdit = new wxTextCtrl(this, wxID_ANY, "", wxDefaultPosition, wxDefaultSize,
                             wxTE_PROCESS_ENTER, wxDefaultValidator, "dupFilterText");
    pRow->Add(m_pEdit, 1, wxEXPAND | wxRIGHT, 6);
    pRow->Add(new wxButton(this, IdBrowse, "Browse"), 0, wxRIGHT, 6);
    pRow->Add(new wxButton(this, IdAdd, "Add"), 0, wxRIGHT, 6);
    pRow->Add(new wxButton(this, IdRemove, "Remove"));
    pSizer->Add(pRow, 0, wxEXPAND | wxALL, 8);
    if (ForDirectories()) {
        m_pWithSubdirs = new wxCheckBox(this, wxID_ANY, "Include subdirectories", wxDefaultPosition,
                                        wxDefaultSize, 0, wxDefaultValidator, "dupFilterSubdirs");
        pSizer->Add(m_pWithSubdirs, 0, wxLEFT | wxRIGHT | wxBOTTOM, 8);
    }
    pSizer->Add(new wxButton(this, IdOptions, "Duplicate File Options..."), 0, wxLEFT | wxRIGHT, 8);
    pSizer->Add(CreateStdDialogButtonSizer(wxOK | wxCANCEL), 0, wxEXPAND | wxALL, 8);
    SetSizerAndFit(pSizer);
    CentreOnParent();

    Bind(wxEVT_BUTTON, &CDupFilterDlg::OnBrowse, this, IdBrowse);
    Bind(wxEVT_BUTTON, &CDupFilterDlg::OnAdd, this, IdAdd);
    Bind(wxEVT_TEXT_ENTER, &CDupFilterDlg::OnAdd, this);
    Bind(wxEVT_BUTTON, &CDupFilterDlg::OnRemove, this, IdRemove);
    Bind(wxEVT_BUTTON, &CDupFilterDlg::OnOptions, this, IdOptions);
    Bind(wxEVT_BUTTON, &CDupFilterDlg::OnOk, this, wxID_OK);
    Bind(wxEVT_BUTTON, &CDupFilterDlg::OnCancel, this, wxID_CANCEL);
    Fill();
}

void CDupFilterDlg::Fill() { FillFilterEntries(*m_pEntries, m_doc.m_filters, m_eList); }

void CDupFilterDlg::Add(const wxString& strText) {
    // Reading a file's checksum or a directory tree takes a moment.
    wxBusyCursor wait;
    const std::u16string strEntry = FromWx(strText);
    const bool bAdded = ForDirectories()
                            ? AddDupDirsEntry(m_doc.m_filters, strEntry, m_pWithSubdirs->GetValue())
                            : AddDupFilesEntry(m_doc.m_filters, strEntry);
    if (bAdded) Fill();
}

void CDupFilterDlg::OnAdd(wxCommandEvent&) {
    if (m_pEdit->GetValue().Strip(wxString::both).empty()) return;
    Add(m_pEdit->GetValue());
    m_pEdit->Clear();
}

void CDupFilterDlg::OnBrowse(wxCommandEvent&) {
    if (ForDirectories()) {
        wxDirDialog dialog(this, "Select a directory", "",
                           wxDD_DEFAULT_STYLE | wxDD_DIR_MUST_EXIST);
        if (dialog.ShowModal() == wxID_OK) Add(dialog.GetPath());
        return;
    }
    wxFileDialog dialog(this, "Select files", "", "", "All files|*",
                        wxFD_OPEN | wxFD_FILE_MUST_EXIST | wxFD_MULTIPLE);
    if (dialog.ShowModal() != wxID_OK) return;
    wxArrayString aPaths;
    dialog.GetPaths(aPaths);
    for (const wxString& strPath : aPaths) Add(strPath);
}

void CDupFilterDlg::OnRemove(wxCommandEvent&) {
    MarkSelectedFilterEntriesRemoved(*m_pEntries, m_doc.m_filters, m_eList);
    Fill();
}

void CDupFilterDlg::OnOptions(wxCommandEvent&) {
    CDuplicateOptionsDlg dialog(this, m_doc.m_options, true);
    dialog.ShowModal();
}

void CDupFilterDlg::OnOk(wxCommandEvent&) {
    CommitDupFilterEdit(m_doc.m_filters, m_eList);
    SaveRememberedLists(m_doc);
    EndModal(wxID_OK);
    if (ForDirectories() && !m_doc.m_filters.List(m_eList).empty()) {
        const std::u16string strMessage = CheckDuplicateCriterion(m_doc.m_options.m_dupFiles.Any());
        if (!strMessage.empty()) Host().ShowMessage(strMessage);
    }
}

void CDupFilterDlg::OnCancel(wxCommandEvent&) {
    CancelDupFilterEdit(m_doc.m_filters, m_eList);
    EndModal(wxID_CANCEL);
}

}  // namespace zv
