// "Find": a file name or a directory path to look for in a list, with the
// direction of the search. It stays open until a search finds a row.
#pragma once

#include <wx/dialog.h>

#include <functional>

#include "ui/logic/ListSearch.h"

class wxCheckBox;
class wxRadioButton;
class wxTextCtrl;

namespace zv {

class CFindDlg : public wxDialog {
public:
    // The search selects the row it finds and says whether it found one.
    using Search = std::function<bool(const CFindRequest&, EFindFrom)>;
    CFindDlg(wxWindow* pParent, const CFindRequest& last, Search search);

    const CFindRequest& Request() const { return m_request; }

    enum { IdFindNext = wxID_HIGHEST + 1, IdFindPrev, IdFromBeginning, IdFromEnd };

private:
    void UpdateFields();
    void OnFind(EFindFrom eFrom);

    Search m_search;
    CFindRequest m_request;
    wxRadioButton* m_pDirRadio;
    wxRadioButton* m_pFileRadio;
    wxTextCtrl* m_pDirText;
    wxTextCtrl* m_pFileText;
    wxCheckBox* m_pCaseSensitive;
};

}  // namespace zv
