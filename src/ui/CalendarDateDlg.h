// The calendar behind each absolute date button of the size and date
// filters: picks a day, kept as the start of that local day.
#pragma once

#include <wx/calctrl.h>
#include <wx/dialog.h>

#include <string_view>

#include "platform/FileTime.h"

namespace zv {

class CCalendarDateDlg : public wxDialog {
public:
    CCalendarDateDlg(wxWindow* pParent, std::u16string_view strTitle, FILETIME ftDate);

    FILETIME Date() const;

private:
    wxCalendarCtrl* m_pCalendar;
};

}  // namespace zv
