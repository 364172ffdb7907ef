// "Selected Root Directories": the roots in force on the left, the edit box
// and its buttons, and the previous choices on the right. The choices
// themselves are CRootSelection's.
#pragma once

#include <wx/dialog.h>

#include "core/scan/RootSelection.h"

class wxListBox;
class wxTextCtrl;

namespace zv {

class CSelectRootsDlg : public wxDialog {
public:
    CSelectRootsDlg(wxWindow* pParent, CWZorvaneDoc& doc);

    // What tests and the buttons use.
    wxTextCtrl* EditBox() const { return m_pEdit; }
    void AddTyped();

private:
    void FillLists();
    std::vector<size_t> Selected(wxListBox* pList) const;
    void OnBrowse(wxCommandEvent& event);
    void OnDeleteSelected(wxCommandEvent& event);
    void OnDeleteAll(wxCommandEvent& event);
    void OnPreviousDoubleClick(wxCommandEvent& event);
    void OnPreviousMenu(wxContextMenuEvent& event);
    void OnRootsMenu(wxContextMenuEvent& event);
    void OnOk(wxCommandEvent& event);
    void OnCancel(wxCommandEvent& event);

    CRootSelection m_selection;
    wxListBox* m_pRoots;
    wxListBox* m_pPrevious;
    wxTextCtrl* m_pEdit;
};

}  // namespace zv
