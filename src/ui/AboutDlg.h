// The about box: the program's name and version, the "64 bit" label and, at
// start-up, the box that silences it there.
#pragma once

#include <wx/dialog.h>

class wxCheckBox;

namespace zv {

class CAboutDlg : public wxDialog {
public:
    // bStartup adds "Don't show again on startup".
    CAboutDlg(wxWindow* pParent, bool bStartup);

    // The box was ticked when the dialog closed.
    bool DontShowAgain() const;

private:
    wxCheckBox* m_pDontShowAgain = nullptr;
};

}  // namespace zv
