// "Duplicate Options": the criteria of the duplicate file and directory
// searches and what goes with a search. Its smaller form, "Duplicate File
// Options", has the five file criteria alone.
#pragma once

#include <wx/dialog.h>

#include <array>

#include "core/document/DocumentOptions.h"

class wxCheckBox;
class wxTextCtrl;

namespace zv {

class CDuplicateOptionsDlg : public wxDialog {
public:
    CDuplicateOptionsDlg(wxWindow* pParent, CDocumentOptions& options, bool bFilesOnly = false);

private:
    wxCheckBox* AddBox(wxSizer* pSizer, const wxString& strText, int32_t bValue);
    void OnCrcBox(wxCommandEvent& event);
    void OnBrowse(wxCommandEvent& event);
    void OnOk(wxCommandEvent& event);
    // The boxes as options; the rest stays as it is in the document.
    CDocumentOptions Edited() const;

    CDocumentOptions& m_options;
    bool m_bFilesOnly;
    wxCheckBox* m_pBySize;
    wxCheckBox* m_pByName;
    wxCheckBox* m_pByCrc;
    wxCheckBox* m_pByCrcWithoutTags;
    wxCheckBox* m_pByteByByte;
    std::array<wxCheckBox*, DupDirCriterionCount> m_aDirBoxes{};
    wxCheckBox* m_pShowColor = nullptr;
    wxCheckBox* m_pFilesAfterScan = nullptr;
    wxCheckBox* m_pDirsAfterScan = nullptr;
    wxCheckBox* m_pOnlyDupFiles = nullptr;
    wxCheckBox* m_pDisableSaver = nullptr;
    wxCheckBox* m_pPlaySound = nullptr;
    wxTextCtrl* m_pSoundFile = nullptr;
};

}  // namespace zv
