#include "ui/AboutDlg.h"

#include <wx/artprov.h>
#include <wx/checkbox.h>
#include <wx/sizer.h>
#include <wx/statbmp.h>
#include <wx/stattext.h>

#include "Version.h"

namespace zv {

CAboutDlg::CAboutDlg(wxWindow* pParent, bool bStartup)
    : wxDialog(pParent, wxID_ANY, "About Zorvane") {
    auto* pSizer = new wxBoxSizer(wxVERTICAL);
    auto* pTop = new wxBoxSizer(wxHORIZONTAL);
    pTop->Add(new wxStaticBitmap(this, wxID_ANY,
                                 wxArtProvider::GetBitmap(wxART_HARDDISK, wxART_MESSAGE_BOX)),
              0, wxALL, 10);
    auto* pTexts = new wxBoxSizer(wxVERTICAL);
    auto* pName = new wxStaticText(this, wxID_ANY, "Zorvane Version " ZORVANE_VERSION);
    pName->SetFont(pName->GetFont().Bold());
    pTexts->Add(pName, 0, wxBOTTOM, 6);
    pTexts->Add(new wxStaticText(this, wxID_ANY, "64 bit"), 0, wxBOTTOM, 6);
    pTexts->Add(new wxStaticText(this, wxID_ANY,
                                 "File-system reporting and housekeeping: scans, duplicates,\n"
                                 "largest files and directories, comparisons and reports."));
    pTop->Add(pTexts, 1, wxALL, 10);
    pSizer->Add(pTop, 1, wxEXPAND);
    if (bStartup) {
        m_pDontShowAgain = new wxCheckBox(this, wxID_ANY, "Don't show again on startup");
        pSizer->Add(m_pDontShowAgain, 0, wxLEFT | wxRIGHT, 10);
    }
    pSizer->Add(CreateStdDialogButtonSizer(wxOK), 0, wxEXPAND | wxALL, 10);
    SetSizerAndFit(pSizer);
    CentreOnParent();
}

bool CAboutDlg::DontShowAgain() const { return m_pDontShowAgain && m_pDontShowAgain->GetValue(); }

}  // namespace zv
