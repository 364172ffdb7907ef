// The relative form of one date filter: days, hours, minutes and seconds
// added to the time each scan starts (negative for the past).
#pragma once

#include <wx/dialog.h>

#include <string_view>

#include "core/document/FilterSet.h"

class wxSpinCtrl;

namespace zv {

class CRelativeDateDlg : public wxDialog {
public:
    CRelativeDateDlg(wxWindow* pParent, std::u16string_view strTitle, const CDateFilter& date);

    // OK: the four numbers into the filter (all 0 leave it as it was).
    void Apply(CDateFilter& date) const;

private:
    wxSpinCtrl* m_apFields[4];
};

}  // namespace zv
