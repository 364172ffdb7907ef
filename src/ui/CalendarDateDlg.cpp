#include "ui/CalendarDateDlg.h"

#include <wx/calctrl.h>
#include <wx/sizer.h>

#include "ui/WxText.h"
#include "ui/logic/SizeDateFilterEdit.h"

namespace zv {

CCalendarDateDlg::CCalendarDateDlg(wxWindow* pParent, std::u16string_view strTitle, FILETIME ftDate)
    : wxDialog(pParent, wxID_ANY, ToWx(strTitle)) {
    wxDateTime date = wxDateTime::Today();
    int nYear = 0, nMonth = 0, nDay = 0;
    if (!IsZero(ftDate) && FileTimeToLocalDay(ftDate, nYear, nMonth, nDay))
        date.Set(static_cast<wxDateTime::wxDateTime_t>(nDay),
                 static_cast<wxDateTime::Month>(nMonth - 1), nYear);
    auto* pSizer = new wxBoxSizer(wxVERTICAL);
    m_pCalendar = new wxCalendarCtrl(this, wxID_ANY, date);
    pSizer->Add(m_pCalendar, 1, wxEXPAND | wxALL, 10);
    pSizer->Add(CreateStdDialogButtonSizer(wxOK | wxCANCEL), 0, wxEXPAND | wxALL, 10);
    SetSizerAndFit(pSizer);
    CentreOnParent();
}

FILETIME CCalendarDateDlg::Date() const {
    const wxDateTime date = m_pCalendar->GetDate();
    return LocalDayToFileTime(date.GetYear(), static_cast<int>(date.GetMonth()) + 1, date.GetDay());
}

}  // namespace zv
