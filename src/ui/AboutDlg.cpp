#include "ui/AboutDlg.h"

#include <wx/artprov.h>
#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/filename.h>
#include <wx/sizer.h>
#include <wx/statbmp.h>
#include <wx/stattext.h>
#include <wx/stdpaths.h>

#include "Version.h"
#include "core/host/Host.h"
#include "platform/FileSystem.h"
#include "platform/Shell.h"
#include "ui/WxText.h"
#include "ui/logic/AboutLinks.h"

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
    AddLinkButtons(pSizer);
    if (bStartup) {
        m_pDontShowAgain = new wxCheckBox(this, wxID_ANY, "Don't show again on startup");
        pSizer->Add(m_pDontShowAgain, 0, wxLEFT | wxRIGHT, 10);
    }
    pSizer->Add(CreateStdDialogButtonSizer(wxOK), 0, wxEXPAND | wxALL, 10);
    SetSizerAndFit(pSizer);
    CentreOnParent();
}

void CAboutDlg::AddLinkButtons(wxSizer* pSizer) {
    const wxFileName program(wxStandardPaths::Get().GetExecutablePath());
    const CAboutLinks links =
        FindAboutLinks(FromWx(program.GetPath()), [](std::u16string_view strPath) {
            return platform::GetFileAttributes(strPath) != ATTR_INVALID;
        });
    auto* pRow = new wxBoxSizer(wxHORIZONTAL);
    const struct {
        int m_nId;
        const char* m_pszLabel;
        const std::u16string& m_strTarget;
    } aButtons[] = {{IdReadme, "Read Me", links.m_strReadme},
                    {IdDocumentation, "Documentation", links.m_strDocs}};
    for (const auto& button : aButtons) {
        auto* pButton = new wxButton(this, button.m_nId, button.m_pszLabel);
        pButton->Enable(!button.m_strTarget.empty());
        pButton->SetToolTip(ToWx(button.m_strTarget));
        // The file is handed to the desktop's opener as it is, never
        // through a command line.
        pButton->Bind(wxEVT_BUTTON, [strTarget = button.m_strTarget](wxCommandEvent&) {
            if (platform::ShellOpen(strTarget) <= 32)
                Host().ShowMessage(u"Cannot open " + strTarget);
        });
        pRow->Add(pButton, 0, wxRIGHT, 6);
    }
    pSizer->Add(pRow, 0, wxLEFT | wxRIGHT | wxBOTTOM, 10);
}

bool CAboutDlg::DontShowAgain() const { return m_pDontShowAgain && m_pDontShowAgain->GetValue(); }

}  // namespace zv
