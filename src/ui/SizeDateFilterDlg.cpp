#include "ui/SizeDateFilterDlg.h"

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/sizer.h>
#include <wx/spinctrl.h>
#include <wx/statbox.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include "core/document/Document.h"
#include "core/host/Host.h"
#include "core/state/RememberedLists.h"
#include "ui/CalendarDateDlg.h"
#include "ui/RelativeDateDlg.h"
#include "ui/WxText.h"

namespace zv {

namespace {

constexpr const char* kDateLabels[DateFilterCount] = {"Created before",  "Created after",
                                                      "Accessed before", "Accessed after",
                                                      "Modified before", "Modified after"};

constexpr const char* kAttributeLabels[AttributeFilterCount] = {
    "System", "Compressed", "Encrypted", "Archive", "Read only", "Hidden", "Linked"};

}  // namespace

CSizeDateFilterDlg::CSizeDateFilterDlg(wxWindow* pParent, CWZorvaneDoc& doc)
    : wxDialog(pParent, wxID_ANY, "Size and Date Filters"),
      m_doc(doc),
      m_values(ReadSizeDateFilters(doc.m_filters)) {
    auto* pSizer = new wxBoxSizer(wxVERTICAL);

    auto* pDates = new wxStaticBoxSizer(wxVERTICAL, this, "Dates");
    auto* pDateGrid = new wxFlexGridSizer(5, 4, 8);
    for (int i = 0; i < DateFilterCount; ++i) {
        const auto eDate = static_cast<EDateFilter>(i);
        const CDateFilter& date = m_values.m_aDates[eDate];
        CDateRow& row = m_aDateRows[eDate];
        pDateGrid->Add(new wxStaticText(this, wxID_ANY, kDateLabels[i]), 0,
                       wxALIGN_CENTER_VERTICAL);
        row.m_pAbsolute = new wxCheckBox(this, wxID_ANY, "Date");
        row.m_pAbsolute->SetValue(date.m_bAbsolute != 0);
        row.m_pAbsoluteDate = new wxButton(this, wxID_ANY, "", wxDefaultPosition, wxSize(130, -1));
        row.m_pRelative = new wxCheckBox(this, wxID_ANY, "Relative");
        row.m_pRelative->SetValue(date.m_bRelative != 0);
        row.m_pRelativeDate = new wxButton(this, wxID_ANY, "", wxDefaultPosition, wxSize(150, -1));
        pDateGrid->Add(row.m_pAbsolute, 0, wxALIGN_CENTER_VERTICAL);
        pDateGrid->Add(row.m_pAbsoluteDate);
        pDateGrid->Add(row.m_pRelative, 0, wxALIGN_CENTER_VERTICAL);
        pDateGrid->Add(row.m_pRelativeDate);
        row.m_pAbsoluteDate->Bind(wxEVT_BUTTON,
                                  [this, eDate](wxCommandEvent&) { OnAbsoluteDate(eDate); });
        row.m_pRelativeDate->Bind(wxEVT_BUTTON,
                                  [this, eDate](wxCommandEvent&) { OnRelativeDate(eDate); });
    }
    pDates->Add(pDateGrid, 0, wxALL, 4);
    m_pCreatedLater = AddBox(pDates, "Created date later than accessed or modified date",
                             m_values.m_bCreatedLater);
    m_pAnyDateLow = AddBox(pDates, "Any date is close to 0", m_values.m_bAnyDateLow);
    pSizer->Add(pDates, 0, wxEXPAND | wxALL, 6);

    auto* pMiddle = new wxBoxSizer(wxHORIZONTAL);
    auto* pSizes = new wxStaticBoxSizer(wxVERTICAL, this, "Size (bytes)");
    auto* pSizeGrid = new wxFlexGridSizer(2, 4, 8);
    m_pMinSize = new wxCheckBox(this, wxID_ANY, "Minimum size");
    m_pMinSize->SetValue(m_values.m_bMinSize != 0);
    m_pMinSizeText = new wxTextCtrl(this, wxID_ANY, ToWx(m_values.m_strMinSize));
    m_pMaxSize = new wxCheckBox(this, wxID_ANY, "Maximum size");
    m_pMaxSize->SetValue(m_values.m_bMaxSize != 0);
    m_pMaxSizeText = new wxTextCtrl(this, wxID_ANY, ToWx(m_values.m_strMaxSize));
    pSizeGrid->Add(m_pMinSize, 0, wxALIGN_CENTER_VERTICAL);
    pSizeGrid->Add(m_pMinSizeText);
    pSizeGrid->Add(m_pMaxSize, 0, wxALIGN_CENTER_VERTICAL);
    pSizeGrid->Add(m_pMaxSizeText);
    pSizes->Add(pSizeGrid, 0, wxALL, 4);
    m_pHasStreams = AddBox(pSizes, "File has NTFS streams", m_values.m_bHasStreams);
    m_pHasStreams->Bind(wxEVT_CHECKBOX, &CSizeDateFilterDlg::OnHasStreams, this);
    auto* pPath = new wxBoxSizer(wxHORIZONTAL);
    pPath->Add(new wxStaticText(this, wxID_ANY, "Path length is greater than"), 0,
               wxALIGN_CENTER_VERTICAL | wxRIGHT, 6);
    m_pPathLength = new wxSpinCtrl(this, wxID_ANY, "", wxDefaultPosition, wxSize(100, -1),
                                   wxSP_ARROW_KEYS, 0, 32767, m_values.m_nPathLength);
    pPath->Add(m_pPathLength);
    pSizes->Add(pPath, 0, wxALL, 4);
    pMiddle->Add(pSizes, 1, wxEXPAND | wxRIGHT, 6);

    auto* pAttributes = new wxStaticBoxSizer(wxVERTICAL, this, "Attributes");
    auto* pAttributeGrid = new wxFlexGridSizer(3, 2, 12);
    for (int i = 0; i < AttributeFilterCount; ++i) {
        const CYesNoFilter& filter = m_values.m_aAttributes[static_cast<size_t>(i)];
        pAttributeGrid->Add(new wxStaticText(this, wxID_ANY, kAttributeLabels[i]), 0,
                            wxALIGN_CENTER_VERTICAL);
        auto& boxes = m_aAttributeBoxes[static_cast<size_t>(i)];
        boxes[0] = new wxCheckBox(this, wxID_ANY, "Yes");
        boxes[0]->SetValue(filter.m_bYes != 0);
        boxes[1] = new wxCheckBox(this, wxID_ANY, "No");
        boxes[1]->SetValue(filter.m_bNo != 0);
        for (wxCheckBox* pBox : boxes) {
            pAttributeGrid->Add(pBox);
            pBox->Bind(wxEVT_CHECKBOX, &CSizeDateFilterDlg::OnAttribute, this);
        }
    }
    pAttributes->Add(pAttributeGrid, 0, wxALL, 4);
    pMiddle->Add(pAttributes, 0, wxEXPAND);
    pSizer->Add(pMiddle, 0, wxEXPAND | wxLEFT | wxRIGHT, 6);

    pSizer->Add(CreateStdDialogButtonSizer(wxOK | wxCANCEL), 0, wxEXPAND | wxALL, 10);
    SetSizerAndFit(pSizer);
    CentreOnParent();
    ShowDateTexts();
    Bind(wxEVT_BUTTON, &CSizeDateFilterDlg::OnOk, this, wxID_OK);
}

wxCheckBox* CSizeDateFilterDlg::AddBox(wxSizer* pSizer, const wxString& strText, int32_t bValue) {
    auto* pBox = new wxCheckBox(this, wxID_ANY, strText);
    pBox->SetValue(bValue != 0);
    pSizer->Add(pBox, 0, wxALL, 4);
    return pBox;
}

void CSizeDateFilterDlg::ShowDateTexts() {
    for (int i = 0; i < DateFilterCount; ++i) {
        const CDateFilter& date = m_values.m_aDates[static_cast<size_t>(i)];
        const std::u16string strDate = AbsoluteDateText(date.m_ftAbsolute);
        m_aDateRows[static_cast<size_t>(i)].m_pAbsoluteDate->SetLabel(
            strDate.empty() ? wxString("Select...") : ToWx(strDate));
        m_aDateRows[static_cast<size_t>(i)].m_pRelativeDate->SetLabel(ToWx(RelativeDateText(date)));
    }
}

void CSizeDateFilterDlg::OnAbsoluteDate(EDateFilter eDate) {
    CDateFilter& date = m_values.m_aDates[eDate];
    CCalendarDateDlg dialog(this, AbsoluteDateTitle(eDate), date.m_ftAbsolute);
    if (dialog.ShowModal() != wxID_OK) return;
    date.m_ftAbsolute = dialog.Date();
    m_aDateRows[eDate].m_pAbsolute->SetValue(true);
    ShowDateTexts();
}

void CSizeDateFilterDlg::OnRelativeDate(EDateFilter eDate) {
    CDateFilter& date = m_values.m_aDates[eDate];
    CRelativeDateDlg dialog(this, RelativeDateTitle(eDate), date);
    if (dialog.ShowModal() != wxID_OK) return;
    dialog.Apply(date);
    ShowDateTexts();
}

void CSizeDateFilterDlg::OnAttribute(wxCommandEvent& event) {
    for (size_t i = 0; i < m_aAttributeBoxes.size(); ++i)
        for (size_t nSide = 0; nSide < 2; ++nSide)
            if (event.GetEventObject() == m_aAttributeBoxes[i][nSide]) {
                CYesNoFilter& filter = m_values.m_aAttributes[i];
                TickAttribute(filter, nSide == 0, event.IsChecked());
                m_aAttributeBoxes[i][0]->SetValue(filter.m_bYes != 0);
                m_aAttributeBoxes[i][1]->SetValue(filter.m_bNo != 0);
            }
}

void CSizeDateFilterDlg::OnHasStreams(wxCommandEvent& event) {
    if (event.IsChecked() && !m_doc.m_options.m_bCheckStreams)
        Host().ShowMessage(kStreamsOffWarning);
}

void CSizeDateFilterDlg::OnOk(wxCommandEvent&) {
    for (size_t i = 0; i < m_aDateRows.size(); ++i) {
        m_values.m_aDates[i].m_bAbsolute = m_aDateRows[i].m_pAbsolute->GetValue();
        m_values.m_aDates[i].m_bRelative = m_aDateRows[i].m_pRelative->GetValue();
    }
    m_values.m_bCreatedLater = m_pCreatedLater->GetValue();
    m_values.m_bAnyDateLow = m_pAnyDateLow->GetValue();
    m_values.m_bMinSize = m_pMinSize->GetValue();
    m_values.m_strMinSize = FromWx(m_pMinSizeText->GetValue());
    m_values.m_bMaxSize = m_pMaxSize->GetValue();
    m_values.m_strMaxSize = FromWx(m_pMaxSizeText->GetValue());
    m_values.m_bHasStreams = m_pHasStreams->GetValue();
    m_values.m_nPathLength = m_pPathLength->GetValue();
    const std::u16string strRefusal = CheckSizeDateFilters(m_values);
    if (!strRefusal.empty()) {
        Host().ShowMessage(strRefusal);
        return;
    }
    ApplySizeDateFilters(m_values, m_doc.m_filters);
    SaveRememberedLists(m_doc);
    EndModal(wxID_OK);
}

}  // namespace zv
