// The error list at the end of a bulk operation: one report list, OK.
#pragma once

#include <wx/dialog.h>

#include <string_view>

namespace zv {

class CErrorList;

class CErrorListDlg : public wxDialog {
public:
    CErrorListDlg(wxWindow* pParent, std::u16string_view strTitle, const CErrorList& errors);
};

}  // namespace zv
