#include "ui/RelativeDateDlg.h"

#include <wx/sizer.h>
#include <wx/spinctrl.h>
#include <wx/stattext.h>

#include "ui/WxText.h"
#include "ui/logic/SizeDateFilterEdit.h"

namespace zv {

CRelativeDateDlg::CRelativeDateDlg(wxWindow* pParent, std::u16string_view strTitle,
                                   const CDateFilter& date)
    : wxDialog(pParent, wxID_ANY, ToWx(strTitle)) {
    auto* pSizer = new wxBoxSizer(wxVERTICAL);
    pSizer->Add(new wxStaticText(this, wxID_ANY, "Which will be added to current date/time"), 0,
                wxALL, 10);
    auto* pGrid = new wxFlexGridSizer(2, 6, 10);
    static const char* const apszLabels[] = {"Days", "Hours", "Minutes", "Seconds"};
    const int32_t anValues[] = {date.m_nDays, date.m_nHours, date.m_nMinutes, date.m_nSeconds};
    for (int i = 0; i < 4; ++i) {
        pGrid->Add(new wxStaticText(this, wxID_ANY, apszLabels[i]), 0, wxALIGN_CENTER_VERTICAL);
        m_apFields[i] = new wxSpinCtrl(this, wxID_ANY, "", wxDefaultPosition, wxSize(120, -1),
                                       wxSP_ARROW_KEYS, -1000000, 1000000, anValues[i]);
        pGrid->Add(m_apFields[i]);
    }
    pSizer->Add(pGrid, 0, wxLEFT | wxRIGHT, 10);
    pSizer->Add(CreateStdDialogButtonSizer(wxOK | wxCANCEL), 0, wxEXPAND | wxALL, 10);
    SetSizerAndFit(pSizer);
    CentreOnParent();
}

void CRelativeDateDlg::Apply(CDateFilter& date) const {
    SetRelativeDate(date, m_apFields[0]->GetValue(), m_apFields[1]->GetValue(),
                    m_apFields[2]->GetValue(), m_apFields[3]->GetValue());
}

}  // namespace zv
