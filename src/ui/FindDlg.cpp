#include "ui/FindDlg.h"

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/radiobut.h>
#include <wx/sizer.h>
#include <wx/textctrl.h>

#include "core/host/Host.h"
#include "ui/WxText.h"

namespace zv {

CFindDlg::CFindDlg(wxWindow* pParent, const CFindRequest& last, Search search)
    : wxDialog(pParent, wxID_ANY, "Find"), m_search(std::move(search)), m_request(last) {
    m_pDirRadio = new wxRadioButton(this, wxID_ANY, "Find a directory", wxDefaultPosition,
                                    wxDefaultSize, wxRB_GROUP);
    m_pDirText = new wxTextCtrl(this, wxID_ANY, "", wxDefaultPosition, wxSize(320, -1));
    m_pFileRadio = new wxRadioButton(this, wxID_ANY, "Find a file");
    m_pFileText = new wxTextCtrl(this, wxID_ANY, "", wxDefaultPosition, wxSize(320, -1), 0,
                                 wxDefaultValidator, "findFileText");
    m_pCaseSensitive = new wxCheckBox(this, wxID_ANY, "Case sensitive");
    (last.m_eWhat == FindAFile ? m_pFileText : m_pDirText)->ChangeValue(ToWx(last.m_strText));
    (last.m_eWhat == FindAFile ? m_pFileRadio : m_pDirRadio)->SetValue(true);
    m_pCaseSensitive->SetValue(last.m_bCaseSensitive);

    auto* pFields = new wxFlexGridSizer(2, 6, 8);
    pFields->AddGrowableCol(1);
    pFields->Add(m_pDirRadio, 0, wxALIGN_CENTER_VERTICAL);
    pFields->Add(m_pDirText, 1, wxEXPAND);
    pFields->Add(m_pFileRadio, 0, wxALIGN_CENTER_VERTICAL);
    pFields->Add(m_pFileText, 1, wxEXPAND);

    auto* pButtons = new wxBoxSizer(wxVERTICAL);
    const struct {
        int m_nId;
        const char* m_pszLabel;
        EFindFrom m_eFrom;
    } aButtons[] = {{IdFindNext, "Find Next", FindNext},
                    {IdFromBeginning, "Find from beginning", FindFromBeginning},
                    {IdFindPrev, "Find Prev", FindPrev},
                    {IdFromEnd, "Find from end", FindFromEnd}};
    for (const auto& button : aButtons) {
        auto* pButton = new wxButton(this, button.m_nId, button.m_pszLabel);
        const EFindFrom eFrom = button.m_eFrom;
        pButton->Bind(wxEVT_BUTTON, [this, eFrom](wxCommandEvent&) { OnFind(eFrom); });
        pButtons->Add(pButton, 0, wxEXPAND | wxBOTTOM, 4);
    }
    pButtons->Add(new wxButton(this, wxID_CANCEL, "Cancel"), 0, wxEXPAND);

    auto* pLeft = new wxBoxSizer(wxVERTICAL);
    pLeft->Add(pFields, 0, wxEXPAND);
    pLeft->Add(m_pCaseSensitive, 0, wxTOP, 8);
    auto* pSizer = new wxBoxSizer(wxHORIZONTAL);
    pSizer->Add(pLeft, 1, wxEXPAND | wxALL, 10);
    pSizer->Add(pButtons, 0, wxALL, 10);
    SetSizerAndFit(pSizer);

    // The chosen kind's edit box is the one that takes text.
    m_pDirRadio->Bind(wxEVT_RADIOBUTTON, [this](wxCommandEvent&) { UpdateFields(); });
    m_pFileRadio->Bind(wxEVT_RADIOBUTTON, [this](wxCommandEvent&) { UpdateFields(); });
    UpdateFields();
}

void CFindDlg::UpdateFields() {
    m_pDirText->Enable(m_pDirRadio->GetValue());
    m_pFileText->Enable(m_pFileRadio->GetValue());
    (m_pFileRadio->GetValue() ? m_pFileText : m_pDirText)->SetFocus();
}

void CFindDlg::OnFind(EFindFrom eFrom) {
    m_request.m_eWhat = m_pFileRadio->GetValue() ? FindAFile : FindADirectory;
    m_request.m_strText =
        FromWx((m_request.m_eWhat == FindAFile ? m_pFileText : m_pDirText)->GetValue());
    m_request.m_bCaseSensitive = m_pCaseSensitive->GetValue();
    const std::u16string_view strProblem = FindRequestProblem(m_request);
    if (!strProblem.empty()) {
        Host().ShowMessage(strProblem);
        return;
    }
    if (m_search(m_request, eFrom))
        EndModal(wxID_OK);
    else
        Host().ShowMessage(u"Not found");
}

}  // namespace zv
