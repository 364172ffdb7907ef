#include "ui/FilterListDlg.h"

#include <wx/button.h>
#include <wx/listbox.h>
#include <wx/sizer.h>
#include <wx/textctrl.h>

#include "core/document/Document.h"
#include "core/host/Host.h"
#include "core/state/RememberedLists.h"
#include "filters/FilterChecks.h"
#include "ui/WxText.h"
#include "ui/logic/FilterListEdit.h"

namespace zv {

namespace {

enum { IdAdd = wxID_HIGHEST + 1, IdRemove };

}  // namespace

CFilterListDlg::CFilterListDlg(wxWindow* pParent, CWZorvaneDoc& doc, EFilterList eList)
    : wxDialog(pParent, wxID_ANY, ToWx(FilterListNames(eList).m_pszDialogTitle), wxDefaultPosition,
               wxSize(460, 380), wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER),
      m_doc(doc),
      m_eList(eList) {
    auto* pSizer = new wxBoxSizer(wxVERTICAL);
    m_pEntries = new wxListBox(this, wxID_ANY, wxDefaultPosition, wxSize(420, 220), 0, nullptr,
                               wxLB_EXTENDED);
    pSizer->Add(m_pEntries, 1, wxEXPAND | wxALL, 6);
    auto* pRow = new wxBoxSizer(wxHORIZONTAL);
    m_pEdit =
        new wxTextCtrl(this, wxID_ANY, "", wxDefaultPosition, wxDefaultSize, wxTE_PROCESS_ENTER);
    pRow->Add(m_pEdit, 1, wxEXPAND | wxRIGHT, 6);
    pRow->Add(new wxButton(this, IdAdd, "Add"), 0, wxRIGHT, 6);
    pRow->Add(new wxButton(this, IdRemove, "Remove"));
    pSizer->Add(pRow, 0, wxEXPAND | wxLEFT | wxRIGHT, 6);
    pSizer->Add(CreateStdDialogButtonSizer(wxOK | wxCANCEL), 0, wxEXPAND | wxALL, 6);
    SetSizer(pSizer);
    Bind(wxEVT_BUTTON, &CFilterListDlg::OnAdd, this, IdAdd);
    Bind(wxEVT_TEXT_ENTER, &CFilterListDlg::OnAdd, this);
    Bind(wxEVT_BUTTON, &CFilterListDlg::OnRemove, this, IdRemove);
    Bind(wxEVT_BUTTON, &CFilterListDlg::OnOk, this, wxID_OK);
    Bind(wxEVT_BUTTON, &CFilterListDlg::OnCancel, this, wxID_CANCEL);
    Fill();
}

void FillFilterEntries(wxListBox& list, const CFilterSet& filters, EFilterList eList) {
    list.Clear();
    const std::vector<CFilterEntry>& aList = filters.List(eList);
    for (size_t i : ShownFilterEntries(aList)) list.Append(ToWx(aList[i].m_strText));
}

void MarkSelectedFilterEntriesRemoved(const wxListBox& list, CFilterSet& filters,
                                      EFilterList eList) {
    wxArrayInt aSelections;
    list.GetSelections(aSelections);
    std::vector<CFilterEntry>& aList = filters.List(eList);
    const std::vector<size_t> aShown = ShownFilterEntries(aList);
    for (int n : aSelections) aList[aShown[static_cast<size_t>(n)]].m_bRemoved = 1;
}

void CFilterListDlg::Fill() { FillFilterEntries(*m_pEntries, m_doc.m_filters, m_eList); }

void CFilterListDlg::OnAdd(wxCommandEvent&) {
    const std::u16string strText = FromWx(m_pEdit->GetValue().Strip(wxString::both));
    if (strText.empty()) return;
    const std::u16string strRefusal = CheckNewFilterEntry(m_doc.m_filters.List(m_eList), strText);
    if (!strRefusal.empty()) {
        Host().ShowMessage(strRefusal);
        return;
    }
    m_doc.m_filters.AddEntry(m_eList, strText);
    m_pEdit->Clear();
    Fill();
}

void CFilterListDlg::OnRemove(wxCommandEvent&) {
    MarkSelectedFilterEntriesRemoved(*m_pEntries, m_doc.m_filters, m_eList);
    Fill();
}

void CFilterListDlg::OnOk(wxCommandEvent&) {
    CommitFilterListEdit(m_doc.m_filters.List(m_eList));
    SaveRememberedLists(m_doc);
    EndModal(wxID_OK);
}

void CFilterListDlg::OnCancel(wxCommandEvent&) {
    CancelFilterListEdit(m_doc.m_filters.List(m_eList));
    EndModal(wxID_CANCEL);
}

}  // namespace zv
