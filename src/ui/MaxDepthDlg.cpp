#include "ui/MaxDepthDlg.h"

#include <wx/checkbox.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include "core/host/Host.h"
#include "ui/WxText.h"
#include "ui/logic/MaxDepthEdit.h"

namespace zv {

CMaxDepthDlg::CMaxDepthDlg(wxWindow* pParent, int32_t nDepth)
    : wxDialog(pParent, wxID_ANY, "Set maximum directory depth"), m_nDepth(nDepth) {
    auto* pSizer = new wxBoxSizer(wxVERTICAL);
    pSizer->Add(new wxStaticText(this, wxID_ANY, "Maximum directory depth:"), 0,
                wxLEFT | wxRIGHT | wxTOP, 10);
    m_pDepth = new wxTextCtrl(this, wxID_ANY, ToWx(MaxDepthText(nDepth)), wxDefaultPosition,
                              wxSize(260, -1));
    pSizer->Add(m_pDepth, 0, wxEXPAND | wxALL, 10);
    m_pNoLimit = new wxCheckBox(this, wxID_ANY, "Set no limit");
    m_pNoLimit->SetValue(nDepth == -1);
    pSizer->Add(m_pNoLimit, 0, wxLEFT | wxRIGHT, 10);
    pSizer->Add(CreateStdDialogButtonSizer(wxOK | wxCANCEL), 0, wxEXPAND | wxALL, 10);
    SetSizerAndFit(pSizer);
    m_pNoLimit->Bind(wxEVT_CHECKBOX, &CMaxDepthDlg::OnNoLimit, this);
    Bind(wxEVT_BUTTON, &CMaxDepthDlg::OnOk, this, wxID_OK);
}

void CMaxDepthDlg::OnNoLimit(wxCommandEvent&) {
    m_pDepth->ChangeValue(ToWx(MaxDepthText(m_pNoLimit->GetValue() ? -1 : 0)));
}

void CMaxDepthDlg::OnOk(wxCommandEvent&) {
    const std::u16string strRefusal =
        ParseMaxDepth(FromWx(m_pDepth->GetValue()), m_pNoLimit->GetValue(), m_nDepth);
    if (!strRefusal.empty()) {
        Host().ShowMessage(strRefusal);
        return;
    }
    EndModal(wxID_OK);
}

}  // namespace zv
