#include "ui/PrintFlagsSheet.h"

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/notebook.h>
#include <wx/panel.h>
#include <wx/sizer.h>
#include <wx/statbox.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include "core/document/Document.h"
#include "core/host/Host.h"
#include "reports/ReportColumns.h"
#include "ui/FilterListDlg.h"
#include "ui/WxText.h"

namespace zv {
namespace {

constexpr int kColumns = 3;

wxFlexGridSizer* NewBoxGrid() {
    auto* pGrid = new wxFlexGridSizer(kColumns, 4, 16);
    for (int i = 0; i < kColumns; ++i) pGrid->AddGrowableCol(i);
    return pGrid;
}

}  // namespace

CPrintFlagsSheet::CPrintFlagsSheet(wxWindow* pParent, CWZorvaneDoc& doc)
    : wxDialog(pParent, wxID_ANY, "Printing options", wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER),
      m_doc(doc),
      m_data(doc.m_print) {
    auto* pTabs = new wxNotebook(this, wxID_ANY);
    for (int nPage = 0; nPage < PrintPageCount; ++nPage) {
        const auto ePage = static_cast<EPrintPage>(nPage);
        pTabs->AddPage(BuildPage(pTabs, ePage), ToWx(PrintPageTitle(ePage)));
    }
    auto* pSizer = new wxBoxSizer(wxVERTICAL);
    pSizer->Add(pTabs, 1, wxEXPAND | wxALL, 8);
    pSizer->Add(CreateStdDialogButtonSizer(wxOK | wxCANCEL), 0, wxEXPAND | wxALL, 8);
    SetSizerAndFit(pSizer);
    ShowData();
    Bind(wxEVT_BUTTON, &CPrintFlagsSheet::OnOk, this, wxID_OK);
}

wxPanel* CPrintFlagsSheet::BuildPage(wxWindow* pParent, EPrintPage ePage) {
    auto* pPage = new wxPanel(pParent);
    auto* pSizer = new wxBoxSizer(wxVERTICAL);
    if (ePage == PageGeneral) {
        auto* pRow = new wxBoxSizer(wxHORIZONTAL);
        pRow->Add(new wxStaticText(pPage, wxID_ANY, "Header"), 0, wxALIGN_CENTER_VERTICAL);
        m_pTitle = new wxTextCtrl(pPage, wxID_ANY);
        pRow->Add(m_pTitle, 1, wxLEFT, 8);
        pSizer->Add(pRow, 0, wxEXPAND | wxALL, 8);
    }

    // Boxes go into a grid, or into one framed grid per group where the page
    // has groups.
    wxFlexGridSizer* pGrid = nullptr;
    for (const CPrintCheckBox& box : PrintPageBoxes(ePage)) {
        if (box.m_pszGroup || !pGrid) {
            pGrid = NewBoxGrid();
            if (box.m_pszGroup) {
                auto* pFrame = new wxStaticBoxSizer(wxVERTICAL, pPage, ToWx(box.m_pszGroup));
                pFrame->Add(pGrid, 0, wxEXPAND | wxALL, 4);
                pSizer->Add(pFrame, 0, wxEXPAND | wxALL, 8);
            } else {
                pSizer->Add(pGrid, 0, wxEXPAND | wxALL, 8);
            }
        }
        auto* pBox = new wxCheckBox(pPage, wxID_ANY, ToWx(box.m_pszLabel));
        m_aBoxes[ePage].push_back(pBox);
        pGrid->Add(pBox);
    }

    if (ePage == PageOffice || ePage == PageVersion) {
        const bool bOffice = ePage == PageOffice;
        pSizer->Add(new wxStaticText(
                        pPage, wxID_ANY,
                        bOffice ? "Default office properties are retrieved for doc, ppt and xls "
                                  "extensions"
                                : "You can speed up the printing of version information\n\n"
                                  "Instead of getting version information for all files\n\n"
                                  "You can apply a filter\n\n"
                                  "Example: Only get version information for *.dll, and *.exe"),
                    0, wxALL, 8);
        auto* pEdit =
            new wxButton(pPage, wxID_ANY, bOffice ? "Change extensions" : "Version Filters");
        pEdit->Bind(wxEVT_BUTTON, [this, bOffice](wxCommandEvent&) {
            CFilterListDlg dialog(this, m_doc,
                                  bOffice ? FilterOfficeExtensions : FilterVersionFiles);
            dialog.ShowModal();
        });
        pSizer->Add(pEdit, 0, wxLEFT, 8);
    }

    auto* pButtons = new wxBoxSizer(wxHORIZONTAL);
    auto* pAll = new wxButton(pPage, wxID_ANY, "All");
    auto* pNone = new wxButton(pPage, wxID_ANY, "None");
    pAll->Bind(wxEVT_BUTTON, [this, ePage](wxCommandEvent&) { SetPage(ePage, true); });
    pNone->Bind(wxEVT_BUTTON, [this, ePage](wxCommandEvent&) { SetPage(ePage, false); });
    pButtons->Add(pAll, 0, wxRIGHT, 8);
    pButtons->Add(pNone, 0, wxRIGHT, 8);
    if (ePage == PageGeneral) {
        auto* pAllTabs = new wxButton(pPage, IdAllForAllTabs, "All for all tabs");
        auto* pNoneTabs = new wxButton(pPage, IdNoneForAllTabs, "None for all tabs");
        pAllTabs->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { SetAllPages(true); });
        pNoneTabs->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { SetAllPages(false); });
        pButtons->Add(pAllTabs, 0, wxRIGHT, 8);
        pButtons->Add(pNoneTabs, 0, wxRIGHT, 8);
    }
    pSizer->AddStretchSpacer();
    pSizer->Add(pButtons, 0, wxALL, 8);
    pPage->SetSizer(pSizer);
    return pPage;
}

void CPrintFlagsSheet::ReadBoxes() {
    for (int nPage = 0; nPage < PrintPageCount; ++nPage)
        for (size_t i = 0; i < m_aBoxes[nPage].size(); ++i)
            m_data.SetChecked(static_cast<EPrintPage>(nPage), i, m_aBoxes[nPage][i]->GetValue());
    m_data.m_strPrintTitle = FromWx(m_pTitle->GetValue());
}

void CPrintFlagsSheet::ShowData() {
    for (int nPage = 0; nPage < PrintPageCount; ++nPage)
        for (size_t i = 0; i < m_aBoxes[nPage].size(); ++i)
            m_aBoxes[nPage][i]->SetValue(m_data.IsChecked(static_cast<EPrintPage>(nPage), i));
    m_pTitle->ChangeValue(ToWx(m_data.m_strPrintTitle));
}

void CPrintFlagsSheet::SetPage(EPrintPage ePage, bool bAll) {
    ReadBoxes();
    m_data.SetPage(ePage, bAll);
    ShowData();
}

void CPrintFlagsSheet::SetAllPages(bool bAll) {
    ReadBoxes();
    m_data.SetAllPages(bAll);
    ShowData();
}

void CPrintFlagsSheet::OnOk(wxCommandEvent&) {
    ReadBoxes();
    const std::u16string_view strProblem = m_data.Problem();
    if (!strProblem.empty()) {
        Host().ShowMessage(strProblem);
        return;
    }
    m_data.StoreInto(m_doc.m_print);
    ApplyPrintFlags(m_doc);
    EndModal(wxID_OK);
}

}  // namespace zv
