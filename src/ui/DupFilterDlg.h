// The dialogs of the two duplicate filters: the files, or the directories,
// whose identical copies are all a scan keeps. Each entry is read when it is
// added (a file is measured and its checksum taken, a directory is scanned
// into the filter's forest); the criteria a copy is judged by are those of
// "Duplicate File Options", which a button opens. Changes count from the
// next scan on.
#pragma once

#include <wx/dialog.h>

#include "core/document/FilterSet.h"

class wxCheckBox;
class wxListBox;
class wxTextCtrl;

namespace zv {

class CWZorvaneDoc;

class CDupFilterDlg : public wxDialog {
public:
    // eList is FilterDupFiles or FilterDupDirs.
    CDupFilterDlg(wxWindow* pParent, CWZorvaneDoc& doc, EFilterList eList);

    enum { IdBrowse = wxID_HIGHEST + 1, IdAdd, IdRemove, IdOptions };

private:
    bool ForDirectories() const { return m_eList == FilterDupDirs; }
    void Fill();
    void Add(const wxString& strText);
    void OnAdd(wxCommandEvent& event);
    void OnBrowse(wxCommandEvent& event);
    void OnRemove(wxCommandEvent& event);
    void OnOptions(wxCommandEvent& event);
    void OnOk(wxCommandEvent& event);
    void OnCancel(wxCommandEvent& event);

    CWZorvaneDoc& m_doc;
    EFilterList m_eList;
    wxListBox* m_pEntries;
    wxTextCtrl* m_pEdit;
    wxCheckBox* m_pWithSubdirs = nullptr;  // the directories' recursive box
};

}  // namespace zv
