// "Set maximum directory depth": the depth a scan goes down to, or no
// limit. The value counts from the next scan on.
#pragma once

#include <wx/dialog.h>

#include <cstdint>

class wxCheckBox;
class wxTextCtrl;

namespace zv {

class CMaxDepthDlg : public wxDialog {
public:
    CMaxDepthDlg(wxWindow* pParent, int32_t nDepth);

    int32_t Depth() const { return m_nDepth; }

private:
    void OnNoLimit(wxCommandEvent& event);
    void OnOk(wxCommandEvent& event);

    int32_t m_nDepth;
    wxTextCtrl* m_pDepth;
    wxCheckBox* m_pNoLimit;
};

}  // namespace zv
