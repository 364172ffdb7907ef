// The about box: the program's name and version, the "64 bit" label, buttons
// that open the project's read-me and documentation folder and, at start-up,
// the box that silences it there.
#pragma once

#include <wx/dialog.h>

class wxCheckBox;
class wxSizer;

namespace zv {

class CAboutDlg : public wxDialog {
public:
    // bStartup adds "Don't show again on startup".
    CAboutDlg(wxWindow* pParent, bool bStartup);

    // The box was ticked when the dialog closed.
    bool DontShowAgain() const;

    enum { IdReadme = wxID_HIGHEST + 1, IdDocumentation };

private:
    void AddLinkButtons(wxSizer* pSizer);

    wxCheckBox* m_pDontShowAgain = nullptr;
};

}  // namespace zv
