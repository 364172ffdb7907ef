// "Size and Date Filters": the six date tests with their absolute
// and relative forms, the date relations, the sizes, streams, attributes
// and the path length. Changes count from the next scan on.
#pragma once

#include <wx/dialog.h>

#include <array>

#include "ui/logic/SizeDateFilterEdit.h"

class wxButton;
class wxCheckBox;
class wxSpinCtrl;
class wxTextCtrl;

namespace zv {

class CWZorvaneDoc;

class CSizeDateFilterDlg : public wxDialog {
public:
    CSizeDateFilterDlg(wxWindow* pParent, CWZorvaneDoc& doc);

private:
    struct CDateRow {
        wxCheckBox* m_pAbsolute;
        wxButton* m_pAbsoluteDate;
        wxCheckBox* m_pRelative;
        wxButton* m_pRelativeDate;
    };

    wxCheckBox* AddBox(wxSizer* pSizer, const wxString& strText, int32_t bValue);
    void ShowDateTexts();
    void OnAbsoluteDate(EDateFilter eDate);
    void OnRelativeDate(EDateFilter eDate);
    void OnAttribute(wxCommandEvent& event);
    void OnHasStreams(wxCommandEvent& event);
    void OnOk(wxCommandEvent& event);

    CWZorvaneDoc& m_doc;
    CSizeDateFilterValues m_values;
    std::array<CDateRow, DateFilterCount> m_aDateRows{};
    wxCheckBox* m_pCreatedLater;
    wxCheckBox* m_pAnyDateLow;
    wxCheckBox* m_pMinSize;
    wxTextCtrl* m_pMinSizeText;
    wxCheckBox* m_pMaxSize;
    wxTextCtrl* m_pMaxSizeText;
    wxCheckBox* m_pHasStreams;
    std::array<std::array<wxCheckBox*, 2>, AttributeFilterCount> m_aAttributeBoxes{};
    wxSpinCtrl* m_pPathLength;
};

}  // namespace zv
