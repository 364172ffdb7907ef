// "Printing options": one tab per group of print flags with their check
// boxes. It works on a copy of the document's flags; OK writes them back
// and recomputes the report columns, so they are also what a settings file
// saves.
#pragma once

#include <wx/dialog.h>

#include <array>
#include <vector>

#include "ui/logic/PrintFlagsPages.h"

class wxCheckBox;
class wxPanel;
class wxTextCtrl;
class wxWindow;

namespace zv {

class CWZorvaneDoc;

class CPrintFlagsSheet : public wxDialog {
public:
    CPrintFlagsSheet(wxWindow* pParent, CWZorvaneDoc& doc);

    enum { IdAllForAllTabs = wxID_HIGHEST + 1, IdNoneForAllTabs };

private:
    wxPanel* BuildPage(wxWindow* pParent, EPrintPage ePage);
    void ReadBoxes();
    void ShowData();
    void SetPage(EPrintPage ePage, bool bAll);
    void SetAllPages(bool bAll);
    void OnOk(wxCommandEvent& event);

    CWZorvaneDoc& m_doc;
    CPrintFlagsSheetData m_data;
    std::array<std::vector<wxCheckBox*>, PrintPageCount> m_aBoxes;
    wxTextCtrl* m_pTitle = nullptr;
};

}  // namespace zv
