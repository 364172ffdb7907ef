// The dialog of one pattern list of the filter set: the patterns, an edit
// box, "Add" and "Remove". Changes count from the next scan on.
#pragma once

#include <wx/dialog.h>

#include "core/document/FilterSet.h"

class wxListBox;
class wxTextCtrl;

namespace zv {

class CWZorvaneDoc;

class CFilterListDlg : public wxDialog {
public:
    CFilterListDlg(wxWindow* pParent, CWZorvaneDoc& doc, EFilterList eList);

private:
    void Fill();
    void OnAdd(wxCommandEvent& event);
    void OnRemove(wxCommandEvent& event);
    void OnOk(wxCommandEvent& event);
    void OnCancel(wxCommandEvent& event);

    CWZorvaneDoc& m_doc;
    EFilterList m_eList;
    wxListBox* m_pEntries;
    wxTextCtrl* m_pEdit;
};

// Shows the list's entries that a user typed, in the list box.
void FillFilterEntries(wxListBox& list, const CFilterSet& filters, EFilterList eList);
// Marks the entries selected in the list box removed (until OK or Cancel).
void MarkSelectedFilterEntriesRemoved(const wxListBox& list, CFilterSet& filters,
                                      EFilterList eList);

}  // namespace zv
